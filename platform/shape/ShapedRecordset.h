// The rows of a grouped command: groups with their key and totals, and the rows of each.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/data/Recordset.h"

namespace tevra {

/// A parent row a group with the child rows, as they were when it was opened: it holds the company
/// file no longer, and on disk what a page of 64 rows does not need. Copies share the rows.
///
/// Groups come by key, Null first, then the empty text, texts without case; the first row's
/// spelling is the group's key. Rows within a group come in the command's order, see InGroupOrder.
/// Totals are exact to the ban (MoneySum); a Null counts as nothing, and a total of Nulls alone is
/// Null.
///
/// All routines but IsOpen and Close throw Failure 424 when it is closed.
class ShapedRecordset {
 public:
  ShapedRecordset() = default;  // closed

  /// Runs a grouped command of the program's dialect (see ReadShape); "?" in it are `params`.
  /// Throws Failure with the command as its source: -2147217900 for one that cannot be read or run,
  /// 3265 for a field that its statement does not give, 61 when the temporary files have no room.
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
  Group GroupAt(std::size_t group) const;  ///< throws Failure 3021 for one that is none

  /// The columns of the rows.
  const std::vector<FieldInfo>& Fields() const;

  /// Without case, the first of that name. Throws Failure 3265.
  std::size_t FieldIndex(const std::string& name) const;
  std::size_t TotalIndex(const std::string& name) const;

  /// A value of a row with its field's type. Throws Failure 3021 for a row, 3265 for a field that
  /// is none.
  Value ValueAt(std::size_t row, std::size_t field) const;

  /// The sum over all groups; Null without any. Throws Failure 3265.
  Value GrandTotal(std::size_t total) const;

 private:
  struct State;
  const State& S() const;
  std::shared_ptr<const State> s_;
};

}  // namespace tevra
