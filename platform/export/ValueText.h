// The texts shown for the values of a column.
#pragma once

#include <QString>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/Value.h"

namespace tevra {

/// Texts shown instead of values.
using ValueWords = std::vector<std::pair<Value, QString>>;

/// A value as text; Null is empty. `format`: "Standard", "Percent", "Fixed", "dd.MM.yyyy" or a
/// mask; empty: by the value's type (dates short, numbers with their digits). Never throws: a value
/// that the format cannot show is shown unformatted.
QString ShownText(const Value& value, const std::string& format, const ValueWords& words = {});

/// True when a value is shown as a word: one of `words`, "Da" or "Nu".
bool IsWord(const Value& value, const ValueWords& words);

}  // namespace tevra
