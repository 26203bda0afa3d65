// Builds the template company file from its text sources.
#pragma once

#include <filesystem>

namespace tevra {

/// Builds `target` from `sources`/schema.txt and the tables' data in `sources`/data/TABLE.csv, with
/// the company parameters for the current year, the structure version of this build and the file
/// password. The file is replaced whole or not at all. Throws Failure naming the source and line.
void BuildTemplate(const std::filesystem::path& sources, const std::filesystem::path& target);

}  // namespace tevra
