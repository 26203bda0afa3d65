// Runs the program: from its arguments to its exit code.
#pragma once

#include <iosfwd>

#include "app/batch/Job.h"

namespace tevra::batch {

enum ExitCode { kDone = 0, kRefused = 1, kUsage = 2 };

/// Runs one command. Results go to `out`, messages, questions and the prompt for the password to
/// `err`; the password is read from `in`. Returns an ExitCode; throws nothing.
/// Without `reports` the program that writes reports takes this one's place for such a command
/// and reads the same streams of the process.
int RunBatch(int argc, const char* const* argv, std::istream& in, std::ostream& out,
             std::ostream& err, const ReportWriters* reports);

}  // namespace tevra::batch
