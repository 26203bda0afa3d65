// The program's only exception: an error with a number and a description.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace tevra {

/// The error numbers that users meet in messages. They are part of the messages' texts.
enum ErrorNumber : long {
  kInvalidArgument = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kInternalError = 51,
  kFileNotFound = 53,
  kDeviceError = 57,
  kDiskFull = 61,
  kPermissionDenied = 70,
  kPathNotFound = 76,
  kInvalidUseOfNull = 94,
  kObjectRequired = 424,
  kBadCriteria = 3001,
  kNoCurrentRecord = 3021,
  kItemNotFound = 3265,
  kStatementError = -2147217900,
  kRowChanged = -2147217864,
  kValueNotAccepted = -2147217887,
  kDatabaseNotOpened = -2147467259,
  kRefusedNote = -2147221494,  // 0x8004000A
};

/// Thrown by every routine below the screens; caught and shown by a screen's handler or a command.
class Failure : public std::runtime_error {
 public:
  /// `number`: see ErrorNumber. `description`: the text shown after the number.
  /// `source`: the routine, file or statement that failed; may be empty.
  Failure(long number, const std::string& description, std::string source = {})
      : std::runtime_error(description), number_(number), source_(std::move(source)) {}

  long Number() const { return number_; }
  std::string Description() const { return what(); }
  const std::string& Source() const { return source_; }

 private:
  long number_;
  std::string source_;
};

}  // namespace tevra
