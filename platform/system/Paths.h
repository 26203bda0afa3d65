// File names as the system writes them ("\", any case) turned into the machine's own, and files
// replaced whole or not at all.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace tevra::paths {

/// The machine's path of a written one: "\" and "/" separate, doubled ones collapse, each part is
/// found without case, an exact match first. A part that is not there stays as written.
std::filesystem::path Resolve(const std::string& written);

bool FileExists(const std::string& written);
bool FolderExists(const std::string& written);

/// True when the file is marked read-only, which also binds an administrator, lies on a medium that
/// cannot be written, or may not be written by this user. A file that is not there is not
/// read-only.
bool IsReadOnly(const std::filesystem::path& file);

/// Lets `write` make a file under a temporary name in the folder of `target`, flushes it to the
/// disk and renames it to `target`. When `write` throws, the temporary file goes and `target` stays
/// as it was. A link stays a link: the file behind it is replaced. Throws Failure 76 (no such
/// folder), 70 (may not be written, read-only target) or 61 (disk full), naming the file, and what
/// `write` throws; a std::filesystem::filesystem_error of it becomes one of those failures.
void ReplaceFile(const std::filesystem::path& target,
                 const std::function<void(const std::filesystem::path& temporary)>& write);

}  // namespace tevra::paths
