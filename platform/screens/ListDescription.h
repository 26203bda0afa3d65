// A list screen as data: what ListScreen builds and runs.
#pragma once

#include <QPushButton>
#include <QSize>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/data/Connection.h"
#include "platform/grid/GridColumn.h"
#include "platform/grid/GridPrint.h"
#include "platform/system/StandardError.h"

namespace tevra {

/// A button of the row below the list.
struct ListButton {
  enum class Role {
    kPlain,
    kAdd,     ///< Tab goes from the boxes above the list to it
    kChange,  ///< Enter and a double click on a row press it too, where the list is not edited
    kClose    ///< closes the screen, as Escape does; takes no action
  };

  QPushButton** member;  ///< the screen's pointer to it
  const char* name;
  const char* caption;
  const char* tip;
  /// Runs as the procedure "<name>_Click", once the box with the focus let go.
  std::function<void(Procedure& running)> pressed = {};
  Role role = Role::kPlain;
  bool inRowMenu = false;  ///< the menu of a row, behind the right mouse button, offers it too
};

/// One way to search.
struct ListSearchWay {
  /// The statement of the rows found. Its one parameter is the text looked for with "%" behind it.
  std::string statement;
  /// What is said, with the text and " !" behind it, when there are none.
  std::string nothingFound;
  /// The option button that chooses this way; needed where there are several.
  const char* option = nullptr;
  const char* caption = nullptr;
};

/// The search above the list: a text and a button. The statement is tried first; without rows the
/// list stays as it is.
struct ListSearch {
  std::string all;  ///< the statement that an empty text brings back
  std::vector<ListSearchWay> ways;
  const char* caption = "Cautare";
  const char* tip = "Cautare dupa denumire";
  int longest = 50;  ///< characters of the text
};

/// Sorting by the columns whose heads were dragged above the list, in two directions.
struct ListSort {
  QString groupText;
  const char* up = "Sortare Crescatoare";
  const char* down = "Sortare Descrescatoare";
};

/// A column with a total below it.
struct ListTotal {
  std::string field;
  std::string format;  ///< as for Format of platform/text
};

struct ListDescription {
  const char* grid = "TDBGrid1";        ///< the name of the grid
  const char* source = "datPrimaryRS";  ///< the name of its data source
  std::string connection;               ///< the connection string
  std::string statement;                ///< of the rows at opening
  Values params = {};
  std::vector<GridColumn> columns;

  /// The field by which a row is found again; needed for `refreshed` and for deleting.
  std::string key = {};
  bool refreshed = false;  ///< the rows are read anew whenever the screen comes to the front
  bool editable = false;   ///< cells are edited in place
  bool rowSelect = false;  ///< going to a row marks it
  bool counted = false;    ///< "Nr. :" and the number of rows stand above the list
  bool strip = false;      ///< the strip of the data source stands below the list

  std::vector<ListTotal> totals = {};
  std::optional<ListSearch> search = {};
  std::optional<ListSort> sort = {};
  /// Under which the user's columns are remembered; with it the list has its menu.
  std::string toolsKey = {};
  GridPrintInfo print = {};

  std::vector<ListButton> buttons = {};
  bool shortFailures = false;  ///< what a button fails with is told in the short form

  QWidget* above = nullptr;          ///< stands above the list, such as boxes for a new row
  QWidget* below = nullptr;          ///< stands between the list and the buttons
  std::vector<QWidget*> boxes = {};  ///< what Tab goes through in `above`
  QSize least = {480, 240};
  QSize size = {1000, 560};
};

}  // namespace tevra
