#include <array>
#include <functional>

#include "app/batch/Table.h"
#include "app/batch/commands/Commands.h"
#include "platform/data/ForwardCursor.h"
#include "platform/data/MoneySum.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

enum class Kind { Number, Text, Date, Money };

struct Field {
  const char* name;
  const char* caption;
  Kind kind;
};

constexpr std::array<Field, 14> kFields{{
    {"NRCRT", "Nr. crt.", Kind::Number},
    {"COD", "Nr. inv.", Kind::Text},
    {"DENUMIRE", "Denumire", Kind::Text},
    {"TIP_AM", "Tip amortizare", Kind::Text},
    {"CONT", "Cont", Kind::Text},
    {"DATA_IN_AM", "Data inceput amortizare", Kind::Date},
    {"DATA_SF", "Data sfarsit amortizare", Kind::Date},
    {"DATA_CALCUL", "Data de calcul", Kind::Date},
    {"VAL_CUMP", "Valoare Lei", Kind::Money},
    {"VAL_CUMP_VAL", "Valoare USD", Kind::Money},
    {"VAL_AMOR_CUMULATA", "Valoare amortizare cumulata LEI", Kind::Money},
    {"VAL_AMOR_CUMULATA_VAL", "Valoare amortizata cumulata USD", Kind::Money},
    {"VAL_RAMASA", "Valoare ramasa de amortizat LEI", Kind::Money},
    {"VAL_RAMASA_VAL", "Valoare ramasa de amortizat USD", Kind::Money},
}};
constexpr std::size_t kNumber = 0;
constexpr std::size_t kName = 2;

struct Totals {
  int count = 0;
  std::array<MoneySum, kFields.size()> sums;  // of the money fields

  /// The six sums under their columns, the other cells Null.
  Values Row() const {
    Values row(kFields.size());
    for (std::size_t i = 0; i < kFields.size(); ++i) {
      if (kFields[i].kind == Kind::Money) row[i] = sums[i].Total();
    }
    return row;
  }
};

Value Read(const ForwardCursor& cursor, int column, Kind kind) {
  if (cursor.IsNull(column)) return {};
  switch (kind) {
    case Kind::Number:
      return static_cast<std::int64_t>(*cursor.Number(column));
    case Kind::Date:
      return *cursor.Date(column);
    case Kind::Money:
      return *cursor.Number(column);
    default:
      return std::string(cursor.Text(column));
  }
}

Totals ForEachAsset(const std::function<void(const Values&)>& use) {
  Connection connection(CurrentSession().connectionString);
  std::vector<std::string> names;
  for (const Field& field : kFields) names.emplace_back(field.name);
  ForwardCursor cursor(connection, "Select * from I_IMO order by NRCRT", names);
  Totals totals;
  Values row(kFields.size());
  for (; cursor.Next(); ++totals.count) {
    for (std::size_t i = 0; i < kFields.size(); ++i) {
      row[i] = Read(cursor, static_cast<int>(i), kFields[i].kind);
      if (kFields[i].kind == Kind::Money) totals.sums[i].Add(row[i]);
    }
    use(row);
  }
  return totals;
}

void WriteCsv(std::ostream& out) {
  CsvWriter writer(out);
  Values header;
  for (const Field& field : kFields) header.emplace_back(field.name);
  writer.WriteRow(header);
  Values total = ForEachAsset([&](const Values& row) { writer.WriteRow(row); }).Row();
  total[kNumber] = "TOTAL";
  writer.WriteRow(total);
}

void WriteTable(std::ostream& out) {
  std::vector<TextTable::Column> columns;
  for (const Field& field : kFields) {
    columns.push_back({field.caption, field.kind == Kind::Number || field.kind == Kind::Money});
  }
  TextTable table(std::move(columns));
  const Totals totals = ForEachAsset([&](const Values& row) { table.AddRow(row); });
  Values total = totals.Row();
  total[kNumber] = "Total";
  total[kName] = std::to_string(totals.count) + " imobilizari";
  table.AddRule();
  table.AddRow(total);
  table.Write(out);
}

}  // namespace

void ListAssets(bool csv, std::ostream& out) {
  csv ? WriteCsv(out) : WriteTable(out);
}

}  // namespace tevra::batch
