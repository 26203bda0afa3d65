#include <algorithm>
#include <filesystem>
#include <utility>

#include "app/batch/Directory.h"
#include "app/batch/Refusal.h"
#include "app/batch/commands/Commands.h"
#include "platform/data/CompanyFile.h"
#include "platform/data/Connection.h"
#include "platform/system/FolderLock.h"
#include "platform/system/Paths.h"
#include "platform/text/Strings.h"
#include "session/ApplicationFiles.h"
#include "session/CompanyRegistry.h"
#include "session/Module1.h"
#include "session/Version.h"

namespace fs = std::filesystem;

namespace tevra::batch {

namespace {

constexpr const char* kTemplate = "Kelnar.mdb";

/// Removes at its end the files that it was told of, unless all of them are to stay.
class FilesMade {
 public:
  FilesMade() = default;
  ~FilesMade() {
    // What stands under the name and is no file was there before.
    for (const fs::path& file : files_) {
      std::error_code ignored;
      if (!fs::is_directory(file, ignored)) RemoveCompanyFile(file);
    }
  }
  FilesMade(const FilesMade&) = delete;
  FilesMade& operator=(const FilesMade&) = delete;
  void Add(const fs::path& file) { files_.push_back(file); }
  void Keep() { files_.clear(); }

 private:
  std::vector<fs::path> files_;
};

void CheckName(const std::string& name) {
  constexpr std::size_t kLongest = 50;
  if (Len(name) > kLongest) throw Refusal("Denumirea societatii are cel mult 50 de caractere !");
  const bool control =
      std::any_of(name.begin(), name.end(), [](unsigned char c) { return c < ' ' || c == 127; });
  if (control || !IsValidUtf8(name)) {
    throw Refusal("Denumirea societatii contine caractere nepermise !");
  }
}

void CheckNew(const std::vector<Company>& companies, const Company& company) {
  if (company.cod.empty()) throw Refusal("Va rugam completati codul societatii  !");
  if (company.denumire.empty()) throw Refusal("Va rugam completati denumirea societatii  !");
  if (!CompanyRegistry::IsCode(company.cod)) {
    throw Refusal("Codul societatii are una sau doua litere sau cifre !");
  }
  CheckName(company.denumire);
  for (const Company& other : companies) {
    if (EqualNoCase(other.cod, company.cod)) {
      throw Refusal("Acest cod de societate exista deja ! Adaugarea nu se poate efectua !");
    }
  }
}

// A directory without a template of its own gets the program's.
fs::path TemplateIn(const fs::path& directory, FilesMade& made) {
  const fs::path file = paths::Resolve((directory / kTemplate).string());
  if (!fs::exists(file)) {
    CopyCompanyFile(TemplatePath(), file);
    made.Add(file);
  }
  return file;
}

void FillIn(const fs::path& file, const Company& company) {
  constexpr std::size_t kLongest = 35;  // of kv_info, shorter than in the registry
  Connection connection(
      CompanyConnectionString(file.parent_path().string(), file.filename().string()));
  Transaction transaction(connection);
  const Values values{kRevision, Left(company.denumire, kLongest)};
  if (connection.Execute("UPDATE kv_info SET VERSIUNE = ?, DENUMIRE = ?", values) == 0) {
    connection.Execute("INSERT INTO kv_info (VERSIUNE, DENUMIRE) VALUES (?, ?)", values);
  }
  transaction.Commit();
}

// The first registry of a directory names the companies that lie there already, too; one that does
// not tell its name goes by that of its file.
void Register(const std::string& directory, std::vector<Company> there, const Company& company,
              FilesMade& made) {
  const bool first = !CompanyRegistry::Exists(directory);
  CompanyRegistry registry =
      first ? CompanyRegistry::Empty(directory) : CompanyRegistry::Load(directory);
  if (first) {
    made.Add(registry.File());
    for (Company& other : there) {
      if (Trim(other.denumire).empty()) other.denumire = other.numeBd;
      registry.Add(other);
    }
  }
  registry.Add(company);
  registry.Save();
}

}  // namespace

void CreateCompany(const std::string& directory, const std::string& code, const std::string& name,
                   std::ostream& out) {
  const fs::path folder = CompanyDirectory(directory);
  Company company{UCase(Trim(code)), Trim(name), {}};
  company.numeBd = "Kelnar" + company.cod + ".mdb";
  // Of two that add a company at once, each must see the other's.
  const FolderLock alone(folder);
  const std::vector<Company> companies = CompaniesIn(folder);
  CheckNew(companies, company);
  const fs::path file = paths::Resolve((folder / company.numeBd).string());
  if (fs::exists(fs::symlink_status(file))) {
    throw Refusal("Fisierul \"" + file.string() +
                  "\" exista deja ! Adaugarea nu se poate efectua !");
  }

  FilesMade made;
  const fs::path source = TemplateIn(folder, made);
  made.Add(file);
  CopyCompanyFile(source, file, [&](const fs::path& copy) { FillIn(copy, company); });
  Register(folder.string(), companies, company, made);
  made.Keep();
  out << "Societatea " << company.cod << " - " << company.denumire << " a fost creata in "
      << company.numeBd << '\n';
}

}  // namespace tevra::batch
