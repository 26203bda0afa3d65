// The least that an exchange can cost: bare calls of the engine and of the XML library around the
// same lines.
#pragma once

#include <filesystem>

namespace tevra::bench {

/// Writes every line as an element, attribute by attribute, into a file and marks the lines, in one
/// transaction. Returns the number of lines.
int RunExportFloor(const std::filesystem::path& company, const std::filesystem::path& file);

/// Inserts every line of one company into another one by one prepared statement, in one
/// transaction. Returns the number of lines.
int RunImportFloor(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace tevra::bench
