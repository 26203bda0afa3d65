// The users of a company: the rules that keep a user able to log in with full rights.
#pragma once

#include <optional>
#include <string>

#include "platform/data/Connection.h"

namespace tevra {

/// The user that every company keeps, spelled exactly so.
inline constexpr const char* kProtectedUser = "admin";

/// Why a field (NUME, PAROLA or TIP) of the user `name` may not take the value, as the message to
/// show; nothing when it may. A name or password of blanks counts as empty, and names that differ
/// in case or outer blanks count as one. A user without a password cannot log in and is not counted
/// among those with full rights. Call it inside the transaction that writes, so that the answer
/// stays true until the commit. Throws Failure.
std::optional<std::string> RefusalOfUserChange(Connection& company, const std::string& name,
                                               const std::string& field, const Value& value);

/// The same for deleting the user `name`.
std::optional<std::string> RefusalOfUserDeletion(Connection& company, const std::string& name);

}  // namespace tevra
