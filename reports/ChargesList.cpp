#include "reports/ChargesList.h"

#include "accounting/MonthlyCharge.h"
#include "session/Module1.h"

namespace tevra {

namespace {

enum Column { kNumber, kCode, kName, kKey, kCharge, kCumulated, kRemaining };
enum Total { kChargeTotal, kCumulatedTotal, kRemainingTotal };

std::string Command(const char* key) {
  return std::string("SHAPE {SELECT NRCRT, COD, DENUMIRE, ") + key + " & '' AS CHEIE, " +
         PostedChargeExpression() +
         " AS VAL_AMOR, VAL_AMOR_CUMULATA, VAL_RAMASA FROM I_IMO ORDER BY NRCRT} AS CH COMPUTE CH, "
         "SUM(CH.'VAL_AMOR') AS TVAL_AMOR, SUM(CH.'VAL_AMOR_CUMULATA') AS TVAL_AMOR_CUMULATA, "
         "SUM(CH.'VAL_RAMASA') AS TVAL_RAMASA BY 'CHEIE'";
}

double OrZero(const Value& total) {
  return Nz(total).AsDouble();
}

}  // namespace

ChargesKey KeyOf(ChargesBy by) {
  switch (by) {
    case ChargesBy::Class:
      return {"COD_GR_NOU", "Cod de clasificare"};
    case ChargesBy::Location:
      return {"COD_LOC", "Localizare"};
    case ChargesBy::Centre:
      return {"COD_CC", "Centru de cost"};
    default:
      return {"CONT", "Cont"};
  }
}

ChargesList::ChargesList(Connection& connection, ChargesBy by)
    : rows_(connection, Command(KeyOf(by).field)), month_(MonthOfCharges(connection)) {}

ChargesList::Group ChargesList::GroupAt(std::size_t group) const {
  const ShapedRecordset::Group found = rows_.GroupAt(group);
  return {found.key.TextOrEmpty(),
          {OrZero(found.totals[kChargeTotal]), OrZero(found.totals[kCumulatedTotal]),
           OrZero(found.totals[kRemainingTotal])},
          found.first,
          found.rows};
}

ChargesList::Asset ChargesList::AssetAt(std::size_t row) const {
  const auto value = [&](Column column) { return rows_.ValueAt(row, column); };
  return {value(kNumber), value(kCode),      value(kName),
          value(kCharge), value(kCumulated), value(kRemaining)};
}

ChargesList::Sums ChargesList::Totals() const {
  return {OrZero(rows_.GrandTotal(kChargeTotal)), OrZero(rows_.GrandTotal(kCumulatedTotal)),
          OrZero(rows_.GrandTotal(kRemainingTotal))};
}

}  // namespace tevra
