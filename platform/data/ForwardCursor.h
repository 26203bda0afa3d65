// One pass over a table's rows with write-back: for work over all rows, in memory for one.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/Connection.h"

namespace tevra {

/// Streams the rows of "Select * from TABLE" and writes chosen columns of the row just read back
/// through one prepared statement by row id, while the reading goes on.
class ForwardCursor {
 public:
  /// `sql`: a statement over one table, with "*" as its list; an order of its own must not be by a
  /// written column. `read`: the columns wanted, numbered in this order; `write`: the columns that
  /// Write sets, numbered likewise; "?" in the statement are `params`. Throws Failure -2147217900.
  ForwardCursor(Connection& connection, const std::string& sql,
                const std::vector<std::string>& read, const std::vector<std::string>& write = {},
                const Values& params = {});
  ~ForwardCursor();
  ForwardCursor(const ForwardCursor&) = delete;
  ForwardCursor& operator=(const ForwardCursor&) = delete;

  /// Goes to the next row, at first to the first one. False behind the last.
  bool Next();

  // The current row's values by their number in `read`.
  bool IsNull(int column) const;
  std::optional<double> Number(int column) const;
  std::optional<DateTime> Date(int column) const;  ///< throws Failure 13 when it is no date
  bool YesNo(int column) const;                    ///< Null is no
  std::string_view Text(int column) const;         ///< valid until Next; Null is empty

  // Values for the next Write by their number in `write`. Each keeps its last setting until it is
  // set again, so set all of them for every row.
  void SetNull(int column);
  void SetNumber(int column, double value);  ///< throws Failure 6 for an infinite or undefined one
  void SetWhole(int column, std::int64_t value);
  void SetDate(int column, const DateTime& date);

  /// The same, an empty one as Null.
  void Set(int column, const std::optional<double>& value);
  void Set(int column, const std::optional<std::int32_t>& value);
  void Set(int column, const std::optional<DateTime>& value);

  /// Writes the set columns into the current row. Throws Failure 3021 without one, -2147217864 when
  /// it was deleted meanwhile, else as Connection::Execute.
  void Write();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tevra
