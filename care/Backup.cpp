#include "care/Backup.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "care/BackupName.h"
#include "care/FileHealth.h"
#include "platform/system/Clock.h"
#include "platform/system/Paths.h"
#include "platform/text/Dates.h"
#include "platform/text/FailureText.h"
#include "session/DatabaseFiles.h"
#include "session/KeptFile.h"
#include "session/Session.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

// Two backups made within one second need two names.
fs::path FreeName(const fs::path& folder, const std::string& begin) {
  fs::path free = folder / (begin + ".mdb");
  for (int i = 2; fs::exists(fs::symlink_status(free)); ++i) {
    free = folder / (begin + "_" + std::to_string(i) + ".mdb");
  }
  return free;
}

}  // namespace

CompanyFile SessionCompany() {
  const Session& session = CurrentSession();
  return {FileIn(session.databasesPath, session.selectedDatabase), session.selectedDatabase,
          session.companyName};
}

fs::path BackupFolder() {
  return FileIn(CurrentSession().databasesPath, kBackupFolder);
}

fs::path MakeBackupFolder() {
  const fs::path folder = BackupFolder();
  std::error_code error;
  fs::create_directory(folder, error);
  if (error) throw FileFailure(kPermissionDenied, folder.string());
  return folder;
}

fs::path BackUp(const CompanyFile& company, const fs::path& folder, const Progress& progress) {
  std::error_code error;
  if (!fs::is_directory(folder, error)) throw FileFailure(kPathNotFound, folder.string());
  const fs::path target = folder / BackupName(company.name, company.database, clock::Now());
  OverwriteWithCopy(company.file, target, {}, progress);
  return target;
}

fs::path BackUpBefore(const CompanyFile& company, const std::string& work,
                      const Progress& progress) {
  try {
    const fs::path copy =
        FreeName(MakeBackupFolder(), work + "_" + BareDatabase(company.database) + "_" +
                                         Format(clock::Now(), "dd.mm.yyyy_hh.nn.ss"));
    OverwriteWithCopy(company.file, copy, {}, progress);
    return copy;
  } catch (const Failure& failure) {
    throw Failure(failure.Number(),
                  "Salvarea dinaintea lucrarii nu a reusit, nu s-a schimbat nimic: " +
                      failure.Description() + SoundBackupHint(failure),
                  failure.Source());
  }
}

int RemoveOlderBackups(const CompanyFile& company, const fs::path& newest, int keep) {
  std::vector<std::pair<DateTime, fs::path>> older;
  for (const auto& entry : fs::directory_iterator(newest.parent_path())) {
    const std::string name = entry.path().filename().string();
    const auto moment = MomentOfBackup(name, company.name, company.database);
    if (!moment || !entry.is_regular_file() || name == newest.filename()) continue;
    older.emplace_back(*moment, entry.path());
  }
  std::sort(older.begin(), older.end(), std::greater<>());
  const auto stay = std::min(older.size(), static_cast<std::size_t>(std::max(keep, 1) - 1));
  for (std::size_t i = stay; i < older.size(); ++i) {
    std::error_code error;
    if (!fs::remove(older[i].second, error) && error) {
      throw FileFailure(kPermissionDenied, older[i].second.string());
    }
  }
  return static_cast<int>(older.size() - stay);
}

}  // namespace tevra
