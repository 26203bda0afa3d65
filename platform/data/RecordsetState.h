// The state of a recordset: its rows in their order, the current one and its edits.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/data/Criteria.h"
#include "platform/data/Recordset.h"
#include "platform/data/RecordsetRows.h"

namespace tevra {

struct Recordset::State {
  std::shared_ptr<detail::RowStore> rows;
  detail::RowOrder order;  // the filtered rows in their order
  std::size_t at = 0;      // in `order`; order.size() is after the last
  bool before = false;     // before the first
  std::string filter;
  std::string sort;
  std::size_t loads = 0;  // of the rows when `order` was made
  std::size_t changes = 0;

  // The edits of the current row; a new row is not in `order` until it is written.
  detail::Edits edits;
  bool adding = false;

  // The current row as first read here; changes are compared with it.
  detail::RowValues held;
  std::size_t heldRow = 0;
  std::size_t heldLoads = 0;
  std::size_t heldWrites = 0;

  bool HasRow() const { return adding || (!before && at < order.size()); }
  /// The number of the current row among all rows; throws Failure 3021 when there is none, or when
  /// it is a new one.
  std::size_t Current() const;
  const Values& CurrentValues();
  void RequireField(std::size_t index) const;  ///< throws Failure 3265 for an unknown number
  std::size_t IndexOf(const std::string& name) const;
  detail::FieldFinder Finder() const;

  /// Filters and sorts, and moves to the first row. A text that cannot be parsed changes nothing.
  void Arrange(const std::string& filterText, const std::string& sortText);
  /// Takes over changes that a clone of this recordset made to the shared rows.
  void Follow();
  /// Remembers that `order` has all changes of the rows.
  void Note();
  /// Moves to a row by its number; after the last one when `order` does not have it.
  void GoTo(std::size_t row);

 private:
  detail::RowOrder Arranged(const std::string& filterText, const std::string& sortText) const;
};

}  // namespace tevra
