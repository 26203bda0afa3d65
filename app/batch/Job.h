// What a command works with.
#pragma once

#include <filesystem>
#include <ostream>

#include "app/batch/CommandLine.h"
#include "app/batch/Streams.h"
#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"

namespace tevra::batch {

/// Writes the report that the line asks for, after the login.
using ReportWriter = void(const CommandLine& line, const Streams& streams);

/// Writes the charges of the month of `day` in lei to a PDF, whole or not at all, after the login.
/// Throws Failure.
using ChargesPdfWriter = void(Grouping grouping, const DateTime& day,
                              const std::filesystem::path& file);

/// What only the program that writes reports can do.
struct ReportWriters {
  ReportWriter* report;
  ChargesPdfWriter* charges;
};

struct Job {
  const CommandLine& line;
  const Streams& streams;
  std::ostream& out;                       ///< the streams' output
  Connection* company = nullptr;           ///< of a command that needs it open
  const ReportWriters* reports = nullptr;  ///< in the program that writes reports
};

}  // namespace tevra::batch
