// One pass over the rows of a statement, in memory for one.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/Connection.h"
#include "platform/data/Recordset.h"

namespace tevra {

/// For rows that are read once and need no recordset. Until it is behind the last row or gone it
/// reads one state of the file; others may write meanwhile, and so may its own connection.
class RowReader {
 public:
  /// A statement of the program's dialect; "?" in it are `params`. Throws Failure -2147217900.
  RowReader(const Connection& connection, const std::string& sql, const Values& params = {});
  ~RowReader();
  RowReader(const RowReader&) = delete;
  RowReader& operator=(const RowReader&) = delete;

  /// The columns, as in a Recordset.
  const std::vector<FieldInfo>& Fields() const;

  /// The number of a column, by its name without case. Throws Failure 3265.
  int Column(const std::string& name) const;

  /// Goes to the next row, at first to the first one. False behind the last.
  [[nodiscard]] bool Next();

  // The current row.
  Value Get(int column) const;
  std::optional<double> Number(int column) const;  ///< nothing for Null
  std::string_view Text(int column) const;         ///< valid until Next; Null is empty

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tevra
