#include "platform/export/ValueText.h"

#include "platform/text/Dates.h"
#include "platform/text/Failure.h"
#include "platform/text/Numbers.h"

namespace tevra {

namespace {

// The value of a yes/no field may be -1 or yes.
bool SameEntry(const Value& a, const Value& b) {
  if (a.IsText() || b.IsText()) return a.IsText() && b.IsText() && a == b;
  return a.AsDouble() == b.AsDouble();
}

std::string Formatted(const Value& value, const std::string& format) {
  switch (value.GetKind()) {
    case Value::Kind::DateTime:
      return format.empty() ? CStr(value.AsDateTime()) : Format(value.AsDateTime(), format);
    case Value::Kind::Whole:
    case Value::Kind::Double:
      return format.empty() ? value.AsText() : Format(value.AsDouble(), format);
    case Value::Kind::YesNo:
      return value.AsBool() ? "Da" : "Nu";
    default:
      return value.AsText();
  }
}

}  // namespace

QString ShownText(const Value& value, const std::string& format, const ValueWords& words) {
  if (value.IsNull()) return {};
  for (const auto& [entry, text] : words) {
    if (SameEntry(entry, value)) return text;
  }
  try {
    return QString::fromStdString(Formatted(value, format));
  } catch (const Failure&) {
    return QString::fromStdString(value.AsText());
  }
}

bool IsWord(const Value& value, const ValueWords& words) {
  return !value.IsNull() && (!words.empty() || value.GetKind() == Value::Kind::YesNo);
}

}  // namespace tevra
