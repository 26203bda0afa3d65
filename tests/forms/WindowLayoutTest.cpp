// How windows are arranged inside a frame.
#include <gtest/gtest.h>

#include "platform/forms/WindowLayout.h"

namespace tevra::test {
namespace {

using windows::WindowSize;

void ExpectApart(const std::vector<QRect>& places) {
  for (std::size_t i = 0; i < places.size(); ++i) {
    for (std::size_t j = i + 1; j < places.size(); ++j) {
      EXPECT_FALSE(places[i].intersects(places[j])) << i << " and " << j;
    }
  }
}

TEST(WindowLayout, TiledWindowsNeverOverlapNorAreCut) {
  // A list, a card, a plan, a small list: what they ask for at least.
  const std::vector<WindowSize> all{{{1200, 700}, {820, 300}},
                                    {{1124, 690}, {570, 275}},
                                    {{1000, 560}, {420, 330}},
                                    {{620, 400}, {530, 275}}};
  for (const QSize& area : {QSize(1356, 640), QSize(1910, 960), QSize(640, 480)}) {
    for (std::size_t count = 1; count <= all.size(); ++count) {
      for (const bool sideBySide : {false, true}) {
        const std::vector<WindowSize> windows(all.begin(),
                                              all.begin() + static_cast<std::ptrdiff_t>(count));
        const std::vector<QRect> places = windows::Tile(area, windows, sideBySide);
        ASSERT_EQ(places.size(), count);
        ExpectApart(places);
        QRect covered;
        for (std::size_t i = 0; i < count; ++i) {
          EXPECT_EQ(places[i].size().expandedTo(windows[i].least), places[i].size()) << i;
          covered = covered.united(places[i]);
        }
        if (area.width() == 1910) {
          EXPECT_EQ(covered, QRect({0, 0}, area)) << count;
        }
      }
    }
  }
}

TEST(WindowLayout, TilesAreStripsWhereTheyFit) {
  const std::vector<WindowSize> three(3, {{300, 200}, {100, 100}});
  EXPECT_EQ(windows::Tile({900, 601}, three, false),
            (std::vector<QRect>{{0, 0, 900, 200}, {0, 200, 900, 200}, {0, 400, 900, 201}}));
  EXPECT_EQ(windows::Tile({900, 600}, three, true),
            (std::vector<QRect>{{0, 0, 300, 600}, {300, 0, 300, 600}, {600, 0, 300, 600}}));
  // One that needs more than its part takes it from the others.
  std::vector<WindowSize> unequal = three;
  unequal[1].least = {500, 100};
  EXPECT_EQ(windows::Tile({900, 600}, unequal, true),
            (std::vector<QRect>{{0, 0, 200, 600}, {200, 0, 500, 600}, {700, 0, 200, 600}}));
  // But not so much that they are of no use: then there are two rows.
  unequal[1].least = {560, 100};
  EXPECT_EQ(windows::Tile({900, 600}, unequal, true),
            (std::vector<QRect>{{0, 0, 340, 600}, {340, 0, 560, 300}, {340, 300, 560, 300}}));
  EXPECT_TRUE(windows::Tile({900, 600}, {}, true).empty());
}

TEST(WindowLayout, ACascadeShowsEveryTitleWhateverTheSizes) {
  const QSize area(1356, 640);
  const std::vector<WindowSize> tall(5, {{450, 640}, {400, 300}});
  const std::vector<QRect> places = windows::Cascade(area, tall);
  for (std::size_t i = 0; i < places.size(); ++i) {
    const int step = static_cast<int>(i) * windows::kTitleStep;
    EXPECT_EQ(places[i].topLeft(), QPoint(step, step));
    EXPECT_TRUE(QRect({0, 0}, area).contains(places[i])) << i;
    EXPECT_EQ(places[i].width(), 450);
  }
  // A window that needs the whole area stays inside it.
  const std::vector<WindowSize> wide(2, {{2000, 300}, {1356, 300}});
  EXPECT_EQ(windows::Cascade(area, wide)[1].topLeft(), QPoint(0, windows::kTitleStep));
  const std::vector<QRect> many = windows::Cascade(area, std::vector<WindowSize>(12, tall[0]));
  EXPECT_EQ(many[9].topLeft(), QPoint(0, 0));
}

}  // namespace
}  // namespace tevra::test
