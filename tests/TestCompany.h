// A fresh company from the template in a folder of its own, gone when the test ends.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/data/Connection.h"
#include "platform/system/MessageBox.h"
#include "tests/system/Folder.h"

namespace tevra::test {

/// A company (and the template Kelnar.mdb) in a folder; the session speaks of it as after a login
/// of admin.
class TestCompany {
 public:
  explicit TestCompany(const std::string& code = "01");
  std::filesystem::path Directory() const { return folder_.Path(); }
  std::filesystem::path File() const { return folder_.Path() / name_; }
  std::string ConnectionString() const;
  Connection Open() const { return Connection(ConnectionString()); }

  /// Makes the session speak of this company again, after that of another one.
  void LogIn() const;

  /// The rows of a statement as text: the values of a row with a blank behind each, a row a line.
  std::string Rows(const std::string& sql) const;

  /// Inserts an asset with these fields, the others by default; returns its NRCRT.
  int AddAsset(const std::vector<std::pair<std::string, Value>>& fields) const;

 private:
  TemporaryFolder folder_;
  std::string name_;
};

/// Answers messages from a queue (the default button's OK or Yes when it is empty) and keeps what
/// was shown.
class MessageRecorder {
 public:
  MessageRecorder();
  ~MessageRecorder();
  MessageRecorder(const MessageRecorder&) = delete;
  MessageRecorder& operator=(const MessageRecorder&) = delete;

  std::vector<long> answers;
  std::vector<MessageRequest> shown;

 private:
  MessageHandler before_;
};

}  // namespace tevra::test
