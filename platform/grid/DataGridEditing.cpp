// How a grid's cells are edited in place.
#include <QPersistentModelIndex>
#include <QTableView>

#include "platform/grid/DataGrid.h"
#include "platform/grid/GridModel.h"
#include "platform/system/MessageBox.h"
#include "platform/system/StandardError.h"

namespace tevra {

void DataGrid::SetAllowUpdate(bool allow) {
  model_->allowUpdate = allow;
  view_->setEditTriggers(allow
                             ? QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                             : QAbstractItemView::NoEditTriggers);
}

// The click that ended the editing may have gone to another row by now.
bool DataGrid::WriteCell(int row, int column, const QString& text) {
  if (!source_ || row >= model_->rowCount()) return false;
  const QPersistentModelIndex went = view_->currentIndex();
  const bool elsewhere = went.isValid() && went.row() != row;
  if (elsewhere) GoTo(row, column);
  const bool written = TryToWrite(row, column, text);
  if (elsewhere && went.isValid()) GoTo(went.row(), went.column());
  return written;
}

bool DataGrid::TryToWrite(int row, int column, const QString& text) {
  const GridColumn& shown = Columns()[static_cast<std::size_t>(column)];
  const QString before = model_->index(row, column).data().toString();
  if (beforeColUpdate_ && !beforeColUpdate_(column, before, text)) return false;
  Recordset& rows = source_->Recordset();
  try {
    rows.SetPosition(static_cast<std::size_t>(row));
    const Value value = CellValue(text, shown);
    const auto write = [&] {
      rows.Set(shown.field, value);
      rows.Update();
    };
    if (!writeCell_) {
      write();
    } else if (!writeCell_(column, value, write)) {
      return false;
    }
  } catch (const std::exception&) {
    const Failure failure = CaughtFailure();
    rows.CancelUpdate();
    ShowMessage({ShortErrorText(failure), kCritical, {}, {}});
    return false;
  }
  source_->NotifyRow();
  return true;
}

// F2 and a double click begin it too, as the view has it.
bool DataGrid::EditCurrent() {
  const QModelIndex current = view_->currentIndex();
  if (!view_->hasFocus() || !(model_->flags(current) & Qt::ItemIsEditable)) return false;
  view_->edit(current);
  return true;
}

void DataGrid::CommitTyping() {
  for (QWidget* editor :
       view_->viewport()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (!editor->isVisible()) continue;
    emit view_->itemDelegate()->commitData(editor);
    emit view_->itemDelegate()->closeEditor(editor);
  }
}

}  // namespace tevra
