// The texts of the failures that this folder and its neighbours throw.
#pragma once

#include <string>
#include <string_view>

#include "platform/text/Failure.h"

namespace tevra {

/// The description of an error number, such as "Type mismatch" for 13.
std::string FailureText(long number);

/// The failure of a conversion or call: the description, then ": " and the value unless it is
/// empty; only the first 60 characters of the value.
Failure ValueFailure(long number, std::string_view value = {});

/// The failure of a file: the description, then ": " and the last 60 characters of the path, so
/// that the file's name remains. The whole path is the failure's source.
Failure FileFailure(long number, const std::string& file);

}  // namespace tevra
