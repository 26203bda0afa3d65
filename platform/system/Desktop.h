// File dialogs and viewers of the desktop. The front end or a test sets the
// handlers.
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

/// The chosen file, which exists; nothing when the user cancelled.
using OpenFileHandler = std::function<std::optional<std::string>(const OpenFileRequest&)>;
OpenFileHandler SetOpenFileHandler(OpenFileHandler handler);
std::optional<std::string> AskOpenFile(const OpenFileRequest& request);

struct SaveFileRequest {
  std::string title;
  std::string filter;     ///< as for OpenFileRequest
  std::string name;       ///< the proposed file name, without a folder
  std::string extension;  ///< such as "pdf"; added to a name typed without one
};

/// The file to write; when it exists, the user agreed to replace it. Nothing when the user
/// cancelled.
using SaveFileHandler = std::function<std::optional<std::string>(const SaveFileRequest&)>;
SaveFileHandler SetSaveFileHandler(SaveFileHandler handler);
std::optional<std::string> AskSaveFile(const SaveFileRequest& request);

/// Shows a file in the desktop's program for it. Throws Failure 53 when it is missing, 70 or
/// another one with the reason when no program can show it.
using ViewerHandler = std::function<void(const std::string& file)>;
ViewerHandler SetViewerHandler(ViewerHandler handler);
void ShowInViewer(const std::string& file);

}  // namespace tevra
