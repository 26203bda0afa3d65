// The text of a failure for the log, without passwords and values typed by the user.
#pragma once

#include <string>
#include <string_view>

#include "platform/text/Failure.h"

namespace tevra::log {

/// Replaces each text, number and date in a statement by "?". Names are kept, also names with
/// digits and names in brackets. A text without its closing quote hides the rest.
std::string WithoutLiterals(std::string_view statement);

/// Number, description and source of a failure on one line. A value in the description ("Type
/// mismatch: abc") is left out; names of fields and files are kept.
std::string FailureLine(const Failure& failure);

}  // namespace tevra::log
