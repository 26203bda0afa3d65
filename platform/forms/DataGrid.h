// The list of a screen: a grid over a data source.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/forms/Adodc.h"
#include "platform/forms/GridColumn.h"

class QTableView;

namespace tevra {

class GridFooter;
class GridModel;
class GroupArea;

/// Reads from the source only the rows that are on show. The current row of grid and source are the
/// same. Numbers stand at the right.
class DataGrid : public QWidget {
  Q_OBJECT

 public:
  DataGrid(const char* name, QWidget* parent);

  void SetColumns(std::vector<GridColumn> columns);
  const std::vector<GridColumn>& Columns() const;
  void SetDataSource(Adodc* source);
  Adodc* DataSource() const { return source_; }

  /// Cells are edited in place; a changed cell is written at once. Off unless set.
  void SetAllowUpdate(bool allow);
  /// Writes what is being typed into a cell.
  void CommitEditor();
  /// Asked before a typed text is written; false takes it back. `column`: as in Columns.
  using ColumnCheck =
      std::function<bool(int column, const QString& oldText, const QString& newText)>;
  void SetBeforeColUpdate(ColumnCheck check) { beforeColUpdate_ = std::move(check); }

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
  void SetGroupText(const QString& text);
  /// The fields of the headers dragged into the group area, in their order.
  const std::vector<std::string>& GroupColumns() const { return groups_; }
  /// Puts a column into the group area, as dragging its header does.
  void AddGroupColumn(int column);
  /// Takes all columns out of the group area: the rows are a flat list.
  void ResetGroups();
  /// Tells by which fields the rows are sorted now.
  void SetSortMarks(const std::vector<std::string>& fields, bool descending);

  QTableView* View() const { return view_; }

 signals:
  void RowColChange();  ///< another current cell
  void SelChange();     ///< other rows are marked
  void GroupColMove();  ///< a header was dragged into the group area
  void SortWanted(const std::string& field, bool descending);  ///< from the grid's menu
  void CellWritten(int column);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildView();
  void BuildHeader();
  void Reload();
  void FollowSource();
  void FollowView();
  bool WriteCell(int row, int column, const QString& text);
  void MarkRows(int row, Qt::KeyboardModifiers modifiers);
  void MarkAll();
  void HoverGroup(const QPoint& globalPosition);
  void DropOnGroup(int column, const QPoint& globalPosition);
  void ShowMenu(int column, const QPoint& globalPosition);
  bool IsOverGroupArea(const QPoint& globalPosition) const;

  Adodc* source_ = nullptr;
  GridModel* model_;
  QTableView* view_;
  GroupArea* area_;
  GridFooter* footer_;
  ColumnCheck beforeColUpdate_;
  std::vector<std::string> groups_;
  int anchor_ = 0;          // the row from which Shift marks
  bool following_ = false;  // grid and source bring each other to the same row
};

}  // namespace tevra
