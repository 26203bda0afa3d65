// The rate of a currency on a day, from the company's table of rates.
#pragma once

#include <optional>
#include <string>

#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"

namespace tevra {

struct DayRate {
  DateTime day;  ///< for which the rate was entered
  double rate;   ///< lei for one unit
};

/// The rate of a currency on a day, or on the last day before it that has one. Nothing when there
/// is none. Throws Failure.
std::optional<DayRate> RateAt(Connection& company, const std::string& currency,
                              const DateTime& day);

/// True when so many days lie between a rate and the day that it is needed for that it is not the
/// rate of a day before a weekend or a holiday.
bool IsOldRate(const DayRate& rate, const DateTime& day);

}  // namespace tevra
