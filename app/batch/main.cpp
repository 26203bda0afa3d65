#include <csignal>
#include <iostream>

#include "app/batch/Batch.h"
#include "platform/system/Log.h"
#include "platform/system/MessageBox.h"

namespace {

// Nobody can press a button here: what is asked is not agreed to, and the last button is the one
// that agrees to nothing.
long TellMessage(const tevra::MessageRequest& request) {
  std::cerr << request.prompt << '\n';
  return tevra::HarmlessAnswer(request.buttons);
}

}  // namespace

int main(int argc, char** argv) {
  // A limit of file size and a reader that went away are then errors of the write, as a full disk
  // is.
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
  std::ios::sync_with_stdio(false);
  tevra::SetMessageHandler(TellMessage);
  tevra::log::SetSink([](const std::string& line) {
    tevra::log::LogFile(tevra::log::UsersLogFile()).Append("tevra-batch " + line);
  });
  return tevra::batch::RunBatch(argc, argv, std::cin, std::cout, std::cerr);
}
