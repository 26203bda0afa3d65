// Where the windows inside a frame stand when they are arranged.
#pragma once

#include <QRect>
#include <QSize>
#include <vector>

namespace tevra::windows {

constexpr int kTitleStep = 28;  ///< from one window's title to the next, in pixels

/// What a window asks for.
struct WindowSize {
  QSize wanted;  ///< its own size
  QSize least;   ///< below this its content is cut
};

/// Each a title lower and further right than the one before, in its own size where the area has
/// room. Behind as many as the area has room for it begins again at the corner.
std::vector<QRect> Cascade(const QSize& area, const std::vector<WindowSize>& windows);

/// Covers the area with windows that do not overlap: in strips, one under the other or, where
/// `sideBySide`, one beside the other; where strips would cut a window, or leave it much less than
/// its part, in several columns or rows. Where nothing fits, the windows keep their least sizes and
/// go beyond the area.
std::vector<QRect> Tile(const QSize& area, const std::vector<WindowSize>& windows, bool sideBySide);

}  // namespace tevra::windows
