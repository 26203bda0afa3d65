// SQLite's handle of a file, and queries before or without a connection.
// For the data layer's own sources only.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include <sqlite3.h>

#include "platform/data/FileStart.h"
#include "platform/text/Failure.h"

namespace tevra::detail {

struct CloseHandle {
  void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
using EngineHandle = std::unique_ptr<sqlite3, CloseHandle>;

/// Opens for writing what was examined by the caller, or is about to be.
[[nodiscard]] EngineHandle OpenUnsettled(const std::filesystem::path& file);

/// Makes a new file, for the engine's own use.
[[nodiscard]] EngineHandle OpenNew(const std::filesystem::path& file);

/// Opens to read what nobody writes meanwhile; changes that wait beside the file are left out.
[[nodiscard]] EngineHandle OpenStill(const std::filesystem::path& file);

/// Changes that wait beside the file have been settled, see SettleWaitingChanges.
/// `flags`: SQLITE_OPEN_READWRITE, with SQLITE_OPEN_CREATE if wanted.
[[nodiscard]] EngineHandle OpenToWrite(const std::filesystem::path& file, int flags,
                                       int busyMilliseconds);

/// Opens a file without changing it, also in a folder that cannot be written.
[[nodiscard]] EngineHandle OpenToRead(const std::filesystem::path& file, int busyMilliseconds);

/// Run SQL that is not rewritten; Query returns the first field of the first row, "" without a row.
void RunOn(sqlite3* db, const char* sql, const std::filesystem::path& file);
std::string QueryOn(sqlite3* db, const char* sql, const std::filesystem::path& file);

/// True when the whole content of the open file is in order.
[[nodiscard]] bool IsWhole(const EngineHandle& db, const std::filesystem::path& file);

/// True when the open file has been replaced by another file of its name.
[[nodiscard]] bool HasBeenReplaced(sqlite3* db);

/// Tells the user that it has.
[[nodiscard]] Failure ReplacedFile(const std::string& path);

/// The beginning of any regular file. It is read through SQLite: opening and closing the file
/// directly would release the locks of our open connections.
[[nodiscard]] FileStart ReadStart(const std::filesystem::path& file);

}  // namespace tevra::detail
