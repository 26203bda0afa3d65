#include <cerrno>
#include <charconv>
#include <cstdint>
#include <random>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/system/Paths.h"
#include "platform/text/FailureText.h"

namespace tevra::paths {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kNewFileMode = 0666;  // reduced by the user's umask

long NumberOf(int systemError) {
  switch (systemError) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
      return kPathNotFound;
    case ENOSPC:
    case EDQUOT:
      return kDiskFull;
    default:
      return kPermissionDenied;
  }
}

[[noreturn]] void ThrowFor(int systemError, const fs::path& target) {
  throw FileFailure(NumberOf(systemError), target.string());
}

class Descriptor {
 public:
  Descriptor(const fs::path& path, int flags, mode_t mode = 0)
      : number_(open(path.c_str(), flags | O_CLOEXEC, mode)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (IsOpen()) close(number_);
  }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }

 private:
  int number_;
};

fs::path FolderOf(const fs::path& file) {
  const fs::path folder = file.parent_path();
  return folder.empty() ? fs::path(".") : folder;
}

/// An unpredictable name, so that in a shared folder nobody can create a link there first.
std::string TemporaryName() {
  std::random_device device;
  const std::uint64_t number = (std::uint64_t{device()} << 32) | device();
  char text[17];
  const auto end = std::to_chars(text, text + sizeof text, number, 16).ptr;
  return ".tevra-" + std::string(text, end) + ".tmp";
}

/// An empty file beside the target, removed again unless it was renamed into place.
class TemporaryFile {
 public:
  explicit TemporaryFile(const fs::path& target) : target_(target) {
    for (;;) {
      path_ = FolderOf(target) / TemporaryName();
      if (Descriptor(path_, O_WRONLY | O_CREAT | O_EXCL, kNewFileMode).IsOpen()) return;
      if (errno != EEXIST) ThrowFor(errno, target);
    }
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (!placed_) unlink(path_.c_str());
  }

  const fs::path& Path() const { return path_; }

  /// Gives the file the permissions of the one that it replaces and flushes it to the disk.
  void Flush() const {
    const Descriptor file(path_, O_RDONLY);
    if (!file.IsOpen()) ThrowFor(errno, target_);
    struct stat replaced {};
    if (stat(target_.c_str(), &replaced) == 0) fchmod(file.Number(), replaced.st_mode & 07777);
    if (fsync(file.Number()) != 0) ThrowFor(errno, target_);
  }

  void Place() {
    if (rename(path_.c_str(), target_.c_str()) != 0) ThrowFor(errno, target_);
    placed_ = true;
  }

 private:
  fs::path target_;
  fs::path path_;
  bool placed_ = false;
};

/// Makes the new name survive a power failure. Some media cannot flush a folder; there either the
/// old or the new file survives.
void FlushFolder(const fs::path& folder) {
  const Descriptor open(folder, O_RDONLY | O_DIRECTORY);
  if (open.IsOpen()) fsync(open.Number());
}

}  // namespace

void ReplaceFile(const fs::path& target,
                 const std::function<void(const fs::path& temporary)>& write) {
  std::error_code error;
  // For a link, the file behind it is replaced and the link is kept.
  fs::path file = target;
  if (fs::is_symlink(target, error)) {
    file = fs::canonical(target, error);
    if (error) throw FileFailure(kPathNotFound, target.string());
  }
  if (!fs::is_directory(FolderOf(file), error)) throw FileFailure(kPathNotFound, target.string());
  if (fs::is_directory(file, error) || IsReadOnly(file)) {
    throw FileFailure(kPermissionDenied, target.string());
  }
  TemporaryFile temporary(file);
  try {
    write(temporary.Path());
  } catch (const fs::filesystem_error& failed) {
    ThrowFor(failed.code().value(), target);
  }
  temporary.Flush();
  temporary.Place();
  FlushFolder(FolderOf(file));
}

void WriteNewFile(const fs::path& file, const std::function<void()>& write) {
  if (!Descriptor(file, O_WRONLY | O_CREAT | O_EXCL, kNewFileMode).IsOpen()) ThrowFor(errno, file);
  try {
    write();
    const Descriptor written(file, O_RDONLY);
    if (!written.IsOpen() || fsync(written.Number()) != 0) ThrowFor(errno, file);
  } catch (...) {
    unlink(file.c_str());
    throw;
  }
}

void PlaceFile(const fs::path& file, const fs::path& target) {
  if (rename(file.c_str(), target.c_str()) != 0) ThrowFor(errno, target);
  FlushFolder(FolderOf(target));
}

void MakeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) ThrowFor(error.value(), folder);
  if (IsReadOnly(folder)) throw FileFailure(kPermissionDenied, folder.string());
}

}  // namespace tevra::paths
