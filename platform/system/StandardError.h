// The standard messages for failures.
#pragma once

#include <string>

#include "platform/text/Failure.h"

namespace tevra {

/// The place of a failure, as named in the message.
struct Procedure {
  std::string name;
  std::string kind;  ///< "Form", "Module", "Class Module", "User Control"
  std::string module;
  int line = 0;  ///< the statement counter, used only in this message
};

/// The long form: number, description, procedure, module and statement counter.
std::string StandardErrorText(const Failure& failure, const Procedure& procedure);

/// The short form: number and description.
std::string ShortErrorText(const Failure& failure);

/// The exception being caught, as a Failure; call it in a catch block. Other exceptions become
/// failures (7 out of memory, otherwise 51). The failure goes into the log: who asks for it is
/// about to show it.
Failure CaughtFailure();
/// The same; the log names the procedure too.
Failure CaughtFailure(const Procedure& procedure);

/// Logs what is being caught, where the user gets a message that does not tell it.
void LogCaughtFailure(const Procedure& procedure);

/// Shows a failure in the long form, with the critical icon.
void ShowStandardError(const Failure& failure, const Procedure& procedure);

/// Shows a failure in the short form, with the critical icon and the procedure's name between
/// blanks as the title.
void ShowShortError(const Failure& failure, const Procedure& procedure);

}  // namespace tevra
