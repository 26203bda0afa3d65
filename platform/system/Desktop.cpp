#include "platform/system/Desktop.h"

#include <utility>

#include "platform/text/FailureText.h"

namespace tevra {
namespace {

OpenFileHandler& FileHandler() {
  static OpenFileHandler handler;
  return handler;
}

SaveFileHandler& FileSaver() {
  static SaveFileHandler handler;
  return handler;
}

ViewerHandler& Viewer() {
  static ViewerHandler handler;
  return handler;
}

}  // namespace

OpenFileHandler SetOpenFileHandler(OpenFileHandler handler) {
  return std::exchange(FileHandler(), std::move(handler));
}

std::optional<std::string> AskOpenFile(const OpenFileRequest& request) {
  const OpenFileHandler handler = FileHandler();
  return handler ? handler(request) : std::nullopt;
}

SaveFileHandler SetSaveFileHandler(SaveFileHandler handler) {
  return std::exchange(FileSaver(), std::move(handler));
}

std::optional<std::string> AskSaveFile(const SaveFileRequest& request) {
  const SaveFileHandler handler = FileSaver();
  return handler ? handler(request) : std::nullopt;
}

ViewerHandler SetViewerHandler(ViewerHandler handler) {
  return std::exchange(Viewer(), std::move(handler));
}

void ShowInViewer(const std::string& file) {
  const ViewerHandler handler = Viewer();
  if (!handler) throw FileFailure(kPermissionDenied, file);
  handler(file);
}

}  // namespace tevra
