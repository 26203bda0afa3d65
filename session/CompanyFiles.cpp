#include "session/CompanyFiles.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "platform/data/Connection.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"

namespace fs = std::filesystem;

namespace tevra {

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

}  // namespace

std::vector<Company> CompanyFilesIn(const fs::path& directory) {
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

std::string NameInFile(const fs::path& directory, const std::string& database) {
  try {
    Connection company(CompanyConnectionString(directory.string(), database) + ";Lock Timeout=0");
    return Trim(company.QueryValue("SELECT DENUMIRE FROM kv_info").TextOrEmpty());
  } catch (const Failure&) {
    return {};
  }
}

std::vector<Company> NamedCompanyFilesIn(const fs::path& directory) {
  std::vector<Company> companies = CompanyFilesIn(directory);
  for (Company& company : companies) company.denumire = NameInFile(directory, company.numeBd);
  return companies;
}

}  // namespace tevra
