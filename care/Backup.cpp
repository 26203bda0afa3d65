#include "care/Backup.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "care/BackupName.h"
#include "platform/system/Clock.h"
#include "platform/system/Paths.h"
#include "platform/text/FailureText.h"
#include "session/DatabaseFiles.h"
#include "session/KeptFile.h"
#include "session/Session.h"

namespace fs = std::filesystem;

namespace tevra {

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
