#include "platform/data/Value.h"

#include "platform/text/Dates.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

[[noreturn]] void ThrowNull() {
  throw Failure(kInvalidUseOfNull, "Invalid use of Null");
}

bool ParseYesNo(const std::string& text) {
  for (const char* yes : {"True", "Da"}) {
    if (EqualNoCase(text, yes)) return true;
  }
  for (const char* no : {"False", "Nu"}) {
    if (EqualNoCase(text, no)) return false;
  }
  return CDbl(text) != 0;
}

// Null sorts first, then numbers (including dates and yes/no), then texts.
int Rank(const Value& value) {
  return value.IsNull() ? 0 : value.IsText() ? 2 : 1;
}

}  // namespace

double Value::AsDouble() const {
  switch (GetKind()) {
    case Kind::Null:
      ThrowNull();
    case Kind::Whole:
      return static_cast<double>(std::get<std::int64_t>(v_));
    case Kind::Double:
      return std::get<double>(v_);
    case Kind::Text:
      return CDbl(Text());
    case Kind::DateTime:
      return std::get<tevra::DateTime>(v_).Serial();
    case Kind::YesNo:
      return std::get<bool>(v_) ? -1 : 0;
  }
  return 0;
}

std::int32_t Value::AsLong() const {
  return CLng(AsDouble());
}

DateTime Value::AsDateTime() const {
  switch (GetKind()) {
    case Kind::Null:
      ThrowNull();
    case Kind::Text:
      return CDate(Text());
    case Kind::DateTime:
      return std::get<tevra::DateTime>(v_);
    default:
      return tevra::DateTime::FromSerial(AsDouble());
  }
}

bool Value::AsBool() const {
  if (GetKind() == Kind::Text) return ParseYesNo(Text());
  return AsDouble() != 0;
}

std::string Value::AsText() const {
  switch (GetKind()) {
    case Kind::Null:
      ThrowNull();
    case Kind::Whole:
      return CStr(std::get<std::int64_t>(v_));
    case Kind::Double:
      return CStr(std::get<double>(v_));
    case Kind::Text:
      return Text();
    case Kind::DateTime:
      return CStr(std::get<tevra::DateTime>(v_));
    case Kind::YesNo:
      return std::get<bool>(v_) ? "True" : "False";
  }
  return {};
}

int CompareValues(const Value& a, const Value& b) {
  if (Rank(a) != Rank(b)) return Rank(a) < Rank(b) ? -1 : 1;
  if (a.IsNull()) return 0;
  if (a.IsText()) return CompareNoCase(a.Text(), b.Text());
  const double x = a.AsDouble();
  const double y = b.AsDouble();
  return x < y ? -1 : x > y ? 1 : 0;
}

}  // namespace tevra
