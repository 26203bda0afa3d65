#include "reports/CalculatedMonth.h"

#include <map>
#include <utility>

#include "platform/data/Recordset.h"

namespace tevra {

namespace {

struct Month {
  DateTime last;
  long assets = 0;
};

using Months = std::map<std::pair<int, int>, Month>;  // by year and month

// A run leaves the date of an asset that has left, and of one without depreciation, as it was.
Months ReadMonths(Connection& connection) {
  Recordset days = connection.OpenRecordset(
      "SELECT DATA_CALCUL, COUNT(*) AS NUMAR FROM I_IMO WHERE NOT DATA_CALCUL IS NULL AND "
      "IESIRE = 0 AND (TIP_AM IS NULL OR TIP_AM <> 'F') GROUP BY DATA_CALCUL ORDER BY DATA_CALCUL");
  Months months;
  for (; !days.Eof(); days.MoveNext()) {
    const DateTime day = days.Get("DATA_CALCUL").AsDateTime();
    Month& month = months[{day.Year(), day.Month()}];
    month.last = day;
    month.assets += static_cast<long>(days.Get("NUMAR").AsLong());
  }
  return months;
}

}  // namespace

std::optional<CalculatedMonth> MonthOfCharges(Connection& connection) {
  std::optional<CalculatedMonth> most;
  long all = 0;
  for (const auto& [key, month] : ReadMonths(connection)) {
    all += month.assets;
    if (!most || month.assets >= most->assets) most = CalculatedMonth{month.last, month.assets};
  }
  if (most) most->others = all - most->assets;
  return most;
}

long AssetsOfOtherMonths(Connection& connection, int month, int year) {
  long others = 0;
  for (const auto& [key, counted] : ReadMonths(connection)) {
    if (key != std::pair(year, month)) others += counted.assets;
  }
  return others;
}

std::string OtherMonthsText(long assets, bool english) {
  if (assets == 0) return {};
  const std::string number = std::to_string(assets);
  if (english) {
    return "Attention: " + number + (assets == 1 ? " asset was" : " assets were") +
           " calculated for another month !";
  }
  return "Atentie: " + number +
         (assets == 1 ? " imobilizare este calculata" : " imobilizari sunt calculate") +
         " pentru alta luna !";
}

}  // namespace tevra
