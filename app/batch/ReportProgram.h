// The program that writes the reports. Only it is linked with the toolkit, which takes longer to
// load than most commands take to run.
#pragma once

namespace tevra::batch {

/// Lets the program tevra-batch-report beside this one take the place of this process, with the
/// same arguments. Returns never; throws Refusal when it cannot be started.
[[noreturn]] void StartReportProgram(const char* const* argv);

}  // namespace tevra::batch
