#include "platform/forms/WindowLayout.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

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
// least ones are. `squeezed`: set when a part is much smaller than an equal one.
std::vector<int> Parts(int length, const std::vector<int>& least, bool& squeezed) {
  std::vector<int> parts(least.size(), -1);
  int rest = length;
  auto open = static_cast<int>(least.size());
  for (std::size_t i = 0; i < least.size();) {
    if (parts[i] >= 0 || least[i] <= rest / open) {
      ++i;
      continue;
    }
    // It takes from the others, so that they are looked at again.
    parts[i] = least[i];
    rest -= least[i];
    if (--open == 0) break;
    i = 0;
  }
  const int equal = length / static_cast<int>(std::max<std::size_t>(least.size(), 1));
  for (int& part : parts) {
    if (part < 0) {
      part = rest / open--;
      rest -= part;
    }
    squeezed = squeezed || 3 * part < 2 * equal;
  }
  return parts;
}

struct Shape {
  std::vector<QRect> places;
  int beyond = 0;         // the area, in both directions
  bool squeezed = false;  // some windows by the others

  bool IsBetterThan(const Shape& other) const {
    return std::tie(beyond, squeezed) < std::tie(other.beyond, other.squeezed);
  }
};

// Windows in so many rows, as equal in number as can be, each row across the whole width.
Shape InRows(const QSize& area, const std::vector<QSize>& least, std::size_t rows) {
  const auto firstOf = [&](std::size_t row) { return least.size() * row / rows; };
  std::vector<int> highest;
  for (std::size_t row = 0; row < rows; ++row) {
    int height = 0;
    for (std::size_t i = firstOf(row); i < firstOf(row + 1); ++i) {
      height = std::max(height, least[i].height());
    }
    highest.push_back(height);
  }
  Shape shape;
  const std::vector<int> heights = Parts(area.height(), highest, shape.squeezed);
  int top = 0;
  int widest = 0;
  for (std::size_t row = 0; row < rows; ++row) {
    std::vector<int> narrowest;
    for (std::size_t i = firstOf(row); i < firstOf(row + 1); ++i) {
      narrowest.push_back(least[i].width());
    }
    int left = 0;
    for (const int width : Parts(area.width(), narrowest, shape.squeezed)) {
      shape.places.emplace_back(left, top, width, heights[row]);
      left += width;
    }
    top += heights[row];
    widest = std::max(widest, left);
  }
  shape.beyond = std::max(0, widest - area.width()) + std::max(0, top - area.height());
  return shape;
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
  Shape best{{}, std::numeric_limits<int>::max(), true};
  for (std::size_t rows = least.size(); rows > 0; --rows) {
    Shape shape = InRows(turned, least, rows);
    if (shape.IsBetterThan(best)) best = std::move(shape);
  }
  if (!sideBySide) return best.places;
  for (QRect& place : best.places) place = {place.y(), place.x(), place.height(), place.width()};
  return best.places;
}

}  // namespace tevra::windows
