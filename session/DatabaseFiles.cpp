#include "session/DatabaseFiles.h"

#include "platform/data/CompanyFile.h"
#include "platform/system/Paths.h"
#include "platform/text/FailureText.h"
#include "platform/text/Strings.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

// No company's, or so damaged that nobody can have it open.
bool IsUseless(const fs::path& file) {
  std::error_code error;
  if (!fs::is_regular_file(file, error)) return false;
  try {
    CheckCompanyFile(file);
  } catch (const Failure&) {
    return true;
  }
  try {
    RequireSoleUse(file);
    return false;
  } catch (const Failure& failure) {
    return failure.Number() != kPermissionDenied && IsDamaged(file);
  }
}

}  // namespace

fs::path FileIn(const std::string& directory, const std::string& name) {
  // An empty directory would give a file in the root directory.
  if (Trim(directory).empty()) throw ValueFailure(kPathNotFound);
  return paths::Resolve(directory + "\\" + name);
}

void OverwriteWithCopy(const fs::path& source, const fs::path& target,
                       const std::function<void(const fs::path& copy)>& prepare,
                       const Progress& progress) {
  if (!IsUseless(target)) return CopyCompanyFile(source, target, prepare, progress);
  paths::ReplaceFile(target, [&](const fs::path& temporary) {
    fs::remove(temporary);
    CopyCompanyFile(source, temporary, prepare, progress);
    // SQLite would take them for changes of the new company.
    for (const char* ending : {"-wal", "-shm", "-journal"}) fs::remove(fs::path(target) += ending);
  });
}

FilesMade::~FilesMade() {
  for (const fs::path& file : files_) RemoveCompanyFile(file);
}

void FilesMade::Watch(const fs::path& file) {
  std::error_code ignored;
  if (!fs::exists(fs::symlink_status(file, ignored))) files_.push_back(file);
}

}  // namespace tevra
