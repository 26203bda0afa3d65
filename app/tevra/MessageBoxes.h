// Messages in a window.
#pragma once

#include "platform/system/MessageBox.h"

namespace tevra {

/// Shows a message modally above the active window and returns the pressed button's code.
long ShowMessageBox(const MessageRequest& request);

}  // namespace tevra
