#include "platform/system/FolderLock.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "platform/text/FailureText.h"

namespace tevra {

FolderLock::FolderLock(const std::filesystem::path& folder)
    : handle_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (handle_ < 0) throw FileFailure(kPathNotFound, folder.string());
  while (flock(handle_, LOCK_EX) != 0 && errno == EINTR) {
  }
}

FolderLock::~FolderLock() {
  close(handle_);
}

}  // namespace tevra
