// How a message reaches the user and an answer comes back: the front end or a test says how.
#pragma once

#include <array>
#include <functional>
#include <string>

namespace tevra {

/// The buttons word: low bits the buttons, then the icon and the default button.
enum MessageButtons : long {
  kOkOnly = 0,
  kOkCancel = 1,
  kYesNo = 4,
  kCritical = 16,
  kQuestion = 32,
  kExclamation = 48,
  kInformation = 64,
};

/// The code of the pressed button.
enum MessageAnswer : long {
  kOk = 1,
  kCancel = 2,
  kAbort = 3,
  kRetry = 4,
  kIgnore = 5,
  kYes = 6,
  kNo = 7
};

struct MessageRequest {
  std::string prompt;
  long buttons = kOkOnly;
  std::string title;
  std::array<std::string, 4> captions;  ///< replace the buttons' captions in order; empty keeps one
};

using MessageHandler = std::function<long(const MessageRequest&)>;

/// Sets who shows messages; returns who did before. Without one a message goes to the error output
/// and its default button is the answer.
MessageHandler SetMessageHandler(MessageHandler handler);

/// The title of messages that have none of their own.
void SetApplicationTitle(std::string title);

/// Shows a message and returns the answer's code.
long ShowMessage(const MessageRequest& request);

}  // namespace tevra
