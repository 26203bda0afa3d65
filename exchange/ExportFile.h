// Writes the data of a branch for its centre.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

#include "exchange/ExchangeFile.h"
#include "platform/data/Connection.h"
#include "platform/system/Progress.h"

namespace tevra {

struct ExportRequest {
  DateTime from;  ///< first and last day of the lines
  DateTime to;
  bool again = false;  ///< also when lines of the period were exported before
  Progress progress;   ///< may be empty; counts the lines
  StepRunner run = RunUnreported;
};

struct Exported {
  enum class Result {
    kDone,
    kBefore,   ///< lines of the period were exported before and `again` is not set
    kStopped,  ///< the user cancelled, or a step failed and reported it
  };
  Result result = Result::kStopped;
  std::filesystem::path file;                ///< when done
  std::map<std::string, std::int64_t> rows;  ///< by element
};

/// "Ati mai facut export in intervalul: 01.01.2006 - 31.12.2006".
std::string ExportedBeforeText(const ExportRequest& request);

/// Writes third parties, chart of accounts, cost centres and journals whole and the period's lines
/// that were not imported, and marks these lines as exported. The file gets its name only when it
/// is whole and the lines are marked; it replaces one of the same second. In any other case nothing
/// is changed. The file holds one row in memory at a time. Throws Failure: 76, 70 or 61 for the
/// folder and the file, and those of the statements.
Exported GenerateXML(Connection& company, const ExportRequest& request);

}  // namespace tevra
