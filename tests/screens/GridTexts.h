// What a grid shows.
#pragma once

#include <QTableView>
#include <string>

#include "platform/grid/DataGrid.h"

namespace tevra::test {

// The texts of a column, each with a semicolon behind it.
inline std::string ColumnTexts(const DataGrid& grid, const char* field) {
  const int column = grid.ColumnOf(field);
  std::string texts;
  for (int row = 0; row < grid.View()->model()->rowCount(); ++row) {
    texts += grid.View()->model()->index(row, column).data().toString().toStdString() + ";";
  }
  return texts;
}

}  // namespace tevra::test
