// Finds, overwrites and, when a step fails, removes files in a directory of companies.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/system/Progress.h"

namespace tevra {

/// The path of a directory's file, in the spelling that it has or will have. Throws Failure 76 for
/// the empty directory.
std::filesystem::path FileIn(const std::string& directory, const std::string& name);

/// Like CopyCompanyFile, but also replaces a file that is no company's or is damaged. A folder is
/// refused by name. Throws Failure like CopyCompanyFile.
void OverwriteWithCopy(const std::filesystem::path& source, const std::filesystem::path& target,
                       const std::function<void(const std::filesystem::path& copy)>& prepare = {},
                       const Progress& progress = {});

/// On destruction, unless the files are kept, removes those watched files that did not exist when
/// watching began.
class FilesMade {
 public:
  FilesMade() = default;
  ~FilesMade();
  FilesMade(const FilesMade&) = delete;
  FilesMade& operator=(const FilesMade&) = delete;

  void Watch(const std::filesystem::path& file);
  void Keep() { files_.clear(); }

 private:
  std::vector<std::filesystem::path> files_;
};

}  // namespace tevra
