#include "platform/data/FileCopy.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "platform/data/CompanyFile.h"
#include "platform/data/Database.h"
#include "platform/data/WorkTicks.h"
#include "platform/system/Paths.h"
#include "platform/text/FailureText.h"

namespace fs = std::filesystem;

namespace tevra::detail {

namespace {

constexpr int kBusyMilliseconds = 2000;
constexpr int kPagesAStep = 512;

struct FinishBackup {
  void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};
using BackupHandle = std::unique_ptr<sqlite3_backup, FinishBackup>;

bool IsBusy(const EngineHandle& db) {
  const int code = sqlite3_errcode(db.get()) & 0xff;
  return code == SQLITE_BUSY || code == SQLITE_LOCKED;
}

EngineHandle OpenSource(const fs::path& source) {
  return paths::IsReadOnly(source) ? OpenToRead(source, kBusyMilliseconds)
                                   : OpenToWrite(source, SQLITE_OPEN_READWRITE, kBusyMilliseconds);
}

// Returns SQLite's code: SQLITE_DONE at the end.
int CopySteps(sqlite3_backup* backup, const Progress& progress) {
  for (;;) {
    const int code = sqlite3_backup_step(backup, progress ? kPagesAStep : -1);
    if (code != SQLITE_OK) return code;
    const int pages = sqlite3_backup_pagecount(backup);
    Report(progress, pages - sqlite3_backup_remaining(backup), pages);
  }
}

}  // namespace

bool IsOfWriting(int code) {
  return (code & 0xff) == SQLITE_FULL || code == SQLITE_IOERR_WRITE || code == SQLITE_IOERR_FSYNC ||
         code == SQLITE_IOERR_TRUNCATE;
}

// SQLite removes the side file only when nobody else is connected. This is checked again under the
// lock, because another program may have connected in between.
bool TakeAlone(const EngineHandle& db, const fs::path& file) {
  try {
    if (QueryOn(db.get(), "PRAGMA journal_mode=DELETE", file) != "delete") return false;
    RunOn(db.get(), "BEGIN EXCLUSIVE", file);
    return QueryOn(db.get(), "PRAGMA journal_mode", file) == "delete" && !HasBeenReplaced(db.get());
  } catch (const Failure&) {
    if (!IsBusy(db)) throw;
    return false;
  }
}

void CopyPages(const fs::path& source, const fs::path& copy, const fs::path& target,
               const Progress& progress) {
  const EngineHandle from = OpenSource(source);
  // Between two steps others may write: without a transaction the copying would begin again.
  RunOn(from.get(), "BEGIN; SELECT 1 FROM sqlite_master", source);
  const EngineHandle to =
      OpenToWrite(copy, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, kBusyMilliseconds);
  BackupHandle backup(sqlite3_backup_init(to.get(), "main", from.get(), "main"));
  if (!backup) {
    throw EngineFailure(sqlite3_errcode(to.get()), sqlite3_errmsg(to.get()), copy.string(), {});
  }
  const int code = CopySteps(backup.get(), progress);
  const int pages = sqlite3_backup_pagecount(backup.get());
  backup.reset();
  if (code != SQLITE_DONE) {
    throw EngineFailure(code, sqlite3_errmsg(to.get()),
                        (IsOfWriting(code) ? target : source).string(), {});
  }
  if (QueryOn(to.get(), "PRAGMA journal_mode=DELETE", source) != "delete") {
    throw EngineFailure(SQLITE_CORRUPT, {}, source.string(), {});
  }
  CheckContent(to, source, progress, pages);
}

void CheckContent(const EngineHandle& db, const fs::path& named, const Progress& progress,
                  int pages) {
  const WorkTicks ticks(db.get(), [&] { Report(progress, pages, pages); });
  const auto answer = [&](const char* pragma) {
    try {
      return QueryOn(db.get(), pragma, named);
    } catch (const Failure&) {
      ticks.Check();
      throw;
    }
  };
  if (answer("PRAGMA integrity_check") != "ok" ||
      answer("PRAGMA application_id") != std::to_string(kApplicationId)) {
    throw EngineFailure(SQLITE_CORRUPT, {}, named.string(), {});
  }
}

}  // namespace tevra::detail

namespace tevra {

void CopyBytes(const fs::path& from, const fs::path& to) {
  const detail::EngineHandle db = detail::OpenStill(from);
  sqlite3_file* opened = nullptr;
  sqlite3_file_control(db.get(), "main", SQLITE_FCNTL_FILE_POINTER, &opened);
  sqlite3_int64 length = 0;
  if (opened->pMethods->xFileSize(opened, &length) != SQLITE_OK) {
    throw detail::EngineFailure(SQLITE_IOERR, {}, from.string(), {});
  }
  std::ofstream out(to, std::ios::binary);
  std::vector<char> piece(std::size_t{1} << 20);
  for (sqlite3_int64 at = 0; at < length && out;) {
    const auto size = std::min(length - at, static_cast<sqlite3_int64>(piece.size()));
    if (opened->pMethods->xRead(opened, piece.data(), static_cast<int>(size), at) != SQLITE_OK) {
      throw detail::EngineFailure(SQLITE_IOERR, {}, from.string(), {});
    }
    out.write(piece.data(), size);
    at += size;
  }
  out.close();
  if (!out) throw FileFailure(kDiskFull, to.string());
}

}  // namespace tevra
