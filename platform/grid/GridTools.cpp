#include "platform/grid/GridTools.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QMimeData>
#include <QTableView>
#include <QToolButton>

#include "platform/export/TableExport.h"
#include "platform/forms/FormsApplication.h"
#include "platform/forms/Hourglass.h"
#include "platform/forms/frmProgress.h"
#include "platform/grid/ColumnArrangement.h"
#include "platform/grid/DataGrid.h"
#include "platform/grid/GridExport.h"
#include "platform/grid/frmColoane.h"
#include "platform/system/Desktop.h"
#include "platform/system/MessageBox.h"
#include "platform/system/Settings.h"
#include "platform/system/StandardError.h"

namespace tevra {

namespace {

std::vector<std::string> FieldsOf(const DataGrid& grid) {
  std::vector<std::string> fields;
  for (const GridColumn& column : grid.Columns()) fields.push_back(column.field);
  return fields;
}

void TellFailure() {
  ShowMessage({ShortErrorText(CaughtFailure()), kCritical, {}, {}});
}

}  // namespace

GridTools::GridTools(DataGrid& grid) : grid_(grid) {}

void GridTools::SetUp(const std::string& key, const QString& title) {
  key_ = key;
  title_ = title;
  if (button_) return;
  QTableView* view = grid_.View();
  button_ = new QToolButton(view);
  button_->setObjectName(grid_.objectName() + "_Tools");
  button_->setAutoRaise(true);
  button_->setArrowType(Qt::DownArrow);
  button_->setToolTip("Coloane, copiere, export, tiparire");
  button_->setAccessibleName(button_->toolTip());
  button_->setFocusPolicy(Qt::NoFocus);
  connect(button_, &QToolButton::clicked, this,
          [this] { ShowMenu(button_->mapToGlobal(button_->rect().bottomLeft())); });
  connect(view->horizontalHeader(), &QHeaderView::geometriesChanged, this, &GridTools::PlaceButton);
  PlaceButton();
}

void GridTools::PlaceButton() {
  if (!button_) return;
  const QTableView* view = grid_.View();
  const int frame = view->frameWidth();
  button_->setGeometry(frame, frame, view->verticalHeader()->width(),
                       view->horizontalHeader()->height());
  button_->raise();
}

// ---- Menus --------------------------------------------------------------------------------------

// Deleted with the grid, even when that is deleted while the menu is open.
QMenu& GridTools::NewMenu() {
  auto* menu = new QMenu(&grid_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  return *menu;
}

void GridTools::ShowHeaderMenu(int column, const QPoint& globalPosition) {
  if (!HasColumnMenu(column)) return;
  QMenu& menu = NewMenu();
  FillColumnMenu(menu, column);
  if (!key_.empty()) {
    menu.addSeparator();
    FillMenu(menu);
  }
  menu.popup(globalPosition);
}

bool GridTools::HasColumnMenu(int column) const {
  const bool known = column >= 0 && column < static_cast<int>(grid_.Columns().size());
  return known && (!key_.empty() || grid_.HasGroupArea());
}

// The same as dragging a header by mouse, for the keyboard.
void GridTools::FillSortMenu(QMenu& menu, int column) {
  const std::string field = grid_.Columns()[static_cast<std::size_t>(column)].field;
  const auto add = [&](const char* text, const std::string& by, bool descending) {
    return menu.addAction(text, &grid_, [=, this] {
      AfterEvent(&grid_, [=, this] { emit grid_.SortWanted(by, descending); });
    });
  };
  add("Sorteaza crescator", field, false);
  add("Sorteaza descrescator", field, true);
  add("Ordinea initiala", {}, false)->setEnabled(!grid_.SortFields().empty());
}

void GridTools::FillColumnMenu(QMenu& menu, int column) {
  if (grid_.HasGroupArea()) FillSortMenu(menu, column);
  if (key_.empty()) return;
  if (!menu.isEmpty()) menu.addSeparator();
  QTableView* view = grid_.View();
  menu.addAction("Ascunde coloana", view, [view, column] { view->setColumnHidden(column, true); })
      ->setEnabled(grid_.ShownColumns().size() > 1);
  menu.addAction("Latime dupa continut", view,
                 [view, column] { view->resizeColumnToContents(column); });
}

void GridTools::ShowMenu(const QPoint& globalPosition) {
  if (key_.empty()) return;
  QMenu& menu = NewMenu();
  FillMenu(menu);
  menu.popup(globalPosition);
}

void GridTools::ShowRowMenu(const QPoint& globalPosition, int column) {
  QMenu& menu = NewMenu();
  emit grid_.RowMenu(&menu);
  if (HasColumnMenu(column)) {
    if (!menu.isEmpty()) menu.addSeparator();
    FillColumnMenu(*menu.addMenu("Co&loana"), column);
  }
  if (!key_.empty()) {
    if (!menu.isEmpty()) menu.addSeparator();
    FillMenu(menu);
  }
  if (menu.isEmpty()) {
    delete &menu;
  } else {
    menu.popup(globalPosition);
  }
}

// A command shows windows of its own. The menu is gone by then.
void GridTools::FillMenu(QMenu& menu) {
  const auto add = [&](const char* text, void (GridTools::*command)()) {
    return menu.addAction(text, this,
                          [this, command] { AfterEvent(this, [=, this] { (this->*command)(); }); });
  };
  add("&Copiaza", &GridTools::Copy)->setShortcut(QKeySequence::Copy);
  add("&Foaie de calcul...", &GridTools::ExportSpreadsheet);
  add("Fisier CS&V...", &GridTools::ExportCsv);
  add("&Tipareste...", &GridTools::Print);
  menu.addSeparator();
  add("C&oloane...", &GridTools::ChooseColumns);
  menu.addAction("Coloanele &initiale", &grid_, &DataGrid::ResetColumns);
}

// ---- Taking the list elsewhere ------------------------------------------------------------------

void GridTools::Copy() {
  try {
    QClipboard* clipboard = QGuiApplication::clipboard();
    const GridContent marked = grid_.Content(DataGrid::Rows::kMarked);
    if (marked.RowCount() > 0) {
      const Hourglass waiting;
      clipboard->setMimeData(ClipboardTable(marked));
    } else {
      clipboard->setText(grid_.View()->currentIndex().data().toString());
    }
  } catch (const std::exception&) {
    TellFailure();
  }
}

void GridTools::ExportSpreadsheet() {
  Export("Foaie de calcul", "xlsx", SaveSpreadsheet);
}

void GridTools::ExportCsv() {
  Export("Fisier CSV", "csv", SaveCsv);
}

void GridTools::Export(const char* what, const char* extension, const Save& save) {
  try {
    SaveFileRequest request;
    request.title = what;
    request.filter = std::string(what) + "|*." + extension;
    request.name = title_.toStdString() + "." + extension;
    request.extension = extension;
    const auto file = AskSaveFile(request);
    if (!file) return;
    const GridContent content = grid_.Content();
    {
      frmProgress progress(what, {}, grid_.window());
      if (!save(TableOf(content, title_), *file, progress.Asked())) return;
    }
    ShowMessage({"Lista a fost salvata in " + *file, kInformation, {}, {}});
  } catch (const std::exception&) {
    TellFailure();
  }
}

void GridTools::Print() {
  try {
    GridPrintInfo info = grid_.PrintInfo();
    if (info.header.isEmpty()) info.header = title_;
    const bool several = grid_.SelectedRows().size() > 1;
    const Hourglass waiting;
    GridContent content = grid_.Content(several ? DataGrid::Rows::kMarked : DataGrid::Rows::kAll);
    content.SumFooters();
    PreviewGrid(content, info, title_);
  } catch (const std::exception&) {
    TellFailure();
  }
}

// ---- Columns ------------------------------------------------------------------------------------

void GridTools::ChooseColumns() {
  QHeaderView* header = grid_.View()->horizontalHeader();
  std::vector<ColumnChoice> choices;
  for (int visual = 0; visual < header->count(); ++visual) {
    const int column = header->logicalIndex(visual);
    choices.push_back({column, grid_.Columns()[static_cast<std::size_t>(column)].caption,
                       !header->isSectionHidden(column)});
  }
  const auto chosen = ChooseFrom(choices, title_, grid_.window());
  if (!chosen) return;
  int visual = 0;
  for (const ColumnChoice& choice : *chosen) {
    header->moveSection(header->visualIndex(choice.column), visual++);
    header->setSectionHidden(choice.column, !choice.shown);
  }
  grid_.LeaveHiddenColumn();
}

void GridTools::RestoreColumns() {
  if (key_.empty()) return;
  QHeaderView& header = *grid_.View()->horizontalHeader();
  const std::vector<std::string> fields = FieldsOf(grid_);
  if (const auto text = Settings().Get(key_)) Arrange(header, fields, *text);
  kept_ = ArrangementOf(header, fields);
}

// When settings cannot be stored, the screen's own columns return next time; no message is needed.
void GridTools::KeepColumns() {
  if (key_.empty() || kept_.empty()) return;
  const std::string now = ArrangementOf(*grid_.View()->horizontalHeader(), FieldsOf(grid_));
  if (now == kept_) return;
  try {
    Settings().Set(key_, now);
    kept_ = now;
  } catch (const Failure&) {
  }
}

void GridTools::Forget() {
  if (key_.empty()) return;
  try {
    Settings().Remove(key_);
  } catch (const Failure&) {
  }
}

}  // namespace tevra
