#include "platform/grid/GridExport.h"

#include <QMimeData>

namespace tevra {

namespace {

constexpr double kPixelsOfCharacter = 7.0;  // in the default font of spreadsheets

// A line break or tab inside a cell would start another row or column.
QString OnOneLine(QString text) {
  for (QChar& c : text) {
    if (c.unicode() < ' ') c = ' ';
  }
  return text;
}

QString HtmlRow(const QStringList& cells, const QList<bool>& right, const char* tag) {
  QString row = "<tr>";
  for (qsizetype i = 0; i < cells.size(); ++i) {
    const char* side = right[i] ? " align=\"right\"" : "";
    row += QString("<%1%2>%3</%1>").arg(tag, side, cells[i].toHtmlEscaped());
  }
  return row + "</tr>\n";
}

}  // namespace

ExportTable TableOf(const GridContent& content, const QString& title) {
  ExportTable table{title, {}, content.RowCount(), {}};
  for (const GridContent::Column& column : content.Columns()) {
    const double width = column.width / kPixelsOfCharacter + 1;
    table.columns.push_back({column.shown.caption, column.shown.format, column.type,
                             column.alignment, column.footed, width, column.shown.list});
  }
  table.next = [&content, row = std::size_t{0}](Values& values) mutable {
    if (row == content.RowCount()) return false;
    for (std::size_t i = 0; i < values.size(); ++i) values[i] = content.ValueAt(row, i);
    ++row;
    return true;
  };
  return table;
}

QMimeData* ClipboardTable(const GridContent& content) {
  QStringList captions;
  QList<bool> right;
  for (const GridContent::Column& column : content.Columns()) {
    captions << OnOneLine(column.shown.caption);
    right << bool(column.alignment & Qt::AlignRight);
  }
  QString text = captions.join('\t') + '\n';
  QString html = "<table>\n" + HtmlRow(captions, right, "th");
  for (std::size_t row = 0; row < content.RowCount(); ++row) {
    QStringList cells;
    for (std::size_t column = 0; column < content.Columns().size(); ++column) {
      cells << OnOneLine(content.TextAt(row, column));
    }
    text += cells.join('\t') + '\n';
    html += HtmlRow(cells, right, "td");
  }
  auto* data = new QMimeData;
  data->setText(text);
  data->setHtml(html + "</table>");
  return data;
}

}  // namespace tevra
