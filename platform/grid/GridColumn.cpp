#include "platform/grid/GridColumn.h"

#include <algorithm>

namespace tevra {

QString ShownText(const Value& value, const GridColumn& column) {
  return ShownText(value, column.format, column.list);
}

QString CellEditText(const Value& value, const GridColumn& column) {
  if (!column.list.empty() || value.IsNull()) return ShownText(value, column);
  return ShownText(value, std::string());
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
  constexpr int kCaption = 16;  // a longer one takes several lines
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
