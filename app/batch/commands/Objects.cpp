#include "app/batch/Table.h"
#include "app/batch/commands/Commands.h"
#include "inventory/InventoryList.h"
#include "platform/text/Numbers.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

using Kind = ObjectColumn::Kind;

constexpr std::size_t kNumber = 0;
constexpr std::size_t kName = 2;

void WriteCsv(const Connection& connection, std::ostream& out) {
  CsvWriter writer(out);
  Values header;
  for (const ObjectColumn& column : kObjectColumns) header.emplace_back(column.field);
  writer.WriteRow(header);
  Values total = ForEachObject(connection, [&](const Values& row) { writer.WriteRow(row); }).sums;
  total[kNumber] = "TOTAL";
  writer.WriteRow(total);
}

// A rate is shown with all its digits, because it is no money.
Values Shown(Values row) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (row[i].IsNull()) continue;
    const Kind kind = kObjectColumns[i].kind;
    if (kind == Kind::kRate) row[i] = CStr(row[i].AsDouble());
    if (kind == Kind::kYesNo) row[i] = row[i].AsBool() ? "Da" : "Nu";
  }
  return row;
}

void WriteTable(const Connection& connection, std::ostream& out) {
  std::vector<TextTable::Column> columns;
  for (const ObjectColumn& column : kObjectColumns) {
    const bool right =
        column.kind == Kind::kNumber || column.kind == Kind::kMoney || column.kind == Kind::kRate;
    columns.push_back({column.caption, right});
  }
  TextTable table(std::move(columns));
  ObjectTotals totals =
      ForEachObject(connection, [&](const Values& row) { table.AddRow(Shown(row)); });
  totals.sums[kNumber] = "Total";
  totals.sums[kName] = std::to_string(totals.objects) + " obiecte";
  table.AddRule();
  table.AddRow(totals.sums);
  table.Write(out);
}

}  // namespace

void ListObjects(bool csv, std::ostream& out) {
  const Connection connection(CurrentSession().connectionString);
  csv ? WriteCsv(connection, out) : WriteTable(connection, out);
}

}  // namespace tevra::batch
