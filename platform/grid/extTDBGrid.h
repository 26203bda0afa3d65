// Sorts a list when a header is dragged into the group area of its grid.
#pragma once

#include <QObject>
#include <QPointer>
#include <string>

#include "platform/grid/DataGrid.h"

namespace tevra {

/// An invisible control of the form.
class extTDBGrid : public QObject {
  Q_OBJECT

 public:
  explicit extTDBGrid(QWidget* form);

  /// 0 no sorting, 1 ascending, 2 descending.
  long SortType() const { return sortType_; }
  void SetSortType(long type) { sortType_ = type; }

  /// Finds the grid among the form's controls by its name and attaches to it; the empty name has no
  /// effect.
  void SetTDBGridName(const std::string& name);
  const std::string& TDBGridName() const { return name_; }

  void SetTDBGrid(DataGrid* grid);
  DataGrid* TDBGrid() const { return grid_; }

  /// Sorts the grid's rows by the columns in its group area and removes them from it; if there are
  /// none, by the current sort columns again. Without a grid and with SortType 0 it has no effect.
  /// Throws Failure.
  void Sort();

 private:
  void DataGrid_GroupColMove();
  void SortBy(const std::vector<std::string>& fields, bool descending);

  long sortType_ = 1;
  std::string name_;
  QPointer<DataGrid> grid_;
};

}  // namespace tevra
