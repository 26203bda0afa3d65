// Groups that cannot have more than one row.
#pragma once

#include <functional>
#include <string>

#include "platform/dialect/Tokenizer.h"

namespace tevra::dialect {

/// The column of a table that is the row's own number; empty for a table without one.
using RowKeyOf = std::function<std::string(const std::string& table)>;

/// Removes the GROUP BY of each SELECT over one table that groups by the table's row number. Every
/// group is one row there, so the rows are the same without it and a sum is the value itself; the
/// engine would read and sort all rows before it gave the first. A SELECT with another aggregate
/// than SUM, with DISTINCT, HAVING or LIMIT, or with a sum that has no name stays as it is.
/// Expressions must have been rewritten already.
void RemoveSingleRowGroups(Nodes& nodes, const RowKeyOf& rowKeyOf);

}  // namespace tevra::dialect
