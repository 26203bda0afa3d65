#include "session/Companies.h"

#include <optional>

#include "platform/data/CompanyFile.h"
#include "platform/data/Connection.h"
#include "platform/system/FolderLock.h"
#include "platform/system/MessageBox.h"
#include "platform/system/Paths.h"
#include "platform/text/FailureText.h"
#include "platform/text/Strings.h"
#include "session/ApplicationFiles.h"
#include "session/CompanyFiles.h"
#include "session/DatabaseFiles.h"
#include "session/KeptFile.h"
#include "session/Login.h"
#include "session/Module1.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

void RequireNobodysDatabase(const CompanyRegistry& registry, const Company& company) {
  if (registry.Find(company.cod) || !registry.Names(company.numeBd)) return;
  throw Failure(kFileExists, "Baza de date este a altei societati: " + company.numeBd);
}

// A damaged file cannot be in use, because nobody could have opened it.
std::optional<SoleUse> AloneWith(const fs::path& file) {
  try {
    return SoleUse(file);
  } catch (const Failure& failure) {
    if (failure.Number() == kPermissionDenied) throw;
    return std::nullopt;
  }
}

// A file that cannot be opened as a company must fail before the registry changes.
void RequireCompany(const std::string& directory, const std::string& database) {
  CheckCompanyFile(FileIn(directory, database));
  Connection company(CompanyConnectionString(directory, database));
  (void)company.QueryValue("SELECT COUNT(*) FROM kv_info");
  (void)company.QueryValue("SELECT COUNT(*) FROM UTILIZATORI");
}

void RequirePlace(const std::string& directory, const Company& company, ExistingFile existing) {
  const fs::path file = FileIn(directory, company.numeBd);
  const bool stands = fs::exists(fs::symlink_status(file));
  if (existing == ExistingFile::kRefuse && stands) {
    throw Failure(
        kFileExists,
        "Fisierul \"" + file.string() + "\" exista deja ! Adaugarea nu se poate efectua !",
        file.string());
  }
  if (existing == ExistingFile::kTakeOver) RequireCompany(directory, company.numeBd);
}

// Shorter than in the registry.
void WriteName(const std::string& connectionString, const std::string& name) {
  constexpr std::size_t kLongest = 35;
  Connection company(connectionString);
  company.Execute("UPDATE kv_info SET DENUMIRE = ?", {Trim(Left(Trim(name), kLongest))});
}

void MakeDatabase(const std::string& directory, const Company& company) {
  CreateDatabase(directory, company.numeBd,
                 [&](const std::string& copy) { WriteName(copy, company.denumire); });
}

// Opening a file that is no company's could cost it the files beside it.
void RequireUnused(const fs::path& file) {
  try {
    CheckCompanyFile(file);
  } catch (const Failure&) {
    return;
  }
  AloneWith(file);
}

// Makes a new database in the place of a file. The file is restored when `enter` fails.
void ReplaceDatabase(const std::string& directory, const Company& company,
                     const std::function<void()>& enter) {
  const fs::path file = FileIn(directory, company.numeBd);
  std::optional<KeptFile> before;
  if (fs::is_regular_file(file)) {
    RequireUnused(file);
    before.emplace(file);
  }
  MakeDatabase(directory, company);
  try {
    enter();
  } catch (...) {
    if (before) before->PutBack();
    throw;
  }
  if (before) before->Keep();
}

// A file without a name, or with one that the registry cannot store, goes by its own file name.
std::string NameOf(const std::string& directory, const std::string& database) {
  const std::string name = NameInFile(paths::Resolve(directory), database);
  try {
    CompanyRegistry::CheckName(name);
    return name;
  } catch (const Failure&) {
    return database;
  }
}

int EnterFiles(CompanyRegistry& registry, const std::string& directory) {
  int entered = 0;
  for (Company& company : CompanyFilesIn(paths::Resolve(directory))) {
    const auto listed = registry.Find(company.cod);
    if (listed ? listed->denumire != CompanyRegistry::kNoName : registry.Names(company.numeBd)) {
      continue;
    }
    company.denumire = NameOf(directory, company.numeBd);
    if (listed) {
      // The default name says nothing about the company.
      if (company.denumire != company.numeBd) registry.Rename(company.cod, company.denumire);
      continue;
    }
    registry.Add(company);
    ++entered;
  }
  return entered;
}

// The caller holds the folder's lock.
void Enter(CompanyRegistry& registry, const std::string& directory, Company& company,
           ExistingFile existing) {
  FilesMade made;
  made.Watch(registry.File());
  made.Watch(FileIn(directory, "Kelnar.mdb"));
  registry.Refresh();
  RequireNobodysDatabase(registry, company);
  // A code that is taken is refused as such when the row is added.
  if (!registry.Find(company.cod)) RequirePlace(directory, company, existing);
  if (existing == ExistingFile::kTakeOver && Trim(company.denumire).empty()) {
    company.denumire = NameOf(directory, company.numeBd);
  }
  // A registry that cannot be written must show before a database is made or replaced.
  registry.Save();
  registry.Add(company);
  made.Watch(FileIn(directory, company.numeBd));
  const auto save = [&] { registry.Save(); };
  try {
    switch (existing) {
      case ExistingFile::kRefuse:
        MakeDatabase(directory, company);
        save();
        break;
      case ExistingFile::kTakeOver:
        save();
        break;
      case ExistingFile::kReplace:
        ReplaceDatabase(directory, company, save);
        break;
    }
  } catch (...) {
    registry.Remove({company.cod, Trim(company.denumire), company.numeBd});
    throw;
  }
  made.Keep();
}

