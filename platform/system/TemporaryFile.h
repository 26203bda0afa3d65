// A file that is written beside another one before it takes its place.
#pragma once

#include <filesystem>

#include <sys/types.h>

namespace tevra::paths {

inline constexpr mode_t kNewFileMode = 0666;  ///< reduced by the user's umask

/// An open file of the system, closed at the end.
class Descriptor {
 public:
  Descriptor(const std::filesystem::path& path, int flags, mode_t mode = 0);
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor();

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }

 private:
  int number_;
};

/// Throws Failure 76, 70 or 61 with the target's name for an error number of the system.
[[noreturn]] void ThrowFor(int systemError, const std::filesystem::path& target);

/// "." for a bare name.
std::filesystem::path FolderOf(const std::filesystem::path& file);

/// An empty file ".tevra-*.tmp" beside the target. It is removed again, with the side files of an
/// engine that wrote it, unless it was renamed into place. Throws as ThrowFor.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::filesystem::path& target);
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  /// Gives the file the permissions of the one that it replaces and flushes it to the disk.
  void Flush() const;
  void Place();

 private:
  std::filesystem::path target_;
  std::filesystem::path path_;
  bool placed_ = false;
};

/// Removes the temporary files that killed programs left in a folder: those of this machine's
/// programs that no longer run, and any that nobody has written for an hour. The name says which
/// program made a file, so that one in use is never taken. What cannot be removed stays.
void SweepTemporaryFiles(const std::filesystem::path& folder) noexcept;

}  // namespace tevra::paths
