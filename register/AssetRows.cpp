#include "register/AssetRows.h"

#include <string>
#include <vector>

#include "platform/data/ForwardCursor.h"
#include "platform/data/MoneySum.h"

namespace tevra {

namespace {

using Kind = AssetField::Kind;

Value Read(const ForwardCursor& cursor, int column, Kind kind) {
  if (cursor.IsNull(column)) return {};
  switch (kind) {
    case Kind::kNumber:
      return static_cast<std::int64_t>(*cursor.Number(column));
    case Kind::kDate:
      return *cursor.Date(column);
    case Kind::kMoney:
      return *cursor.Number(column);
    default:
      return std::string(cursor.Text(column));
  }
}

}  // namespace

AssetRowTotals ForEachAsset(Connection& connection, const std::function<void(const Values&)>& use) {
  std::vector<std::string> names;
  for (const AssetField& field : kAssetRowFields) names.emplace_back(field.name);
  ForwardCursor cursor(connection, "Select * from I_IMO order by NRCRT", names);
  std::array<MoneySum, kAssetRowFields.size()> sums;
  AssetRowTotals totals;
  Values row(kAssetRowFields.size());
  for (; cursor.Next(); ++totals.assets) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const Kind kind = kAssetRowFields[i].kind;
      row[i] = Read(cursor, static_cast<int>(i), kind);
      if (kind == Kind::kMoney) sums[i].Add(row[i]);
    }
    use(row);
  }
  totals.sums.resize(row.size());
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (kAssetRowFields[i].kind == Kind::kMoney) totals.sums[i] = sums[i].Total();
  }
  return totals;
}

}  // namespace tevra
