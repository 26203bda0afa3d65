// A list taken out of the program: to a spreadsheet, to CSV, to the clipboard.
#pragma once

#include <filesystem>
#include <functional>

#include "platform/grid/GridContent.h"

class QMimeData;

namespace tevra {

/// Told after each batch of rows; false gives up.
using GridProgress = std::function<bool(std::size_t done, std::size_t all)>;

/// Writes an .xlsx file: captions, rows with real numbers and dates in the columns' formats, and
/// under the columns with a footer their sums as formulas. `title`: the name of the sheet and of
/// the document. The file is replaced whole or not at all; false when it was given up. Throws
/// Failure for what cannot be read or written, 6 for more rows than a sheet has.
bool SaveSpreadsheet(const GridContent& content, const QString& title,
                     const std::filesystem::path& file, const GridProgress& progress = {});

/// The same as comma separated values in UTF-8, for other programs: captions, then the rows with
/// numbers in all their digits and a decimal point, dates as 2006-12-31.
bool SaveCsv(const GridContent& content, const std::filesystem::path& file,
             const GridProgress& progress = {});

/// The rows as a table for the clipboard, captions first, each cell as it reads: as text with tabs
/// and as HTML. The caller owns it.
QMimeData* ClipboardTable(const GridContent& content);

}  // namespace tevra
