#include "app/batch/Messages.h"

#include <algorithm>
#include <ostream>
#include <utility>
#include <vector>

#include "app/batch/Refusal.h"

namespace tevra::batch {

namespace {

bool IsQuestion(long word) {
  const std::vector<MessageButton> buttons = ButtonsOf(word);
  return std::any_of(buttons.begin(), buttons.end(),
                     [](const MessageButton& button) { return button.answer == kYes; });
}

}  // namespace

// The refusal does not repeat the question: refusals are logged, and the log must not contain what
// the user typed.
BatchMessages::BatchMessages(std::ostream& err, bool yes)
    : before_(SetMessageHandler([&err, yes](const MessageRequest& request) -> long {
        err << request.prompt << '\n';
        if (!IsQuestion(request.buttons)) return HarmlessAnswer(request.buttons);
        if (!yes) {
          throw Refusal("Nu s-a efectuat nimic ! Pentru raspunsul Da folositi optiunea --yes.");
        }
        err << "Raspuns: Da (--yes)\n";
        return kYes;
      })) {}

BatchMessages::~BatchMessages() {
  SetMessageHandler(std::move(before_));
}

}  // namespace tevra::batch
