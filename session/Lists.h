// What the lists of the screens have in common.
#pragma once

#include <string>

namespace tevra {

/// The name of a setting under which the present user's columns of a list are remembered. `grid`:
/// "screen.grid".
std::string GridKey(const std::string& grid);

}  // namespace tevra
