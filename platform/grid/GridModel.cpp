#include "platform/grid/GridModel.h"

namespace tevra {

void GridModel::SetColumns(std::vector<GridColumn> columns) {
  beginResetModel();
  columns_ = std::move(columns);
  ReadShape();
  endResetModel();
}

void GridModel::SetSource(Adodc* source) {
  beginResetModel();
  source_ = source;
  ReadShape();
  endResetModel();
}

void GridModel::Reload() {
  beginResetModel();
  ReadShape();
  endResetModel();
}

void GridModel::ReadShape() {
  fields_.assign(columns_.size(), std::nullopt);
  rows_ = 0;
  if (source_ && source_->Recordset().IsOpen()) {
    const Recordset& rows = source_->Recordset();
    rows_ = static_cast<int>(rows.RecordCount());
    for (std::size_t i = 0; i < columns_.size(); ++i)
      fields_[i] = rows.FindField(columns_[i].field);
  }
}

void GridModel::Repaint(int row) {
  if (row < 0 || row >= rows_) return;
  emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

const FieldInfo* GridModel::Field(int column) const {
  const auto& field = fields_[static_cast<std::size_t>(column)];
  return field ? &source_->Recordset().Field(*field) : nullptr;
}

// The view may ask for a row that was just deleted; a file that cannot be read is reported by the
// next change.
Value GridModel::ValueOf(int row, int column) const {
  const auto& field = fields_[static_cast<std::size_t>(column)];
  if (!field) return {};
  try {
    return source_->Recordset().ValueAt(static_cast<std::size_t>(row), *field);
  } catch (const Failure&) {
    return {};
  }
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

Qt::Alignment GridModel::AlignmentOf(int column) const {
  const FieldInfo* field = Field(column);
  const GridColumn& shown = columns_[static_cast<std::size_t>(column)];
  Qt::Alignment side = Qt::AlignLeft;
  if (field && shown.list.empty() && field->typed) {
    const FieldType type = field->def.type;
    if (type == FieldType::DateTime || type == FieldType::YesNo) side = Qt::AlignHCenter;
    if (type == FieldType::Byte || type == FieldType::Integer || type == FieldType::Long ||
        type == FieldType::Double) {
      side = Qt::AlignRight;
    }
  } else if (!shown.format.empty() && shown.list.empty()) {
    side = Qt::AlignRight;
  }
  return side | Qt::AlignVCenter;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const GridColumn& column = columns_[static_cast<std::size_t>(index.column())];
  switch (role) {
    case Qt::DisplayRole:
      return ShownText(ValueOf(index.row(), index.column()), column);
    case Qt::EditRole:
      return CellEditText(ValueOf(index.row(), index.column()), column);
    case Qt::TextAlignmentRole:
      return static_cast<int>(AlignmentOf(index.column()));
    default:
      return {};
  }
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !write) return false;
  const QString text = value.toString();
  if (text == data(index, Qt::EditRole).toString()) return true;
  return write(index.row(), index.column(), text);
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) return {};
  if (role == Qt::DisplayRole) return columns_[static_cast<std::size_t>(section)].caption;
  if (role == Qt::TextAlignmentRole) {
    return static_cast<int>(AlignmentOf(section)) | int{Qt::TextWordWrap};
  }
  return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  const bool writable = allowUpdate && !columns_[static_cast<std::size_t>(index.column())].readOnly;
  if (writable && Field(index.column())) flags |= Qt::ItemIsEditable;
  return flags;
}

}  // namespace tevra
