#include "inventory/ObjectCard.h"

#include <cmath>

#include "accounting/Note.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"

namespace tevra {

std::optional<ObjectRefusal> RefusalToSave(const ObjectCard& card) {
  using Box = ObjectRefusal::Box;
  const Value& lei = card.number[object::kValue];
  const Value& foreign = card.number[object::kForeignValue];
  if (lei.IsNull() && foreign.IsNull()) {
    return ObjectRefusal{"Completati valoarea de cumparare a obiectului!", kCritical};
  }
  if (lei.IsText()) {
    return ObjectRefusal{
        "Valoarea de cumparare(lei) a obiectului trebuie sa fie o valoare numerica!", kCritical,
        Box::kValue};
  }
  if (foreign.IsText()) {
    return ObjectRefusal{
        "Valoarea de cumparare(valuta) a obiectului trebuie sa fie o valoare numerica!", kCritical,
        Box::kForeignValue};
  }
  if (!lei.IsNull() && std::abs(lei.AsDouble()) >= kAmountLimit) {
    return ObjectRefusal{TooLargeText("Valoarea de cumparare(lei)"), kCritical, Box::kValue};
  }
  if (card.vat.empty()) {
    return ObjectRefusal{"Va rog introduceti TVA!", kInformation, Box::kVat};
  }
  return std::nullopt;
}

std::optional<double> ForeignValue(const Value& lei, const Value& rate) {
  const bool numbers = !lei.IsNull() && !lei.IsText() && !rate.IsNull() && !rate.IsText();
  if (!numbers || rate.AsDouble() == 0) return std::nullopt;
  return RoundTo(lei.AsDouble() / rate.AsDouble(), 3);
}

double NumberOrZero(const ObjectCard& card, object::Number box) {
  const Value& number = card.number[box];
  return number.IsNull() ? 0 : number.AsDouble();
}

}  // namespace tevra
