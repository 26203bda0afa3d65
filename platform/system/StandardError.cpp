#include "platform/system/StandardError.h"

#include "platform/system/MessageBox.h"

namespace tevra {

std::string StandardErrorText(const Failure& failure, const Procedure& procedure) {
  return "Eroare " + std::to_string(failure.Number()) + " - " + failure.Description() +
         " in procedura " + procedure.name + " din " + procedure.kind + " " + procedure.module +
         " Linia: " + std::to_string(procedure.line);
}

void ShowStandardError(const Failure& failure, const Procedure& procedure) {
  ShowMessage({StandardErrorText(failure, procedure), kCritical, {}, {}});
}

}  // namespace tevra
