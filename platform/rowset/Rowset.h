// Writes and reads a whole recordset as rowset XML, a format that other tools read too.
#pragma once

#include <filesystem>
#include <istream>
#include <ostream>
#include <string>

#include "platform/data/Recordset.h"

namespace tevra {

/// Writes the filtered rows in the recordset's order, without edits that wait for Update; the
/// recordset keeps its position. The column of an expression gets the type of its values. Throws
/// Failure -2147217887 for a text that XML cannot represent, 61 when the stream accepts no more.
void SaveRowset(const Recordset& recordset, std::ostream& out);

/// The same to a file, which is replaced whole or not at all. Also throws Failure 76 or 70.
void SaveRowset(const Recordset& recordset, const std::filesystem::path& file);

/// A disconnected recordset with the columns and rows of a file, positioned at its first row.
/// Throws Failure 53 when the file is missing, otherwise like RowsetReader.
Recordset LoadRowset(const std::filesystem::path& file);

/// The same from a stream; `name` is the file's name in failures.
Recordset LoadRowset(std::istream& in, const std::string& name);

}  // namespace tevra
