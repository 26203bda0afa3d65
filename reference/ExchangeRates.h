// The rates of currencies: from the National Bank's files into kv_val2, and looked up there.
#pragma once

#include <optional>
#include <set>
#include <string>

#include "platform/data/Connection.h"
#include "reference/RatesFile.h"

namespace tevra {

struct RatesStored {
  int added = 0;
  int changed = 0;    ///< another rate stood there, or several
  int unchanged = 0;  ///< the same rate stood there
  int skipped = 0;    ///< entries without a rate, or of currencies that kv_val does not list
  std::set<std::string> unknown;  ///< the codes of those currencies
};

/// Puts the rates of the currencies in kv_val into kv_val2, in one transaction. What is stored of a
/// currency on the same day, at whatever time, gives way. Throws Failure; then nothing has changed.
RatesStored StoreRates(Connection& company, const RatesFile& file);

/// Reads a file and stores its rates. Throws Failure like ReadRatesFile and StoreRates, and when
/// the file cannot be opened; then nothing has changed.
RatesStored TakeRatesFrom(Connection& company, const std::string& file);

/// "3 cursuri noi, 1 modificat, 12 neschimbate, 2 sarite (valute care nu sunt in lista: HKD)".
std::string RatesStoredText(const RatesStored& stored);

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
