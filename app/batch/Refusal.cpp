#include "app/batch/Refusal.h"

#include "session/Session.h"

namespace tevra::batch {

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
