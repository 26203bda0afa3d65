// A list taken out of the program: to files, to the clipboard.
#pragma once

#include "platform/export/ExportTable.h"
#include "platform/grid/GridContent.h"

class QMimeData;

namespace tevra {

/// The list as SaveSpreadsheet and SaveCsv of platform/export write it. `content` outlives it.
ExportTable TableOf(const GridContent& content, const QString& title);

/// The rows as a table for the clipboard, captions first, each cell as it reads: as text with tabs
/// and as HTML. The caller owns it.
QMimeData* ClipboardTable(const GridContent& content);

}  // namespace tevra
