#include "session/KeptFile.h"

#include <string>

#include "platform/data/CompanyFile.h"
#include "platform/system/Clock.h"
#include "platform/system/Paths.h"
#include "platform/text/Dates.h"
#include "platform/text/FailureText.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

constexpr const char* kSideFiles[] = {"-wal", "-shm", "-journal"};

fs::path WithEnding(const fs::path& file, const char* ending) {
  return fs::path(file) += ending;
}

// Two copies made within one second need two names.
fs::path FreeName(const fs::path& folder, const fs::path& file) {
  const std::string begin =
      "Inlocuit_" + file.stem().string() + "_" + Format(clock::Now(), "dd.mm.yyyy_hh.nn.ss");
  fs::path free = folder / (begin + file.extension().string());
  for (int i = 2; fs::exists(fs::symlink_status(free)); ++i) {
    free = folder / (begin + "_" + std::to_string(i) + file.extension().string());
  }
  return free;
}

void CopyOver(const fs::path& from, const fs::path& to) {
  paths::ReplaceFile(to, [&](const fs::path& temporary) {
    fs::copy_file(from, temporary, fs::copy_options::overwrite_existing);
  });
}

// A file that cannot be read as a company file is copied byte by byte, with its side files.
void CopyWhatIsThere(const fs::path& from, const fs::path& to) {
  try {
    return CopyCompanyFile(from, to);
  } catch (const Failure& failure) {
    if (failure.Number() != kDatabaseNotOpened) throw;
  }
  CopyOver(from, to);
  for (const char* ending : kSideFiles) {
    const fs::path side = WithEnding(from, ending);
    if (fs::is_regular_file(side)) CopyOver(side, WithEnding(to, ending));
  }
}

}  // namespace

KeptFile::KeptFile(const fs::path& file) : file_(file) {
  const fs::path folder = paths::Resolve((file.parent_path() / kBackupFolder).string());
  std::error_code error;
  folderMade_ = fs::create_directory(folder, error);
  if (error) throw FileFailure(kPermissionDenied, folder.string());
  copy_ = FreeName(folder, file);
  try {
    CopyWhatIsThere(file, copy_);
  } catch (...) {
    RemoveCompanyFile(copy_);
    if (folderMade_) fs::remove(folder, error);
    throw;
  }
}

KeptFile::~KeptFile() {
  if (kept_) return;
  RemoveCompanyFile(copy_);
  std::error_code ignored;
  if (folderMade_) fs::remove(copy_.parent_path(), ignored);
}

void KeptFile::PutBack() noexcept {
  try {
    CopyOver(copy_, file_);
    for (const char* ending : kSideFiles) {
      const fs::path side = WithEnding(copy_, ending);
      if (fs::is_regular_file(side)) {
        CopyOver(side, WithEnding(file_, ending));
      } else {
        fs::remove(WithEnding(file_, ending));
      }
    }
  } catch (...) {
    kept_ = true;
  }
}

}  // namespace tevra
