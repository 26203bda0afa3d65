// A spreadsheet written row by row, so that a long list does not stand in memory.
#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "platform/export/ExportTable.h"

namespace tevra {

/// One sheet of an .xlsx file: captions, rows, sums. Rows are written in their order.
class SpreadsheetFile {
 public:
  /// The greatest number of rows that a sheet has under its captions, with one for the sums.
  static constexpr std::size_t kMostRows = 1048574;

  /// `file` is made when Close is called. `title`: of the document and, as far as a sheet may bear
  /// it, of the sheet.
  SpreadsheetFile(const std::filesystem::path& file, const QString& title,
                  const std::vector<ExportColumn>& columns);
  /// Without Close nothing is left of the file.
  ~SpreadsheetFile();
  SpreadsheetFile(const SpreadsheetFile&) = delete;
  SpreadsheetFile& operator=(const SpreadsheetFile&) = delete;

  /// Throws Failure 6 for more rows than a sheet has.
  static void RequireRoom(std::size_t rows);

  /// The next row, a value a column. Throws Failure 6 when the sheet has no room for it.
  void AddRow(const Values& values);

  /// The sums of the footed columns below the rows, then the file. Throws Failure 61 or 70.
  void Close();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tevra
