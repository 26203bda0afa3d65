// Shared by the lists of the screens.
#pragma once

#include <string>

namespace tevra {

/// The name of a setting of the current user: in `group`, for `owner`, such as a screen.
std::string UserKey(const std::string& group, const std::string& owner);

/// The name of the setting with the current user's columns of a list. `grid`: "screen.grid".
std::string GridKey(const std::string& grid);

}  // namespace tevra
