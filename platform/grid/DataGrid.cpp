#include "platform/grid/DataGrid.h"

#include <QContextMenuEvent>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/forms/FormsApplication.h"
#include "platform/grid/GridDelegate.h"
#include "platform/grid/GridFooter.h"
#include "platform/grid/GridHeader.h"
#include "platform/grid/GridModel.h"
#include "platform/grid/GridTools.h"
#include "platform/grid/GroupArea.h"
#include "platform/system/MessageBox.h"
#include "platform/system/StandardError.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

constexpr int kCellMargin = 8;  // pixels on each side of a cell's text

// Restores a flag at the end of a scope.
class Flag {
 public:
  explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
  ~Flag() { flag_ = false; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;

 private:
  bool& flag_;
};

}  // namespace

DataGrid::DataGrid(const char* name, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  model_ = new GridModel(this);
  model_->write = [this](int row, int column, const QString& text) {
    if (!IsInEvent()) return WriteCell(row, column, text);
    // What is asked or told about it is a message, which the editor must not wait for.
    AfterEvent(this, [this, row, column, text] { WriteCell(row, column, text); });
    return true;
  };
  area_ = new GroupArea(this);
  area_->SetText("Drag a column header here to group by that column");
  area_->hide();
  view_ = new QTableView(this);
  BuildView();
  BuildHeader();
  footer_ = new GridFooter(view_);
  footer_->hide();
  tools_ = std::make_unique<GridTools>(*this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(area_);
  layout->addWidget(view_, 1);
  layout->addWidget(footer_);
  setFocusProxy(view_);
}

DataGrid::~DataGrid() = default;

void DataGrid::BuildView() {
  view_->setObjectName(objectName() + "_View");
  view_->setItemDelegate(new GridDelegate(model_, view_));
  view_->setSelectionMode(QAbstractItemView::NoSelection);
  view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  view_->setAlternatingRowColors(true);
  view_->setWordWrap(false);
  view_->setTabKeyNavigation(false);
  view_->installEventFilter(this);
  auto* selectors = new RecordSelectors(view_);
  view_->setVerticalHeader(selectors);
  selectors->setDefaultSectionSize(view_->fontMetrics().height() + kCellMargin);
  view_->setModel(model_);
  connect(selectors, &RecordSelectors::RowPressed, this, &DataGrid::MarkRows);
  // The selection belongs to the model, which does not change.
  connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& now, const QModelIndex& before) {
            FollowView();
            if (now.row() != before.row()) {
              view_->viewport()->update();
              view_->verticalHeader()->viewport()->update();
            }
            emit RowColChange();
          });
  connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    view_->verticalHeader()->viewport()->update();
    emit SelChange();
  });
}

void DataGrid::BuildHeader() {
  auto* header = new GridHeader(view_);
  view_->setHorizontalHeader(header);
  connect(header, &GridHeader::DraggedAbove, this,
          [this](int, const QPoint& at) { HoverGroup(at); });
  connect(header, &GridHeader::DroppedAbove, this, &DataGrid::DropOnGroup);
  header->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(header, &QWidget::customContextMenuRequested, this, [this, header](const QPoint& at) {
    tools_->ShowHeaderMenu(header->logicalIndexAt(at), header->mapToGlobal(at));
  });
}

void DataGrid::SetColumns(std::vector<GridColumn> columns) {
  model_->SetColumns(std::move(columns));
  Reload();
}

const std::vector<GridColumn>& DataGrid::Columns() const {
  return model_->Columns();
}

void DataGrid::SetDataSource(Adodc* source) {
  if (source_) disconnect(source_, nullptr, this, nullptr);
  source_ = source;
  model_->SetSource(source);
  if (source_) {
    connect(source_, &Adodc::RowsChanged, this, &DataGrid::FollowRows);
    connect(source_, &Adodc::MoveComplete, this, [this] { FollowSource(); });
    connect(source_, &Adodc::MovedByUser, this, [this] {
      if (rowSelect_) MarkCurrent();
    });
    connect(source_, &QObject::destroyed, this, [this] {
      source_ = nullptr;
      model_->SetSource(nullptr);
    });
  }
  Reload();
}

// New rows: nothing is selected, and their fields determine the widths of the columns.
void DataGrid::FollowRows() {
  const bool sorted = source_->Recordset().IsOpen() && !source_->Recordset().Sort().empty();
  if (!sorted && !sorted_.empty()) SetSortMarks({}, false);
  model_->Reload();
  if (!sized_) Reload();
  emit SelChange();
}

