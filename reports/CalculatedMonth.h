// The month for which the charges in the register were calculated.
#pragma once

#include <optional>
#include <string>

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

/// The month to which most assets were calculated, the later one of two with as many; nothing
/// before the first calculation. Throws Failure.
std::optional<CalculatedMonth> MonthOfCharges(Connection& connection);

/// The number of assets that were calculated to a day of another month than this one. Throws
/// Failure.
long AssetsOfOtherMonths(Connection& connection, int month, int year);

/// The warning about such assets, in the language of the paper; empty when there are none.
std::string OtherMonthsText(long assets, bool english = false);

}  // namespace tevra
