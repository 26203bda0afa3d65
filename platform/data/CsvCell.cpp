#include "platform/data/CsvCell.h"

#include <charconv>
#include <iterator>

#include "platform/text/Csv.h"

namespace tevra {

namespace {

std::string Invariant(double number) {
  char text[32];
  // Adding 0 takes the sign from a negative zero.
  const auto [end, error] = std::to_chars(std::begin(text), std::end(text), number + 0.0);
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
