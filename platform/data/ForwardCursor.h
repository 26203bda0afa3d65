// One pass over a table's rows that writes back into them and holds one row in memory.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/Connection.h"

namespace tevra {

/// Streams the rows of "Select * from TABLE" and writes columns of the current row back by row id,
/// with one prepared statement, while the reading goes on.
class ForwardCursor {
 public:
  /// `sql`: a statement on one table with the list "*"; it must not be ordered by a written column.
  /// `read`: the columns to read, numbered in this order; `write`: the columns that Write sets,
  /// numbered likewise; `params`: the values of the "?". Throws Failure -2147217900.
  ForwardCursor(Connection& connection, const std::string& sql,
                const std::vector<std::string>& read, const std::vector<std::string>& write = {},
                const Values& params = {});
  ~ForwardCursor();
  ForwardCursor(const ForwardCursor&) = delete;
  ForwardCursor& operator=(const ForwardCursor&) = delete;

  /// Goes to the next row, at first to the first one. False after the last.
  bool Next();

  // The current row's values by their number in `read`.
  bool IsNull(int column) const;
  std::optional<double> Number(int column) const;
  std::optional<DateTime> Date(int column) const;  ///< throws Failure 13 when it is not a date
  bool YesNo(int column) const;                    ///< Null is no
  std::string_view Text(int column) const;         ///< valid until Next; Null is empty

  // Values for the next Write by their number in `write`. A value remains until it is set again, so
  // set all of them for every row.
  void SetNull(int column);
  void SetNumber(int column, double value);  ///< throws Failure 6 for infinity and NaN
  void SetWhole(int column, std::int64_t value);
  void SetDate(int column, const DateTime& date);

  /// The same; an empty one is written as Null.
  void Set(int column, const std::optional<double>& value);
  void Set(int column, const std::optional<std::int32_t>& value);
  void Set(int column, const std::optional<DateTime>& value);

  /// Writes the set columns into the current row. Throws Failure 3021 without a row, -2147217864
  /// when it was deleted meanwhile, otherwise like Connection::Execute.
  void Write();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tevra
