// The end of the month on the command line.
#pragma once

#include <string>
#include <vector>

#include "platform/text/DateTime.h"

namespace CLI {
class App;
}

namespace tevra::batch {

struct CommandLine;

/// As written; empty where not given.
struct MonthEndOptions {
  std::string date;
  bool all = false;
  std::string companies;
  std::string credentials;
  std::string pdfFolder;
  std::string backupFolder;
  bool json = false;

  std::vector<std::string> codes;  ///< of `companies`; empty for all
};

/// Lets `command` fill the line's options of the end of the month, and those that other commands
/// have too.
void AddMonthEndOptions(CLI::App& command, CommandLine& line);

/// Splits the list of companies, and says whether the toolkit is needed. Throws UsageError for
/// options that exclude each other, that have no effect or that are missing.
void CheckMonthEndOptions(const CLI::App& command, CommandLine& line);

/// The day of the calculation: the one written, the last day of the month written (LL.AAAA), or
/// the last day of the month before this one when nothing is written. Throws Refusal for anything
/// else and for a month that has not begun yet.
DateTime MonthEndDay(const std::string& written);

}  // namespace tevra::batch
