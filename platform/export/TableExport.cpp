#include "platform/export/TableExport.h"

#include <fstream>

#include "platform/data/CsvCell.h"
#include "platform/data/MoneySum.h"
#include "platform/export/SpreadsheetFile.h"
#include "platform/system/Paths.h"
#include "platform/text/Csv.h"
#include "platform/text/FailureText.h"
#include "platform/text/Invariant.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

// Passes each row to `write` and reports the progress.
template <class Write>
void ForEachRow(const ExportTable& table, const Progress& progress, Write write) {
  constexpr std::size_t kRowsBetween = 256;
  Values values(table.columns.size());
  std::size_t row = 0;
  for (; table.next(values); ++row) {
    InvariantEqual(static_cast<std::int64_t>(values.size()),
                   static_cast<std::int64_t>(table.columns.size()), "valorile unui rand exportat");
    write(values);
    if (row % kRowsBetween != 0) continue;
    Report(progress, static_cast<int>(row + 1), static_cast<int>(table.rows));
  }
  if (table.rows == 0) return;  // unknown
  InvariantEqual(static_cast<std::int64_t>(row), static_cast<std::int64_t>(table.rows),
                 "randuri exportate");
}

// A value shown as a word is written as that word; other cells keep their full value.
std::string ExactCell(const Value& value, const ExportColumn& column) {
  if (!IsWord(value, column.words)) return CsvCellOf(value);
  return CsvText(ShownText(value, column.format, column.words).toStdString());
}

void WriteCsv(const ExportTable& table, std::ostream& out, const Progress& progress) {
  const std::size_t columns = table.columns.size();
  const auto separator = [](std::size_t column) { return column == 0 ? "" : ","; };
  for (std::size_t column = 0; column < columns; ++column) {
    out << separator(column) << CsvText(table.columns[column].caption.toStdString());
  }
  out << '\n';
  ForEachRow(table, progress, [&](const Values& values) {
    for (std::size_t column = 0; column < columns; ++column) {
      out << separator(column) << ExactCell(values[column], table.columns[column]);
    }
    out << '\n';
  });
}

const char* const kHtmlHead =
    "<!DOCTYPE html>\n<html lang=\"ro\">\n<head>\n<meta charset=\"utf-8\">\n<style>\n"
    "body { font-family: sans-serif; font-size: 10pt; }\n"
    "table { border-collapse: collapse; }\n"
    "th, td { border: 1px solid #999; padding: 2px 6px; text-align: left; }\n"
    "th { background: #e6e6e6; }\n"
    ".nr { text-align: right; white-space: nowrap; }\n"
    "</style>\n";

std::string HtmlCell(const QString& text, bool right, const char* tag) {
  return std::string("<") + tag + (right ? " class=\"nr\">" : ">") +
         text.toHtmlEscaped().toStdString() + "</" + tag + ">";
}

// Adds up the footed columns.
class FootSums {
 public:
  explicit FootSums(const ExportTable& table) : table_(table), sums_(table.columns.size()) {}

  void Add(const Values& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (table_.columns[i].footed && !values[i].IsNull()) sums_[i].Add(values[i]);
    }
  }
  QString Of(std::size_t column) const {
    const ExportColumn& footed = table_.columns[column];
    return footed.footed ? ShownText(sums_[column].Total(), footed.format) : QString();
  }

 private:
  const ExportTable& table_;
  std::vector<MoneySum> sums_;
};

void WriteHtml(const ExportTable& table, std::ostream& out, const Progress& progress) {
  const auto writeRow = [&](const char* tag, const auto& textOf) {
    out << "<tr>";
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const bool right = bool(table.columns[i].alignment & Qt::AlignRight);
      out << HtmlCell(textOf(i), right, tag);
    }
    out << "</tr>\n";
  };
  const std::string title = table.title.toHtmlEscaped().toStdString();
  out << kHtmlHead << "<title>" << title << "</title>\n</head>\n<body>\n<h3>" << title
      << "</h3>\n<table>\n<thead>\n";
  writeRow("th", [&](std::size_t i) { return table.columns[i].caption; });
  out << "</thead>\n<tbody>\n";
  FootSums sums(table);
  ForEachRow(table, progress, [&](const Values& values) {
    sums.Add(values);
    writeRow("td", [&](std::size_t i) {
      return ShownText(values[i], table.columns[i].format, table.columns[i].words);
    });
  });
  out << "</tbody>\n<tfoot>\n";
  writeRow("th", [&](std::size_t i) { return sums.Of(i); });
  out << "</tfoot>\n</table>\n</body>\n</html>\n";
}

template <class Write>
bool ReplaceUnlessGivenUp(const fs::path& file, Write write) {
  try {
    paths::ReplaceFile(file, write);
  } catch (const GivenUp&) {
    return false;
  }
  return true;
}

template <class Write>
bool SaveText(const ExportTable& table, const fs::path& file, const Progress& progress,
              Write write) {
  return ReplaceUnlessGivenUp(file, [&](const fs::path& temporary) {
    std::ofstream out(temporary, std::ios::binary);
    write(table, out, progress);
    out.close();
    if (!out) throw FileFailure(kDiskFull, file.string());
  });
}

}  // namespace

bool SaveSpreadsheet(const ExportTable& table, const fs::path& file, const Progress& progress) {
  SpreadsheetFile::RequireRoom(table.rows);
  return ReplaceUnlessGivenUp(file, [&](const fs::path& temporary) {
    SpreadsheetFile sheet(temporary, table.title, table.columns);
    ForEachRow(table, progress, [&](const Values& values) { sheet.AddRow(values); });
    sheet.Close();
  });
}

bool SaveCsv(const ExportTable& table, const fs::path& file, const Progress& progress) {
  return SaveText(table, file, progress, WriteCsv);
}

bool SaveHtml(const ExportTable& table, const fs::path& file, const Progress& progress) {
  return SaveText(table, file, progress, WriteHtml);
}

}  // namespace tevra
