#include "platform/forms/Pictures.h"

#include "platform/system/Paths.h"

namespace tevra {

namespace {

std::string& Directory() {
  static std::string directory;
  return directory;
}

}  // namespace

void SetPictureDirectory(const std::string& directory) {
  Directory() = directory;
}

// A file with "@2x" in its name is added for screens of double density.
QIcon PictureIcon(const std::string& written) {
  const std::string name = Directory() + "\\" + written;
  if (!paths::FileExists(name)) return {};
  return QIcon(QString::fromStdString(paths::Resolve(name).string()));
}

}  // namespace tevra
