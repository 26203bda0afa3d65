// The command that writes reports: the only one that needs the toolkit.
#pragma once

#include "app/batch/Job.h"

namespace tevra::batch {

/// Writes the report that the line asks for as a PDF and tells where; what the user should look at
/// goes to the error output. Throws Refusal for dates that are none and a currency that the company
/// does not have, Failure for a file that cannot be written; an old one is then still there.
void WriteReport(const CommandLine& line, const Streams& streams);

/// See ChargesPdfWriter.
void WriteChargesPdf(Grouping grouping, const DateTime& day, const std::filesystem::path& file);

inline constexpr ReportWriters kReportWriters{&WriteReport, &WriteChargesPdf};

}  // namespace tevra::batch
