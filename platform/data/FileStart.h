// The header of a company file as it lies on the disk, and which file stands under a name.
// For the data layer's own sources only.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include <sqlite3.h>
#include <sys/types.h>

#include "platform/data/CommitMark.h"

namespace tevra::detail {

/// The number that begins at `bytes`, most significant byte first.
constexpr std::uint32_t BigEndian(const unsigned char* bytes) {
  return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
         std::uint32_t{bytes[2]} << 8 | bytes[3];
}

inline constexpr std::size_t kHeaderSize = 100;

struct FileStart {
  std::array<unsigned char, kHeaderSize> bytes{};  ///< zeros behind the file's end
  std::uintmax_t length = 0;                       ///< of the file

  std::uint32_t Number(std::size_t at) const { return BigEndian(bytes.data() + at); }
  std::uint32_t PageSize() const;
  CommitMark Mark() const;
  /// True when the file's changes go into a side file first.
  bool UsesSideFile() const;
};

/// The mark in a first page.
CommitMark MarkIn(const unsigned char* header);

/// The start of the file that `db` has open, whatever stands under its name by now. Throws Failure.
FileStart StartOf(sqlite3* db, const std::string& path);

struct FileIdentity {
  dev_t device = 0;
  ino_t inode = 0;
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
  friend auto operator<=>(const FileIdentity&, const FileIdentity&) = default;
};

/// The file under this name; nothing when there is none.
std::optional<FileIdentity> IdentityOf(const std::string& path);

}  // namespace tevra::detail
