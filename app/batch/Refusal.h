// Refusals of commands, and the texts of failures on the command line.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/text/Failure.h"

namespace tevra::batch {

/// A refused command; what() is the whole message. The program ends with kRefused.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  Refusal(const std::string& text, const Failure& cause)
      : std::runtime_error(text), cause_(cause) {}

  /// The failure behind it, for the log.
  const std::optional<Failure>& Cause() const { return cause_; }

 private:
  std::optional<Failure> cause_;
};

/// Logs the failure behind a refusal or, without one, the first line of its text, in which every
/// `typed` text is left out: the log must not contain what the user typed. `command`: the one that
/// was refused.
void LogRefusal(const Refusal& refusal, const std::vector<const std::string*>& typed,
                const std::string& command);

/// "Eroare <number> - <description>", followed by `where` in parentheses when the description does
/// not name it itself.
std::string ErrorText(const Failure& failure, const std::string& where = {});

/// ErrorText with what the failure's source names, such as the asset; without a source, or when the
/// description names the company's file, with that file.
std::string ReasonText(const Failure& failure);

/// The result of `call`. A Failure becomes a Refusal with its ReasonText.
template <typename Call>
auto WithReason(Call call) {
  try {
    return call();
  } catch (const Failure& failure) {
    throw Refusal(ReasonText(failure), failure);
  }
}

}  // namespace tevra::batch
