#include "platform/data/SideFile.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <optional>
#include <thread>

namespace tevra::detail {

namespace {

constexpr std::size_t kFileHeader = 32;
constexpr std::size_t kFrameHeader = 24;
constexpr std::size_t kPageSizeAt = 8;   // in the file's header
constexpr std::size_t kSaltAt = 16;      // in the file's header
constexpr std::size_t kPageCountAt = 4;  // in a frame's header: not 0 where a commit ends
constexpr std::size_t kFrameSaltAt = 8;  // in a frame's header: that of the file, or it is old
constexpr std::size_t kSaltSize = 8;

template <std::size_t Size>
bool Read(std::ifstream& file, std::array<unsigned char, Size>& to) {
  file.read(reinterpret_cast<char*>(to.data()), static_cast<std::streamsize>(Size));
  return static_cast<std::size_t>(file.gcount()) == Size;
}

// The marks in the first pages of a side file, in the order of their commits.
class MarkReader {
 public:
  explicit MarkReader(const std::string& path) : file_(path, std::ios::binary) {
    if (Read(file_, header_)) at_ = kFileHeader;
  }

  bool IsReadable() const { return at_ != 0; }
  std::uint32_t PageSize() const { return BigEndian(header_.data() + kPageSizeAt); }
  bool HasCommit() const { return hasCommit_; }

  std::optional<CommitMark> Next() {
    std::array<unsigned char, kFrameHeader> frame{};
    while (ReadFrame(frame)) {
      hasCommit_ |= BigEndian(frame.data() + kPageCountAt) != 0;
      if (BigEndian(frame.data()) != 1) continue;
      std::array<unsigned char, kHeaderSize> page{};
      if (Read(file_, page)) return MarkIn(page.data());
    }
    return std::nullopt;
  }

 private:
  bool ReadFrame(std::array<unsigned char, kFrameHeader>& frame) {
    file_.clear();
    file_.seekg(static_cast<std::streamoff>(at_));
    at_ += kFrameHeader + PageSize();
    return Read(file_, frame) &&
           std::equal(frame.begin() + kFrameSaltAt, frame.begin() + kFrameSaltAt + kSaltSize,
                      header_.begin() + kSaltAt);
  }

  std::ifstream file_;
  std::array<unsigned char, kFileHeader> header_{};
  std::uintmax_t at_ = 0;
  bool hasCommit_ = false;
};

// What was never marked follows a mark of 0, which any file may have.
Belonging ByFirstMark(std::optional<CommitMark> first, CommitMark mark) {
  if (!first) return Belonging::Unknown;
  return mark == 0 && Follows(*first, 0) ? Belonging::Unknown : Belonging::No;
}

}  // namespace

Belonging BelongingOf(const FileStart& file, const std::string& sideFile) {
  MarkReader marks(sideFile);
  if (!marks.IsReadable()) return Belonging::NothingWaits;
  const CommitMark mark = file.Mark();
  const bool fits = file.UsesSideFile() && marks.PageSize() == file.PageSize();
  std::optional<CommitMark> first;
  while (const auto next = marks.Next()) {
    if (fits && mark != 0 && (*next == mark || (!first && Follows(*next, mark)))) {
      return Belonging::Yes;
    }
    if (!first) first = next;
  }
  if (!marks.HasCommit()) return Belonging::NothingWaits;
  return fits ? ByFirstMark(first, mark) : Belonging::No;
}

bool BelongsToAnother(sqlite3* db, const std::string& path, const std::string& sideFile) {
  constexpr int kLooks = 5;
  constexpr std::chrono::milliseconds kPause{1};
  for (int look = 0; look < kLooks; ++look) {
    if (look > 0) std::this_thread::sleep_for(kPause);
    if (BelongingOf(StartOf(db, path), sideFile) != Belonging::No) return false;
  }
  return true;
}

std::string SideFileOf(sqlite3* db) {
  return sqlite3_filename_wal(sqlite3_db_filename(db, "main"));
}

std::string IndexOf(const std::string& sideFile) {
  return sideFile.substr(0, sideFile.size() - 3) + "shm";
}

std::string NameBeside(const std::string& path) {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm moment{};
  localtime_r(&now, &moment);
  std::array<char, 32> stamp{};
  std::strftime(stamp.data(), stamp.size(), ".%Y%m%d-%H%M%S", &moment);
  const std::string first = path + stamp.data();
  std::string name = first;
  for (int i = 2; IdentityOf(name); ++i) name = first + '-' + std::to_string(i);
  return name;
}

std::string SetAside(const std::string& sideFile) {
  const std::string name = NameBeside(sideFile);
  return std::rename(sideFile.c_str(), name.c_str()) == 0 ? name : std::string();
}

}  // namespace tevra::detail
