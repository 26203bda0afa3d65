// Converts file names with "\" and in any case to those of the machine, and replaces files whole or
// not at all.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace tevra::paths {

/// The machine's path: "\" and "/" are separators, doubled ones count once, and each part is found
/// without case, an exact match first. A part that does not exist is not changed.
std::filesystem::path Resolve(const std::string& written);

bool FileExists(const std::string& written);
bool FolderExists(const std::string& written);

/// True when the file is marked read-only (for an administrator too), is on a read-only medium, or
/// may not be written by this user. A file that does not exist is not
/// read-only.
bool IsReadOnly(const std::filesystem::path& file);

/// Calls `write` with a temporary name in the folder of `target`, flushes the file to the disk and
/// renames it to `target`. When `write` throws, the temporary file is removed and `target` does not
/// change. For a link, the file behind it is replaced. Throws Failure 76 (no such folder), 70 (not
/// writable, read-only target) or 61 (disk full) with the file's name, and what `write` throws; a
/// std::filesystem::filesystem_error becomes one of those failures.
void ReplaceFile(const std::filesystem::path& target,
                 const std::function<void(const std::filesystem::path& temporary)>& write);

/// Creates `file`, which must not exist, calls `write` and flushes the file to the disk; for a file
/// that is renamed later. When `write` throws, the file is removed. Throws Failure 76, 70 or 61
/// with the file's name, and what `write` throws.
void WriteNewFile(const std::filesystem::path& file, const std::function<void()>& write);

/// Renames a file within its folder, replacing `target`, so that the new name survives a power
/// failure. Throws Failure 76 or 70 with the name of `target`.
void PlaceFile(const std::filesystem::path& file, const std::filesystem::path& target);

/// Makes a folder with those above it, unless it exists, and checks that files can be made in it.
/// Throws Failure 76, 70 (not writable, for an administrator too) or 61 with the folder's name.
void MakeFolder(const std::filesystem::path& folder);

}  // namespace tevra::paths
