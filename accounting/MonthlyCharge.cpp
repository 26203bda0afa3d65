#include "accounting/MonthlyCharge.h"

#include "platform/text/Numbers.h"

namespace tevra {

namespace {

constexpr int kBani = 2;  // decimals

}  // namespace

Value PostedCharge(const Value& charge) {
  return charge.IsNull() ? Value() : Value(RoundTo(charge.AsDouble(), kBani));
}

std::string PostedChargeExpression() {
  return std::string("Round(") + kMonthlyCharge + "," + std::to_string(kBani) + ")";
}

}  // namespace tevra
