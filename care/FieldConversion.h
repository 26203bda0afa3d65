// Whether the values of a field can take another type without loss.
#pragma once

#include <optional>
#include <string>

#include "platform/data/Connection.h"
#include "platform/data/FieldType.h"

namespace tevra {

/// True when the value says the same as a value of the other field: nothing is rounded, cut off or
/// made something else. A text that is a number or a date is that number or date. Null has no
/// meaning to lose, but a required field refuses it.
bool Converts(const Value& value, const FieldDef& to);

/// The first stored value of the field that does not convert, as a failure; nothing when all do.
std::optional<Failure> FirstObstacle(Connection& file, const std::string& table,
                                     const FieldDef& from, const FieldDef& to);

}  // namespace tevra
