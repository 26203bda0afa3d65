// The company's file of before a restore, beside it under a name with the moment.
#pragma once

#include <filesystem>

namespace tevra {

/// Keeps what stands under a name that is about to get another content, until the next time.
class KeptBefore {
 public:
  /// Chooses the name "<database>_Inlocuit_<moment>.mdb"; makes nothing yet.
  explicit KeptBefore(std::filesystem::path file);
  /// Removes the copy unless Keep was called.
  ~KeptBefore();
  KeptBefore(const KeptBefore&) = delete;
  KeptBefore& operator=(const KeptBefore&) = delete;

  /// Copies the file byte by byte, with its side files, while the caller keeps others out of it.
  /// Does nothing when there is no file. Throws Failure as paths::ReplaceFile.
  void Make();

  /// Keeps the copy and removes the copies of earlier times, but not `chosen`. One that cannot be
  /// removed stays, and all stay when there was no file to copy.
  void Keep(const std::filesystem::path& chosen);

  /// Empty when there was no file.
  const std::filesystem::path& Copy() const { return copy_; }

 private:
  std::filesystem::path file_;
  std::filesystem::path name_;
  std::filesystem::path copy_;
  bool kept_ = false;
};

}  // namespace tevra
