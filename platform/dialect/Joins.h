// The sources of a FROM or an UPDATE: flattens joins of any direction and nesting.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/dialect/Tokenizer.h"

namespace tevra::dialect {

/// One source: a table or a statement in parentheses, with its alias.
struct JoinedSource {
  Nodes nodes;
  std::string table;  ///< empty for a statement in parentheses
  std::string alias;  ///< the table's name when it has no alias
  std::string kind;   ///< the join to the previous sources: "", ",", "INNER JOIN", "LEFT JOIN", ...
  Nodes condition;    ///< the condition after ON; may be empty
};

/// Reads [begin, end) as joined sources. RIGHT JOIN becomes LEFT JOIN from the table whose rows are
/// all kept; parentheses are removed where the meaning does not change. Returns nothing when it is
/// not a join, and the text is then left unchanged.
std::optional<std::vector<JoinedSource>> ReadJoins(const Nodes& nodes, std::size_t begin,
                                                   std::size_t end);

/// The sources as a FROM clause without the word.
Nodes WriteJoins(const std::vector<JoinedSource>& sources);

}  // namespace tevra::dialect
