// The log of failures: what a user was told, for whoever looks for the cause later.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "platform/text/Failure.h"

namespace tevra::log {

/// A log file that starts anew when it is full. Several programs may write to it at once, each line
/// whole. What cannot be written is left out: no failure of the log reaches the user.
class LogFile {
 public:
  static constexpr std::uintmax_t kMostBytes = 1 << 20;
  static constexpr int kOlder = 2;  ///< full ones that are kept: "<file>.1" is the newer

  explicit LogFile(std::filesystem::path file, std::uintmax_t mostBytes = kMostBytes)
      : file_(std::move(file)), mostBytes_(mostBytes) {}

  /// Writes a line: the moment, the process, the text. Makes the folder where it is missing.
  void Append(std::string_view text) const noexcept;

 private:
  int OpenWithRoom(std::size_t bytes) const;
  bool StartAnew() const;

  std::filesystem::path file_;
  std::uintmax_t mostBytes_;
};

/// "tevra.log" in the user's state folder; empty for a user without a home.
std::filesystem::path UsersLogFile();

/// Takes every line of the log.
using Sink = std::function<void(const std::string& line)>;

/// Sets who takes the lines; returns who did before. Without one nothing is logged, so that a test
/// never writes into the log of the user at the machine.
Sink SetSink(Sink sink);

/// Logs a line that holds no value of the user's.
void Note(const std::string& line);

/// Logs a failure with its statement, without the values in them (FailureLine). `where`: the
/// routine that caught it.
void NoteFailure(const Failure& failure, const std::string& where = {});

}  // namespace tevra::log
