// Messages and questions of the routines, while a command runs.
#pragma once

#include <iosfwd>

#include "platform/system/MessageBox.h"

namespace tevra::batch {

/// While it exists, messages go to `err`. A question with a Yes button is shown there with its
/// answer: with `yes` it is answered Yes. Without `yes` nobody can agree, so showing the question
/// throws Refusal: open transactions roll back and the command ends. Every other message gets the
/// harmless answer.
class BatchMessages {
 public:
  BatchMessages(std::ostream& err, bool yes);
  ~BatchMessages();
  BatchMessages(const BatchMessages&) = delete;
  BatchMessages& operator=(const BatchMessages&) = delete;

 private:
  MessageHandler before_;
};

}  // namespace tevra::batch
