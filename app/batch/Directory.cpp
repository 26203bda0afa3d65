#include "app/batch/Directory.h"

#include <algorithm>
#include <optional>

#include "app/batch/Refusal.h"
#include "platform/data/Connection.h"
#include "platform/system/Paths.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"

namespace fs = std::filesystem;

namespace tevra::batch {

namespace {

constexpr std::string_view kPrefix = "Kelnar";
constexpr std::string_view kExtension = ".mdb";

// "01" of "kelnar01.MDB".
std::optional<std::string> CodeOf(const std::string& name) {
  const std::size_t fixed = kPrefix.size() + kExtension.size();
  if (name.size() <= fixed) return std::nullopt;
  const std::string code = name.substr(kPrefix.size(), name.size() - fixed);
  const std::string_view end = std::string_view(name).substr(name.size() - kExtension.size());
  const bool ours = EqualNoCase(name.substr(0, kPrefix.size()), kPrefix) &&
                    EqualNoCase(end, kExtension) && CompanyRegistry::IsCode(code);
  return ours ? std::optional(UCase(code)) : std::nullopt;
}

// A list must neither fail nor wait because of one file.
std::string NameIn(const fs::path& directory, const std::string& file) {
  try {
    Connection connection(CompanyConnectionString(directory.string(), file) + ";Lock Timeout=0");
    return connection.QueryValue("SELECT DENUMIRE FROM kv_info").TextOrEmpty();
  } catch (const Failure&) {
    return {};
  }
}

// By code; of two spellings of one name the first in byte order counts.
std::vector<Company> FilesByName(const fs::path& directory) {
  std::vector<Company> companies;
  for (const auto& entry : fs::directory_iterator(directory)) {
    const std::string name = entry.path().filename().string();
    if (const auto code = CodeOf(name)) companies.push_back({*code, {}, name});
  }
  std::sort(companies.begin(), companies.end(), [](const Company& a, const Company& b) {
    return a.cod != b.cod ? a.cod < b.cod : a.numeBd < b.numeBd;
  });
  const auto sameCode = [](const Company& a, const Company& b) { return a.cod == b.cod; };
  companies.erase(std::unique(companies.begin(), companies.end(), sameCode), companies.end());
  return companies;
}

}  // namespace

fs::path CompanyDirectory(const std::string& written) {
  if (!paths::FolderExists(written)) throw Refusal("Directorul \"" + written + "\" nu exista !");
  // It would end the path in a connection string.
  if (written.find(';') != std::string::npos) {
    throw Refusal("Directorul \"" + written + "\" nu poate avea \";\" in nume !");
  }
  const fs::path path = fs::absolute(paths::Resolve(written)).lexically_normal();
  return path.has_filename() ? path : path.parent_path();
}

std::vector<Company> CompaniesIn(const fs::path& directory) {
  if (CompanyRegistry::Exists(directory.string())) {
    return CompanyRegistry::Load(directory.string()).Companies();
  }
  std::vector<Company> companies = FilesByName(directory);
  for (Company& company : companies) company.denumire = NameIn(directory, company.numeBd);
  return companies;
}

Company FindCompany(const fs::path& directory, const std::string& code) {
  if (CompanyRegistry::Exists(directory.string())) {
    if (const auto found = CompanyRegistry::Load(directory.string()).Find(code)) return *found;
  } else {
    for (const Company& company : FilesByName(directory)) {
      if (EqualNoCase(company.cod, code)) return company;
    }
  }
  throw Refusal("Societatea cu codul " + code + " nu exista in " + directory.string() + " !");
}

}  // namespace tevra::batch
