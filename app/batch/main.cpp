#include <csignal>
#include <iostream>

#include "app/batch/Batch.h"
#include "platform/system/Log.h"

int main(int argc, char** argv) {
  // A file size limit and a closed pipe then are errors of the write call, like a full
  // disk.
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
  std::ios::sync_with_stdio(false);
  tevra::log::SetSink([](const std::string& line) {
    tevra::log::LogFile(tevra::log::UsersLogFile()).Append("tevra-batch " + line);
  });
  return tevra::batch::RunBatch(argc, argv, std::cin, std::cout, std::cerr);
}
