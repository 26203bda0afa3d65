// A row as bytes. For the data layer's own sources only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/data/Recordset.h"

struct sqlite3_stmt;

namespace tevra::detail {

/// Appends a row to `bytes`: a statement's current row, or values.
void PackRow(sqlite3_stmt* row, std::string& bytes);
void PackRow(const Values& values, std::string& bytes);

/// Removes the row of these fields from the start of `bytes` and returns it.
Values UnpackRow(const std::vector<FieldInfo>& fields, std::string_view& bytes);

}  // namespace tevra::detail
