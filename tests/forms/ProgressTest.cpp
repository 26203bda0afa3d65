// The window that tells how far long work is.
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/forms/frmProgress.h"

namespace tevra::test {
namespace {

// Works until the window has come, which it does after a moment.
bool WorkUntilShown(const frmProgress& window, const Progress& progress, int done, int of) {
  QElapsedTimer time;
  time.start();
  constexpr int kLongest = 5000;
  while (!window.isVisible() && time.elapsed() < kLongest) {
    if (!progress(done, of)) return false;
    QTest::qSleep(5);
  }
  return window.isVisible();
}

TEST(ProgressWindow, ComesAfterAMomentWithTheWorksOwnWords) {
  frmProgress window("Foaie de calcul", {}, nullptr);
  const Progress progress = window.Asked();
  EXPECT_TRUE(progress(1, 10));
  EXPECT_FALSE(window.isVisible());
  ASSERT_TRUE(WorkUntilShown(window, progress, 100, 32767));
  EXPECT_EQ(window.lblStare->text(), "Randul 100 din 32767");
  EXPECT_EQ(window.Bar->maximum(), 32767);
  EXPECT_EQ(window.Bar->value(), 100);
  frmProgress pages("Tiparire", {"Pagina %1 din %2", "Se pregatesc paginile: %1"}, nullptr);
  ASSERT_TRUE(WorkUntilShown(pages, pages.Asked(), 7, 0));
  EXPECT_EQ(pages.lblStare->text(), "Se pregatesc paginile: 7");
}

TEST(ProgressWindow, TheWorkHearsThatTheUserGaveUp) {
  for (const bool byButton : {true, false}) {
    frmProgress window("Fisier CSV", {}, nullptr);
    const Progress progress = window.Asked();
    ASSERT_TRUE(WorkUntilShown(window, progress, 1, 0));
    byButton ? window.cmdRenunta->click() : static_cast<void>(window.close());
    QTest::qSleep(100);
    EXPECT_FALSE(progress(2, 0));
  }
}

}  // namespace
}  // namespace tevra::test
