#include "app/batch/Process.h"

#include <csignal>
#include <iostream>

#include "platform/system/Log.h"

namespace tevra::batch {

int RunProcess(int argc, const char* const* argv, const ReportWriters* reports) {
  // A file size limit and a closed pipe then are errors of the write call, like a full
  // disk.
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
  std::ios::sync_with_stdio(false);
  log::SetSink([](const std::string& line) {
    log::LogFile(log::UsersLogFile()).Append("tevra-batch " + line);
  });
  return RunBatch(argc, argv, std::cin, std::cout, std::cerr, reports);
}

}  // namespace tevra::batch
