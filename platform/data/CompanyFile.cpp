#include "platform/data/CompanyFile.h"

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/data/Database.h"
#include "platform/data/EngineHandle.h"
#include "platform/system/Paths.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

constexpr int kBusyMilliseconds = 2000;

// While changes are in the side file, the header may count pages that are only there.
bool HasWaitingChanges(const fs::path& file) {
  std::error_code error;
  const auto size = fs::file_size(fs::path(file) += "-wal", error);
  return !error && size > 0;
}

void CheckLength(const fs::path& file, const detail::FileStart& start) {
  constexpr std::size_t kChangeCounter = 24, kPageCount = 28, kCountValidFor = 92;
  if (HasWaitingChanges(file)) return;
  if (start.Number(kChangeCounter) != start.Number(kCountValidFor)) return;
  // Measured again, because another program may just have moved its changes into the file.
  std::error_code ignored;
  if (fs::file_size(file, ignored) < std::uintmax_t{start.PageSize()} * start.Number(kPageCount)) {
    throw Failure(kDatabaseNotOpened,
                  "Baza de date este deteriorata, ii lipseste o parte: " + file.string());
  }
}

// SQLite would take the side files of an earlier file of this name for changes of the new one.
void RemoveSideFiles(const fs::path& file) {
  for (const char* ending : {"-wal", "-shm", "-journal"}) {
    std::error_code ignored;
    fs::remove(fs::path(file) += ending, ignored);
  }
}

bool IsBusy(const detail::EngineHandle& db) {
  const int code = sqlite3_errcode(db.get()) & 0xff;
  return code == SQLITE_BUSY || code == SQLITE_LOCKED;
}

// SQLite removes the side file only when nobody else is connected. This is checked again under the
// lock, because another program may have connected in between.
bool TakeAlone(const detail::EngineHandle& db, const fs::path& file) {
  try {
    if (detail::QueryOn(db.get(), "PRAGMA journal_mode=DELETE", file) != "delete") return false;
    detail::RunOn(db.get(), "BEGIN EXCLUSIVE", file);
    return detail::QueryOn(db.get(), "PRAGMA journal_mode", file) == "delete" &&
           !detail::HasBeenReplaced(db.get());
  } catch (const Failure&) {
    if (!IsBusy(db)) throw;
    return false;
  }
}

void CopyPages(const fs::path& source, const fs::path& copy, const fs::path& target) {
  const detail::EngineHandle from =
      paths::IsReadOnly(source)
          ? detail::OpenToRead(source, kBusyMilliseconds)
          : detail::OpenToWrite(source, SQLITE_OPEN_READWRITE, kBusyMilliseconds);
  const detail::EngineHandle to =
      detail::OpenToWrite(copy, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, kBusyMilliseconds);
  sqlite3_backup* backup = sqlite3_backup_init(to.get(), "main", from.get(), "main");
  if (!backup) {
    throw detail::EngineFailure(sqlite3_errcode(to.get()), sqlite3_errmsg(to.get()), copy.string(),
                                {});
  }
  const int code = sqlite3_backup_step(backup, -1);
  sqlite3_backup_finish(backup);
  if (code != SQLITE_DONE) {
    const bool full = (code & 0xff) == SQLITE_FULL;
    throw detail::EngineFailure(code, sqlite3_errmsg(to.get()), (full ? target : source).string(),
                                {});
  }
  // Failures of the copy are reported with the source's name, which the user knows.
  if (detail::QueryOn(to.get(), "PRAGMA journal_mode=DELETE", source) != "delete" ||
      detail::QueryOn(to.get(), "PRAGMA integrity_check", source) != "ok" ||
      detail::QueryOn(to.get(), "PRAGMA application_id", source) !=
          std::to_string(kApplicationId)) {
    throw Failure(kDatabaseNotOpened, "Baza de date este deteriorata: " + source.string());
  }
}

}  // namespace

void CheckCompanyFile(const fs::path& file) {
  std::error_code error;
  const auto status = fs::status(file, error);
  if (!fs::exists(status)) {
    throw Failure(kDatabaseNotOpened, "Baza de date nu exista: " + file.string());
  }
  const std::string foreign = "Fisierul nu este o baza de date a unei societati: " + file.string();
  if (!fs::is_regular_file(status)) throw Failure(kDatabaseNotOpened, foreign);
  const detail::FileStart start = detail::ReadStart(file);
  static constexpr std::string_view kMagic("SQLite format 3\0", 16);
  constexpr std::size_t kIdAt = 68;
  const std::string_view begin(reinterpret_cast<const char*>(start.bytes.data()), kMagic.size());
  if (start.length < start.bytes.size() || begin != kMagic ||
      start.Number(kIdAt) != kApplicationId) {
    throw Failure(kDatabaseNotOpened, foreign);
  }
  CheckLength(file, start);
}

void RemoveCompanyFile(const fs::path& file) noexcept {
  std::error_code ignored;
  fs::remove(file, ignored);
  RemoveSideFiles(file);
}

void RequireSoleUse(const fs::path& file) {
  const SoleUse alone(file);
}

SoleUse::SoleUse(const fs::path& file) {
  const Failure refused(kPermissionDenied, "Permission denied: " + file.string(), file.string());
  if (paths::IsReadOnly(file)) throw refused;
  detail::EngineHandle db = detail::OpenToWrite(file, SQLITE_OPEN_READWRITE, 0);
  if (!TakeAlone(db, file)) throw refused;
  handle_ = std::shared_ptr<sqlite3>(std::move(db));
}

void CopyCompanyFile(const fs::path& source, const fs::path& target,
                     const std::function<void(const fs::path& copy)>& prepare) {
  CheckCompanyFile(source);
  std::optional<SoleUse> alone;
  if (fs::exists(target)) {
    CheckCompanyFile(target);
    alone.emplace(target);
  } else {
    RemoveSideFiles(target);
  }
  paths::ReplaceFile(target, [&](const fs::path& copy) {
    CopyPages(source, copy, target);
    if (!prepare) return;
    prepare(copy);
    RequireSoleUse(copy);
  });
}

}  // namespace tevra
