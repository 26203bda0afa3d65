// The selected rows of a grid, copies of its content, and the return to the user's place after a
// refresh.
#include <QHeaderView>
#include <QTableView>
#include <algorithm>

#include "platform/grid/DataGrid.h"
#include "platform/grid/GridFooter.h"
#include "platform/grid/GridModel.h"

namespace tevra {

void DataGrid::SetRowSelect(bool on) {
  rowSelect_ = on;
  view_->setSelectionBehavior(on ? QAbstractItemView::SelectRows : QAbstractItemView::SelectItems);
  view_->setSelectionMode(on ? QAbstractItemView::ExtendedSelection
                             : QAbstractItemView::NoSelection);
}

void DataGrid::MarkRows(int row, Qt::KeyboardModifiers modifiers) {
  QItemSelectionModel* selection = view_->selectionModel();
  const bool further = modifiers & Qt::ShiftModifier;
  const bool toggled = modifiers & Qt::ControlModifier;
  // The view's own keys extend the selection from here.
  if (rowSelect_ && !further && !toggled) view_->selectRow(row);
  if (!further) anchor_ = row;
  const QItemSelection rows(model_->index(std::min(anchor_, row), 0),
                            model_->index(std::max(anchor_, row), model_->columnCount() - 1));
  selection->select(rows, toggled
                              ? further ? QItemSelectionModel::Select : QItemSelectionModel::Toggle
                              : QItemSelectionModel::ClearAndSelect);
  const int column = std::max(view_->currentIndex().column(), 0);
  selection->setCurrentIndex(model_->index(row, column), QItemSelectionModel::NoUpdate);
  view_->setFocus();
}

void DataGrid::MarkCurrent() {
  const QModelIndex current = view_->currentIndex();
  if (!current.isValid()) return;
  view_->selectRow(current.row());
  view_->selectionModel()->select(current,
                                  QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  view_->selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
}

void DataGrid::MarkAll() {
  if (model_->rowCount() == 0) return;
  view_->selectionModel()->select(
      QItemSelection(model_->index(0, 0),
                     model_->index(model_->rowCount() - 1, model_->columnCount() - 1)),
      QItemSelectionModel::ClearAndSelect);
}

std::vector<std::size_t> DataGrid::SelectedRows() const {
  std::vector<std::size_t> rows;
  for (const QItemSelectionRange& range : view_->selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      rows.push_back(static_cast<std::size_t>(row));
    }
  }
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

// A copy with its own position, so that the grid can be used while the copy is read.
GridContent DataGrid::Content(Rows rows) const {
  std::vector<GridContent::Column> columns;
  for (const int i : ShownColumns()) {
    const GridColumn& shown = Columns()[static_cast<std::size_t>(i)];
    GridContent::Column column;
    column.shown = shown;
    column.field = model_->FieldNumber(i);
    if (const FieldInfo* field = model_->Field(i)) column.type = field->def.type;
    column.alignment = model_->AlignmentOf(i);
    column.width = view_->columnWidth(i);
    column.footed = footer_->Has(i);
    column.footer = footer_->Text(i);
    columns.push_back(column);
  }
  Recordset copy;
  if (source_ && source_->Recordset().IsOpen()) copy = source_->Recordset().Clone();
  if (rows == Rows::kAll) return {copy, std::move(columns)};
  return {copy, std::move(columns), SelectedRows()};
}

GridPrintInfo DataGrid::PrintInfo() const {
  GridPrintInfo info = printInfo_;
  if (!info.paperKind.empty()) return info;
  const QWidget* screen = parentWidget();
  while (screen && !qobject_cast<const Form*>(screen)) screen = screen->parentWidget();
  if (screen) info.paperKind = screen->objectName().toStdString() + ".";
  info.paperKind += objectName().toStdString();
  return info;
}

std::vector<int> DataGrid::ShownColumns() const {
  const QHeaderView* header = view_->horizontalHeader();
  std::vector<int> columns;
  for (int visual = 0; visual < header->count(); ++visual) {
    const int column = header->logicalIndex(visual);
    if (!header->isSectionHidden(column)) columns.push_back(column);
  }
  return columns;
}

namespace {

// A value as criteria spell it; a quote in a text is doubled.
std::string Literal(const Value& value) {
  if (!value.IsText()) return value.AsText();
  std::string quoted = "'";
  for (const char c : value.AsText()) quoted += c == '\'' ? std::string("''") : std::string(1, c);
  return quoted + "'";
}

}  // namespace

void DataGrid::RefreshInPlace(const std::string& keyField) {
  const Recordset& before = source_->Recordset();
  const bool stood = source_->HasRow();
  const Value key = stood ? before.Get(keyField) : Value();
  const std::size_t place = stood ? before.Position() : 0;
  const std::string sort = before.IsOpen() ? before.Sort() : std::string();
  source_->Refresh([&](Recordset& rows) {
    if (!sort.empty()) rows.SetSort(sort);
    if (!stood || rows.RecordCount() == 0) return;
    rows.MoveFirst();
    if (!key.IsNull()) rows.Find("[" + keyField + "] = " + Literal(key));
    if (key.IsNull() || rows.Eof()) rows.SetPosition(std::min(place, rows.RecordCount() - 1));
  });
}

}  // namespace tevra
