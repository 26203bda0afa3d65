#include <algorithm>
#include <filesystem>
#include <utility>

#include "app/batch/Directory.h"
#include "app/batch/Refusal.h"
#include "app/batch/commands/Commands.h"
#include "platform/data/Connection.h"
#include "platform/system/FolderLock.h"
#include "platform/text/Strings.h"
#include "session/Companies.h"
#include "session/DatabaseFiles.h"

namespace fs = std::filesystem;

namespace tevra::batch {

namespace {

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

void FillIn(const std::string& connectionString, const Company& company) {
  constexpr std::size_t kLongest = 35;  // of kv_info, shorter than in the registry
  Connection connection(connectionString);
  connection.Execute("UPDATE kv_info SET DENUMIRE = ?", {Left(company.denumire, kLongest)});
}

// The first registry of a directory names the companies that lie there already, too; one that does
// not tell its name goes by that of its file.
void Register(const std::string& directory, std::vector<Company> there, const Company& company) {
  const bool first = !CompanyRegistry::Exists(directory);
  CompanyRegistry registry =
      first ? CompanyRegistry::Empty(directory) : CompanyRegistry::Load(directory);
  if (first) {
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
  company.numeBd = DatabaseOf(company.cod);
  // Of two that add a company at once, each must see the other's.
  const FolderLock alone(folder);
  const std::vector<Company> companies = CompaniesIn(folder);
  CheckNew(companies, company);
  const fs::path file = FileIn(folder.string(), company.numeBd);
  if (fs::exists(fs::symlink_status(file))) {
    throw Refusal("Fisierul \"" + file.string() +
                  "\" exista deja ! Adaugarea nu se poate efectua !");
  }

  FilesMade made;
  for (const char* part : {"Kelnar.mdb", "Societat.XML", company.numeBd.c_str()}) {
    made.Watch(FileIn(folder.string(), part));
  }
  CreateDatabase(folder.string(), company.numeBd,
                 [&](const std::string& copy) { FillIn(copy, company); });
  Register(folder.string(), companies, company);
  made.Keep();
  out << "Societatea " << company.cod << " - " << company.denumire << " a fost creata in "
      << company.numeBd << '\n';
}

}  // namespace tevra::batch
