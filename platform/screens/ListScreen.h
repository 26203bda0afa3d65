// The pattern of a list: rows of a statement in a grid, with search, sort, count, totals, listing
// and a row of buttons. A screen describes itself as data; its buttons have handlers.
#pragma once

#include <QLabel>
#include <QToolButton>
#include <list>
#include <string>
#include <vector>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/grid/DataGrid.h"
#include "platform/grid/extTDBGrid.h"
#include "platform/screens/ListDescription.h"
#include "platform/system/MessageBox.h"

class QMenu;

namespace tevra {

/// A screen derives from this class and calls Open at the end of its constructor. Controls that the
/// description does not ask for remain nullptr.
///
///   class frmThings : public ListScreen {
///    public:
///     explicit frmThings(QWidget* parent = nullptr) : ListScreen("frmThings", "Things", parent) {
///       ListDescription list;
///       list.connection = CurrentSession().connectionString;
///       list.statement = "select * from THINGS order by ID";
///       list.columns = {{"Id", "ID"}, {"Value", "VALUE", "Standard"}};
///       list.buttons = {{&cmdClose, "cmdClose", "Iesire", "Inchidere fereastra", {},
///                        ListButton::Role::kClose}};
///       Open(std::move(list));
///     }
///     QPushButton* cmdClose;
///   };
class ListScreen : public Form {
 public:
  ~ListScreen() override;

  Adodc* datPrimaryRS = nullptr;
  tevra::extTDBGrid* extTDBGrid = nullptr;
  TextBox* txtCautare = nullptr;
  QPushButton* cmdCauta = nullptr;
  QToolButton* cmdUp = nullptr;
  QToolButton* cmdDown = nullptr;
  QLabel* lblRecCount = nullptr;
  QWidget* picButtons = nullptr;

 protected:
  ListScreen(const char* name, const QString& caption, QWidget* parent);

  /// Builds the screen, connects its controls and reads the rows. When the reading fails, shows the
  /// message of the procedure "Form_Load".
  void Open(ListDescription description);

  DataGrid* Grid() const { return grid_; }
  const ListDescription& Description() const { return list_; }

  // A screen may override these.

  /// Gives the data source its rows; unless overridden, by the description's statement. A list with
  /// totals must not override it, because the totals are added up while the rows are read.
  virtual void ReadRows();
  /// Adds one row to the totals of the marked rows. Null counts as 0.
  virtual void AddToTotals(std::vector<double>& totals, const Values& row) const;
  /// Called when other rows are marked. `key`: the key of the row that the user moved to last.
  virtual void RowSelected(const std::string& /*key*/) {}
  /// Called after a search, whether it found rows or not.
  virtual void Searched() {}
  virtual void ShowCount();

  // The steps of most lists' buttons.

  /// Marks the boxes above the list as saved, so that the screen closes without a question about
  /// them.
  void MarkBoxesSaved();
  /// Adds a row with these fields and moves to it. Throws Failure and then adds no row.
  void AddRow(const std::vector<std::pair<std::string, Value>>& fields);
  /// Asks before a deletion, with "Nu" as the default button; true when the answer is "Da".
  /// `icon`: kQuestion or 0.
  bool AskToDelete(const std::string& question, long icon = kQuestion) const;
  /// Asks, calls `remove` with the key of the current row and reads the rows again. Does nothing
  /// when there is no current row.
  void DeleteRow(Procedure& running, const std::string& question, long icon,
                 const std::function<void(const Value& key)>& remove);
  /// Moves the list to the recordset's current row after a row was deleted.
  void ShowWithoutDeleted();
  /// Shows the totals of the marked rows, then the page set-up and the preview of these rows.
  void ListMarked(Procedure& running);
  virtual void cmdCauta_Click(Procedure& running);

  /// Reads the rows again and keeps the user's current row.
  virtual void RefreshInPlace();
  std::vector<std::string> TotalledFields() const;
  std::vector<double> TotalsOfRows() const;
  std::vector<double> TotalsOfMarked() const;
  void ShowTotals(const std::vector<double>& totals);
  void ShowTotalsOfMarked();
  /// The text of a column of the current row.
  std::string Text(const char* field) const { return grid_->ColumnText(grid_->ColumnOf(field)); }

  void Form_Activate() override;

 private:
  void BuildGrid();
  void BuildButtons();
  void Place();
  void OrderControls();
  void Connect();
  void ConnectButtons();
  void FillRowMenu(QMenu* menu);
  void FollowSelection();
  void Sort(long sortType);
  const ListSearchWay& ChosenWay() const;

  ListDescription list_;
  DataGrid* grid_ = nullptr;
  QWidget* bar_ = nullptr;  // search, sort, count
  std::vector<OptionButton*> ways_;
  std::list<std::string> procedures_;  // the buttons' procedures by name
  bool fresh_ = false;                 // the rows were read just now, when the screen opened
};

}  // namespace tevra
