// The program's pictures: files in the folder BMP beside it.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <string>

namespace tevra {

/// The folder in which "\BMP\..." lie, as a rule the program's own.
void SetPictureDirectory(const std::string& directory);

/// The icon of a written name such as "\BMP\OK.bmp", in all its sizes; an empty one when the file
/// is missing, for no picture is worth a failed message.
QIcon PictureIcon(const std::string& written);

}  // namespace tevra
