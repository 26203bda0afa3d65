#include <array>

#include "app/batch/Table.h"
#include "app/batch/commands/Commands.h"
#include "register/AssetRows.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

constexpr std::array<const char*, kAssetRowFields.size()> kCaptions{
    "Nr. crt.",
    "Nr. inv.",
    "Denumire",
    "Tip amortizare",
    "Cont",
    "Data inceput amortizare",
    "Data sfarsit amortizare",
    "Data de calcul",
    "Valoare Lei",
    "Valoare USD",
    "Valoare amortizare cumulata LEI",
    "Valoare amortizata cumulata USD",
    "Valoare ramasa de amortizat LEI",
    "Valoare ramasa de amortizat USD"};
constexpr std::size_t kNumber = 0;
constexpr std::size_t kName = 2;

void WriteCsv(Connection& connection, std::ostream& out) {
  CsvWriter writer(out);
  Values header;
  for (const AssetField& field : kAssetRowFields) header.emplace_back(field.name);
  writer.WriteRow(header);
  Values total = ForEachAsset(connection, [&](const Values& row) { writer.WriteRow(row); }).sums;
  total[kNumber] = "TOTAL";
  writer.WriteRow(total);
}

void WriteTable(Connection& connection, std::ostream& out) {
  std::vector<TextTable::Column> columns;
  for (std::size_t i = 0; i < kCaptions.size(); ++i) {
    const AssetField::Kind kind = kAssetRowFields[i].kind;
    const bool right = kind == AssetField::Kind::kNumber || kind == AssetField::Kind::kMoney;
    columns.push_back({kCaptions[i], right});
  }
  TextTable table(std::move(columns));
  AssetRowTotals totals = ForEachAsset(connection, [&](const Values& row) { table.AddRow(row); });
  totals.sums[kNumber] = "Total";
  totals.sums[kName] = std::to_string(totals.assets) + " imobilizari";
  table.AddRule();
  table.AddRow(totals.sums);
  table.Write(out);
}

}  // namespace

void ListAssets(bool csv, std::ostream& out) {
  Connection connection(CurrentSession().connectionString);
  csv ? WriteCsv(connection, out) : WriteTable(connection, out);
}

}  // namespace tevra::batch
