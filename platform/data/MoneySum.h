// The sum of a money column.
#pragma once

#include "platform/data/Value.h"

namespace tevra {

/// Adds with more digits than a double has, so that the bani of tens of thousands of assets come
/// out as on paper. Null counts as 0.
class MoneySum {
 public:
  void Add(const Value& value);
  void Add(double value) { sum_ += value; }

  /// Without the traces of adding binary fractions: those behind the fourth decimal.
  double Total() const;

 private:
  long double sum_ = 0;
};

}  // namespace tevra
