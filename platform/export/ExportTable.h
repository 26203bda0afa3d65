// Rows and columns on their way out of the program.
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
  /// Of the column's values, as ShownText has it.
  std::string format = {};
  FieldType type = FieldType::Text;
  Qt::Alignment alignment = Qt::AlignLeft;
  bool footed = false;    ///< its sum stands under it
  double width = 0;       ///< in characters; 0: as a sheet has it
  ValueWords words = {};  ///< shown in the place of values
};

struct ExportTable {
  QString title;
  std::vector<ExportColumn> columns;
  std::size_t rows = 0;  ///< how many will come; 0 while nobody knows
  /// Fills in the next row, a value a column; false when there is none. May throw Failure.
  std::function<bool(Values& row)> next;
};

}  // namespace tevra
