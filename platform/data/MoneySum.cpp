#include "platform/data/MoneySum.h"

#include <cmath>

#include "platform/text/Numbers.h"

namespace tevra {

void MoneySum::Add(const Value& value) {
  if (!value.IsNull()) sum_ += value.AsDouble();
}

double MoneySum::Total() const {
  constexpr int kDecimals = 4;
  constexpr double kExactUpTo = 9e11;  // above this a double has no such decimals
  const auto total = static_cast<double>(sum_);
  return std::abs(total) < kExactUpTo ? RoundTo(total, kDecimals) : total;
}

}  // namespace tevra
