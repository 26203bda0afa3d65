#include "platform/data/FileStart.h"

#include <sys/stat.h>

#include "platform/data/Database.h"

namespace tevra::detail {

namespace {

constexpr std::size_t kPageSizeAt = 16;
constexpr std::size_t kReadVersionAt = 19;
constexpr std::size_t kMarkAt = 60;
constexpr unsigned char kWithSideFile = 2;

}  // namespace

std::uint32_t FileStart::PageSize() const {
  const std::uint32_t size =
      std::uint32_t{bytes[kPageSizeAt]} << 8 | std::uint32_t{bytes[kPageSizeAt + 1]};
  return size == 1 ? 65536 : size;
}

CommitMark FileStart::Mark() const {
  return MarkIn(bytes.data());
}

bool FileStart::UsesSideFile() const {
  return bytes[kReadVersionAt] == kWithSideFile;
}

CommitMark MarkIn(const unsigned char* header) {
  return BigEndian(header + kMarkAt);
}

FileStart StartOf(sqlite3* db, const std::string& path) {
  sqlite3_file* opened = nullptr;
  sqlite3_file_control(db, "main", SQLITE_FCNTL_FILE_POINTER, &opened);
  FileStart start;
  sqlite3_int64 length = 0;
  int code =
      opened->pMethods->xRead(opened, start.bytes.data(), static_cast<int>(start.bytes.size()), 0);
  if (code == SQLITE_OK || code == SQLITE_IOERR_SHORT_READ) {
    code = opened->pMethods->xFileSize(opened, &length);
  }
  if (code != SQLITE_OK) throw EngineFailure(code, {}, path, {});
  start.length = static_cast<std::uintmax_t>(length);
  return start;
}

std::optional<FileIdentity> IdentityOf(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

}  // namespace tevra::detail
