// How the values of a column read.
#pragma once

#include <QString>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/Value.h"

namespace tevra {

/// Texts shown in the place of values.
using ValueWords = std::vector<std::pair<Value, QString>>;

/// A value as text; Null is empty. `format`: "Standard", "Percent", "Fixed", "dd.MM.yyyy" or a
/// mask; empty: by the value's type (dates short, numbers with their digits). Never throws: what
/// the format cannot show reads as it is.
QString ShownText(const Value& value, const std::string& format, const ValueWords& words = {});

/// True when a value reads as a word that stands for it: one of `words`, "Da" or "Nu".
bool IsWord(const Value& value, const ValueWords& words);

}  // namespace tevra
