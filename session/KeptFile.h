// A copy of a file that is about to be replaced, in the directory's folder of backups.
#pragma once

#include <filesystem>

namespace tevra {

/// The folder of backups in the directory of the databases.
inline constexpr const char* kBackupFolder = "Salv_Tevra";

/// Copies the file to "Salv_Tevra\Inlocuit_<name>_<moment>.<extension>", including changes that are
/// still in its side files. The destructor deletes the copy unless Keep was called. Throws Failure
/// 70 or 61, naming the copy.
class KeptFile {
 public:
  explicit KeptFile(const std::filesystem::path& file);
  ~KeptFile();
  KeptFile(const KeptFile&) = delete;
  KeptFile& operator=(const KeptFile&) = delete;

  /// Keeps the copy.
  void Keep() { kept_ = true; }

  /// Writes the copy back over the file. When that fails, the copy is kept. Throws nothing: it runs
  /// while another failure is reported.
  void PutBack() noexcept;

  const std::filesystem::path& Copy() const { return copy_; }

 private:
  std::filesystem::path file_;
  std::filesystem::path copy_;
  bool folderMade_ = false;
  bool kept_ = false;
};

}  // namespace tevra
