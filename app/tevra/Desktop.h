// Uses the desktop's dialogs and viewers.
#pragma once

namespace tevra {

/// From now on messages, file dialogs and viewers are those of the desktop.
void UseDesktop();

}  // namespace tevra
