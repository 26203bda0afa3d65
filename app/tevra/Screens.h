// Which screen each item of the menu opens.
#pragma once

#include "session/frmMain.h"

namespace tevra {

void HandInScreens(frmMain& frame);

}  // namespace tevra
