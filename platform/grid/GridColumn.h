// A column of a grid, and the texts of its values.
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/Recordset.h"
#include "platform/export/ValueText.h"

namespace tevra {

struct GridColumn {
  QString caption;
  std::string field;
  /// "Standard", "Percent", "Fixed", "dd.MM.yyyy" or a mask; empty: by the field's type (dates
  /// short, numbers with their digits).
  std::string format = {};
  /// Texts shown, and offered when editing, instead of values.
  ValueWords list = {};
  int width = 0;  ///< in characters; 0: by the field's type and size
  bool readOnly = false;
  bool visible = true;
};

/// The text of a value in a cell of the column; Null is empty. Never throws: a value that the
/// format cannot show is shown unformatted.
QString ShownText(const Value& value, const GridColumn& column);

/// A value as it is typed into the column: a number with all its digits.
QString CellEditText(const Value& value, const GridColumn& column);

/// The value of a typed text: one of the list, Null for an empty text, otherwise the text, which
/// the field converts.
Value CellValue(const QString& typed, const GridColumn& column);

/// The width in characters that suits a column's caption and field.
int SuitableWidth(const GridColumn& column, const FieldInfo* field);

}  // namespace tevra
