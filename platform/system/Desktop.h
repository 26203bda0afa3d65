// What the program asks of the desktop around it: a file from the user, a file shown by its viewer.
// The front end or a test says how.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tevra {

struct OpenFileRequest {
  std::string title;
  std::string filter;     ///< "text|pattern|text|pattern", such as "KELNAR.MDB|*MDB"
  std::string directory;  ///< where the dialog starts
};

/// The file chosen, which exists; nothing when the user gave up.
using OpenFileHandler = std::function<std::optional<std::string>(const OpenFileRequest&)>;
OpenFileHandler SetOpenFileHandler(OpenFileHandler handler);
std::optional<std::string> AskOpenFile(const OpenFileRequest& request);

struct SaveFileRequest {
  std::string title;
  std::string filter;     ///< as for OpenFileRequest
  std::string name;       ///< the file name offered, without a folder
  std::string extension;  ///< such as "pdf": what a name typed without one gets
};

/// The file to write, whether it exists (the user agreed to lose what it holds) or not; nothing
/// when the user gave up.
using SaveFileHandler = std::function<std::optional<std::string>(const SaveFileRequest&)>;
SaveFileHandler SetSaveFileHandler(SaveFileHandler handler);
std::optional<std::string> AskSaveFile(const SaveFileRequest& request);

/// Shows a file in the program that the desktop has for it. Throws Failure 53 when it is missing,
/// 70 or another with the reason when nothing can show it.
using ViewerHandler = std::function<void(const std::string& file)>;
ViewerHandler SetViewerHandler(ViewerHandler handler);
void ShowInViewer(const std::string& file);

}  // namespace tevra
