// The sum of a money column.
#pragma once

#include "platform/data/Value.h"

namespace tevra {

/// Adds with more digits than a double has, so that the bani of tens of thousands of assets are
/// exact. Null counts as 0.
class MoneySum {
 public:
  void Add(const Value& value);
  void Add(double value) { sum_ += value; }

  /// Rounded to remove the errors of binary fractions after the fourth decimal.
  double Total() const;

 private:
  long double sum_ = 0;
};

}  // namespace tevra
