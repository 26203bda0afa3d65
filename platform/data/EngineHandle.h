// The engine's handle of a file, and what is asked of it before or without a connection.
// For the data layer's own sources only.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include <sqlite3.h>

namespace tevra::detail {

struct CloseHandle {
  void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
using EngineHandle = std::unique_ptr<sqlite3, CloseHandle>;

/// `flags`: SQLITE_OPEN_READWRITE, with SQLITE_OPEN_CREATE if wanted.
EngineHandle OpenToWrite(const std::filesystem::path& file, int flags, int busyMilliseconds);

/// Opens a file without changing it, where it lies in a folder that cannot be written too.
EngineHandle OpenToRead(const std::filesystem::path& file, int busyMilliseconds);

/// Runs words of the engine's own; Query gives the first field of the first row, "" without one.
void RunOn(const EngineHandle& db, const char* sql, const std::filesystem::path& file);
std::string QueryOn(const EngineHandle& db, const char* sql, const std::filesystem::path& file);

/// True when another file stands under the name by now: what is open has been replaced.
bool HasBeenReplaced(sqlite3* db);

struct FileStart {
  std::array<unsigned char, 100> bytes{};  ///< zeros behind the file's end
  std::uintmax_t length = 0;               ///< of the file
};

/// The beginning of any regular file. Read through the engine: were the file opened and closed
/// beside it, the system would drop the locks by which our open connections hold the file.
FileStart ReadStart(const std::filesystem::path& file);

}  // namespace tevra::detail
