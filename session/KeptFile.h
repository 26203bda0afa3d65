// A file that another one is about to replace, kept in the directory's folder of backups.
#pragma once

#include <filesystem>

namespace tevra {

/// The folder of backups in the directory of the databases.
inline constexpr const char* kBackupFolder = "Salv_Tevra";

/// Copies the file to "Salv_Tevra\Inlocuit_<name>_<moment>.<extension>", the changes that wait in
/// its side files too. The copy goes again at the end, unless it was kept. Throws Failure 70 or 61,
/// naming the copy.
class KeptFile {
 public:
  explicit KeptFile(const std::filesystem::path& file);
  ~KeptFile();
  KeptFile(const KeptFile&) = delete;
  KeptFile& operator=(const KeptFile&) = delete;

  /// The copy stays.
  void Keep() { kept_ = true; }

  /// Puts the file back in the place of the one that replaced it. When that fails the copy stays;
  /// throws nothing, since it runs behind a failure that is the one to tell.
  void PutBack() noexcept;

  const std::filesystem::path& Copy() const { return copy_; }

 private:
  std::filesystem::path file_;
  std::filesystem::path copy_;
  bool folderMade_ = false;
  bool kept_ = false;
};

}  // namespace tevra
