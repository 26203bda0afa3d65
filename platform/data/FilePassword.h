// The password of a company file: a salted hash in the file, asked at every open. A lock on the
// door of the program, no encryption of what is in the file.
#pragma once

#include <string>

#include "platform/data/Connection.h"

namespace tevra {

/// The table that holds the hash; it counts as a system table.
inline constexpr const char* kPasswordTable = "sys_parola";

/// Gives the open file this password; the empty one takes the lock away.
void SetFilePassword(Connection& connection, const std::string& password);

namespace detail {
/// True when the file has no password or this one.
[[nodiscard]] bool FilePasswordFits(Database& database, const std::string& password);
}  // namespace detail

}  // namespace tevra