void RemoveDatabase(const fs::path& file) {
  std::error_code error;
  if (!fs::remove(file, error) && error) throw FileFailure(kPermissionDenied, file.string());
  RemoveCompanyFile(file);  // with SQLite's side files
}

}  // namespace

std::string DatabaseOf(const std::string& code) {
  return "Kelnar" + UCase(code) + ".mdb";
}

void CreateDatabase(const std::string& directory, const std::string& database,
                    const std::function<void(const std::string& connectionString)>& prepare) {
  FilesMade made;
  made.Watch(FileIn(directory, "Kelnar.mdb"));
  const fs::path source = TemplateIn(paths::Resolve(directory));
  OverwriteWithCopy(source, FileIn(directory, database), [&](const fs::path& copy) {
    const std::string name =
        CompanyConnectionString(copy.parent_path().string(), copy.filename().string());
    Connection company(name);
    SetVersiune(company);
    company.Close();
    if (prepare) prepare(name);
  });
  made.Keep();
}

bool DatabaseStands(const std::string& directory, const std::string& code) {
  return fs::exists(fs::symlink_status(FileIn(directory, DatabaseOf(code))));
}

std::optional<ExistingFile> AskAboutExistingFile(const std::string& directory,
                                                 const std::string& code) {
  if (!DatabaseStands(directory, code)) return ExistingFile::kRefuse;
  const std::string name = NameInFile(paths::Resolve(directory), DatabaseOf(code));
  const long answer =
      MsgBoxEx("Baza de date " + DatabaseOf(code) + (name.empty() ? "" : " (" + name + ")") +
                   " exista deja in director !\nO preluati asa cum este, sau o inlocuiti cu una "
                   "noua ?\nCea inlocuita se pastreaza in directorul " +
                   kBackupFolder + ".",
               kAbortRetryIgnore | kQuestion, "Adaugare societate", 0,
               {"Renuntare", "Preluare", "Inlocuire", ""});
  if (answer == kRetry) return ExistingFile::kTakeOver;
  if (answer == kIgnore) return ExistingFile::kReplace;
  return std::nullopt;
}

void AdaugaSocietate(CompanyRegistry& registry, const std::string& directory,
                     const std::string& code, const std::string& name, ExistingFile existing) {
  const FolderLock alone(paths::Resolve(directory));
  Company company{UCase(code), name, DatabaseOf(code)};
  Enter(registry, directory, company, existing);
}

Company AdaugaSocietate(const std::string& directory, const std::string& code,
                        const std::string& name, ExistingFile existing) {
  const FolderLock alone(paths::Resolve(directory));
  Company company{UCase(code), name, DatabaseOf(code)};
  const bool first = !CompanyRegistry::Exists(directory);
  CompanyRegistry registry =
      first ? CompanyRegistry::Empty(directory) : CompanyRegistry::Load(directory);
  // The file of this company is left out: `existing` decides about it.
  if (first) {
    EnterFiles(registry, directory);
    if (const auto same = registry.Find(company.cod)) registry.Remove(*same);
  }
  Enter(registry, directory, company, existing);
  return company;
}

int RebuildRegistry(const std::string& directory) {
  const FolderLock alone(paths::Resolve(directory));
  std::optional<KeptFile> damaged;
  const auto load = [&]() -> CompanyRegistry {
    if (!CompanyRegistry::Exists(directory)) return CompanyRegistry::Empty(directory);
    try {
      return CompanyRegistry::Load(directory);
    } catch (const Failure&) {
      CompanyRegistry empty = CompanyRegistry::Empty(directory);
      damaged.emplace(empty.File());
      return empty;
    }
  };
  CompanyRegistry registry = load();
  const std::vector<Company> before = registry.Companies();
  const int entered = EnterFiles(registry, directory);
  // An empty list would leave the login without a choice.
  if (registry.Companies().empty()) {
    throw Failure(kFileNotFound, "Nu exista baze de date ale unor societati in " + directory);
  }
  if (registry.Companies() != before) registry.Save();
  if (damaged) damaged->Keep();
  return entered;
}

void StergeSocietate(CompanyRegistry& registry, const std::string& directory,
                     const Company& company) {
  const FolderLock alone(paths::Resolve(directory));
  registry.Refresh();
  // An invalid code could name the template or another file.
  const bool named = CompanyRegistry::IsCode(company.cod);
  const std::string database = named ? DatabaseOf(company.cod) : std::string();
  const fs::path file = named ? FileIn(directory, database) : fs::path();
  std::error_code ignored;
  bool doomed = named && registry.Find(company.cod) && fs::is_regular_file(file, ignored);
  std::optional<SoleUse> held;
  if (doomed) held = AloneWith(file);
  registry.Remove(company);
  doomed = doomed && !registry.Names(database);
  bool written = false;
  try {
    // First: a database without its row can be taken over when the company is added again, a row
    // without its database would promise what is gone.
    registry.Save();
    written = true;
    if (doomed) RemoveDatabase(file);
  } catch (...) {
    registry.PutBack();
    if (written) registry.Save();
    throw;
  }
}

void SaveRegistry(CompanyRegistry& registry, const std::string& directory) {
  const FolderLock alone(paths::Resolve(directory));
  registry.Refresh();
  registry.Save();
}

}  // namespace tevra
