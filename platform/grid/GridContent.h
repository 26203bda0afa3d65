// A copy of a grid's content for paper, the clipboard or a spreadsheet.
#pragma once

#include <QString>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/data/Recordset.h"
#include "platform/grid/GridColumn.h"

namespace tevra {

/// The visible columns from left to right and the rows in their order. It does not depend on its
/// grid, which may sort, show other rows or close meanwhile.
class GridContent {
 public:
  struct Column {
    GridColumn shown;
    std::optional<std::size_t> field;  ///< in the rows; nothing when they do not have it
    FieldType type = FieldType::Text;
    Qt::Alignment alignment;
    int width = 0;   ///< on the screen, in pixels
    QString footer;  ///< the text below it; empty for none
    bool footed = false;
  };

  /// `rows`: its own recordset; `places`: the rows to include; without them all rows.
  GridContent(Recordset rows, std::vector<Column> columns,
              std::optional<std::vector<std::size_t>> places = {});

  const std::vector<Column>& Columns() const { return columns_; }
  std::size_t RowCount() const { return count_; }

  /// The value of a cell; Null when its row or field no longer exists. Throws Failure when the file
  /// cannot be read, because a copied list must be complete.
  Value ValueAt(std::size_t row, std::size_t column) const;

  /// Replaces the footers by the sums of these rows, in the columns' formats, because the grid's
  /// footers may belong to other rows. Throws like ValueAt.
  void SumFooters();

  /// The text of a cell, as the grid shows it.
  QString TextAt(std::size_t row, std::size_t column) const;

 private:
  Recordset rows_;
  std::vector<Column> columns_;
  std::optional<std::vector<std::size_t>> places_;
  std::size_t count_ = 0;
};

}  // namespace tevra
