// The companion of a list: a header dragged into the group area of the grid sorts the list.
#pragma once

#include <QObject>
#include <QPointer>
#include <string>

#include "platform/grid/DataGrid.h"

namespace tevra {

/// Invisible; lives on the form beside the grid.
class extTDBGrid : public QObject {
  Q_OBJECT

 public:
  explicit extTDBGrid(QWidget* form);

  /// 0 no sorting, 1 ascending, 2 descending.
  long SortType() const { return sortType_; }
  void SetSortType(long type) { sortType_ = type; }

  /// Looks the grid up among the form's controls by its name and attaches to it; the empty name
  /// does nothing.
  void SetTDBGridName(const std::string& name);
  const std::string& TDBGridName() const { return name_; }

  void SetTDBGrid(DataGrid* grid);
  DataGrid* TDBGrid() const { return grid_; }

  /// Sorts the grid's rows by the columns in its group area and takes them out of it; without any
  /// there, anew by those that it is sorted by. Nothing happens without a grid or with SortType 0.
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
