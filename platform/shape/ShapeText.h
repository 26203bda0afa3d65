// The text of a grouped command: a statement, the totals of its groups, the field of the groups.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tevra {

/// SUM(CH.'VAL_CUMP') AS TVALCUMPP
struct ShapeTotal {
  std::string field;
  std::string name;
};

struct ShapeText {
  std::string statement;  ///< the text in braces, unchanged
  std::string child;      ///< the name of its rows
  std::vector<ShapeTotal> totals;
  std::string by;  ///< the field of the groups
};

/// Reads "SHAPE {SELECT ..} AS x COMPUTE x, SUM(x.'F') AS T, .. BY 'g'"; the field names in quotes,
/// in brackets or plain. Throws Failure -2147217900 for anything else, with the words at which
/// reading stopped.
ShapeText ReadShape(const std::string& command);

/// The statement of a command with its rows in the order of a report: by the column `keyColumn`
/// (from 0; Null first, texts without case), then by its own ORDER BY, then by the columns of its
/// GROUP BY, so that a second run gives the same paper. Throws Failure -2147217900 when it is not a
/// single SELECT, or when its order determines which rows it returns (TOP, LIMIT).
std::string InGroupOrder(const std::string& statement, std::size_t keyColumn);

}  // namespace tevra
