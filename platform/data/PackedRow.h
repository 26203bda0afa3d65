// A row as bytes. For the data layer's own sources only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/data/Recordset.h"

struct sqlite3_stmt;

namespace tevra::detail {

/// Puts a row behind `bytes`: the one that a statement stands on, or its values.
void PackRow(sqlite3_stmt* row, std::string& bytes);
void PackRow(const Values& values, std::string& bytes);

/// Takes the row of these fields at the start of `bytes` off it.
Values UnpackRow(const std::vector<FieldInfo>& fields, std::string_view& bytes);

}  // namespace tevra::detail
