// The rows behind a document of pages, for whoever goes on working with them elsewhere.
#pragma once

#include <vector>

#include "platform/export/ExportTable.h"

namespace tevra {

/// Read once, from the first row to the last.
class DocumentRows {
 public:
  virtual ~DocumentRows() = default;

  /// What the rows have, from left to right.
  virtual const std::vector<ExportColumn>& Columns() const = 0;
  /// How many there are; 0 while nobody knows.
  virtual std::size_t Count() const { return 0; }
  /// Fills in the next row, a value a column; false behind the last. Throws what the source of data
  /// throws.
  virtual bool Next(Values& row) = 0;
};

/// The rows for platform/export, under a title; `rows` outlives it.
ExportTable TableOf(DocumentRows& rows, const QString& title);

}  // namespace tevra
