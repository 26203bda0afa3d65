// Writes a spreadsheet row by row, so that a long list is not held in memory.
#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "platform/export/ExportTable.h"

namespace tevra {

/// One sheet of an .xlsx file: captions, rows, sums. Rows are written in their order.
class SpreadsheetFile {
 public:
  /// The maximum number of rows below the captions, with the row of the sums.
  static constexpr std::size_t kMostRows = 1048574;

  /// `file` is created by Close. `title`: of the document and, shortened to what a sheet allows, of
  /// the sheet.
  SpreadsheetFile(const std::filesystem::path& file, const QString& title,
                  const std::vector<ExportColumn>& columns);
  /// Without Close no file is created.
  ~SpreadsheetFile();
  SpreadsheetFile(const SpreadsheetFile&) = delete;
  SpreadsheetFile& operator=(const SpreadsheetFile&) = delete;

  /// Throws Failure 6 for more rows than a sheet can have.
  static void RequireRoom(std::size_t rows);

  /// Writes the next row, one value for each column. Throws Failure 6 when the sheet is full.
  void AddRow(const Values& values);

  /// Writes the sums of the footed columns below the rows, then the file. Throws Failure 61 or 70.
  void Close();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tevra
