#include "platform/system/MessageBox.h"

#include <iostream>
#include <utility>

namespace tevra {
namespace {

MessageHandler& CurrentHandler() {
  static MessageHandler handler;
  return handler;
}

std::string& ApplicationTitle() {
  static std::string title;
  return title;
}

long ToErrorOutput(const MessageRequest& request) {
  if (!request.title.empty()) std::cerr << request.title << ": ";
  std::cerr << request.prompt << std::endl;
  return HarmlessAnswer(request.buttons);
}

}  // namespace

namespace {

std::vector<MessageButton> AnswersOf(long word) {
  switch (word & kButtonsMask) {
    case kOkCancel:
      return {{kOk, "OK"}, {kCancel, "Anulare"}};
    case kAbortRetryIgnore:
      return {{kAbort, "Abandon"}, {kRetry, "Reincearca"}, {kIgnore, "Ignora"}};
    case kYesNoCancel:
      return {{kYes, "Da"}, {kNo, "Nu"}, {kCancel, "Anulare"}};
    case kYesNo:
      return {{kYes, "Da"}, {kNo, "Nu"}};
    case kRetryCancel:
      return {{kRetry, "Reincearca"}, {kCancel, "Anulare"}};
    default:
      return {{kOk, "OK"}};
  }
}

}  // namespace

std::vector<MessageButton> ButtonsOf(long word) {
  std::vector<MessageButton> buttons = AnswersOf(word);
  if (word & kHelpButton) buttons.push_back({kHelp, "Ajutor"});
  return buttons;
}

long HarmlessAnswer(long word) {
  const std::vector<MessageButton> buttons = AnswersOf(word);
  for (const long wanted : {long{kCancel}, long{kNo}, long{kAbort}}) {
    for (const MessageButton& button : buttons) {
      if (button.answer == wanted) return wanted;
    }
  }
  return buttons.back().answer;
}

std::size_t DefaultButton(long word) {
  const auto chosen = static_cast<std::size_t>((word & kDefaultMask) / kDefaultStep);
  return chosen < ButtonsOf(word).size() ? chosen : 0;
}

MessageHandler SetMessageHandler(MessageHandler handler) {
  return std::exchange(CurrentHandler(), std::move(handler));
}

void SetApplicationTitle(std::string title) {
  ApplicationTitle() = std::move(title);
}

long ShowMessage(const MessageRequest& request) {
  // A copy: the handler may set another one while it runs.
  const MessageHandler handler = CurrentHandler();
  MessageRequest titled = request;
  if (titled.title.empty()) titled.title = ApplicationTitle();
  return handler ? handler(titled) : ToErrorOutput(titled);
}

}  // namespace tevra
