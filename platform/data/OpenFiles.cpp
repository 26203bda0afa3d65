#include "platform/data/OpenFiles.h"

#include <map>
#include <mutex>

namespace tevra::detail {

namespace {

struct Counts {
  std::mutex mutex;
  std::map<FileIdentity, int> byFile;
};

Counts& AllOpen() {
  static Counts counts;
  return counts;
}

}  // namespace

OpenFile::OpenFile(const FileIdentity& file) : file_(file) {
  Counts& counts = AllOpen();
  const std::lock_guard lock(counts.mutex);
  ++counts.byFile[file_];
}

OpenFile::~OpenFile() {
  Counts& counts = AllOpen();
  const std::lock_guard lock(counts.mutex);
  const auto found = counts.byFile.find(file_);
  if (--found->second == 0) counts.byFile.erase(found);
}

int OpenHere(const FileIdentity& file) {
  Counts& counts = AllOpen();
  const std::lock_guard lock(counts.mutex);
  const auto found = counts.byFile.find(file);
  return found == counts.byFile.end() ? 0 : found->second;
}

}  // namespace tevra::detail
