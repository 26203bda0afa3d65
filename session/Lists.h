// Shared by the lists of the screens.
#pragma once

#include <string>

namespace tevra {

/// The name of the setting with the current user's columns of a list. `grid`: "screen.grid".
std::string GridKey(const std::string& grid);

}  // namespace tevra
