// The screens that the menu's items open.
#pragma once

#include "session/frmMain.h"

namespace tevra {

void HandInScreens(frmMain& frame);

}  // namespace tevra
