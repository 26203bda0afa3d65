// A value as a cell of comma separated values.
#pragma once

#include <string>

#include "platform/data/Value.h"

namespace tevra {

/// For other programs: numbers with a decimal point and all their digits, never with an
/// exponent, dates as 2006-12-31 (with
/// their time of day, if any), Null empty, other values as they read, quoted where they must be.
std::string CsvCellOf(const Value& value);

}  // namespace tevra
