#include "platform/data/RollbackJournal.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <vector>

#include <stdlib.h>

#include "platform/data/CommitMark.h"
#include "platform/data/Database.h"
#include "platform/data/EngineHandle.h"
#include "platform/data/FileStart.h"
#include "platform/data/SideFile.h"

namespace fs = std::filesystem;

namespace tevra::detail {

namespace {

constexpr std::array<unsigned char, 8> kMagic{0xd9, 0xd5, 0x05, 0xf9, 0x20, 0xa1, 0x63, 0xd7};
constexpr std::size_t kPageCountAt = 8;       // in the journal's header: 0 until it is flushed
constexpr std::size_t kChangeCounterAt = 24;  // in the file's header

// A folder that goes with all its files.
class TrialFolder {
 public:
  explicit TrialFolder(const std::string& path) {
    std::string name = (fs::temp_directory_path() / "tevra-XXXXXX").string();
    if (!mkdtemp(name.data())) throw Failure(kDiskFull, "Disk full: " + name, path);
    folder_ = name;
  }
  ~TrialFolder() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  TrialFolder(const TrialFolder&) = delete;
  TrialFolder& operator=(const TrialFolder&) = delete;

  fs::path File() const { return folder_ / "copie.mdb"; }

 private:
  fs::path folder_;
};

// Reads through the engine: closing another handle of the file would drop the engine's locks.
void CopyOpened(sqlite3* db, const std::string& path, const fs::path& target) {
  sqlite3_file* opened = nullptr;
  sqlite3_file_control(db, "main", SQLITE_FCNTL_FILE_POINTER, &opened);
  const auto length = static_cast<sqlite3_int64>(StartOf(db, path).length);
  std::vector<char> piece(std::size_t{1} << 20);
  std::ofstream copy(target, std::ios::binary);
  for (sqlite3_int64 at = 0; at < length; at += static_cast<sqlite3_int64>(piece.size())) {
    const auto size =
        static_cast<int>(std::min(static_cast<sqlite3_int64>(piece.size()), length - at));
    const int code = opened->pMethods->xRead(opened, piece.data(), size, at);
    if (code != SQLITE_OK) throw EngineFailure(code, {}, path, {});
    copy.write(piece.data(), size);
  }
  copy.close();
  if (!copy) throw Failure(kDiskFull, "Disk full: " + target.string(), path);
}

// A journal holds the state directly before the file's last commit, or before one that was not
// finished.
bool Precedes(const FileStart& restored, const FileStart& file) {
  const std::uint32_t commits = file.Number(kChangeCounterAt) - restored.Number(kChangeCounterAt);
  return commits <= 1 && restored.PageSize() == file.PageSize() &&
         (file.Mark() == restored.Mark() || Follows(file.Mark(), restored.Mark()));
}

bool Belongs(sqlite3* db, const std::string& path, const std::string& journal) {
  const FileStart file = StartOf(db, path);
  // Such a file has no journal while changes wait in its side file.
  if (file.UsesSideFile() && IdentityOf(SideFileOf(db))) return false;
  const TrialFolder folder(path);
  const fs::path copy = folder.File();
  CopyOpened(db, path, copy);
  fs::copy_file(journal, copy.string() + "-journal");
  const EngineHandle trial = OpenUnsettled(copy);
  return IsWhole(trial, copy) && Precedes(StartOf(trial.get(), copy.string()), file);
}

}  // namespace

std::string JournalOf(sqlite3* db) {
  return sqlite3_filename_journal(sqlite3_db_filename(db, "main"));
}

bool HasPages(const std::string& journal) {
  std::ifstream file(journal, std::ios::binary);
  std::array<unsigned char, kPageCountAt + 4> header{};
  file.read(reinterpret_cast<char*>(header.data()), static_cast<std::streamsize>(header.size()));
  return static_cast<std::size_t>(file.gcount()) == header.size() &&
         std::equal(kMagic.begin(), kMagic.end(), header.begin()) &&
         BigEndian(header.data() + kPageCountAt) != 0;
}

void SettleJournal(sqlite3* db, const std::string& path) {
  const std::string journal = JournalOf(db);
  if (!HasPages(journal) || Belongs(db, path, journal)) return;
  if (!IsWhole(OpenStill(path), path)) throw EngineFailure(SQLITE_CORRUPT, {}, path, {});
  if (SetAside(journal).empty()) {
    throw Failure(kPermissionDenied, "Permission denied: " + journal, path);
  }
}

}  // namespace tevra::detail
