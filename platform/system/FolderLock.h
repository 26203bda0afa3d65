// One program at a time in a folder, for work that reads a file, changes it and writes it anew.
#pragma once

#include <filesystem>

namespace tevra {

/// Waits until nobody else holds the folder and holds it as long as it lives; a program that dies
/// lets go. Binds only those who ask. Throws Failure 76 when there is no such folder.
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
