#include "app/batch/Directory.h"

#include "app/batch/Refusal.h"
#include "platform/system/Paths.h"
#include "platform/text/Strings.h"
#include "session/CompanyFiles.h"

namespace fs = std::filesystem;

namespace tevra::batch {

fs::path CompanyDirectory(const std::string& written) {
  if (!paths::FolderExists(written)) throw Refusal("Directorul \"" + written + "\" nu exista !");
  // A ";" would end the path in a connection string.
  if (written.find(';') != std::string::npos) {
    throw Refusal("Directorul \"" + written + "\" nu poate avea \";\" in nume !");
  }
  const fs::path path = fs::absolute(paths::Resolve(written)).lexically_normal();
  return path.has_filename() ? path : path.parent_path();
}

std::vector<Company> CompaniesIn(const fs::path& directory) {
  if (!CompanyRegistry::Exists(directory.string())) return NamedCompanyFilesIn(directory);
  return CompanyRegistry::Load(directory.string()).Companies();
}

Company FindCompany(const fs::path& directory, const std::string& code) {
  if (CompanyRegistry::Exists(directory.string())) {
    if (const auto found = CompanyRegistry::Load(directory.string()).Find(code)) return *found;
  } else {
    for (const Company& company : CompanyFilesIn(directory)) {
      if (EqualNoCase(company.cod, code)) return company;
    }
  }
  throw Refusal("Societatea cu codul " + code + " nu exista in " + directory.string() + " !");
}

}  // namespace tevra::batch
