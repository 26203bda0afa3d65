#include "platform/text/FailureText.h"

#include "platform/text/Strings.h"

namespace tevra {
namespace {

constexpr std::size_t kLongestQuote = 60;
constexpr std::string_view kCut = "...";

}  // namespace

std::string FailureText(long number) {
  switch (number) {
    case kInvalidArgument:
      return "Invalid procedure call or argument";
    case kOverflow:
      return "Overflow";
    case kDivisionByZero:
      return "Division by zero";
    case kTypeMismatch:
      return "Type mismatch";
    case kFileNotFound:
      return "File not found";
    case kDiskFull:
      return "Disk full";
    case kPermissionDenied:
      return "Permission denied";
    case kPathNotFound:
      return "Path not found";
    case kInvalidUseOfNull:
      return "Invalid use of Null";
    default:
      return "Error " + std::to_string(number);
  }
}

Failure ValueFailure(long number, std::string_view value) {
  std::string text = FailureText(number);
  if (!value.empty()) {
    text += ": ";
    text += Len(value) <= kLongestQuote ? std::string(value)
                                        : Left(value, kLongestQuote - kCut.size()).append(kCut);
  }
  return Failure(number, text);
}

Failure FileFailure(long number, const std::string& file) {
  std::string text = FailureText(number);
  if (!file.empty()) {
    text += ": ";
    text += Len(file) <= kLongestQuote
                ? file
                : std::string(kCut).append(Right(file, kLongestQuote - kCut.size()));
  }
  return Failure(number, text, file);
}

}  // namespace tevra
