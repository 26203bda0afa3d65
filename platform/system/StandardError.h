// The standard form in which a failure is told to the user.
#pragma once

#include <string>

#include "platform/text/Failure.h"

namespace tevra {

/// Where an error message says that something failed.
struct Procedure {
  std::string name;
  std::string kind;    ///< "Form", "Module", "Class Module", "User Control"
  std::string module;
  int line = 0;        ///< the statement counter, kept for this message alone
};

/// The long form: number, description, procedure, module and statement counter.
std::string StandardErrorText(const Failure& failure, const Procedure& procedure);

/// Shows it, with the critical icon.
void ShowStandardError(const Failure& failure, const Procedure& procedure);

}  // namespace tevra