void DataGrid::Reload() {
  sized_ = source_ && source_->Recordset().IsOpen();
  const int character = std::max(view_->fontMetrics().averageCharWidth(),
                                 view_->fontMetrics().horizontalAdvance('0'));
  for (int i = 0; i < static_cast<int>(Columns().size()); ++i) {
    const GridColumn& column = Columns()[static_cast<std::size_t>(i)];
    view_->setColumnWidth(i, SuitableWidth(column, model_->Field(i)) * character + 2 * kCellMargin);
    view_->setColumnHidden(i, !column.visible);
  }
  tools_->RestoreColumns();
  FollowSource();
}

// ---- The current row ----------------------------------------------------------------------------

void DataGrid::FollowSource() {
  if (following_ || !source_) return;
  const Flag following(following_);
  if (!source_->HasRow() || source_->Recordset().IsAdding()) {
    view_->setCurrentIndex({});
    return;
  }
  const int row = static_cast<int>(source_->Recordset().Position());
  int column = view_->currentIndex().column();
  const std::vector<int> shown = ShownColumns();
  if ((column < 0 || view_->isColumnHidden(column)) && !shown.empty()) column = shown.front();
  GoTo(row, column);
  model_->Repaint(row);
}

void DataGrid::LeaveHiddenColumn() {
  const QModelIndex current = view_->currentIndex();
  if (current.isValid() && view_->isColumnHidden(current.column())) {
    GoTo(current.row(), ShownColumns().front());
  }
}

// The program's own moves select nothing.
void DataGrid::GoTo(int row, int column) {
  view_->selectionModel()->setCurrentIndex(model_->index(row, column),
                                           QItemSelectionModel::NoUpdate);
  view_->scrollTo(model_->index(row, column));
}

void DataGrid::FollowView() {
  const QModelIndex current = view_->currentIndex();
  if (following_ || !source_ || !current.isValid()) return;
  const Flag following(following_);
  const auto position = static_cast<std::size_t>(current.row());
  const bool there = source_->HasRow() && source_->Recordset().Position() == position;
  if (there) return;
  try {
    source_->MoveTo(position);
  } catch (const std::exception&) {
    // Rows were deleted since they were shown, or the file cannot be read.
    AfterEvent(this, [text = ShortErrorText(CaughtFailure())] {
      ShowMessage({text, kCritical, {}, {}});
    });
  }
}

std::string DataGrid::ColumnText(int column) const {
  const QModelIndex current = view_->currentIndex();
  if (!current.isValid()) return {};
  return model_->index(current.row(), column).data().toString().toStdString();
}

int DataGrid::ColumnOf(const std::string& field) const {
  for (std::size_t i = 0; i < Columns().size(); ++i) {
    if (EqualNoCase(Columns()[i].field, field)) return static_cast<int>(i);
  }
  throw Failure(kItemNotFound, "Item not found: " + field);
}

// ---- Footers ------------------------------------------------------------------------------------

void DataGrid::SetFooter(const std::string& field, const QString& text) {
  footer_->SetText(ColumnOf(field), text);
  footer_->show();
}

QString DataGrid::Footer(const std::string& field) const {
  return footer_->Text(ColumnOf(field));
}

void DataGrid::SetTools(const std::string& key, const QString& title) {
  tools_->SetUp(key, title);
  view_->horizontalHeader()->setStretchLastSection(false);
  Reload();
}

void DataGrid::ResetColumns() {
  tools_->Forget();
  QHeaderView* header = view_->horizontalHeader();
  for (int i = 0; i < header->count(); ++i) header->moveSection(header->visualIndex(i), i);
  Reload();
}

void DataGrid::hideEvent(QHideEvent* event) {
  tools_->KeepColumns();
  QWidget::hideEvent(event);
}

bool DataGrid::eventFilter(QObject* watched, QEvent* event) {
  if (watched != view_) return QWidget::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::SelectAll)) {
      MarkAll();
      return true;
    }
    if (key->matches(QKeySequence::Copy)) {
      AfterEvent(this, [this] { tools_->Copy(); });
      return true;
    }
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (enter && EditCurrent()) return true;
  }
  if (event->type() == QEvent::Resize) tools_->PlaceButton();
  if (event->type() == QEvent::ContextMenu) {
    const auto* menu = static_cast<QContextMenuEvent*>(event);
    const QModelIndex current = view_->currentIndex();
    if (menu->reason() == QContextMenuEvent::Keyboard && current.isValid()) {
      const QPoint below = view_->visualRect(current).bottomLeft();
      tools_->ShowRowMenu(view_->viewport()->mapToGlobal(below), current.column());
    } else {
      tools_->ShowRowMenu(menu->globalPos());
    }
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace tevra
