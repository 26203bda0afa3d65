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

/// Reads from the source only the rows that are on show. The current row of grid and source are the
/// same. Numbers stand at the right. What people do with any list (columns chosen, copied, taken to
/// a spreadsheet, printed) comes with SetTools.
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
  /// Writes what is being typed into a cell.
  void CommitTyping() override;
  /// Asked before a typed text is written; false takes it back. `column`: as in Columns.
  using ColumnCheck =
      std::function<bool(int column, const QString& oldText, const QString& newText)>;
  void SetBeforeColUpdate(ColumnCheck check) { beforeColUpdate_ = std::move(check); }
  /// Writes a changed cell in the screen's own way, such as in a transaction with checks: it calls
  /// `write`, which writes `value` into the column's field of the current row, or answers false
  /// after it told why not.
  using CellWriter =
      std::function<bool(int column, const Value& value, const std::function<void()>& write)>;
  void SetCellWriter(CellWriter writer) { writeCell_ = std::move(writer); }

  /// A row that the user goes to by mouse or keys is marked, with Shift and Ctrl for more. Off
  /// unless set; else rows are marked by the strip at their left only.
  void SetRowSelect(bool on);

  /// The menu of the list, behind the button in its corner and the right mouse button: columns
  /// shown, copy, spreadsheet, CSV, print. `key`: under which the user's columns, their widths and
  /// order are remembered; `title`: of what is printed and saved.
  void SetTools(const std::string& key, const QString& title);
  void SetPrintInfo(GridPrintInfo info) { printInfo_ = std::move(info); }
  GridPrintInfo PrintInfo() const;

  /// What the grid shows: all rows, or those marked.
  enum class Rows { kAll, kMarked };
  GridContent Content(Rows rows = Rows::kAll) const;

  /// The columns on show, from left to right.
  std::vector<int> ShownColumns() const;
  /// The current cell goes to a column on show when its own was hidden.
  void LeaveHiddenColumn();
  /// The user's arrangement of the columns goes: widths, order and columns as the screen gave them.
  void ResetColumns();

  /// Runs the source's statement anew and goes back to where the user was: to the row with the same
  /// value in `keyField`, a whole number or a text, else to the same place, sorted as before.
  /// Throws Failure.
  void RefreshInPlace(const std::string& keyField);

  /// The text shown in a column of the current row; empty without one.
  std::string ColumnText(int column) const;
  /// The number of the column with that field, without case. Throws Failure 3265.
  int ColumnOf(const std::string& field) const;

  /// The rows that the user marked (by the strip at their left, with Shift and Ctrl for more, or
  /// Ctrl+A), as places in the recordset, ascending.
  std::vector<std::size_t> SelectedRows() const;

  /// The text under a column; the strip of footers shows once one is set.
  void SetFooter(const std::string& field, const QString& text);
  QString Footer(const std::string& field) const;

  /// The area above the headers into which a header can be dragged.
  void SetGroupArea(bool shown);
  bool HasGroupArea() const;
  void SetGroupText(const QString& text);
  /// The fields of the headers dragged into the group area, in their order.
  const std::vector<std::string>& GroupColumns() const { return groups_; }
  /// Puts a column into the group area, as dragging its header does.
  void AddGroupColumn(int column);
  /// Takes all columns out of the group area: the rows are a flat list.
  void ResetGroups();
  /// Tells by which fields the rows are sorted now.
  void SetSortMarks(const std::vector<std::string>& fields, bool descending);
  /// By which columns the rows are sorted; empty in the statement's order.
  const std::vector<std::string>& SortFields() const { return sorted_; }

  QTableView* View() const { return view_; }

 signals:
  void RowColChange();  ///< another current cell
  void SelChange();     ///< other rows are marked
  void GroupColMove();  ///< a header was dragged into the group area
  /// From the grid's menu; no field: in the statement's order again.
  void SortWanted(const std::string& field, bool descending);
  void CellWritten(int column);
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
  int anchor_ = 0;  // the row from which Shift marks
  bool rowSelect_ = false;
  bool sized_ = false;      // the columns' widths were given by what their fields are
  bool following_ = false;  // grid and source bring each other to the same row
};

}  // namespace tevra
