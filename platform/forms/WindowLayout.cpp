#include "platform/forms/WindowLayout.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace tevra::windows {

// ---- Cascade ------------------------------------------------------------------------------------

std::vector<QRect> Cascade(const QSize& area, const std::vector<WindowSize>& windows) {
  constexpr int kDeepest = 8;  // steps; more would leave the windows too small
  const int steps = std::clamp(static_cast<int>(windows.size()) - 1, 0, kDeepest);
  const QSize room = area - QSize(steps * kTitleStep, steps * kTitleStep);
  std::vector<QRect> places;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    const QSize size = windows[i].wanted.boundedTo(room).expandedTo(windows[i].least);
    const int step = static_cast<int>(i) % (steps + 1) * kTitleStep;
    const QSize rest = (area - size).expandedTo({0, 0});
    places.emplace_back(QPoint(std::min(step, rest.width()), std::min(step, rest.height())), size);
  }
  return places;
}

// ---- Tile ---------------------------------------------------------------------------------------

namespace {

// Equal parts of a length, but none below its least; together more than the length only where the
// least ones are.
std::vector<int> Parts(int length, const std::vector<int>& least) {
  std::vector<int> parts(least.size(), -1);
  int rest = length;
  auto open = static_cast<int>(least.size());
  for (bool changed = true; changed && open > 0;) {
    changed = false;
    const int share = rest / open;
    for (std::size_t i = 0; i < least.size(); ++i) {
      if (parts[i] >= 0 || least[i] <= share) continue;
      parts[i] = least[i];
      rest -= least[i];
      --open;
      changed = true;
      break;
    }
  }
  for (int& part : parts) {
    if (part >= 0) continue;
    part = rest / open;
    rest -= part;
    --open;
  }
  return parts;
}

// Windows in so many rows, as equal in number as can be, each row across the whole width.
std::vector<QRect> InRows(const QSize& area, const std::vector<QSize>& least, std::size_t rows) {
  const auto firstOf = [&](std::size_t row) { return least.size() * row / rows; };
  std::vector<int> highest;
  for (std::size_t row = 0; row < rows; ++row) {
    int height = 0;
    for (std::size_t i = firstOf(row); i < firstOf(row + 1); ++i) {
      height = std::max(height, least[i].height());
    }
    highest.push_back(height);
  }
  const std::vector<int> heights = Parts(area.height(), highest);
  std::vector<QRect> places;
  int top = 0;
  for (std::size_t row = 0; row < rows; ++row) {
    std::vector<int> narrowest;
    for (std::size_t i = firstOf(row); i < firstOf(row + 1); ++i) {
      narrowest.push_back(least[i].width());
    }
    int left = 0;
    for (const int width : Parts(area.width(), narrowest)) {
      places.emplace_back(left, top, width, heights[row]);
      left += width;
    }
    top += heights[row];
  }
  return places;
}

int BeyondArea(const QSize& area, const std::vector<QRect>& places) {
  const QRect all = std::accumulate(places.begin(), places.end(), QRect(),
                                    [](const QRect& a, const QRect& b) { return a.united(b); });
  const QSize beyond = (all.size() - area).expandedTo({0, 0});
  return beyond.width() + beyond.height();
}

}  // namespace

std::vector<QRect> Tile(const QSize& area, const std::vector<WindowSize>& windows,
                        bool sideBySide) {
  // Side by side is one under the other with the axes exchanged.
  const QSize turned = sideBySide ? area.transposed() : area;
  std::vector<QSize> least;
  for (const WindowSize& window : windows) {
    least.push_back(sideBySide ? window.least.transposed() : window.least);
  }
  std::vector<QRect> best;
  int bestBeyond = std::numeric_limits<int>::max();
  for (std::size_t rows = least.size(); rows > 0 && bestBeyond > 0; --rows) {
    const std::vector<QRect> places = InRows(turned, least, rows);
    const int beyond = BeyondArea(turned, places);
    if (beyond >= bestBeyond) continue;
    best = places;
    bestBeyond = beyond;
  }
  if (!sideBySide) return best;
  for (QRect& place : best) place = {place.y(), place.x(), place.height(), place.width()};
  return best;
}

}  // namespace tevra::windows
