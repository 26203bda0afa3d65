#include "platform/system/Paths.h"

#include <string_view>
#include <vector>

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "platform/text/Strings.h"

namespace tevra::paths {
namespace {

namespace fs = std::filesystem;

/// Whether the name exists, also as a broken link.
bool IsThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

std::vector<std::string> PartsOf(std::string_view written) {
  std::vector<std::string> parts;
  while (!written.empty()) {
    const std::size_t end = written.find_first_of("\\/");
    if (end != 0) parts.emplace_back(written.substr(0, end));
    if (end == std::string_view::npos) break;
    written.remove_prefix(end + 1);
  }
  return parts;
}

/// The entry of `folder` whose name is `part` without case, the first in byte order when there are
/// several; `part` itself when there is none.
std::string EntryNoCase(const fs::path& folder, const std::string& part) {
  const std::string wanted = LCase(part);
  std::string found;
  std::error_code error;
  const fs::path listed = folder.empty() ? fs::path(".") : folder;
  for (fs::directory_iterator entry(listed, error), end; !error && entry != end;
       entry.increment(error)) {
    std::string name = entry->path().filename().string();
    if (LCase(name) == wanted && (found.empty() || name < found)) found = std::move(name);
  }
  return found.empty() ? part : found;
}

}  // namespace

fs::path Resolve(const std::string& written) {
  const std::vector<std::string> parts = PartsOf(written);
  const bool absolute = !written.empty() && (written.front() == '/' || written.front() == '\\');
  fs::path asWritten = absolute ? "/" : "";
  for (const std::string& part : parts) asWritten /= part;
  if (IsThere(asWritten)) return asWritten;

  fs::path resolved = absolute ? "/" : "";
  for (const std::string& part : parts) {
    resolved /= IsThere(resolved / part) ? part : EntryNoCase(resolved, part);
  }
  return resolved;
}

bool FileExists(const std::string& written) {
  std::error_code error;
  const fs::file_status status = fs::status(Resolve(written), error);
  return fs::exists(status) && !fs::is_directory(status);
}

bool FolderExists(const std::string& written) {
  std::error_code error;
  return fs::is_directory(Resolve(written), error);
}

bool IsReadOnly(const fs::path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) return false;
  if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) return true;
  struct statvfs medium {};
  if (statvfs(file.c_str(), &medium) == 0 && (medium.f_flag & ST_RDONLY) != 0) return true;
  return euidaccess(file.c_str(), W_OK) != 0;
}

}  // namespace tevra::paths
