// What a command works with.
#pragma once

#include <ostream>

#include "app/batch/CommandLine.h"
#include "app/batch/Streams.h"
#include "platform/data/Connection.h"

namespace tevra::batch {

/// Writes the report that the line asks for, after the login.
using ReportWriter = void(const CommandLine& line, const Streams& streams);

struct Job {
  const CommandLine& line;
  const Streams& streams;
  std::ostream& out;                    ///< the streams' output
  Connection* company = nullptr;        ///< of a command that needs it open
  ReportWriter* writeReport = nullptr;  ///< in the program that writes reports
};

}  // namespace tevra::batch
