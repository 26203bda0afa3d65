// What both programs of the command line do before and around the command.
#pragma once

#include "app/batch/Batch.h"

namespace tevra::batch {

/// Runs the command of a process on its standard streams and with its log; `reports` as for
/// RunBatch. Returns the exit code.
int RunProcess(int argc, const char* const* argv, const ReportWriters* reports);

}  // namespace tevra::batch
