// The rights of the logged-in user, as the menu of the window program gives them.
#pragma once

#include <string>

namespace tevra::batch {

/// Throws Refusal "Utilizatorul .. nu are dreptul sa <what> !" when the user's type may not use
/// this item or menu.
void RequireMenuItem(const std::string& item, const std::string& what);

}  // namespace tevra::batch
