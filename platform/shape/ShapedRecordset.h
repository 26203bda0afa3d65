// The rows of a grouped command: groups with their key and totals, and the rows of each.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/data/Recordset.h"

namespace tevra {

/// Has one parent row for each group, and the group's rows, as they were at the opening. It does
/// not keep the company file open. The rows are on disk except for a page of 64. Copies share the
/// rows.
///
/// Groups are ordered by key: Null, then the empty text, then texts without case. The group's key
/// is spelled as in its first row. Rows within a group have the command's order, see InGroupOrder.
/// Totals are exact to the ban (MoneySum); a Null adds nothing, and a total of Nulls only is Null.
///
/// All routines except IsOpen and Close throw Failure 424 when it is closed.
class ShapedRecordset {
 public:
  ShapedRecordset() = default;  // closed

  /// Runs a grouped command of the program's dialect (see ReadShape) with `params` for its "?".
  /// Throws Failure with the command as its source: -2147217900 for one that cannot be read or run,
  /// 3265 for a field that its statement does not return, 61 when the disk is full.
  ShapedRecordset(const Connection& connection, const std::string& command,
                  const Values& params = {});

  bool IsOpen() const { return s_ != nullptr; }
  void Close() { s_.reset(); }

  struct Group {
    Value key;
    std::vector<Value> totals;  ///< in the order of the command
    std::size_t first = 0;      ///< the number of its first row, from 0
    std::size_t rows = 0;       ///< at least 1
  };
  std::size_t GroupCount() const;
  std::size_t RowCount() const;            ///< of all groups
  Group GroupAt(std::size_t group) const;  ///< throws Failure 3021 outside 0 to GroupCount() - 1

  /// The columns of the rows.
  const std::vector<FieldInfo>& Fields() const;

  /// The first column of that name, without case. Throws Failure 3265.
  std::size_t FieldIndex(const std::string& name) const;
  std::size_t TotalIndex(const std::string& name) const;

  /// A value of a row, in its field's type. Throws Failure 3021 for an unknown row, 3265 for an
  /// unknown field.
  Value ValueAt(std::size_t row, std::size_t field) const;

  /// The sum over all groups; Null when there are none. Throws Failure 3265.
  Value GrandTotal(std::size_t total) const;

 private:
  struct State;
  const State& S() const;
  std::shared_ptr<const State> s_;
};

}  // namespace tevra
