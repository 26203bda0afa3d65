// The main frame's menu, as a table.
#pragma once

#include <string>
#include <vector>

namespace tevra {

/// What an item does.
enum class MenuAction {
  kSeparator,
  kNone,    ///< has no action: shown disabled
  kScreen,  ///< opens a screen or starts work, by a function that the program sets
  kFrame,   ///< work of the frame itself
};

struct MenuItem {
  const char* name;
  const char* caption;
  MenuAction action;
  bool hourglass = false;  ///< shown while it opens
  bool ownErrors = false;  ///< failures in the short form, under the item's own name
};

struct MenuTop {
  const char* name;
  const char* caption;
  std::vector<MenuItem> items;
};

const std::vector<MenuTop>& MenuTable();

/// The names of the items and menus that a user type may not use (0, 1, 2; other types as 2).
std::vector<std::string> ForbiddenItems(int userType);

}  // namespace tevra
