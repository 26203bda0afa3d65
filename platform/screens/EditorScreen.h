// The pattern of a reference table's editor: boxes for a new row above a grid that is edited in
// place, and three buttons. A screen makes its boxes and describes the rest as data.
#pragma once

#include <QGroupBox>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/screens/InputFrame.h"
#include "platform/screens/ListScreen.h"

namespace tevra {

/// A test of what the boxes hold before a row is added.
struct EditorCheck {
  std::function<bool()> fails;
  const char* message;
  QWidget* focus = nullptr;  ///< the box that gets the focus; none leaves it
};

/// A test of a text typed into a column of the grid.
struct CellCheck {
  int column;
  std::function<bool(const std::string& text)> fails;
  const char* message;
};

/// A row that is in use cannot be deleted.
struct UseCheck {
  std::function<bool()> used;
  const char* message;
};

struct EditorDescription {
  std::string connection;
  std::string statement;
  std::vector<GridColumn> columns;

  QGroupBox* frame;  ///< of MakeInputFrame, with the boxes as its children
  std::vector<LabelledBox> boxes;
  int boxesInARow = 2;

  const char* addTip = "";
  std::vector<EditorCheck> checks;  ///< in order; the first that fails ends the adding
  /// The fields of the new row, once all checks passed.
  std::function<std::vector<std::pair<std::string, Value>>()> row;
  std::string addFailure;  ///< the title of what the adding fails with
  std::function<void()> added = {};

  const char* deleteTip = "";
  std::function<std::string()> question;  ///< before the current row is deleted
  std::vector<UseCheck> uses = {};        ///< asked after the question
  std::string deleteFailure;              ///< the title of what the deletion fails with

  std::vector<CellCheck> cells = {};
  QSize size = {620, 430};
};

/// A screen derives from it and calls Edit at the end of its constructor; see ListScreen.
class EditorScreen : public ListScreen {
 public:
  DataGrid* grdDataGrid = nullptr;
  QPushButton* cmdAdauga = nullptr;
  QPushButton* cmdSterge = nullptr;
  QPushButton* cmdIesire = nullptr;

 protected:
  using ListScreen::ListScreen;

  void Edit(EditorDescription description);

  /// Writes the new row. Through the rows of the list, unless overridden.
  virtual void pAdauga();

 private:
  ListDescription Describe();
  void cmdAdauga_Click();
  void cmdSterge_Click();
  bool AreBoxesValid();
  bool grdDataGrid_BeforeColUpdate(int column, const QString& text);
  void RunTitled(const std::string& title, const std::function<void()>& body);

  EditorDescription editor_;
};

}  // namespace tevra
