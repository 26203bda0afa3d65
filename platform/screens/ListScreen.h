// The pattern of a list: rows of a statement in a grid, with search, sort, count, totals, listing
// and a row of buttons. A screen describes itself as data and adds what its buttons do.
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

/// A screen derives from it and calls Open at the end of its constructor. Controls that the
/// description does not ask for stay null.
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

  /// Builds the screen, connects its controls and reads the rows; a failure of the reading is told
  /// under "Form_Load".
  void Open(ListDescription description);

  DataGrid* Grid() const { return grid_; }
  const ListDescription& Description() const { return list_; }

  // What a screen may do in its own way.

  /// Gives the data source its rows. The description's statement, unless overridden; a list with
  /// totals has them added up while the rows are read, so it leaves this as it is.
  virtual void ReadRows();
  /// Adds one row to the totals of the rows marked. Null counts as 0.
  virtual void AddToTotals(std::vector<double>& totals, const Values& row) const;
  /// Other rows are marked; `key`: of the one that the user went to last.
  virtual void RowSelected(const std::string& /*key*/) {}
  /// A search has brought other rows, or none.
  virtual void Searched() {}
  virtual void ShowCount();

  // What the buttons of most lists do.

  /// What was typed into the boxes above the list is written or of no use: the screen may close.
  void MarkBoxesSaved();
  /// Adds a row with these fields and goes to it. Throws Failure; then there is no new row.
  void AddRow(const std::vector<std::pair<std::string, Value>>& fields);
  /// The question before a deletion, with "Nu" as the default button. `icon`: kQuestion or 0.
  bool AskToDelete(const std::string& question, long icon = kQuestion) const;
  /// Asks, runs `remove` with the key of the current row and reads the rows anew. Nothing happens
  /// without a current row.
  void DeleteRow(Procedure& running, const std::string& question, long icon,
                 const std::function<void(const Value& key)>& remove);
  /// The list goes on where the recordset stands after its current row was deleted.
  void ShowWithoutDeleted();
  /// Shows the totals of the rows marked and opens their preview behind the page's set-up.
  void ListMarked(Procedure& running);
  void cmdCauta_Click(Procedure& running);

  /// Reads the rows anew at the place where the user is.
  void RefreshInPlace();
  std::vector<std::string> TotalledFields() const;
  std::vector<double> TotalsOfRows() const;
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
