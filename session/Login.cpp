#include "session/Login.h"

#include <algorithm>
#include <filesystem>

#include "platform/system/FolderLock.h"
#include "platform/system/Paths.h"
#include "platform/system/Settings.h"
#include "platform/system/StandardError.h"
#include "platform/system/TemporaryFile.h"
#include "platform/text/FailureText.h"
#include "platform/text/Strings.h"
#include "session/ApplicationFiles.h"
#include "session/Companies.h"
#include "session/CompanyFiles.h"
#include "session/DatabaseFiles.h"
#include "session/KeptFile.h"
#include "session/Module1.h"
#include "session/OlderFiles.h"
#include "session/Session.h"
#include "session/Version.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

/// The step of a failure, as counted in its message.
enum Line { kFindRegistry = 1, kOpenRegistry = 2, kChangeDatabases = 3, kMakeFirst = 6 };

std::string WithOneSeparator(const std::string& directory) {
  if (Trim(directory).empty()) return {};
  const std::size_t last = directory.find_last_not_of("\\/");
  return directory.substr(0, last == std::string::npos ? 0 : last + 1) + "\\";
}

bool HasRows(Connection& company, const std::string& sql, const Values& params) {
  return !company.OpenRecordset(sql, params).Eof();
}

// True when the default registry was written.
bool MakeRegistry(const std::string& directory) {
  if (CompanyRegistry::Exists(directory)) return false;
  if (HasOlderRegistry(directory)) {
    ConvertOlderRegistry(directory);
    return false;
  }
  CompanyRegistry::WriteDefault(directory);
  return true;
}

bool ListsNotAll(const std::optional<CompanyRegistry>& registry, const std::string& directory) {
  const std::vector<Company> files = CompanyFilesIn(paths::Resolve(directory));
  return std::any_of(files.begin(), files.end(), [&](const Company& file) {
    return !registry || (!registry->Find(file.cod) && !registry->Names(file.numeBd));
  });
}

// A ";" would end the path in a connection string, so nothing is created where nothing could be
// opened.
void RequirePlainDirectory(const std::string& directory) {
  if (directory.find(';') == std::string::npos) return;
  throw Failure(kPathNotFound,
                "Numele directorului nu poate contine caracterul \";\": " + directory);
}

void MakeFirstCompany(const std::string& directory) {
  RequirePlainDirectory(directory);
  const std::string database = DatabaseOf("01");
  if (!paths::FileExists(directory + "\\" + database)) CreateDatabase(directory, database);
}

bool HasTemplate(const fs::path& directory) {
  if (paths::FileExists((directory / "Kelnar.mdb").string())) return true;
  try {
    TemplatePath();
    return true;
  } catch (const Failure&) {
    return false;
  }
}

/// Runs steps one after another, also after one that fails; keeps the first failure.
class Steps {
 public:
  explicit Steps(LoadedCompanies& loaded) : loaded_(loaded) {}

  template <typename Call>
  void Run(int line, Call call) {
    try {
      call();
    } catch (const std::exception&) {
      Tell(line, CaughtFailure());
    }
  }

  void Tell(int line, const Failure& failure) {
    if (loaded_.failure) return;
    loaded_.failure = failure;
    loaded_.line = line;
  }

 private:
  LoadedCompanies& loaded_;
};

}  // namespace

std::string GetDatabasesPath() {
  return WithOneSeparator(Settings().Get(kDatabasesPath).value_or(""));
}

void SaveDatabasesPath(const std::string& directory) {
  const std::string path = WithOneSeparator(directory);
  Settings().Set(kDatabasesPath, path);
  CurrentSession().databasesPath = path;
}

bool PrepareFirstStart() {
  const fs::path directory = ApplicationDirectory();
  if (!HasTemplate(directory)) return false;
  std::error_code error;
  fs::create_directories(directory, error);
  if (error) throw FileFailure(kPermissionDenied, directory.string());
  {
    // A start that fails here will be a first start again.
    const FolderLock alone(directory);
    TemplateIn(directory);
    MakeFirstCompany(directory.string());
  }
  SaveDatabasesPath(directory.string());
  return true;
}

LoadedCompanies LoadSocietati(const std::string& directory) {
  LoadedCompanies loaded;
  Steps steps(loaded);
  // Two programs that start at once must not both convert older databases.
  std::optional<FolderLock> alone;
  bool isNew = false;
  steps.Run(kFindRegistry, [&] {
    RequirePlainDirectory(directory);
    alone.emplace(paths::Resolve(directory));
    paths::SweepTemporaryFiles(paths::Resolve(directory));
    paths::SweepTemporaryFiles(FileIn(directory, kBackupFolder));
    isNew = MakeRegistry(directory);
  });
  steps.Run(kOpenRegistry, [&] { loaded.registry = CompanyRegistry::Load(directory); });
  if (loaded.registry) {
    steps.Run(kChangeDatabases, [&] {
      const auto failure = pChangeDatabases(*loaded.registry, directory);
      if (failure) steps.Tell(kChangeDatabases, *failure);
    });
  }
  steps.Run(kMakeFirst, [&] { MakeFirstCompany(directory); });
  // A registry that somebody keeps may leave companies out on purpose.
  const bool suspect = !loaded.registry || loaded.registry->Companies().empty() || isNew;
  if (alone && suspect) {
    steps.Run(kMakeFirst, [&] { loaded.rebuildable = ListsNotAll(loaded.registry, directory); });
  }
  return loaded;
}

bool ExistaUtilizator(const std::string& user) {
  Connection company(CurrentSession().connectionString);
  return ExistaUtilizator(company, user);
}

bool ExistaUtilizator(Connection& company, const std::string& user) {
  return HasRows(company, "SELECT NUME from UTILIZATORI where NUME = ?", {user});
}

bool ParolaValida(const std::string& user, const std::string& password) {
  Connection company(CurrentSession().connectionString);
  return ParolaValida(company, user, password);
}

bool ParolaValida(Connection& company, const std::string& user, const std::string& password) {
  return HasRows(company, "SELECT NUME from UTILIZATORI where NUME = ? and PAROLA = ?",
                 {user, password});
}

bool StructuraDiferita() {
  Connection company(CurrentSession().connectionString);
  return StructuraDiferita(company);
}

bool StructuraDiferita(Connection& company) {
  const Recordset info = company.OpenRecordset("Select VERSIUNE from kv_info");
  if (info.Eof() || info.Get(0).IsNull()) return true;
  return info.Get(0).AsLong() != kRevision;
}

void SetVersiune(const std::string& database) {
  const std::string& chosen = CurrentSession().databasesPath;
  Connection company(
      CompanyConnectionString(chosen.empty() ? GetDatabasesPath() : chosen, database));
  SetVersiune(company);
}

void SetVersiune(Connection& company) {
  Transaction transaction(company);
  if (company.Execute("UPDATE kv_info SET VERSIUNE = ?", {kRevision}) == 0) {
    company.Execute("INSERT INTO kv_info (VERSIUNE) VALUES (?)", {kRevision});
  }
  transaction.Commit();
}

}  // namespace tevra
