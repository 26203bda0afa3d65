// The log of failures, for finding the cause of a message later.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "platform/text/Failure.h"

namespace tevra::log {

/// A log file of limited size: a full one is renamed and a new one begins. Several programs may
/// write to it at the same time; lines are never mixed. A line that cannot be written is dropped
/// silently, since the user's work must go on.
class LogFile {
 public:
  static constexpr std::uintmax_t kMostBytes = 1 << 20;
  static constexpr int kOlder = 2;  ///< number of full files kept; "<file>.1" is the newest

  explicit LogFile(std::filesystem::path file, std::uintmax_t mostBytes = kMostBytes)
      : file_(std::move(file)), mostBytes_(mostBytes) {}

  /// Writes a line: time, process, text. Creates the folder when it is missing.
  void Append(std::string_view text) const noexcept;

 private:
  int OpenWithRoom(std::size_t bytes) const;
  bool StartAnew() const;

  std::filesystem::path file_;
  std::uintmax_t mostBytes_;
};

/// "tevra.log" in the user's state folder; empty for a user without a home.
std::filesystem::path UsersLogFile();

/// Receives every line of the log.
using Sink = std::function<void(const std::string& line)>;

/// Sets the sink and returns the previous one. Without a sink nothing is logged, so that tests
/// never write into the real user's log.
Sink SetSink(Sink sink);

/// Logs a line. The caller makes sure that it contains no value typed by the user.
void Note(const std::string& line);

/// Logs a failure with its statement, without the values in them (FailureLine). `where`: the
/// routine that caught it.
void NoteFailure(const Failure& failure, const std::string& where = {});

}  // namespace tevra::log
