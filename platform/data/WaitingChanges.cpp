#include "platform/data/WaitingChanges.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <thread>

#include "platform/data/Database.h"
#include "platform/data/EngineHandle.h"
#include "platform/data/OpenFiles.h"
#include "platform/data/RollbackJournal.h"
#include "platform/data/SideFile.h"

namespace fs = std::filesystem;

namespace tevra::detail {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLeastPatience{200};
constexpr milliseconds kPause{1};
constexpr int kLooks = 5;

// The locks of an open file, taken before the engine takes its own: whoever works on the file
// holds it in common, whoever examines it holds the reservation too, so that one examines at once.
class FileLock {
 public:
  FileLock(sqlite3* db, const std::string& path, milliseconds patience) {
    sqlite3_file_control(db, "main", SQLITE_FCNTL_FILE_POINTER, &file_);
    const auto end = std::chrono::steady_clock::now() + std::max(patience, kLeastPatience);
    while (!Take(SQLITE_LOCK_SHARED) || !Take(SQLITE_LOCK_RESERVED)) {
      Release();
      if (std::chrono::steady_clock::now() > end) throw EngineFailure(SQLITE_BUSY, {}, path, {});
      std::this_thread::sleep_for(kPause);
    }
    for (int look = 0; look < kLooks && !isAlone_; ++look) {
      if (look > 0) std::this_thread::sleep_for(kPause);  // who waits to examine it lets go
      isAlone_ = Take(SQLITE_LOCK_EXCLUSIVE);
    }
  }
  ~FileLock() { Release(); }
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  bool IsAlone() const { return isAlone_; }

 private:
  bool Take(int lock) { return file_->pMethods->xLock(file_, lock) == SQLITE_OK; }
  void Release() { file_->pMethods->xUnlock(file_, SQLITE_LOCK_NONE); }

  sqlite3_file* file_ = nullptr;
  bool isAlone_ = false;
};

// Neither of the two files is changed: the changes stay where they are when the handle closes.
bool IsWholeWithChanges(const EngineHandle& db, const std::string& path) {
  sqlite3_db_config(db.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  RunOn(db.get(), "PRAGMA locking_mode=EXCLUSIVE", path);
  return IsWhole(db, path);
}

// True when the changes that wait may go into the file. Throws Failure when the file is damaged.
bool MayBeUsed(Belonging belonging, const EngineHandle& db, const std::string& path) {
  if (belonging != Belonging::No && IsWholeWithChanges(db, path)) return true;
  if (belonging == Belonging::Yes || !IsWhole(OpenStill(path), path)) {
    throw EngineFailure(SQLITE_CORRUPT, {}, path, {});
  }
  return false;
}

// Asked while nobody else has the file open. Its index goes in any case: the engine makes it anew,
// and somebody who still has a file open that was here before may be using it.
void SettleAlone(const EngineHandle& db, const std::string& path, const std::string& sideFile) {
  const Belonging belonging = BelongingOf(StartOf(db.get(), path), sideFile);
  const bool waits = belonging != Belonging::NothingWaits;
  const bool used = waits && MayBeUsed(belonging, db, path);
  std::error_code ignored;
  fs::remove(IndexOf(sideFile), ignored);
  if (!waits) fs::remove(sideFile, ignored);
  if (waits && !used && SetAside(sideFile).empty()) {
    throw Failure(kPermissionDenied, "Permission denied: " + sideFile, path);
  }
}

}  // namespace

void SettleWaitingChanges(sqlite3* opened, int busyMilliseconds) {
  const std::string path = sqlite3_db_filename(opened, "main");
  const std::string sideFile = SideFileOf(opened);
  const auto identity = IdentityOf(path);
  if (!identity || (!IdentityOf(sideFile) && !HasPages(JournalOf(opened)))) return;
  if (OpenHere(*identity) == 0) {
    const EngineHandle db = OpenUnsettled(path);
    const FileLock lock(db.get(), path, milliseconds(busyMilliseconds));
    if (lock.IsAlone()) {
      SettleJournal(db.get(), path);
      if (IdentityOf(sideFile)) SettleAlone(db, path, sideFile);
      return;
    }
  }
  if (IdentityOf(sideFile) && BelongsToAnother(opened, path, sideFile)) throw ReplacedFile(path);
}

}  // namespace tevra::detail
