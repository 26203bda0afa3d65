#include "reports/ReportCurrency.h"

#include "platform/data/Recordset.h"
#include "platform/text/Strings.h"
#include "reports/Reports.h"

namespace tevra {

std::optional<std::string> FindReportCurrency(Connection& connection, const std::string& written) {
  const std::string wanted = Trim(written);
  if (EqualNoCase(wanted, kLei)) return kLei;
  const Recordset currency = connection.OpenRecordset(
      "SELECT COD FROM kv_val WHERE COD = ? OR COD & '-' & TITLU = ?", {wanted, wanted});
  if (currency.Eof()) return std::nullopt;
  return currency.Get("COD").TextOrEmpty();
}

}  // namespace tevra
