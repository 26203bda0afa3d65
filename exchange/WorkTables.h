// Loads the tables of an exchange file into the work tables.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "exchange/ExchangeFile.h"
#include "platform/data/Connection.h"
#include "platform/system/Progress.h"

namespace tevra {

/// The lines of a file, as they were loaded.
struct LoadedLines {
  std::int64_t lines = 0;
  std::int64_t outside = 0;  ///< with a date outside the header's period
  double debit = 0;
  double credit = 0;

  bool operator==(const LoadedLines&) const = default;
};

/// How a load goes about it.
struct LoadRequest {
  std::string file;
  ExchangeHeader header;
  Progress progress;  ///< may be empty; counts the lines; false throws LoadStopped
  StepRunner run = RunUnreported;
  std::function<void(const std::string& text)> refuse;  ///< gets the text of another structure
};

struct LoadStopped {};

/// Empties the work tables and loads them in one pass, a row at a time. The lines of a centre are
/// left out. False when a table was refused or its step failed and was reported. Throws Failure
/// -2147467259 for a damaged document, one without a table, or with a table twice, and what the
/// runner lets through: a failure of a value names file and line.
bool LoadWorkTables(Connection& company, const LoadRequest& request, LoadedLines& lines);

}  // namespace tevra
