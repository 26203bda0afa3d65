#include "platform/data/FileGuard.h"

#include <chrono>
#include <cstdlib>
#include <thread>

#include <unistd.h>

#include "platform/data/CompanyFile.h"
#include "platform/data/Database.h"
#include "platform/data/EngineHandle.h"
#include "platform/data/SideFile.h"
#include "platform/text/Invariant.h"

namespace tevra::detail {

namespace {

constexpr std::uintmax_t kEmptySideFile = 32;  // its header alone

bool HasWaitingChanges(sqlite3* db) {
  sqlite3_file* sideFile = nullptr;
  sqlite3_file_control(db, "main", SQLITE_FCNTL_JOURNAL_POINTER, &sideFile);
  sqlite3_int64 size = 0;
  return sideFile && sideFile->pMethods &&
         sideFile->pMethods->xFileSize(sideFile, &size) == SQLITE_OK &&
         static_cast<std::uintmax_t>(size) > kEmptySideFile;
}

void CopyContent(sqlite3* from, const std::string& target) {
  EngineHandle to = OpenNew(target);
  sqlite3_backup* backup = sqlite3_backup_init(to.get(), "main", from, "main");
  const int code = backup ? sqlite3_backup_step(backup, -1) : SQLITE_ERROR;
  sqlite3_backup_finish(backup);
  if (code == SQLITE_DONE) {
    RunOn(to.get(), "PRAGMA journal_mode=DELETE", target);
  } else {
    to.reset();
    RemoveCompanyFile(target);
  }
}

}  // namespace

FileGuard::FileGuard(sqlite3* db, const std::string& name)
    : db_(db),
      name_(name),
      file_(sqlite3_db_filename(db, "main")),
      sideFile_(SideFileOf(db)),
      index_(IndexOf(sideFile_)),
      fileSeen_(IdentityOf(name_)),
      sideFileSeen_(IdentityOf(sideFile_)),
      indexSeen_(IdentityOf(index_)),
      start_(StartOf(db, name_)) {
  if (fileSeen_) open_.emplace(*fileSeen_);
}

CommitMark FileGuard::View() const {
  return static_cast<CommitMark>(std::atol(QueryOn(db_, "PRAGMA user_version", name_).c_str()));
}

bool FileGuard::IsMoved() const {
  if (IdentityOf(file_) != fileSeen_) return true;
  // Removed by hand, the side file is still ours alone; with another in its place, others work
  // without our changes.
  const auto sideFile = IdentityOf(sideFile_);
  return sideFileSeen_ && sideFile && sideFile != sideFileSeen_;
}

// The start of the file changes only when waiting changes are moved into it: then it has one of the
// marks in the side file, or, when nothing is left there, the mark that the engine reports.
bool FileGuard::HasContentOf(CommitMark view) {
  constexpr int kLooks = 5;
  for (int look = 0; look < kLooks; ++look) {
    if (look > 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    const FileStart now = StartOf(db_, name_);
    if (now.bytes == start_.bytes) return true;
    const bool explained =
        (view != 0 && now.Mark() == view) || BelongingOf(now, sideFile_) == Belonging::Yes;
    if (!explained) continue;
    start_ = now;
    return true;
  }
  return false;
}

void FileGuard::RequireSame() const {
  if (isLost_) throw ReplacedFile(name_);
}

void FileGuard::Check(CommitMark view) {
  if (!sideFileSeen_) sideFileSeen_ = IdentityOf(sideFile_);
  if (!isLost_ && (IsMoved() || !HasContentOf(view))) {
    isLost_ = true;
    SetChangesAside();
  }
  // A link that leads elsewhere by now leaves the file and its changes together.
  if (IdentityOf(name_) != fileSeen_) isLost_ = true;
  RequireSame();
}

void FileGuard::BeginWork() {
  Invariant(!sqlite3_get_autocommit(db_), "fisierul se verifica in afara unei tranzactii");
  RequireSame();
  before_ = View();
  Check(before_);
}

void FileGuard::EndWork(bool changed) {
  Invariant(!sqlite3_get_autocommit(db_), "fisierul se verifica in afara unei tranzactii");
  Check(before_);
  if (!changed) return;
  const auto mark = static_cast<std::int32_t>(NextMark(before_));
  RunOn(db_, ("PRAGMA user_version=" + std::to_string(mark)).c_str(), name_);
}

void FileGuard::RequireSameAfterCommit() {
  Check(View());
}

// Whoever opens the new file must not find our changes beside it. What others who opened it already
// have put in their place is left alone.
void FileGuard::SetChangesAside() {
  sqlite3_db_config(db_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  if (!sideFileSeen_ || IdentityOf(sideFile_) != sideFileSeen_) return;
  const bool ofTheNewFile =
      IdentityOf(file_) && BelongingOf(ReadStart(file_), sideFile_) != Belonging::No;
  if (ofTheNewFile) return;
  if (indexSeen_ && IdentityOf(index_) == indexSeen_) std::remove(index_.c_str());
  SetAside(sideFile_);
}

// What the old file held is gone with its name, unless it was given another one.
void FileGuard::SaveReplaced() const {
  if (IdentityOf(file_) == fileSeen_ || !fileSeen_ || OpenHere(*fileSeen_) > 1) return;
  if (HasWaitingChanges(db_)) CopyContent(db_, NameBeside(file_));
}

void FileGuard::Leave() noexcept {
  try {
    if (!isLost_) Check(View());
  } catch (const Failure&) {
    // Whoever closes a connection cannot be told; nothing is lost.
  }
  if (!isLost_) return;
  try {
    SaveReplaced();
  } catch (const Failure&) {
    // No room for a copy: the changes stay under their own name all the same.
  }
}

}  // namespace tevra::detail
