#include "platform/data/FieldType.h"

#include <charconv>
#include <cmath>

#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

struct DeclaredName {
  FieldType type;
  const char* name;
  int size;
};

constexpr DeclaredName kDeclaredNames[] = {
    {FieldType::YesNo, "YESNO", 1},      {FieldType::Byte, "TINYINT", 1},
    {FieldType::Integer, "SMALLINT", 2}, {FieldType::Long, "INTEGER", 4},
    {FieldType::Double, "DOUBLE", 8},    {FieldType::DateTime, "DATETIME", 8},
};

void CheckText(const std::string& text, const FieldDef& field) {
  if (!IsValidUtf8(text)) {
    throw Failure(kValueNotAccepted, "Valoare neacceptata: " + field.name + ": nu este un text");
  }
  const auto longest = static_cast<std::size_t>(field.size);
  if (text.size() <= longest) return;
  const std::size_t length = Len(text);
  if (length > longest) {
    throw Failure(kValueNotAccepted, "Valoare neacceptata: " + field.name + ": " +
                                         std::to_string(length) + " caractere, cel mult " +
                                         std::to_string(field.size));
  }
}

Value ConvertText(const Value& value, const FieldDef& field) {
  if (value.IsText()) {
    CheckText(value.Text(), field);
    return value;
  }
  std::string text = value.AsText();
  CheckText(text, field);
  return text;
}

Value ConvertNotNull(const Value& value, const FieldDef& field) {
  switch (field.type) {
    case FieldType::YesNo:
      return Value::YesNo(value.AsBool());
    case FieldType::Byte:
      return static_cast<int>(CByte(value.AsDouble()));
    case FieldType::Integer:
      return static_cast<int>(CInt(value.AsDouble()));
    case FieldType::Long:
      return CLng(value.AsDouble());
    case FieldType::Double: {
      const double number = value.AsDouble();
      if (!std::isfinite(number)) throw Failure(kOverflow, "Overflow");
      return number;
    }
    case FieldType::DateTime:
      return value.AsDateTime();
    case FieldType::Text:
      return ConvertText(value, field);
  }
  return {};
}

}  // namespace

int SizeOf(FieldType type) {
  for (const auto& declared : kDeclaredNames) {
    if (declared.type == type) return declared.size;
  }
  return 255;
}

std::string DeclaredType(const FieldDef& field) {
  for (const auto& declared : kDeclaredNames) {
    if (declared.type == field.type) return declared.name;
  }
  return "TEXT(" + std::to_string(field.size) + ")";
}

bool ParseDeclaredType(const std::string& declared, FieldDef& field) {
  for (const auto& known : kDeclaredNames) {
    if (EqualNoCase(declared, known.name)) {
      field.type = known.type;
      field.size = known.size;
      return true;
    }
  }
  if (declared.size() < 7 || !EqualNoCase(std::string_view(declared).substr(0, 5), "TEXT(")) {
    return false;
  }
  const char* end = declared.data() + declared.size() - 1;
  int size = 0;
  const auto [last, error] = std::from_chars(declared.data() + 5, end, size);
  if (error != std::errc() || last != end || *end != ')' || size < 1) return false;
  field.type = FieldType::Text;
  field.size = size;
  return true;
}

Value ConvertToField(const Value& value, const FieldDef& field) {
  if (value.IsNull()) return value;
  try {
    return ConvertNotNull(value, field);
  } catch (const Failure& failure) {
    if (failure.Number() == kValueNotAccepted) throw;
    throw Failure(failure.Number(), field.name + ": " + failure.Description());
  }
}

}  // namespace tevra
