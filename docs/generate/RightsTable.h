// The table of rights in the user's guide.
#pragma once

#include <string>
#include <vector>

#include "session/MenuTable.h"

namespace tevra {

/// The menu's items with the types of users that may use them, as an HTML table. A menu whose items
/// all have the same rights is one row. Items without an action are left out.
std::string RightsTable(const std::vector<MenuTop>& menu);

}  // namespace tevra
