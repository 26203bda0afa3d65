// What the end of the month did in one company.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "reports/ChargesList.h"

namespace tevra::batch {

/// The steps in their order. When one fails, those before it are done, except that the calculation
/// is undone when the postings fail.
enum class MonthStep { kLogin, kCheck, kBackup, kCalculation, kPostings, kReports };

enum class Postings {
  kNone,  ///< not asked for, or not reached
  kWritten,
  kAlready  ///< the month was posted before, and its notes were left as they were
};

/// The result of the calculation and the postings.
struct MonthSums {
  int assets = 0;
  ChargesList::Sums sums;  ///< of the register, the charges rounded as they are posted
  Postings postings = Postings::kNone;
  std::string document;  ///< of the postings
  int notes = 0;         ///< under the document
  double posted = 0;     ///< their debits, in lei
};

struct CompanyMonth {
  std::string code;
  std::string name;
  std::optional<MonthStep> failedAt;
  std::string reason;                ///< of the failure
  std::optional<MonthSums> month;    ///< unless nothing was calculated
  std::vector<std::string> remarks;  ///< what the accountant should look at
  std::filesystem::path backup;      ///< empty when none was made
  std::vector<std::filesystem::path> reports;
  double seconds = 0;
};

/// All companies of a run. In a dry run everything is what would be done, and the files' names
/// are those that would be written.
struct MonthEndResult {
  DateTime day;
  bool dryRun = false;
  bool post = false;
  std::vector<CompanyMonth> companies;

  std::size_t Failed() const;
};

}  // namespace tevra::batch
