// The program's pictures: files in the folder BMP beside it.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <string>

namespace tevra {

/// The folder that contains "\BMP\...", usually the program's own.
void SetPictureDirectory(const std::string& directory);

/// The icon of a name such as "\BMP\OK.bmp", in all its sizes. It is empty when the file is
/// missing, because a missing picture must not make a message fail.
QIcon PictureIcon(const std::string& written);

}  // namespace tevra
