#include "platform/data/CsvCell.h"

#include <charconv>
#include <iterator>

#include "platform/text/Csv.h"

namespace tevra {

namespace {

// In full, never as 3e+05: a spreadsheet or a script may take that for a text.
std::string Invariant(double number) {
  char text[400];  // more than the smallest and the greatest number take
  // Adding 0 turns -0 into 0.
  const auto [end, error] =
      std::to_chars(std::begin(text), std::end(text), number + 0.0, std::chars_format::fixed);
  return {text, end};
}

}  // namespace

std::string CsvCellOf(const Value& value) {
  constexpr std::size_t kDay = 10;
  switch (value.GetKind()) {
    case Value::Kind::Null:
      return {};
    case Value::Kind::Double:
      return Invariant(value.AsDouble());
    case Value::Kind::DateTime: {
      const DateTime date = value.AsDateTime();
      return date == date.Midnight() ? date.Iso().substr(0, kDay) : date.Iso();
    }
    default:
      return CsvText(value.AsText());
  }
}

}  // namespace tevra
