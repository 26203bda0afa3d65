// The folders that a desktop gives each user for what programs keep.
#pragma once

#include <filesystem>

namespace tevra::paths {

/// The program's folder in the user's data: $XDG_DATA_HOME/tevra, else ~/.local/share/tevra. Empty
/// for a user without a home. Nothing is made.
std::filesystem::path UserDataFolder();

/// The program's folder for what it notes about its work, as UserDataFolder: $XDG_STATE_HOME/tevra,
/// else ~/.local/state/tevra.
std::filesystem::path UserStateFolder();

}  // namespace tevra::paths
