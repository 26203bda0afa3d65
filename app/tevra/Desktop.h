// The desktop's own dialogs and programs, for the program to ask.
#pragma once

namespace tevra {

/// Messages, the choice of a file and the viewing of one go to the desktop from now on.
void UseDesktop();

}  // namespace tevra
