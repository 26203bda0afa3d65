// The dialect's functions, made known to an open database.
#pragma once

#include <optional>

#include "platform/text/Failure.h"

struct sqlite3;

namespace tevra::dialect {

/// Registers CDate, CLng, CInt, CDbl, CStr, UCase, LCase, Len, Left, Right, Mid, Trim, Round, Int,
/// Fix, Year, Month, Day, Val and the rewriting's own helpers on the database. Of Null they
/// make Null, but for joined texts; a text in the stored form of a date counts as a date.
/// A conversion that fails ends the statement and leaves its Failure in `pending`, which must live
/// as long as the database and is told under the statement's own error.
void RegisterFunctions(sqlite3* db, std::optional<Failure>* pending);

}  // namespace tevra::dialect
