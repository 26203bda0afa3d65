#include "inventory/InventoryList.h"

#include "platform/data/MoneySum.h"
#include "platform/data/RowReader.h"

namespace tevra {

std::string ObjectListStatement() {
  return "select A.*,B.titlu as CC,C.titlu as LOC,D.NUME as FURNIZ,"
         "E.CONT+E.PROCENT as TVA "
         "from kv_PC  F RIGHT JOIN (kv_cote E RIGHT JOIN "
         "(kv_ter D RIGHT JOIN (I_localizare C RIGHT JOIN "
         "(kv_CC B RIGHT JOIN i_inv A ON B.cod = A.cod_cc) "
         "ON C.cod = A.cod_loc) ON D.cod = A.cod_furnizor) "
         "ON E.cod = A.cod_tva_cump) ON F.cont = A.cont ";
}

std::string AllObjectsStatement() {
  return ObjectListStatement() + " order by nrcrt desc,denumire ";
}

std::string ObjectsByNameStatement() {
  return ObjectListStatement() + "where denumire like ? order by nrcrt desc, DENUMIRE";
}

std::string ObjectsByPersonStatement() {
  return ObjectListStatement() + "where A.pers like ? order by nrcrt desc, DENUMIRE";
}

ObjectTotals ForEachObject(const Connection& connection,
                           const std::function<void(const Values&)>& use) {
  RowReader reader(connection, ObjectListStatement() + kNewestObjectFirst);
  std::array<int, kObjectColumns.size()> places{};
  std::array<MoneySum, kObjectColumns.size()> sums;
  for (std::size_t i = 0; i < places.size(); ++i) {
    places[i] = reader.Column(kObjectColumns[i].field);
  }
  ObjectTotals totals;
  Values row(places.size());
  for (; reader.Next(); ++totals.objects) {
    for (std::size_t i = 0; i < places.size(); ++i) {
      row[i] = reader.Get(places[i]);
      if (kObjectColumns[i].kind == ObjectColumn::Kind::kMoney) sums[i].Add(row[i]);
    }
    use(row);
  }
  totals.sums.resize(row.size());
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (kObjectColumns[i].kind == ObjectColumn::Kind::kMoney) totals.sums[i] = sums[i].Total();
  }
  return totals;
}

}  // namespace tevra
