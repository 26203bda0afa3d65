// How a command says no, and in which words a failure is told.
#pragma once

#include <stdexcept>
#include <string>

#include "platform/text/Failure.h"

namespace tevra::batch {

/// A command that was not done; what() is the whole message. The program ends with kRefused.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// "Eroare <number> - <description>", followed by `where` in parentheses when the description does
/// not name it itself.
std::string ErrorText(const Failure& failure, const std::string& where = {});

}  // namespace tevra::batch
