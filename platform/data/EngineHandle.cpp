#include "platform/data/EngineHandle.h"

#include "platform/data/Database.h"
#include "platform/data/SideFile.h"
#include "platform/data/WaitingChanges.h"

namespace fs = std::filesystem;

namespace tevra::detail {

namespace {

// Without the engine's mutex, which costs several hundredths of the time of a long reading:
// Database::RequireItsThread watches that a connection stays in one thread.
EngineHandle Open(const std::string& name, int flags, const fs::path& file) {
  constexpr int kAlways = SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX;
  sqlite3* db = nullptr;
  const int code = sqlite3_open_v2(name.c_str(), &db, flags | kAlways, nullptr);
  EngineHandle handle(db);
  if (code != SQLITE_OK) {
    throw EngineFailure(code, db ? sqlite3_errmsg(db) : "", file.string(), {});
  }
  return handle;
}

std::string AsUri(const fs::path& file) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string uri = "file:";
  for (const char c : fs::absolute(file).string()) {
    if (c == '%' || c == '?' || c == '#') {
      uri += {'%', kDigits[static_cast<unsigned char>(c) >> 4], kDigits[c & 15]};
    } else {
      uri += c;
    }
  }
  return uri;
}

bool NobodyMayWrite(const fs::path& file) {
  constexpr fs::perms kWrite =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  return (fs::status(file).permissions() & kWrite) == fs::perms::none;
}

}  // namespace

EngineHandle OpenUnsettled(const fs::path& file) {
  return Open(file.string(), SQLITE_OPEN_READWRITE, file);
}

EngineHandle OpenNew(const fs::path& file) {
  return Open(file.string(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, file);
}

EngineHandle OpenStill(const fs::path& file) {
  return Open(AsUri(file) + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, file);
}

EngineHandle OpenToWrite(const fs::path& file, int flags, int busyMilliseconds) {
  EngineHandle db = Open(file.string(), flags, file);
  SettleWaitingChanges(db.get(), busyMilliseconds);
  sqlite3_busy_timeout(db.get(), busyMilliseconds);
  return db;
}

// SQLite needs side files even for reading, unless it is told that nobody writes. This is true for
// a file that is write-protected for all, and where side files cannot be created.
EngineHandle OpenToRead(const fs::path& file, int busyMilliseconds) {
  EngineHandle db = Open(file.string(), SQLITE_OPEN_READONLY, file);
  const std::string sideFile = SideFileOf(db.get());
  const bool sideFiles = fs::exists(sideFile);
  if (sideFiles && BelongsToAnother(db.get(), file.string(), sideFile)) return OpenStill(file);
  if (sideFiles || !NobodyMayWrite(file)) {
    sqlite3_busy_timeout(db.get(), busyMilliseconds);
    const int code =
        sqlite3_exec(db.get(), "SELECT 1 FROM sqlite_master", nullptr, nullptr, nullptr);
    if (code == SQLITE_OK) return db;
    if (sideFiles || (code & 0xff) != SQLITE_CANTOPEN) {
      throw EngineFailure(code, sqlite3_errmsg(db.get()), file.string(), {});
    }
  }
  return OpenStill(file);
}

void RunOn(sqlite3* db, const char* sql, const fs::path& file) {
  if (const int code = sqlite3_exec(db, sql, nullptr, nullptr, nullptr); code != SQLITE_OK) {
    throw EngineFailure(code, sqlite3_errmsg(db), file.string(), sql);
  }
}

std::string QueryOn(sqlite3* db, const char* sql, const fs::path& file) {
  sqlite3_stmt* stmt = nullptr;
  std::string answer;
  int code = sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr);
  if (code == SQLITE_OK) code = sqlite3_step(stmt);
  if (code == SQLITE_ROW) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0));
    answer = text ? text : "";
  }
  sqlite3_finalize(stmt);
  if (code != SQLITE_ROW && code != SQLITE_DONE) {
    throw EngineFailure(code, sqlite3_errmsg(db), file.string(), sql);
  }
  return answer;
}

bool IsWhole(const EngineHandle& db, const fs::path& file) {
  try {
    return QueryOn(db.get(), "PRAGMA integrity_check(1)", file) == "ok";
  } catch (const Failure&) {
    return false;
  }
}

bool HasBeenReplaced(sqlite3* db) {
  int moved = 0;
  sqlite3_file_control(db, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  return moved != 0;
}

Failure ReplacedFile(const std::string& path) {
  return {kDatabaseNotOpened,
          "Baza de date a fost inlocuita sau mutata de alt program in timpul lucrului; "
          "modificarile nu au fost salvate: " +
              path,
          path};
}

FileStart ReadStart(const fs::path& file) {
  const EngineHandle db = Open(file.string(), SQLITE_OPEN_READONLY, file);
  return StartOf(db.get(), file.string());
}

}  // namespace tevra::detail
