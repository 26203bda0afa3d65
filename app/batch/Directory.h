// The companies of a directory: by its registry, or by the files that lie in it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "session/CompanyRegistry.h"

namespace tevra::batch {

/// The full path of the directory that the user named, found without case. Throws Refusal when
/// there is no such directory, or when a connection string could not name it.
std::filesystem::path CompanyDirectory(const std::string& written);

/// The companies of the registry, by code. Where there is none, those whose files
/// "Kelnar<code>.mdb" lie in `directory`, with the names in the files, empty where a file cannot be
/// read. Throws Failure when the registry cannot be read.
std::vector<Company> CompaniesIn(const std::filesystem::path& directory);

/// The company of a code, in any case. Throws Refusal when there is none.
Company FindCompany(const std::filesystem::path& directory, const std::string& code);

}  // namespace tevra::batch
