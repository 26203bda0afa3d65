// The company files in a directory, read without its registry.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "session/CompanyRegistry.h"

namespace tevra {

/// The companies with a file "Kelnar<code>.mdb" in the directory, ordered by code, without names.
/// Of two file names that differ in case only, the first in byte order counts. Throws
/// std::filesystem::filesystem_error for a directory that cannot be read.
std::vector<Company> CompanyFilesIn(const std::filesystem::path& directory);

/// The company's name in a file (`kv_info`). Empty when the file has none, cannot be read or is
/// locked: one bad file must not stop a list, and a list must not wait for a lock.
std::string NameInFile(const std::filesystem::path& directory, const std::string& database);

/// CompanyFilesIn with the names in the files.
std::vector<Company> NamedCompanyFilesIn(const std::filesystem::path& directory);

}  // namespace tevra
