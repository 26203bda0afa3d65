// The companies of a directory, from its registry or from its files.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "session/CompanyRegistry.h"

namespace tevra::batch {

/// The full path of the user's directory, found without case. Throws Refusal when there is no such
/// directory, or when a connection string cannot contain its name.
std::filesystem::path CompanyDirectory(const std::string& written);

/// The companies of the registry, by code. Without a registry, the companies of the files
/// "Kelnar<code>.mdb" in `directory`, with the names stored in the files; a name is empty when its
/// file cannot be read. Throws Failure when the registry cannot be read.
std::vector<Company> CompaniesIn(const std::filesystem::path& directory);

/// The company with a code, without case. Throws Refusal when there is none.
Company FindCompany(const std::filesystem::path& directory, const std::string& code);

}  // namespace tevra::batch
