// What people do with any list beside reading it: its menus, what they do, and the memory of the
// user's columns.
#pragma once

#include <QObject>
#include <QPoint>
#include <filesystem>
#include <functional>
#include <string>

#include "platform/system/Progress.h"

class QMenu;
class QToolButton;

namespace tevra {

class DataGrid;
struct ExportTable;

/// Belongs to a grid, which tells it where and when. Before SetUp there is no menu and no memory.
class GridTools : public QObject {
  Q_OBJECT

 public:
  explicit GridTools(DataGrid& grid);

  void SetUp(const std::string& key, const QString& title);

  /// The menu of a column's head: sorting, and the column itself.
  void ShowHeaderMenu(int column, const QPoint& globalPosition);
  /// The menu of the list, and that of a row: what the screen does with it, then the list's.
  void ShowMenu(const QPoint& globalPosition);
  void ShowRowMenu(const QPoint& globalPosition);

  /// The marked rows as a table; without any the text of the current cell.
  void Copy();
  void ExportSpreadsheet();
  void ExportCsv();
  /// The preview of the marked rows where there are several, else of all.
  void Print();
  void ChooseColumns();

  /// Brings the user's columns back; keeps them where he changed them; forgets them.
  void RestoreColumns();
  void KeepColumns();
  void Forget();

  /// Puts the button into the corner above the strip at the rows' left.
  void PlaceButton();

 private:
  using Save = std::function<bool(const ExportTable& table, const std::filesystem::path& file,
                                  const Progress& progress)>;
  QMenu& NewMenu();
  void FillMenu(QMenu& menu);
  void FillColumnMenu(QMenu& menu, int column);
  void Export(const char* what, const char* extension, const Save& save);

  DataGrid& grid_;
  std::string key_;
  QString title_;
  QToolButton* button_ = nullptr;
  std::string kept_;  // the arrangement that the settings hold, or the screen's own
};

}  // namespace tevra
