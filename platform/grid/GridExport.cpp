#include "platform/grid/GridExport.h"

#include <QMimeData>
#include <fstream>

#include "platform/data/CsvCell.h"
#include "platform/grid/SpreadsheetFile.h"
#include "platform/system/Paths.h"
#include "platform/text/Csv.h"
#include "platform/text/FailureText.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

struct GivenUp {};

void Tell(const GridProgress& progress, std::size_t row, std::size_t all) {
  constexpr std::size_t kRowsBetween = 256;
  if (progress && row % kRowsBetween == 0 && !progress(row, all)) throw GivenUp();
}

// What is read as a word stands as the word; other cells keep their full value.
std::string ExactCell(const GridContent& content, std::size_t row, std::size_t column) {
  const GridColumn& shown = content.Columns()[column].shown;
  const Value value = content.ValueAt(row, column);
  if (!IsWord(value, shown)) return CsvCellOf(value);
  return CsvText(ShownText(value, shown).toStdString());
}

void WriteCsv(const GridContent& content, std::ostream& out, const GridProgress& progress) {
  const std::size_t columns = content.Columns().size();
  const auto separator = [](std::size_t column) { return column == 0 ? "" : ","; };
  for (std::size_t column = 0; column < columns; ++column) {
    out << separator(column) << CsvText(content.Columns()[column].shown.caption.toStdString());
  }
  out << '\n';
  for (std::size_t row = 0; row < content.RowCount(); ++row) {
    for (std::size_t column = 0; column < columns; ++column) {
      out << separator(column) << ExactCell(content, row, column);
    }
    out << '\n';
    Tell(progress, row, content.RowCount());
  }
}

// A break inside a cell would begin another row or column.
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

bool SaveSpreadsheet(const GridContent& content, const QString& title, const fs::path& file,
                     const GridProgress& progress) {
  if (content.RowCount() > SpreadsheetFile::kMostRows) {
    throw Failure(kOverflow,
                  FailureText(kOverflow) + ": lista are mai multe randuri decat o foaie");
  }
  try {
    paths::ReplaceFile(file, [&](const fs::path& temporary) {
      SpreadsheetFile sheet(temporary, title, content.Columns());
      Values values(content.Columns().size());
      for (std::size_t row = 0; row < content.RowCount(); ++row) {
        for (std::size_t i = 0; i < values.size(); ++i) values[i] = content.ValueAt(row, i);
        sheet.AddRow(values);
        Tell(progress, row, content.RowCount());
      }
      sheet.Close();
    });
  } catch (const GivenUp&) {
    return false;
  }
  return true;
}

bool SaveCsv(const GridContent& content, const fs::path& file, const GridProgress& progress) {
  try {
    paths::ReplaceFile(file, [&](const fs::path& temporary) {
      std::ofstream out(temporary, std::ios::binary);
      WriteCsv(content, out, progress);
      out.close();
      if (!out) throw FileFailure(kDiskFull, file.string());
    });
  } catch (const GivenUp&) {
    return false;
  }
  return true;
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
