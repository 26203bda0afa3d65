// The rates of currencies: from the National Bank's files into kv_val2.
#pragma once

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

/// "3 cursuri noi, 1 modificat, 12 neschimbate, 2 sarite (valute care nu sunt in lista: HKD)".
std::string RatesStoredText(const RatesStored& stored);

}  // namespace tevra
