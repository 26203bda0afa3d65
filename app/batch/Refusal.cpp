#include "app/batch/Refusal.h"

namespace tevra::batch {

std::string ErrorText(const Failure& failure, const std::string& where) {
  const std::string description = failure.Description();
  std::string text = "Eroare " + std::to_string(failure.Number()) + " - " + description;
  if (description.find(where) == std::string::npos) text += " (" + where + ")";
  return text;
}

}  // namespace tevra::batch
