#include "platform/grid/GridColumn.h"

#include <algorithm>

#include "platform/text/Dates.h"
#include "platform/text/Numbers.h"

namespace tevra {

namespace {

// A yes/no field may be read as -1 or as yes.
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

QString ShownText(const Value& value, const GridColumn& column) {
  if (value.IsNull()) return {};
  for (const auto& [entry, text] : column.list) {
    if (SameEntry(entry, value)) return text;
  }
  try {
    return QString::fromStdString(Formatted(value, column.format));
  } catch (const Failure&) {
    return QString::fromStdString(value.AsText());
  }
}

bool IsWord(const Value& value, const GridColumn& column) {
  return !value.IsNull() && (!column.list.empty() || value.GetKind() == Value::Kind::YesNo);
}

QString CellEditText(const Value& value, const GridColumn& column) {
  if (!column.list.empty() || value.IsNull()) return ShownText(value, column);
  return QString::fromStdString(Formatted(value, {}));
}

Value CellValue(const QString& typed, const GridColumn& column) {
  for (const auto& [entry, text] : column.list) {
    if (text == typed) return entry;
  }
  return typed.isEmpty() ? Value() : Value(typed.toStdString());
}

int SuitableWidth(const GridColumn& column, const FieldInfo* field) {
  constexpr int kNumber = 14;
  constexpr int kDate = 11;
  constexpr int kShortest = 6;
  constexpr int kLongest = 34;
  constexpr int kCaption = 16;  // a longer one stands in several lines
  if (column.width > 0) return column.width;
  int width = kNumber;
  if (field && field->typed) {
    switch (field->def.type) {
      case FieldType::Text:
        width = std::clamp(field->def.size, kShortest, kLongest);
        break;
      case FieldType::DateTime:
        width = kDate;
        break;
      case FieldType::YesNo:
      case FieldType::Byte:
      case FieldType::Integer:
      case FieldType::Long:
        width = kShortest;
        break;
      default:
        break;
    }
  }
  for (const auto& entry : column.list)
    width = std::max(width, static_cast<int>(entry.second.size()));
  return std::max(width, std::min(static_cast<int>(column.caption.size()) + 1, kCaption));
}

}  // namespace tevra
