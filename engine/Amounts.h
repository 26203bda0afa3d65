// Checks of the parameters and results of the calculations.
#pragma once

#include <cmath>
#include <optional>
#include <string>

#include "platform/text/Failure.h"
#include "platform/text/Numbers.h"

namespace tevra {

/// The value; Failure 94 naming the field when it is Null.
template <typename T>
const T& Need(const std::optional<T>& value, const char* field) {
  if (!value) throw Failure(kInvalidUseOfNull, std::string("Invalid use of Null: ") + field);
  return *value;
}

/// Returns a result that its field can store, otherwise throws Failure 6. -0 becomes 0, because
/// "-0" would look like a mistake in a list.
inline double FiniteAmount(double value, const char* field) {
  if (!std::isfinite(value)) throw Failure(kOverflow, std::string("Overflow: ") + field);
  return value == 0 ? 0.0 : value;
}

/// The same, rounded to whole units.
inline double RoundedAmount(double value, const char* field) {
  return FiniteAmount(Round0(value), field);
}

}  // namespace tevra
