#include "app/batch/Refusal.h"

#include <algorithm>

#include "platform/system/Log.h"
#include "session/Session.h"

namespace tevra::batch {

void LogRefusal(const Refusal& refusal, const std::vector<const std::string*>& typed,
                const std::string& command) {
  if (refusal.Cause()) return log::NoteFailure(*refusal.Cause(), command);
  std::string text = refusal.what();
  text.resize(std::min(text.find('\n'), text.size()));
  for (const std::string* part : typed) {
    if (part->empty()) continue;
    for (std::size_t at = text.find(*part); at != text.npos; at = text.find(*part, at + 1)) {
      text.replace(at, part->size(), "?");
    }
  }
  log::Note(text + " | " + command);
}

std::string ErrorText(const Failure& failure, const std::string& where) {
  const std::string description = failure.Description();
  std::string text = "Eroare " + std::to_string(failure.Number()) + " - " + description;
  if (description.find(where) == std::string::npos) text += " (" + where + ")";
  return text;
}

std::string ReasonText(const Failure& failure) {
  const std::string& file = CurrentSession().selectedDatabase;
  const bool namesFile = failure.Description().find(file) != std::string::npos;
  return ErrorText(failure, namesFile || failure.Source().empty() ? file : failure.Source());
}

}  // namespace tevra::batch
