// A list on paper: page header, column heads, rows, column footers and page footer on every page.
#pragma once

#include <QString>
#include <functional>
#include <vector>

#include "platform/print/CellText.h"
#include "platform/print/PageSettings.h"
#include "platform/print/PagedDocument.h"
#include "platform/print/TableStrips.h"

namespace tevra {

struct TableColumn {
  QString caption;
  double width;             ///< points
  Qt::Alignment alignment;  ///< right for numbers, which are never cut or broken
  QString footer;           ///< a total; a column of numbers is widened for it
};

/// The content of a list. The functions are called as long as the document lives, so their data
/// must live as long too, even when the screen that made the list is closed.
struct TableContent {
  QString title;   ///< of the document and its window
  QString header;  ///< in the print format of PrintFormat.h; empty: the title, centred
  bool headerBold = false;
  QString above;   ///< a line between header and column heads that describes the list
  QString footer;  ///< in the print format
  std::vector<TableColumn> columns;
  int rows = 0;
  /// The text of a cell. Called row by row during layout and again when a page is painted.
  std::function<QString(int row, int column)> text;
  double appendixHeight = 0;  ///< points; 0: no appendix
  /// Paints something below the last row, for example a chart, into a rectangle in twips as wide as
  /// the page; on a separate page when the last one has no room.
  std::function<void(QPainter&, const QRectF&)> appendix;
};

/// Each step lays out one page. A list wider than its page is scaled down or printed in strips of
/// columns: all rows of the first strip, then all rows of the next, so that the pages of two strips
/// laid side by side match row by row.
class TableDocument : public PagedDocument {
 public:
  explicit TableDocument(TableContent content, const QPageLayout& layout = RememberedPageLayout());

  int PageCount() const override;
  bool IsComplete() const override { return complete_; }
  void LayOutMore() override;
  void PaintPage(QPainter& painter, int page) override;

 protected:
  void Restart() override;

 private:
  /// The heights of a page's parts, in twips.
  struct Heights {
    double header = 0;
    double heads = 0;
    double line = 0;  // a row of one line
    double twoLines = 0;
    double footers = 0;
    double pageFooter = 0;
    double body = 0;  // the height left for rows
  };

  void MeasureColumns();
  void MeasureHeights();
  double TextWidth(int column) const;
  bool NeedsTwoLines(int row) const;
  double RowsHeight(int bodyPage) const;
  int LastRow(int bodyPage) const;
  void PlaceAppendix();
  bool HasFooters() const;
  bool IsNumber(int column) const;

  void PaintPageLines(QPainter& painter, int page) const;
  double PaintHeads(QPainter& painter, const std::vector<int>& strip, double top) const;
  double PaintRows(QPainter& painter, const std::vector<int>& strip, int bodyPage,
                   double top) const;
  double PaintFooters(QPainter& painter, const std::vector<int>& strip, double top) const;
  double StripWidth(const std::vector<int>& strip) const;
  template <class Paint>
  void ForEachCell(const std::vector<int>& strip, double top, double height, Paint paint) const;
  void PaintRule(QPainter& painter, double top, double width, double weight,
                 const QColor& colour) const;

  TableContent content_;
  TableStrips table_;
  Heights heights_;
  CellText bodyText_;
  CellText boldText_;
  std::vector<int> firstRows_;  // of each body page
  std::vector<bool> twoLines_;  // of each row laid out
  int nextRow_ = 0;
  bool complete_ = false;
  bool appendixApart_ = false;  // on a separate page
};

}  // namespace tevra
