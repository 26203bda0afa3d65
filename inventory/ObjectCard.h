// The contents of the card of an inventory object, and what the card derives from them.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "platform/data/Value.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// The places of the card's boxes in its arrays.
namespace object {

/// Of txtText. Where a combo gives the value, the box is hidden and holds the code.
enum Text : std::size_t {
  kCode,
  kCentre,
  kName,
  kLocation,
  kDocument,
  kSupplier,
  kVat,
  kAccount,
  kRemarks,
  kPerson,
  kUnused,  ///< hidden and without a field
  kTexts
};

/// Of txtNumar: lei, lei for one unit of the currency, the value in currency.
enum Number : std::size_t { kValue, kRate, kForeignValue, kNumbers };

/// Of DTPicker1.
enum Date : std::size_t { kBought, kInService, kLeft, kDates };

}  // namespace object

struct ObjectCard {
  std::array<std::string, object::kTexts> text;  ///< txtText
  /// txtNumar: the number with all digits, Null for an empty box, the text when it is no number.
  std::array<Value, object::kNumbers> number;
  std::array<DateTime, object::kDates> date;  ///< DTPicker1
  bool scrapped = false;                      ///< chKCasare
  std::string vat;                            ///< the text of cboTVA: account, "-" and percentage
};

/// Why something is not done, and the box to correct.
struct ObjectRefusal {
  enum class Box { kNone, kValue, kForeignValue, kVat, kInService };
  std::string message;
  long icon = 0;  ///< of MessageButtons
  Box box = Box::kNone;
};

/// Why the card may not be saved; nothing when it may.
std::optional<ObjectRefusal> RefusalToSave(const ObjectCard& card);

/// The value in currency, with 3 decimals. Nothing unless both are numbers and the rate is not 0.
std::optional<double> ForeignValue(const Value& lei, const Value& rate);

/// The number in a box; 0 when it is empty. Throws Failure 13 when it is no number.
double NumberOrZero(const ObjectCard& card, object::Number box);

}  // namespace tevra
