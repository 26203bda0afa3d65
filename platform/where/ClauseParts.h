// The pieces of a clause that need care: beginnings, parts of texts, empty fields.
#pragma once

#include <string>

#include "platform/data/Value.h"

namespace tevra::clause {

/// From a value to another one, both included. Two parameters.
std::string FromTo(const std::string& field);

/// Texts that begin with a text: a range, so that an index serves it and no sign of the text has a
/// meaning of its own. The parameters are PrefixBounds.
std::string Begins(const std::string& field);
Values PrefixBounds(const std::string& prefix);

/// Texts that have a text anywhere. The parameter is ContainsPattern, in which "%" and "_" mean
/// themselves.
std::string Contains(const std::string& field);
std::string ContainsPattern(const std::string& part);

/// Rows without a value; `isText`: the empty text counts as none.
std::string Empty(const std::string& field, bool isText);

}  // namespace tevra::clause
