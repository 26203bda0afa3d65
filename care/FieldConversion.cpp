#include "care/FieldConversion.h"

#include <cmath>

#include "platform/data/RowReader.h"
#include "platform/text/FailureText.h"

namespace tevra {

namespace {

bool IsNumber(FieldType type) {
  return type == FieldType::Byte || type == FieldType::Integer || type == FieldType::Long ||
         type == FieldType::Double;
}

// A moment is kept to the second.
bool SameDay(double a, double b) {
  constexpr double kHalfSecond = 0.5 / 86400;
  return std::abs(a - b) <= kHalfSecond;
}

bool SameContent(const Value& before, const Value& after, FieldType type) {
  if (type == FieldType::YesNo) {
    if (before.IsText()) return true;  // "Da", "True": AsBool has read it
    const double number = before.AsDouble();
    return number == 0 || number == -1 || number == 1;
  }
  if (IsNumber(type)) return before.AsDouble() == after.AsDouble();
  if (type == FieldType::DateTime) {
    return before.IsText() || SameDay(before.AsDouble(), after.AsDouble());
  }
  switch (before.GetKind()) {
    case Value::Kind::Whole:
    case Value::Kind::Double:
      return after.AsDouble() == before.AsDouble();
    case Value::Kind::DateTime:
      return after.AsDateTime() == before.AsDateTime();
    default:
      return true;
  }
}

}  // namespace

bool Converts(const Value& value, const FieldDef& to) {
  if (value.IsNull()) return !to.required || to.type == FieldType::YesNo;
  try {
    if (to.type == FieldType::Text && !to.allowZeroLength && value.TextOrEmpty().empty()) {
      return false;
    }
    return SameContent(value, ConvertToField(value, to), to.type);
  } catch (const Failure&) {
    return false;
  }
}

std::optional<Failure> FirstObstacle(Connection& file, const std::string& table,
                                     const FieldDef& from, const FieldDef& to) {
  RowReader rows(file, "SELECT [" + from.name + "] FROM [" + table + "]");
  while (rows.Next()) {
    const Value value = rows.Get(0);
    if (Converts(value, to)) continue;
    const std::string what = table + "." + from.name + ": ";
    if (value.IsNull()) return Failure(kValueNotAccepted, what + "valoarea este obligatorie");
    const Failure described = ValueFailure(kTypeMismatch, value.TextOrEmpty());
    return Failure(kTypeMismatch, what + described.Description());
  }
  return std::nullopt;
}

}  // namespace tevra
