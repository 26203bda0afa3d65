#include "platform/system/MessageBox.h"

#include <iostream>
#include <utility>
#include <vector>

namespace tevra {
namespace {

constexpr long kButtonsMask = 0x7;
constexpr long kDefaultMask = 0x300;
constexpr long kDefaultStep = 0x100;

MessageHandler& CurrentHandler() {
  static MessageHandler handler;
  return handler;
}

std::vector<long> AnswersOf(long buttons) {
  switch (buttons & kButtonsMask) {
    case 1:
      return {kOk, kCancel};
    case 2:
      return {kAbort, kRetry, kIgnore};
    case 3:
      return {kYes, kNo, kCancel};
    case 4:
      return {kYes, kNo};
    case 5:
      return {kRetry, kCancel};
    default:
      return {kOk};
  }
}

/// The first button, or the second or third by the word's default bits where there is one.
long DefaultAnswer(long buttons) {
  const std::vector<long> answers = AnswersOf(buttons);
  const auto chosen = static_cast<std::size_t>((buttons & kDefaultMask) / kDefaultStep);
  return chosen < answers.size() ? answers[chosen] : answers.front();
}

std::string& ApplicationTitle() {
  static std::string title;
  return title;
}

long ToErrorOutput(const MessageRequest& request) {
  if (!request.title.empty()) std::cerr << request.title << ": ";
  std::cerr << request.prompt << std::endl;
  return DefaultAnswer(request.buttons);
}

}  // namespace

MessageHandler SetMessageHandler(MessageHandler handler) {
  return std::exchange(CurrentHandler(), std::move(handler));
}

void SetApplicationTitle(std::string title) { ApplicationTitle() = std::move(title); }

long ShowMessage(const MessageRequest& request) {
  // A copy: the handler may set another one while it runs.
  const MessageHandler handler = CurrentHandler();
  MessageRequest titled = request;
  if (titled.title.empty()) titled.title = ApplicationTitle();
  return handler ? handler(titled) : ToErrorOutput(titled);
}

}  // namespace tevra
