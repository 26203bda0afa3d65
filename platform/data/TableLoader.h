// Loads the rows of a CSV file into a table, all or none.
#pragma once

#include <istream>
#include <string>
#include <vector>

#include "platform/data/Connection.h"

namespace tevra {

struct RefusedRow {
  int line;  ///< of the file, from 1
  std::string reason;
};

struct LoadResult {
  std::int64_t rows = 0;  ///< written; 0 when any was refused
  std::vector<RefusedRow> refused;
};

/// Reads a header row with the fields' names and then the rows. Numbers have a decimal point, dates
/// are 2006-12-31 or 31.12.2006, yes/no is -1 or 0 (1, Da, Nu, True, False too). A missing column
/// gets the field's default, an empty cell is Null (`quotedEmptyIsText`: a quoted one is the empty
/// text). Throws Failure 3265 for an unknown table or column, -2147217887 for a repeated column or
/// a file without a header, and the failures of reading.
LoadResult LoadTable(Connection& connection, std::istream& csv, const std::string& table,
                     bool quotedEmptyIsText = false);

}  // namespace tevra
