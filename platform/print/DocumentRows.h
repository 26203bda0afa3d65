// The rows behind a printed document, for a spreadsheet and similar uses.
#pragma once

#include <vector>

#include "platform/export/ExportTable.h"

namespace tevra {

/// Read once, from the first row to the last.
class DocumentRows {
 public:
  virtual ~DocumentRows() = default;

  /// The columns, from left to right.
  virtual const std::vector<ExportColumn>& Columns() const = 0;
  /// The number of rows; 0 while it is unknown.
  virtual std::size_t Count() const { return 0; }
  /// Fills `row` with one value for each column; false after the last row. Throws what the data
  /// source throws.
  virtual bool Next(Values& row) = 0;
};

/// The rows for platform/export, under a title; `rows` outlives it.
ExportTable TableOf(DocumentRows& rows, const QString& title);

}  // namespace tevra
