// The buttons of the screens.
#pragma once

#include <QPushButton>

namespace tevra {

/// A button under its name, with its caption and tool tip, none of them narrower than the others.
QPushButton* MakeButton(const char* name, const char* caption, const char* tip, QWidget* parent);

}  // namespace tevra
