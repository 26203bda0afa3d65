// Messages to the user and their answers. The front end or a test sets how they are shown.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace tevra {

/// The buttons word: low bits the buttons, then the icon and the default button.
enum MessageButtons : long {
  kOkOnly = 0,
  kOkCancel = 1,
  kAbortRetryIgnore = 2,
  kYesNoCancel = 3,
  kYesNo = 4,
  kRetryCancel = 5,
  kCritical = 16,
  kQuestion = 32,
  kExclamation = 48,
  kInformation = 64,
  kHelpButton = 16384,  ///< an additional button, which asks for help and keeps the message open
};

/// The codes of the buttons.
enum MessageAnswer : long {
  kOk = 1,
  kCancel = 2,
  kAbort = 3,
  kRetry = 4,
  kIgnore = 5,
  kYes = 6,
  kNo = 7,
  kHelp = -1  ///< of the help button; never an answer
};

/// The parts of the buttons word.
enum MessageMask : long {
  kButtonsMask = 0xF,
  kIconMask = 0x70,
  kDefaultMask = 0x300,
  kDefaultStep = 0x100
};

struct MessageButton {
  long answer;          ///< its code
  const char* caption;  ///< unless the message has its own
};

/// The buttons of a word, from left to right; the help button, if any, is the last.
std::vector<MessageButton> ButtonsOf(long word);

/// The answer of the button that changes nothing, for a message that nobody answers: Cancel, No,
/// Abort, otherwise the last button.
long HarmlessAnswer(long word);

/// The index in ButtonsOf of the button that Enter presses; 0 when the word names no existing
/// button.
std::size_t DefaultButton(long word);

struct MessageRequest {
  std::string prompt;
  long buttons = kOkOnly;
  std::string title;
  std::array<std::string, 4> captions;  ///< replace the buttons' captions in order; empty keeps one
};

using MessageHandler = std::function<long(const MessageRequest&)>;

/// Sets the handler that shows messages and returns the previous one. Without a handler a message
/// goes to the error output and gets the harmless answer.
MessageHandler SetMessageHandler(MessageHandler handler);

/// The title of messages without their own title.
void SetApplicationTitle(std::string title);

/// Shows a message and returns the answer's code.
long ShowMessage(const MessageRequest& request);

}  // namespace tevra
