// The fields of a row as they are written.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/data/Value.h"

namespace tevra {

/// Fields with their values, in the order in which they are written.
using FieldValues = std::vector<std::pair<std::string, Value>>;

/// An empty box is stored as Null.
inline Value TextOrNull(const std::string& text) {
  return text.empty() ? Value() : Value(text);
}

}  // namespace tevra
