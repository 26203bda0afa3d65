// The password of a company file: a salted hash in the file, checked at every opening. It is not
// encryption.
#pragma once

#include <string>

#include "platform/data/Connection.h"

namespace tevra {

/// The table that holds the hash; it counts as a system table.
inline constexpr const char* kPasswordTable = "sys_parola";

/// Sets the password of the open file; the empty one removes it.
void SetFilePassword(Connection& connection, const std::string& password);

namespace detail {
/// True when the file has no password or this one.
[[nodiscard]] bool FilePasswordFits(Database& database, const std::string& password);
}  // namespace detail

}  // namespace tevra
