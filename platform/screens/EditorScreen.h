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

/// A check of the boxes before a row is added.
struct EditorCheck {
  std::function<bool()> fails;
  std::string message;
  QWidget* focus = nullptr;  ///< gets the focus after the message; nullptr: the focus stays
};

/// A check of a text typed into a column of the grid.
struct CellCheck {
  int column;
  std::function<bool(const std::string& text)> fails;
  const char* message;
};

/// A use of the current row that prevents its deletion.
struct UseCheck {
  std::function<bool()> used;
  const char* message;
};

struct EditorDescription {
  std::string connection;
  std::string statement;
  std::vector<GridColumn> columns;
  std::string key = {};       ///< see ListDescription
  std::string toolsKey = {};  ///< see ListDescription

  QGroupBox* frame;  ///< of MakeInputFrame, with the boxes as its children
  std::vector<LabelledBox> boxes;
  int boxesInARow = 2;

  const char* addTip = "";
  std::vector<EditorCheck> checks;  ///< run in order; no row is added when one fails
  /// Returns the fields of the new row; called after all checks passed. Not needed by a screen that
  /// overrides pAdauga.
  std::function<std::vector<std::pair<std::string, Value>>()> row;
  std::string addFailure;            ///< the title of the message when the adding fails
  bool addFailureLine = false;       ///< that message names the line, too
  std::function<void()> added = {};  ///< called after a row was added

  const char* deleteTip = "";
  std::function<std::string()> question;  ///< asked before the current row is deleted
  std::vector<UseCheck> uses = {};        ///< checked after the question
  std::string deleteFailure;              ///< the title of the message when the deletion fails

  std::vector<CellCheck> cells = {};
  QSize size = {620, 430};
};

/// A screen derives from this class and calls Edit at the end of its constructor; see ListScreen.
class EditorScreen : public ListScreen {
 public:
  DataGrid* grdDataGrid = nullptr;
  QPushButton* cmdAdauga = nullptr;
  QPushButton* cmdSterge = nullptr;
  QPushButton* cmdIesire = nullptr;

 protected:
  using ListScreen::ListScreen;

  void Edit(EditorDescription description);

  /// Writes the new row; unless overridden, with AddRow.
  virtual void pAdauga();

 private:
  ListDescription Describe();
  void cmdAdauga_Click();
  void cmdSterge_Click();
  bool AreBoxesValid();
  bool grdDataGrid_BeforeColUpdate(int column, const QString& text);
  void RunTitled(const std::string& title, bool withLine, const Body& body);

  EditorDescription editor_;
};

}  // namespace tevra
