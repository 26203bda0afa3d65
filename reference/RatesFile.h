// Reads the file in which the National Bank publishes its rates: those of a day, or of many days.
#pragma once

#include <istream>
#include <map>
#include <string>
#include <utility>

#include "platform/text/DateTime.h"

namespace tevra {

/// The largest file that is read, in bytes. The rates of a year take half a million.
inline constexpr std::size_t kLargestRatesFile = 16 * 1024 * 1024;

struct RatesFile {
  /// Lei for one unit of a currency, by day and code in capitals. Where a file has a currency twice
  /// on one day, the later one counts.
  std::map<std::pair<DateTime, std::string>, double> rates;
  int empty = 0;  ///< entries without a rate
};

/// Reads the whole document. `name`: the file's name in failures. Throws Failure -2147467259 with
/// the reason in Romanian when it is not such a document, is damaged, has a document type or is too
/// large, and for a rate, multiplier or day that is none.
RatesFile ReadRatesFile(std::istream& in, const std::string& name);

/// The same for a file on disk. Also throws Failure when it cannot be opened.
RatesFile ReadRatesFile(const std::string& path);

}  // namespace tevra
