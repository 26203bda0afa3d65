// The files of a month's reports.
#pragma once

#include <string>
#include <vector>

#include "app/batch/CommandLine.h"
#include "platform/text/DateTime.h"
#include "session/CompanyRegistry.h"

namespace tevra::batch {

struct ReportFile {
  Grouping grouping;
  std::string name;
};

/// The reports of a company's charges in one month, one for each grouping:
/// "Cheltuieli_01_2026-10_conturi.pdf". Characters of the code that are no letters or digits become
/// "_", because a registry may contain anything.
std::vector<ReportFile> ReportFilesOf(const Company& company, const DateTime& day);

}  // namespace tevra::batch
