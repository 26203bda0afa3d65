// The words of the failures that this folder and its neighbours throw.
#pragma once

#include <string>
#include <string_view>

#include "platform/text/Failure.h"

namespace tevra {

/// The description that belongs to an error number, such as "Type mismatch" for 13.
std::string FailureText(long number);

/// The failure of a conversion or call: the description, then ": " and the value when it is not
/// empty, cut to 60 characters at its end.
Failure ValueFailure(long number, std::string_view value = {});

/// The failure of a file: the description, then ": " and the file, cut to 60 characters at its
/// beginning, so that its name stays. The whole name is the failure's source.
Failure FileFailure(long number, const std::string& file);

}  // namespace tevra
