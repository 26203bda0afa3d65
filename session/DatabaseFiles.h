// Files in a directory of companies: found, overwritten, and taken back when a step fails.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tevra {

/// The file of a directory, as it is or will be spelled. Throws Failure 76 for the empty directory.
std::filesystem::path FileIn(const std::string& directory, const std::string& name);

/// CopyCompanyFile, but a plain file that is no company's may be in the way too: it is replaced
/// like one. A folder is refused by name. Throws Failure as CopyCompanyFile.
void OverwriteWithCopy(const std::filesystem::path& source, const std::filesystem::path& target,
                       const std::function<void(const std::filesystem::path& copy)>& prepare);

/// Removes at its end those of the watched files that were not there when it was told of them,
/// unless what was made is kept.
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
