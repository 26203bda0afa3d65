// Writes a table to a file: a spreadsheet, comma separated values or a web page.
#pragma once

#include <filesystem>

#include "platform/export/ExportTable.h"
#include "platform/system/Progress.h"

namespace tevra {

/// Writes an .xlsx file: captions, rows with real numbers and dates in the columns' formats, and
/// below the footed columns their sums as formulas. The table's title is the name of the sheet and
/// of the document. The file is replaced whole or not at all; false when the user cancelled. Throws
/// Failure when reading or writing fails, 6 for more rows than a sheet can have.
bool SaveSpreadsheet(const ExportTable& table, const std::filesystem::path& file,
                     const Progress& progress = {});

/// The same as comma separated values in UTF-8, for other programs: captions, then the rows, with
/// numbers in all their digits and with a decimal point, and dates as 2006-12-31.
bool SaveCsv(const ExportTable& table, const std::filesystem::path& file,
             const Progress& progress = {});

/// The same as a web page: the title as a heading, and the table as it looks on the screen, with
/// the sums of the footed columns below it.
bool SaveHtml(const ExportTable& table, const std::filesystem::path& file,
              const Progress& progress = {});

}  // namespace tevra
