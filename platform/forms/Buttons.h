// The buttons of the screens.
#pragma once

#include <QPushButton>

namespace tevra {

/// A button with its name, caption and tool tip; all buttons have the same minimum width.
QPushButton* MakeButton(const char* name, const char* caption, const char* tip, QWidget* parent);

}  // namespace tevra
