#include "platform/print/TableDocument.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "platform/print/PrintFormat.h"
#include "platform/text/Invariant.h"

namespace tevra {
namespace {

constexpr double kRowFont = 9;  // points
constexpr double kHeaderFont = 13;
constexpr double kAboveFont = 10;
constexpr double kFooterFont = 8;
constexpr double kBeside = 3.5 * kTwipsPerPoint;  // between a column's edge and its text
constexpr double kAbove = 1.8 * kTwipsPerPoint;
constexpr double kUnderHeader = 9 * kTwipsPerPoint;
constexpr double kOverAbove = 4 * kTwipsPerPoint;
constexpr double kOverPageFooter = 6 * kTwipsPerPoint;
constexpr double kOverAppendix = 14 * kTwipsPerPoint;
constexpr double kHairLine = 0.4 * kTwipsPerPoint;
constexpr double kFirmLine = 0.9 * kTwipsPerPoint;
constexpr int kMostHeadLines = 4;
constexpr int kMostHeaderLines = 3;
constexpr QColor kHeadFill(0xEC, 0xEC, 0xEC);
constexpr QColor kRowLine(0xA8, 0xA8, 0xA8);

// The widths of the parts of a line: as wide as they need, or shares of the page when that is too
// much.
std::array<double, 3> WidthsOf(const PageLine& line, const CellText& text, double width) {
  const double gap = 2 * text.LineHeight();
  const double left = text.Width(line.left);
  const double centre = text.Width(line.centre);
  const double right = text.Width(line.right);
  if (line.left.isEmpty() && line.right.isEmpty()) return {0, width, 0};
  if (line.centre.isEmpty()) {
    if (left + right + gap <= width) return {left, 0, right};
    if (right <= width / 2) return {width - right - gap, 0, right};
    if (left <= width / 2) return {left, 0, width - left - gap};
    return {(width - gap) / 2, 0, (width - gap) / 2};
  }
  const double side = (width - centre) / 2 - gap;
  if (std::max(left, right) <= side) return {left, centre, right};
  const double share = (width - 2 * gap) / 3;
  return {share, share, share};
}

int LinesOf(const PageLine& line, const CellText& text, double width) {
  if (!line.left.isEmpty() || !line.right.isEmpty()) return 1;
  return static_cast<int>(text.Fit(line.centre, width, kMostHeaderLines, false).lines.size());
}

void PaintPageLine(QPainter& painter, const PageLine& line, const CellText& text,
                   const QRectF& area) {
  const auto [left, centre, right] = WidthsOf(line, text, area.width());
  const int lines = LinesOf(line, text, area.width());
  text.Paint(painter, text.Fit(line.left, left, 1, false), area, Qt::AlignLeft);
  text.Paint(painter, text.Fit(line.centre, centre, lines, false), area, Qt::AlignHCenter);
  text.Paint(painter, text.Fit(line.right, right, 1, false), area, Qt::AlignRight);
}

}  // namespace

TableDocument::TableDocument(TableContent content, const QPageLayout& layout)
    : PagedDocument(content.title, layout),
      content_(std::move(content)),
      bodyText_(PaperFont(kRowFont)),
      boldText_(PaperFont(kRowFont, true)) {
  if (content_.header.isEmpty()) content_.header = QuotePrintFormat(content_.title);
  content_.rows = std::max(content_.rows, 0);
  TableDocument::Restart();
}

void TableDocument::Restart() {
  firstRows_.clear();
  twoLines_.clear();
  nextRow_ = 0;
  complete_ = appendixApart_ = false;
  MeasureColumns();
  MeasureHeights();
}

bool TableDocument::IsNumber(int column) const {
  return (content_.columns[static_cast<std::size_t>(column)].alignment & Qt::AlignRight) != 0;
}

bool TableDocument::HasFooters() const {
  return std::any_of(content_.columns.begin(), content_.columns.end(),
                     [](const TableColumn& column) { return !column.footer.isEmpty(); });
}

// ---- Layout -------------------------------------------------------------------------------------

void TableDocument::MeasureColumns() {
  const CellText bold(PaperFont(kRowFont, true));
  std::vector<double> widths;
  for (std::size_t i = 0; i < content_.columns.size(); ++i) {
    const TableColumn& column = content_.columns[i];
    double width = column.width * kTwipsPerPoint;
    if (IsNumber(static_cast<int>(i))) {
      width = std::max(width, bold.Width(column.footer) + 3 * kBeside);
    }
    widths.push_back(width);
  }
  table_ = DivideColumns(std::move(widths), PrintArea().width());
  bodyText_ = CellText(PaperFont(kRowFont * table_.scale));
  boldText_ = CellText(PaperFont(kRowFont * table_.scale, true));
}

void TableDocument::MeasureHeights() {
  const QRectF area = PrintArea();
  const CellText header(PaperFont(kHeaderFont, content_.headerBold));
  const PageLine headerLine = ReadPrintFormat(content_.header, 1, 0, true);
  heights_ = {};
  heights_.header = header.LineHeight() * LinesOf(headerLine, header, area.width()) + kUnderHeader;
  if (!content_.above.isEmpty()) {
    heights_.header += CellText(PaperFont(kAboveFont)).LineHeight() + kOverAbove;
  }
  int headLines = content_.columns.empty() ? 0 : 1;
  int footerLines = HasFooters() ? 1 : 0;
  for (std::size_t i = 0; i < content_.columns.size(); ++i) {
    const TableColumn& column = content_.columns[i];
    const int number = static_cast<int>(i);
    const auto lines = [&](const QString& text, int most, bool isNumber) {
      const FittedText fitted = boldText_.Fit(text, TextWidth(number), most, isNumber);
      return static_cast<int>(fitted.lines.size());
    };
    headLines = std::max(headLines, lines(column.caption, kMostHeadLines, false));
    footerLines = std::max(footerLines, lines(column.footer, 2, IsNumber(number)));
  }
  if (!HasFooters()) footerLines = 0;
  const double above = kAbove * table_.scale;
  heights_.heads = headLines > 0 ? headLines * boldText_.LineHeight() + 4 * above : 0;
  heights_.line = bodyText_.LineHeight() + 2 * above;
  heights_.twoLines = heights_.line + bodyText_.LineHeight();
  heights_.footers = footerLines > 0 ? footerLines * boldText_.LineHeight() + 3 * above : 0;
  if (!content_.footer.isEmpty()) {
    heights_.pageFooter = CellText(PaperFont(kFooterFont)).LineHeight() + kOverPageFooter;
  }
  heights_.body =
      area.height() - heights_.header - heights_.heads - heights_.footers - heights_.pageFooter;
}

double TableDocument::TextWidth(int column) const {
  return table_.widths[static_cast<std::size_t>(column)] - 2 * kBeside * table_.scale;
}

bool TableDocument::NeedsTwoLines(int row) const {
  for (int column = 0; column < static_cast<int>(content_.columns.size()); ++column) {
    if (IsNumber(column)) continue;
    if (!bodyText_.FitsOneLine(content_.text(row, column), TextWidth(column))) return true;
  }
  return false;
}

// The rows are stored when the page is complete, so that a failure leaves the step to be repeated.
void TableDocument::LayOutMore() {
  if (complete_) return;
  const int first = nextRow_;
  int row = first;
  std::vector<bool> twoLines;
  for (double used = 0; row < content_.rows && !content_.columns.empty(); ++row) {
    const bool two = NeedsTwoLines(row);
    used += two ? heights_.twoLines : heights_.line;
    if (used > heights_.body && row > first) break;
    twoLines.push_back(two);
  }
  firstRows_.push_back(first);
  twoLines_.insert(twoLines_.end(), twoLines.begin(), twoLines.end());
  nextRow_ = row;
  InvariantEqual(static_cast<std::int64_t>(twoLines_.size()), nextRow_,
                 "randuri asezate in pagini");
  if (row == content_.rows || content_.columns.empty()) {
    PlaceAppendix();
    complete_ = true;
  }
}

void TableDocument::PlaceAppendix() {
  if (!content_.appendix || content_.appendixHeight <= 0) return;
  const double free =
      heights_.body - RowsHeight(static_cast<int>(firstRows_.size()) - 1) - kOverAppendix;
  appendixApart_ = content_.appendixHeight * kTwipsPerPoint > free;
}

int TableDocument::LastRow(int bodyPage) const {
  const auto next = static_cast<std::size_t>(bodyPage) + 1;
  return next < firstRows_.size() ? firstRows_[next] : nextRow_;
}

double TableDocument::RowsHeight(int bodyPage) const {
  double height = 0;
  for (int row = firstRows_[static_cast<std::size_t>(bodyPage)]; row < LastRow(bodyPage); ++row) {
    height += twoLines_[static_cast<std::size_t>(row)] ? heights_.twoLines : heights_.line;
  }
  return height;
}

// The other strips follow when all rows of the first one are laid out.
int TableDocument::PageCount() const {
  const int bodyPages = static_cast<int>(firstRows_.size());
  if (!complete_) return bodyPages;
  return bodyPages * static_cast<int>(table_.strips.size()) + (appendixApart_ ? 1 : 0);
}

// ---- Painting -----------------------------------------------------------------------------------

void TableDocument::PaintPage(QPainter& painter, int page) {
  painter.setPen(Qt::black);
  PaintPageLines(painter, page);
  const QRectF area = PrintArea();
  const int bodyPages = static_cast<int>(firstRows_.size());
  const int stripNumber = complete_ ? page / bodyPages : 0;
  const bool hasAppendix = complete_ && content_.appendix && content_.appendixHeight > 0;
  const double appendixHeight = content_.appendixHeight * kTwipsPerPoint;
  if (stripNumber >= static_cast<int>(table_.strips.size())) {
    const double top = area.top() + heights_.header;
    const double room = area.bottom() - heights_.pageFooter - top;
    content_.appendix(painter,
                      QRectF(area.left(), top, area.width(), std::min(appendixHeight, room)));
    return;
  }
  const std::vector<int>& strip = table_.strips[static_cast<std::size_t>(stripNumber)];
  const int bodyPage = page - stripNumber * bodyPages;
  double top = area.top() + heights_.header;
  top = PaintHeads(painter, strip, top);
  top = PaintRows(painter, strip, bodyPage, top);
  top = PaintFooters(painter, strip, top);
  if (hasAppendix && !appendixApart_ && page == PageCount() - 1) {
    content_.appendix(painter,
                      QRectF(area.left(), top + kOverAppendix, area.width(), appendixHeight));
  }
}

void TableDocument::PaintPageLines(QPainter& painter, int page) const {
  const QRectF area = PrintArea();
  const int pages = complete_ ? PageCount() : 0;
  const CellText header(PaperFont(kHeaderFont, content_.headerBold));
  PaintPageLine(painter, ReadPrintFormat(content_.header, page + 1, pages, true), header, area);
  if (!content_.above.isEmpty()) {
    const CellText above(PaperFont(kAboveFont));
    QRectF place = area;
    place.setTop(area.top() + heights_.header - kUnderHeader - above.LineHeight());
    above.Paint(painter, above.Fit(content_.above, area.width(), 1, false), place, Qt::AlignLeft);
  }
  if (content_.footer.isEmpty()) return;
  const CellText footer(PaperFont(kFooterFont));
  QRectF line = area;
  line.setTop(area.bottom() - footer.LineHeight());
  PaintRule(painter, line.top() - 2 * kTwipsPerPoint, area.width(), kHairLine, kRowLine);
  PaintPageLine(painter, ReadPrintFormat(content_.footer, page + 1, pages, false), footer, line);
}

double TableDocument::StripWidth(const std::vector<int>& strip) const {
  double width = 0;
  for (const int column : strip) width += table_.widths[static_cast<std::size_t>(column)];
  return width;
}

template <class Paint>
void TableDocument::ForEachCell(const std::vector<int>& strip, double top, double height,
                                Paint paint) const {
  double left = PrintArea().left();
  const double beside = kBeside * table_.scale;
  for (const int column : strip) {
    paint(column, QRectF(left + beside, top, TextWidth(column), height));
    left += table_.widths[static_cast<std::size_t>(column)];
  }
}

void TableDocument::PaintRule(QPainter& painter, double top, double width, double weight,
                              const QColor& colour) const {
  painter.save();
  painter.setPen(QPen(colour, weight, Qt::SolidLine, Qt::FlatCap));
  const double left = PrintArea().left();
  painter.drawLine(QPointF(left, top), QPointF(left + width, top));
  painter.restore();
}

double TableDocument::PaintHeads(QPainter& painter, const std::vector<int>& strip,
                                 double top) const {
  if (strip.empty()) return top;
  const double width = StripWidth(strip);
  painter.fillRect(QRectF(PrintArea().left(), top, width, heights_.heads), kHeadFill);
  PaintRule(painter, top, width, kFirmLine, Qt::black);
  ForEachCell(strip, top, heights_.heads, [&](int column, const QRectF& cell) {
    const TableColumn& head = content_.columns[static_cast<std::size_t>(column)];
    boldText_.Paint(painter, boldText_.Fit(head.caption, cell.width(), kMostHeadLines, false), cell,
                    (head.alignment & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter);
  });
  top += heights_.heads;
  PaintRule(painter, top, width, kFirmLine, Qt::black);
  return top;
}

double TableDocument::PaintRows(QPainter& painter, const std::vector<int>& strip, int bodyPage,
                                double top) const {
  const double above = kAbove * table_.scale;
  const double width = StripWidth(strip);
  const int last = LastRow(bodyPage);
  for (int row = firstRows_[static_cast<std::size_t>(bodyPage)]; row < last; ++row) {
    const bool two = twoLines_[static_cast<std::size_t>(row)];
    const double height = two ? heights_.twoLines : heights_.line;
    ForEachCell(strip, top + above, height - above, [&](int column, const QRectF& cell) {
      const FittedText text =
          bodyText_.Fit(content_.text(row, column), cell.width(), two ? 2 : 1, IsNumber(column));
      const Qt::Alignment alignment = content_.columns[static_cast<std::size_t>(column)].alignment;
      bodyText_.Paint(painter, text, cell, alignment & Qt::AlignHorizontal_Mask);
    });
    top += height;
    if (row + 1 < last) PaintRule(painter, top, width, kHairLine, kRowLine);
  }
  PaintRule(painter, top, width, kFirmLine, Qt::black);
  return top;
}

double TableDocument::PaintFooters(QPainter& painter, const std::vector<int>& strip,
                                   double top) const {
  if (!HasFooters()) return top;
  ForEachCell(strip, top, heights_.footers, [&](int column, const QRectF& cell) {
    const TableColumn& footed = content_.columns[static_cast<std::size_t>(column)];
    boldText_.Paint(painter, boldText_.Fit(footed.footer, cell.width(), 2, IsNumber(column)), cell,
                    (footed.alignment & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter);
  });
  return top + heights_.footers;
}

}  // namespace tevra
