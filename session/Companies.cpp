#include "session/Companies.h"

#include <optional>

#include "platform/data/CompanyFile.h"
#include "platform/data/Connection.h"
#include "platform/system/FolderLock.h"
#include "platform/system/Paths.h"
#include "platform/text/FailureText.h"
#include "platform/text/Strings.h"
#include "session/ApplicationFiles.h"
#include "session/DatabaseFiles.h"
#include "session/Login.h"
#include "session/Module1.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

void RequireNobodysDatabase(const CompanyRegistry& registry, const Company& company) {
  if (registry.Find(company.cod) || !registry.Names(company.numeBd)) return;
  throw Failure(kFileExists, "Baza de date este a altei societati: " + company.numeBd);
}

// A file that is damaged cannot be in use: nobody could have opened it.
std::optional<SoleUse> AloneWith(const fs::path& file) {
  try {
    return SoleUse(file);
  } catch (const Failure& failure) {
    if (failure.Number() == kPermissionDenied) throw;
    return std::nullopt;
  }
}

void RemoveDatabase(const fs::path& file) {
  std::error_code error;
  if (!fs::remove(file, error) && error) throw FileFailure(kPermissionDenied, file.string());
  RemoveCompanyFile(file);  // what the engine left beside it
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

void AdaugaSocietate(CompanyRegistry& registry, const std::string& directory,
                     const std::string& code, const std::string& name) {
  const FolderLock alone(paths::Resolve(directory));
  const Company company{UCase(code), name, DatabaseOf(code)};
  FilesMade made;
  made.Watch(registry.File());
  made.Watch(FileIn(directory, "Kelnar.mdb"));
  registry.Refresh();
  RequireNobodysDatabase(registry, company);
  // A registry that cannot be written must show before a left-over database is overwritten.
  registry.Save();
  registry.Add(company);
  made.Watch(FileIn(directory, company.numeBd));
  try {
    CreateDatabase(directory, company.numeBd);
    registry.Save();
  } catch (...) {
    registry.Remove({company.cod, Trim(company.denumire), company.numeBd});
    throw;
  }
  made.Keep();
}

void StergeSocietate(CompanyRegistry& registry, const std::string& directory,
                     const Company& company) {
  const FolderLock alone(paths::Resolve(directory));
  registry.Refresh();
  // A code that is none would name the template, or a file of somebody else's.
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
    // First: a database without its row is overwritten when the company is added again, a row
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
