// The month for which the charges in the register were calculated.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// Counts only assets whose date the monthly run sets: not those that left, not those without
/// depreciation, not those never calculated.
struct CalculatedMonth {
  DateTime last;    ///< the last day of this month to which an asset was calculated
  long assets = 0;  ///< calculated to a day of this month
  long others = 0;  ///< calculated to a day of another month
};

/// The months to which the assets were calculated, read once.
class CalculatedMonths {
 public:
  /// Throws Failure.
  explicit CalculatedMonths(Connection& connection);

  /// The month to which most assets were calculated, the later one of two with as many; nothing
  /// before the first calculation.
  std::optional<CalculatedMonth> Most() const;

  /// The number of assets that were calculated to a day of another month than this one.
  long Others(int month, int year) const;

 private:
  struct Month {
    DateTime last;
    long assets = 0;
  };
  std::map<std::pair<int, int>, Month> months_;  // by year and month
};

/// The same from the file. Throw Failure.
std::optional<CalculatedMonth> MonthOfCharges(Connection& connection);
long AssetsOfOtherMonths(Connection& connection, int month, int year);

/// The warning about such assets, in the language of the paper; empty when there are none.
std::string OtherMonthsText(long assets, bool english = false);

}  // namespace tevra
