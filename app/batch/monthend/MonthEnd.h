// The end of the month of one company: backup, calculation, postings, reports.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "app/batch/Job.h"
#include "app/batch/monthend/CompanyMonth.h"
#include "app/batch/monthend/Credentials.h"
#include "session/CompanyRegistry.h"

namespace tevra::batch {

struct MonthEndRequest {
  std::string directory;
  DateTime day;
  bool post = false;
  bool again = false;       ///< the notes of a month that is posted are written again
  bool loseOthers = false;  ///< notes of something else under the month's document are deleted
  bool dryRun = false;
  std::filesystem::path pdfFolder;     ///< without one there are no reports
  std::filesystem::path backupFolder;  ///< without one the folder of backups of the directory
  ChargesPdfWriter* writePdf = nullptr;
};

/// Ends the month in a company. Calculation and postings are one transaction. Never throws: a
/// failure is in the result and in the log. `credential` may be null, which is a failure.
CompanyMonth EndMonth(const MonthEndRequest& request, const Company& company,
                      const Credential* credential, const Streams& streams);

}  // namespace tevra::batch
