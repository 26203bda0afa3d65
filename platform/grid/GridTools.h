// The commands of all lists: their menus, the commands, and remembering the user's
// columns.
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

/// Belongs to a grid, which calls it. Before SetUp there is no menu and nothing is remembered.
class GridTools : public QObject {
  Q_OBJECT

 public:
  explicit GridTools(DataGrid& grid);

  void SetUp(const std::string& key, const QString& title);

  /// The menu of a column header: sorting, and the column itself.
  void ShowHeaderMenu(int column, const QPoint& globalPosition);
  /// The menu of the list, and that of a row: what the screen does with it, then the list's. The
  /// keyboard cannot reach a header: with `column` the row's menu has the header's menu in it.
  void ShowMenu(const QPoint& globalPosition);
  void ShowRowMenu(const QPoint& globalPosition, int column = -1);

  /// The selected rows as a table; without any the text of the current cell.
  void Copy();
  void ExportSpreadsheet();
  void ExportCsv();
  /// The preview of the selected rows if there are several, otherwise of all rows.
  void Print();
  void ChooseColumns();

  /// Restore the user's columns, store them if changed, and remove them from the settings.
  void RestoreColumns();
  void KeepColumns();
  void Forget();

  /// Places the button in the corner above the strip at the rows' left.
  void PlaceButton();

 private:
  using Save = std::function<bool(const ExportTable& table, const std::filesystem::path& file,
                                  const Progress& progress)>;
  QMenu& NewMenu();
  void FillMenu(QMenu& menu);
  bool HasColumnMenu(int column) const;
  void FillSortMenu(QMenu& menu, int column);
  void FillColumnMenu(QMenu& menu, int column);
  void Export(const char* what, const char* extension, const Save& save);

  DataGrid& grid_;
  std::string key_;
  QString title_;
  QToolButton* button_ = nullptr;
  std::string kept_;  // the stored arrangement, or the screen's own
};

}  // namespace tevra
