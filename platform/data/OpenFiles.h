// The company files that this process works on, by device and inode.
// For the data layer's own sources only.
#pragma once

#include "platform/data/FileStart.h"

namespace tevra::detail {

/// Says for its life that the process works on the file, whose side file has been examined.
class OpenFile {
 public:
  explicit OpenFile(const FileIdentity& file);
  ~OpenFile();
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

 private:
  FileIdentity file_;
};

/// How many do.
int OpenHere(const FileIdentity& file);

}  // namespace tevra::detail
