// The company files that lie in a directory, whatever its registry says.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "session/CompanyRegistry.h"

namespace tevra {

/// The companies whose files "Kelnar<code>.mdb" lie in the directory, by code, without names. Of
/// two spellings of one file name the first in byte order counts. Throws
/// std::filesystem::filesystem_error for a directory that cannot be read.
std::vector<Company> CompanyFilesIn(const std::filesystem::path& directory);

/// The name in a company file (`kv_info`); empty when it has none, cannot be read or is locked:
/// a list must neither fail nor wait because of one file.
std::string NameInFile(const std::filesystem::path& directory, const std::string& database);

/// CompanyFilesIn with the names in the files.
std::vector<Company> NamedCompanyFilesIn(const std::filesystem::path& directory);

}  // namespace tevra
