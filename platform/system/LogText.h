// What of a failure may be written into a log: no password and no value that a user typed.
#pragma once

#include <string>
#include <string_view>

#include "platform/text/Failure.h"

namespace tevra::log {

/// A statement with "?" for each text, number and date that stands in it. Names stay, those with
/// digits and those in brackets too. An unclosed text hides the rest.
std::string WithoutLiterals(std::string_view statement);

/// Number, description and source of a failure on one line. The value that a description quotes
/// ("Type mismatch: abc") is left out; names of fields and files stay.
std::string FailureLine(const Failure& failure);

}  // namespace tevra::log
