// Rewrites a company file without the space that deleted rows have left.
#include <string>
#include <vector>

#include "platform/data/CompanyFile.h"
#include "platform/data/Database.h"
#include "platform/data/EngineHandle.h"
#include "platform/data/FileCopy.h"
#include "platform/data/WorkTicks.h"
#include "platform/system/Paths.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

using detail::EngineHandle;
using detail::QueryOn;

// Keeps everybody else out for as long as the handle is open, outside of transactions too: the
// rewriting may not stand in one.
EngineHandle OpenAlone(const fs::path& file) {
  const Failure refused(kPermissionDenied, "Permission denied: " + file.string(), file.string());
  if (paths::IsReadOnly(file)) throw refused;
  EngineHandle db = detail::OpenToWrite(file, SQLITE_OPEN_READWRITE, 0);
  if (!detail::TakeAlone(db, file)) throw refused;
  detail::RunOn(db.get(), "PRAGMA locking_mode=EXCLUSIVE; COMMIT", file);
  return db;
}

int NumberOf(const EngineHandle& db, const char* pragma, const fs::path& file) {
  return std::stoi(QueryOn(db.get(), pragma, file));
}

std::string QuotedText(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
  return quoted + "'";
}

void Rewrite(const EngineHandle& db, const fs::path& file, const fs::path& work, int pages,
             const Progress& progress) {
  const int pageSize = NumberOf(db, "PRAGMA page_size", file);
  const detail::WorkTicks ticks(db.get(), [&] {
    std::error_code ignored;
    const auto written = fs::file_size(work, ignored);
    Report(progress, ignored ? 0 : static_cast<int>(written / static_cast<unsigned>(pageSize)),
           pages);
  });
  const std::string sql = "VACUUM INTO " + QuotedText(work.string());
  const int code = sqlite3_exec(db.get(), sql.c_str(), nullptr, nullptr, nullptr);
  if (code == SQLITE_OK) return;
  ticks.Check();
  const bool ofWork = detail::IsOfWriting(code) || (code & 0xff) == SQLITE_CANTOPEN;
  throw detail::EngineFailure(code, sqlite3_errmsg(db.get()), (ofWork ? work : file).string(), sql);
}

// The number of rows of each table, and what else the file has, as one text.
std::string Census(const EngineHandle& db, const fs::path& file) {
  const std::string tables = QueryOn(
      db.get(),
      "SELECT group_concat('SELECT ' || quote(name) || ', count(*) FROM \"' || replace(name, '\"', "
      "'\"\"') || '\"', ' UNION ALL ') FROM (SELECT name FROM sqlite_master WHERE type = 'table' "
      "ORDER BY name)",
      file);
  const std::string counts =
      "SELECT group_concat(a || '=' || b) FROM (SELECT '' AS a, '' AS b "
      "UNION ALL " +
      tables + ")";
  return QueryOn(db.get(), counts.c_str(), file) + ";" +
         QueryOn(db.get(),
                 "SELECT count(*) || group_concat(sql) FROM (SELECT sql FROM "
                 "sqlite_master ORDER BY type, name)",
                 file) +
         ";" + QueryOn(db.get(), "PRAGMA user_version", file);
}

void CheckRewritten(const EngineHandle& db, const fs::path& file, const fs::path& work, int pages,
                    const Progress& progress) {
  const EngineHandle rewritten = detail::OpenStill(work);
  detail::CheckContent(rewritten, file, progress, pages);
  if (Census(rewritten, work) == Census(db, file)) return;
  throw Failure(kInternalError, "Baza de date compactata nu este intreaga: " + work.string());
}

/// The work file, which goes when the work does not come to its end.
class WorkFile {
 public:
  explicit WorkFile(const fs::path& path) : path_(path) { Remove(); }
  ~WorkFile() {
    std::error_code ignored;
    fs::remove(path_, ignored);
  }
  WorkFile(const WorkFile&) = delete;
  WorkFile& operator=(const WorkFile&) = delete;

  const fs::path& Path() const { return path_; }

 private:
  void Remove() const {
    std::error_code error;
    if (fs::is_directory(path_, error) || (!fs::remove(path_, error) && error)) {
      throw Failure(kPermissionDenied, "Permission denied: " + path_.string(), path_.string());
    }
  }

  fs::path path_;
};

}  // namespace

void CompactCompanyFile(const fs::path& file, const fs::path& work, const Progress& progress) {
  CheckCompanyFile(file);
  const EngineHandle db = OpenAlone(file);
  const WorkFile made(work);
  const int pages =
      NumberOf(db, "PRAGMA page_count", file) - NumberOf(db, "PRAGMA freelist_count", file);
  paths::ReplaceFile(file, [&](const fs::path& temporary) {
    Rewrite(db, file, made.Path(), pages, progress);
    CheckRewritten(db, file, made.Path(), pages, progress);
    fs::rename(made.Path(), temporary);
  });
}

}  // namespace tevra
