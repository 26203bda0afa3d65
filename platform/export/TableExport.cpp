#include "platform/export/TableExport.h"

#include <fstream>

#include "platform/data/CsvCell.h"
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

template <class Write>
bool ReplaceUnlessGivenUp(const fs::path& file, Write write) {
  try {
    paths::ReplaceFile(file, write);
  } catch (const GivenUp&) {
    return false;
  }
  return true;
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
  return ReplaceUnlessGivenUp(file, [&](const fs::path& temporary) {
    std::ofstream out(temporary, std::ios::binary);
    WriteCsv(table, out, progress);
    out.close();
    if (!out) throw FileFailure(kDiskFull, file.string());
  });
}

}  // namespace tevra
