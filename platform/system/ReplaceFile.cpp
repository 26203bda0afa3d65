#include <cerrno>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include "platform/system/Paths.h"
#include "platform/system/TemporaryFile.h"
#include "platform/text/FailureText.h"

namespace tevra::paths {
namespace {

namespace fs = std::filesystem;

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

/// Makes the new name survive a power failure. Some media cannot flush a folder; there either the
/// old or the new file survives.
void FlushFolder(const fs::path& folder) {
  const Descriptor open(folder, O_RDONLY | O_DIRECTORY);
  if (open.IsOpen()) fsync(open.Number());
}

}  // namespace

void ThrowFor(int systemError, const fs::path& target) {
  throw FileFailure(NumberOf(systemError), target.string());
}

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
  SweepTemporaryFiles(FolderOf(file));
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
