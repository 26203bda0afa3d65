// The sources of a FROM or an UPDATE: joins in any direction and nesting, laid out flat.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/dialect/Tokenizer.h"

namespace tevra::dialect {

/// One source: a table or a statement in parentheses, as it stands with its alias.
struct JoinedSource {
  Nodes nodes;
  std::string table;  ///< empty for a statement in parentheses
  std::string alias;  ///< the table's own name when it has no other
  std::string kind;   ///< how it joins those before it: "", ",", "INNER JOIN", "LEFT JOIN", ...
  Nodes condition;    ///< what stood behind ON; may be empty
};

/// Reads [begin, end) as joined sources. RIGHT JOIN becomes LEFT JOIN from the table whose rows are
/// all kept, and parentheses go wherever the meaning stays. Nothing when it is written otherwise
/// than a join; then it is better left as it stands.
std::optional<std::vector<JoinedSource>> ReadJoins(const Nodes& nodes, std::size_t begin,
                                                   std::size_t end);

/// The sources as a FROM clause without the word.
Nodes WriteJoins(const std::vector<JoinedSource>& sources);

}  // namespace tevra::dialect
