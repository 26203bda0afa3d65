// A whole recordset as rowset XML: a file that other tools read too.
#pragma once

#include <filesystem>
#include <istream>
#include <ostream>
#include <string>

#include "platform/data/Recordset.h"

namespace tevra {

/// Writes the rows under the recordset's filter, as sorted, without edits that wait for their
/// Update; the recordset keeps its position. A column of an expression gets the type of its values.
/// Throws Failure -2147217887 for a text that no XML document can hold, 61 for a stream that takes
/// no more.
void SaveRowset(const Recordset& recordset, std::ostream& out);

/// The same to a file, which is replaced whole or not at all. Throws also Failure 76 or 70.
void SaveRowset(const Recordset& recordset, const std::filesystem::path& file);

/// A disconnected recordset with the columns and rows of a file, standing at its first row. Throws
/// Failure 53 when the file is missing, else as RowsetReader does.
Recordset LoadRowset(const std::filesystem::path& file);

/// The same from a stream; `name` is the file as failures name it.
Recordset LoadRowset(std::istream& in, const std::string& name);

}  // namespace tevra
