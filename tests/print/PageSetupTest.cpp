// The page that the user chooses and that is remembered for him.
#include <QApplication>
#include <QTimer>
#include <QtTest>

#include "platform/print/PageSettings.h"
#include "platform/print/frmPageSetup.h"
#include "platform/system/Settings.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

class PageSetup : public ::testing::Test {
 protected:
  PageSetup() : before_(SetSettings(std::make_unique<MemorySettings>())) {}
  ~PageSetup() override { SetSettings(std::move(before_)); }

  MessageRecorder messages_;

 private:
  std::unique_ptr<SettingsStore> before_;
};

// Asks for the page, with a user who does this.
bool Ask(QPageLayout& layout, const std::function<void(frmPageSetup&)>& user,
         const std::string& kind = {}) {
  QTimer::singleShot(0, qApp, [&] {
    auto* screen = qobject_cast<frmPageSetup*>(QApplication::activeModalWidget());
    ASSERT_TRUE(screen);
    user(*screen);
  });
  return AskPageSetup(layout, kind);
}

TEST_F(PageSetup, WhatWasAcceptedIsRemembered) {
  QPageLayout layout = RememberedPageLayout();
  EXPECT_EQ(layout, DefaultPageLayout());
  EXPECT_TRUE(Ask(layout, [](frmPageSetup& screen) {
    screen.cboHartie->setCurrentText("A3");
    QTest::mouseClick(screen.optPeisaj, Qt::LeftButton, {}, QPoint(8, 8));
    screen.txtMargine[0]->SetText("12,5");
    screen.txtMargine[3]->SetText("60");
    QTest::keyClick(screen.txtMargine[3], Qt::Key_Return);
  }));
  EXPECT_EQ(layout.pageSize().id(), QPageSize::A3);
  EXPECT_EQ(layout.orientation(), QPageLayout::Landscape);
  EXPECT_EQ(layout.margins(QPageLayout::Millimeter), QMarginsF(12.5, 15, 15, 60));
  EXPECT_EQ(Settings().Get(kPageSetting), "A3 landscape 12.5 15 15 60");
  EXPECT_EQ(RememberedPageLayout(), layout);
}

TEST_F(PageSetup, EachKindOfDocumentHasItsPageAndElseTheGeneralOne) {
  const QPageLayout general =
      MakePageLayout(QPageSize::A5, QPageLayout::Portrait, {10, 10, 10, 10});
  RememberPageLayout(general);
  QPageLayout layout = RememberedPageLayout("DataReportCHE");
  EXPECT_EQ(layout, general);
  const auto landscape = [](frmPageSetup& screen) {
    EXPECT_TRUE(screen.chkGeneral->isVisible());
    QTest::mouseClick(screen.optPeisaj, Qt::LeftButton, {}, QPoint(8, 8));
    screen.cmdAccept->click();
  };
  EXPECT_TRUE(Ask(layout, landscape, "DataReportCHE"));
  EXPECT_EQ(RememberedPageLayout("DataReportCHE").orientation(), QPageLayout::Landscape);
  EXPECT_EQ(RememberedPageLayout("frmImo.TDBGrid1"), general);
  EXPECT_EQ(RememberedPageLayout(), general);
  // As the general one too, where the user says so.
  EXPECT_TRUE(Ask(
      layout,
      [](frmPageSetup& screen) {
        screen.cboHartie->setCurrentText("A3");
        screen.chkGeneral->setChecked(true);
        screen.cmdAccept->click();
      },
      "frmImo.TDBGrid1"));
  EXPECT_EQ(RememberedPageLayout().pageSize().id(), QPageSize::A3);
  EXPECT_EQ(RememberedPageLayout("DataReportCHE").pageSize().id(), QPageSize::A5);
  Settings().Set("Pagini/DataReportCHE", "stricat");
  EXPECT_EQ(RememberedPageLayout("DataReportCHE").pageSize().id(), QPageSize::A3);
}

TEST_F(PageSetup, GivenUpNothingChanges) {
  QPageLayout layout = DefaultPageLayout();
  EXPECT_FALSE(Ask(layout, [](frmPageSetup& screen) {
    screen.cboHartie->setCurrentText("A5");
    QTest::keyClick(screen.txtMargine[0], Qt::Key_Escape);
  }));
  EXPECT_EQ(layout, DefaultPageLayout());
  EXPECT_EQ(Settings().Get(kPageSetting), std::nullopt);
}

TEST_F(PageSetup, MarginsOutOfRangeAreRefusedByName) {
  frmPageSetup screen(DefaultPageLayout());
  screen.show();
  for (const char* wrong : {"", "1,9", "60,1", "-5", "abc", "0.5"}) {
    screen.txtMargine[1]->SetText(wrong);
    screen.cmdAccept->click();
    ASSERT_FALSE(screen.Chosen()) << wrong;
  }
  ASSERT_EQ(messages_.shown.size(), 6u);
  EXPECT_EQ(messages_.shown[0].prompt,
            "Marginea din dreapta trebuie sa fie un numar intre 2 si 60 mm !");
  EXPECT_TRUE(screen.isVisible());
}

TEST_F(PageSetup, APageWithNothingLeftToPrintOnIsRefused) {
  frmPageSetup screen(DefaultPageLayout());
  screen.show();
  screen.cboHartie->setCurrentText("A5");
  screen.txtMargine[0]->SetText("60");
  screen.txtMargine[1]->SetText("60");
  screen.cmdAccept->click();
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_EQ(messages_.shown[0].prompt,
            "Marginile nu lasa loc pe hartia A5: trebuie sa ramana cel putin 40 x 40 mm de "
            "tiparit !");
  EXPECT_FALSE(screen.Chosen());
  screen.txtMargine[1]->SetText("40");
  screen.cmdAccept->click();
  EXPECT_TRUE(screen.Chosen());
}

TEST_F(PageSetup, ADamagedSettingIsTheDefaultPage) {
  for (const char* damaged :
       {"", "A4", "A4 portrait 15 15 15", "B7 portrait 15 15 15 15", "A4 oblic 15 15 15 15",
        "A4 portrait 15 15 15 1", "A4 portrait 15 15 15 nan", "A4 portrait 15 15 15 15,5",
        "A5 portrait 60 15 60 15", "A4 portrait 15 15 15 15 15", "A4 portrait 1e9 15 15 15"}) {
    Settings().Set(kPageSetting, damaged);
    EXPECT_EQ(RememberedPageLayout(), DefaultPageLayout()) << damaged;
  }
}

}  // namespace
}  // namespace tevra::test
