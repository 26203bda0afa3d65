// The rows of a data source as a Qt model; the view reads the visible cells.
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <optional>
#include <vector>

#include "platform/forms/Adodc.h"
#include "platform/grid/GridColumn.h"

namespace tevra {

class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  void SetColumns(std::vector<GridColumn> columns);
  const std::vector<GridColumn>& Columns() const { return columns_; }
  void SetSource(Adodc* source);

  /// To be called when rows or columns have changed.
  void Reload();
  /// To be called when values of one row have changed.
  void Repaint(int row);

  bool allowUpdate = false;
  /// Takes a typed text and writes it then or a little later; false leaves the cell as it was.
  std::function<bool(int row, int column, const QString& text)> write;
  /// The field of a column; nothing when the rows do not have it.
  const FieldInfo* Field(int column) const;
  std::optional<std::size_t> FieldNumber(int column) const {
    return fields_[static_cast<std::size_t>(column)];
  }
  Qt::Alignment AlignmentOf(int column) const;
  /// The value of a cell; Null when it cannot be read.
  Value ValueOf(int row, int column) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  void ReadShape();

  std::vector<GridColumn> columns_;
  std::vector<std::optional<std::size_t>> fields_;
  Adodc* source_ = nullptr;
  int rows_ = 0;
};

}  // namespace tevra
