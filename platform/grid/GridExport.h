// Copies a list to files or to the clipboard.
#pragma once

#include "platform/export/ExportTable.h"
#include "platform/grid/GridContent.h"

class QMimeData;

namespace tevra {

/// The list for SaveSpreadsheet and SaveCsv of platform/export. `content` must outlive it.
ExportTable TableOf(const GridContent& content, const QString& title);

/// The rows as a table for the clipboard, captions first, with the cells' texts: as text with tabs
/// and as HTML. The caller owns it.
QMimeData* ClipboardTable(const GridContent& content);

}  // namespace tevra
