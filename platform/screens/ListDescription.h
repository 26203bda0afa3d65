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
    kAdd,     ///< follows the boxes above the list in the order of Tab
    kChange,  ///< Enter and a double click on a row press it, unless cells can be edited
    kClose    ///< closes the screen, as Escape does; `pressed` is not called
  };

  QPushButton** member;  ///< the screen's pointer to it
  const char* name;
  const char* caption;
  const char* tip;
  /// Runs as the procedure "<name>_Click", after the leave handler of the box with the focus.
  std::function<void(Procedure& running)> pressed = {};
  Role role = Role::kPlain;
  bool inRowMenu = false;  ///< also in the menu of a row (right mouse button, menu key)
};

/// What the menu of a row offers beside the buttons.
struct RowCommand {
  const char* name;  ///< runs as the procedure of this name
  const char* caption;
  std::function<void(Procedure& running)> chosen;
};

/// One way to search.
struct ListSearchWay {
  /// Selects the rows found. Its only parameter is the typed text followed by "%".
  std::string statement;
  /// The message when no rows are found, without the typed text and " !", which are added to it.
  std::string nothingFound;
  /// The name of the option button that chooses this way; needed when there are several ways.
  const char* option = nullptr;
  const char* caption = nullptr;
};

/// The search above the list: a text and a button. When no rows are found, the list keeps its rows.
struct ListSearch {
  std::string all;  ///< the statement for an empty text
  std::vector<ListSearchWay> ways;
  const char* caption = "Cautare";
  const char* tip = "Cautare dupa denumire";
  int longest = 50;  ///< characters of the text
};

/// Sorts by the columns whose headers were dragged above the list, up or down. Without tips there
/// are no arrows, and the headers sort up.
struct ListSort {
  QString groupText;
  const char* caption = nullptr;  ///< a label beside the arrows
  const char* up = "Sortare Crescatoare";
  const char* down = "Sortare Descrescatoare";
};

/// A column with its total below the list.
struct ListTotal {
  std::string field;
  std::string format;  ///< as for Format of platform/text
};

struct ListDescription {
  const char* grid = "TDBGrid1";        ///< the name of the grid
  const char* source = "datPrimaryRS";  ///< the name of its data source
  std::string connection;               ///< the connection string
  std::string statement;                ///< selects the rows when the screen opens
  Values params = {};
  std::vector<GridColumn> columns;

  /// The field that identifies a row; needed for `refreshed` and for deleting.
  std::string key = {};
  bool refreshed = false;  ///< rows are read again each time the screen comes to the front
  bool editable = false;   ///< cells can be edited
  bool rowSelect = false;  ///< moving to a row marks it
  bool counted = false;    ///< shows the number of rows above the list
  const char* countCaption = "Nr. :";
  const char* countName = "lblRecCount";
  bool strip = false;  ///< shows the data source's navigation strip below the list

  std::vector<ListTotal> totals = {};
  std::optional<ListSearch> search = {};
  std::optional<ListSort> sort = {};
  /// The key under which the user's columns are remembered. A list without a key has no menu.
  std::string toolsKey = {};
  GridPrintInfo print = {};

  std::vector<ListButton> buttons = {};
  std::vector<RowCommand> rowCommands = {};
  bool shortFailures = false;  ///< failures of buttons have the short form

  QWidget* above = nullptr;          ///< shown above the list, such as boxes for a new row
  QWidget* below = nullptr;          ///< shown between the list and the buttons
  std::vector<QWidget*> boxes = {};  ///< the controls of `above` in the order of Tab
  QSize least = {480, 240};
  QSize size = {1000, 560};
};

}  // namespace tevra
