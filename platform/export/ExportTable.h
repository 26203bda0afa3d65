// The rows and columns that are exported to a file.
#pragma once

#include <QString>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "platform/data/FieldType.h"
#include "platform/data/Value.h"
#include "platform/export/ValueText.h"

namespace tevra {

struct ExportColumn {
  QString caption;
  /// The format of the column's values, as for ShownText.
  std::string format = {};
  FieldType type = FieldType::Text;
  Qt::Alignment alignment = Qt::AlignLeft;
  bool footed = false;    ///< has its sum below it
  double width = 0;       ///< in characters; 0: the sheet's default
  ValueWords words = {};  ///< shown instead of values
  Value below = {};       ///< stands below the column instead of its sum; Null for none
};

struct ExportTable {
  QString title;
  std::vector<ExportColumn> columns;
  std::size_t rows = 0;  ///< the number of rows; 0 when it is unknown
  /// Fills in the next row, one value for each column; false when there is none. May throw Failure.
  std::function<bool(Values& row)> next;
};

}  // namespace tevra
