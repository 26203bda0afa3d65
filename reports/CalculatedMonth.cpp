#include "reports/CalculatedMonth.h"

#include "platform/data/Recordset.h"

namespace tevra {

// A run leaves the date of an asset that has left, and of one without depreciation, as it was.
CalculatedMonths::CalculatedMonths(Connection& connection) {
  Recordset days = connection.OpenRecordset(
      "SELECT DATA_CALCUL, COUNT(*) AS NUMAR FROM I_IMO WHERE NOT DATA_CALCUL IS NULL AND "
      "IESIRE = 0 AND (TIP_AM IS NULL OR TIP_AM <> 'F') GROUP BY DATA_CALCUL ORDER BY DATA_CALCUL");
  for (; !days.Eof(); days.MoveNext()) {
    const DateTime day = days.Get("DATA_CALCUL").AsDateTime();
    Month& month = months_[{day.Year(), day.Month()}];
    month.last = day;
    month.assets += static_cast<long>(days.Get("NUMAR").AsLong());
  }
}

std::optional<CalculatedMonth> CalculatedMonths::Most() const {
  std::optional<CalculatedMonth> most;
  long all = 0;
  for (const auto& [key, month] : months_) {
    all += month.assets;
    if (!most || month.assets >= most->assets) most = CalculatedMonth{month.last, month.assets};
  }
  if (most) most->others = all - most->assets;
  return most;
}

long CalculatedMonths::Others(int month, int year) const {
  long others = 0;
  for (const auto& [key, counted] : months_) {
    if (key != std::pair(year, month)) others += counted.assets;
  }
  return others;
}

std::optional<CalculatedMonth> MonthOfCharges(Connection& connection) {
  return CalculatedMonths(connection).Most();
}

long AssetsOfOtherMonths(Connection& connection, int month, int year) {
  return CalculatedMonths(connection).Others(month, year);
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
