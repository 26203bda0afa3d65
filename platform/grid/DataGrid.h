// The list of a screen: a grid over a data source.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/forms/Adodc.h"
#include "platform/forms/Form.h"
#include "platform/grid/GridColumn.h"
#include "platform/grid/GridContent.h"
#include "platform/grid/GridPrint.h"

class QMenu;
class QTableView;

namespace tevra {

class GridFooter;
class GridModel;
class GridTools;
class GroupArea;

/// Reads only the visible rows from the source. Grid and source have the same current row. Numbers
/// are right-aligned. SetTools adds the commands of all lists (columns, copy, spreadsheet, print).
class DataGrid : public QWidget, public KeepsTyping {
  Q_OBJECT

 public:
  DataGrid(const char* name, QWidget* parent);
  ~DataGrid() override;

  void SetColumns(std::vector<GridColumn> columns);
  const std::vector<GridColumn>& Columns() const;
  void SetDataSource(Adodc* source);
  Adodc* DataSource() const { return source_; }

  /// Cells are edited in place, from F2, Enter or a double click on; a changed cell is written at
  /// once. Off unless set.
  void SetAllowUpdate(bool allow);
  /// Writes the cell being edited.
  void CommitTyping() override;
  /// Called before a typed text is written; false restores the old text. `column`: as in Columns.
  using ColumnCheck =
      std::function<bool(int column, const QString& oldText, const QString& newText)>;
  void SetBeforeColUpdate(ColumnCheck check) { beforeColUpdate_ = std::move(check); }
  /// Writes a changed cell in the screen's own way, such as in a transaction with checks: it calls
  /// `write`, which writes `value` into the column's field of the current row, or answers false
  /// after it told why not.
  using CellWriter =
      std::function<bool(int column, const Value& value, const std::function<void()>& write)>;
  void SetCellWriter(CellWriter writer) { writeCell_ = std::move(writer); }

  /// Selects the row to which the user moves by mouse or keys, with Shift and Ctrl for more. Off by
  /// default; rows are then selected only by the strip at their left.
  void SetRowSelect(bool on);

  /// Adds the menu of the list, opened by the button in its corner and the right mouse button:
  /// columns, copy, spreadsheet, CSV, print. `key`: the setting with the user's columns, their
  /// widths and order; `title`: of printed and saved lists.
  void SetTools(const std::string& key, const QString& title);
  void SetPrintInfo(GridPrintInfo info) { printInfo_ = std::move(info); }
  GridPrintInfo PrintInfo() const;

  /// A copy of what the grid shows: all rows, or the selected ones.
  enum class Rows { kAll, kMarked };
  GridContent Content(Rows rows = Rows::kAll) const;

  /// The visible columns, from left to right.
  std::vector<int> ShownColumns() const;
  /// Moves the current cell to a visible column when its own was hidden.
  void LeaveHiddenColumn();
  /// Restores the screen's own columns, order and widths.
  void ResetColumns();

  /// Runs the source's statement anew and goes back to where the user was: to the row with the same
  /// value in `keyField`, a whole number or a text, else to the same place, sorted as before.
  /// Throws Failure.
  void RefreshInPlace(const std::string& keyField);

  /// The text shown in a column of the current row; empty without one.
  std::string ColumnText(int column) const;
  /// The number of the column with that field, without case. Throws Failure 3265.
  int ColumnOf(const std::string& field) const;

  /// The rows that the user selected (by the strip at their left, with Shift and Ctrl for more, or
  /// Ctrl+A), as places in the recordset, ascending.
  std::vector<std::size_t> SelectedRows() const;

  /// The text below a column; the strip of footers is visible once one is set.
  void SetFooter(const std::string& field, const QString& text);
  QString Footer(const std::string& field) const;

  /// The area above the headers into which a header can be dragged.
  void SetGroupArea(bool shown);
  bool HasGroupArea() const;
  void SetGroupText(const QString& text);
  /// The fields of the headers dragged into the group area, in their order.
  const std::vector<std::string>& GroupColumns() const { return groups_; }
  /// Adds a column to the group area, like dragging its header.
  void AddGroupColumn(int column);
  /// Removes all columns from the group area.
  void ResetGroups();
  /// Sets the fields by which the rows are sorted, for display.
  void SetSortMarks(const std::vector<std::string>& fields, bool descending);
  /// The columns by which the rows are sorted; empty for the statement's order.
  const std::vector<std::string>& SortFields() const { return sorted_; }

  QTableView* View() const { return view_; }

 signals:
  void RowColChange();  ///< another current cell
  void SelChange();     ///< the selection changed
  void GroupColMove();  ///< a header was dragged into the group area
  /// From the grid's menu; an empty field restores the statement's order.
  void SortWanted(const std::string& field, bool descending);
  /// The menu of the current row is about to show: the screen adds what it does with a row.
  void RowMenu(QMenu* menu);

 protected:
  void hideEvent(QHideEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildView();
  void BuildHeader();
  void Reload();
  void FollowRows();
  void FollowSource();
  void GoTo(int row, int column);
  void FollowView();
  bool WriteCell(int row, int column, const QString& text);
  bool TryToWrite(int row, int column, const QString& text);
  bool EditCurrent();
  void MarkRows(int row, Qt::KeyboardModifiers modifiers);
  void MarkAll();
  void MarkCurrent();
  void HoverGroup(const QPoint& globalPosition);
  void DropOnGroup(int column, const QPoint& globalPosition);
  bool IsOverGroupArea(const QPoint& globalPosition) const;

  Adodc* source_ = nullptr;
  GridModel* model_;
  QTableView* view_;
  GroupArea* area_;
  GridFooter* footer_;
  ColumnCheck beforeColUpdate_;
  CellWriter writeCell_;
  std::vector<std::string> groups_;
  std::vector<std::string> sorted_;
  GridPrintInfo printInfo_;
  std::unique_ptr<GridTools> tools_;
  int anchor_ = 0;  // the row from which Shift selects
  bool rowSelect_ = false;
  bool sized_ = false;      // the widths were set from the fields
  bool following_ = false;  // grid and source are being moved to the same row
};

}  // namespace tevra
