// Prints a list.
#pragma once

#include <QString>
#include <functional>
#include <string>

#include "platform/grid/GridContent.h"

class QPainter;
class QRectF;

namespace tevra {

/// The texts around a printed list. In header and footer "\t" starts the next part of the line and
/// "\p" is the page number.
struct GridPrintInfo {
  QString header = {};
  bool headerBold = false;
  QString above = {};  ///< a line between header and column heads
  QString footer = "\tPagina: \\p";
  /// Paints something below the last row, such as a chart, across the page; this many points high.
  double appendixHeight = 0;
  std::function<void(QPainter& painter, const QRectF& area)> appendix = {};
  std::string paperKind = {};  ///< as PagedDocument has it; empty: the grid's screen and name
};

/// Opens the preview of the list, from which it is printed or saved as PDF. `title`: of the window
/// and the document.
void PreviewGrid(const GridContent& content, const GridPrintInfo& info, const QString& title);

/// The same after the page set-up dialog; does nothing when the user cancels it.
void PreviewGridAfterSetup(const GridContent& content, const GridPrintInfo& info,
                           const QString& title);

}  // namespace tevra
