// A list on paper.
#pragma once

#include <QString>
#include <functional>
#include <string>

#include "platform/grid/GridContent.h"

class QPainter;
class QRectF;

namespace tevra {

/// What stands around a printed list. In header and footer "\t" begins the next part of the line
/// and "\p" is the page number.
struct GridPrintInfo {
  QString header = {};
  bool headerBold = false;
  QString above = {};  ///< a line between header and column heads
  QString footer = "\tPagina: \\p";
  /// Painted below the last row across the page, such as a chart; this many points high.
  double appendixHeight = 0;
  std::function<void(QPainter& painter, const QRectF& area)> appendix = {};
  std::string paperKind = {};  ///< as PagedDocument has it; empty: the grid's screen and name
};

/// Opens the preview of the list, from which it is printed or saved as PDF. `title`: of the window
/// and the document.
void PreviewGrid(const GridContent& content, const GridPrintInfo& info, const QString& title);

/// The same behind the dialog of the page's set-up; nothing when the user gives that up.
void PreviewGridAfterSetup(const GridContent& content, const GridPrintInfo& info,
                           const QString& title);

}  // namespace tevra
