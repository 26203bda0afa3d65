// What a grid shows, for whoever takes it elsewhere: paper, the clipboard, a spreadsheet.
#pragma once

#include <QString>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/data/Recordset.h"
#include "platform/grid/GridColumn.h"

namespace tevra {

/// Columns on show from left to right, rows in the order on show. Independent of its grid: the grid
/// may sort, show other rows or close meanwhile.
class GridContent {
 public:
  struct Column {
    GridColumn shown;
    std::optional<std::size_t> field;  ///< in the rows; nothing when they lack it
    FieldType type = FieldType::Text;
    Qt::Alignment alignment;
    int width = 0;   ///< on the screen, in pixels
    QString footer;  ///< what stands under it; empty for none
    bool footed = false;
  };

  /// `rows`: a recordset of its own; `places`: the rows wanted in it, all of them without.
  GridContent(Recordset rows, std::vector<Column> columns,
              std::optional<std::vector<std::size_t>> places = {});

  const std::vector<Column>& Columns() const { return columns_; }
  std::size_t RowCount() const { return count_; }

  /// The value of a cell; Null when its row or its field is gone. Throws Failure when the file
  /// cannot be read: a list taken elsewhere is whole or not at all.
  Value ValueAt(std::size_t row, std::size_t column) const;

  /// Puts the sums of these very rows under the footed columns, in the columns' own formats: what
  /// stands under the grid may be of other rows. Throws as ValueAt.
  void SumFooters();

  /// The same as the grid shows it.
  QString TextAt(std::size_t row, std::size_t column) const;

 private:
  Recordset rows_;
  std::vector<Column> columns_;
  std::optional<std::vector<std::size_t>> places_;
  std::size_t count_ = 0;
};

}  // namespace tevra
