// Registers the dialect's functions on an open database.
#pragma once

#include <optional>

#include "platform/text/Failure.h"

struct sqlite3;

namespace tevra::dialect {

/// Registers CDate, CLng, CInt, CDbl, CStr, UCase, LCase, Len, Left, Right, Mid, Trim, Round, Int,
/// Fix, Year, Month, Day, Val and the helpers of the rewriting on the database. Null gives Null,
/// except in joined texts; a text in the stored form of a date counts as a date. A failed
/// conversion ends the statement and stores its Failure in `pending`, which must live as long as
/// the database and is reported instead of SQLite's error.
void RegisterFunctions(sqlite3* db, std::optional<Failure>* pending);

}  // namespace tevra::dialect
