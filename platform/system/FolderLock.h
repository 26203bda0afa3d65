// Lets one program at a time work in a folder, to read, change and rewrite a file.
#pragma once

#include <filesystem>

namespace tevra {

/// Waits until no other program holds the lock and holds it while the object lives; a program that
/// dies releases it. It is advisory. Throws Failure 76 when there is no such folder.
class FolderLock {
 public:
  explicit FolderLock(const std::filesystem::path& folder);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  int handle_;
};

}  // namespace tevra
