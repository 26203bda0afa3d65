#include "platform/screens/ListScreen.h"

#include <QMenu>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "platform/data/MoneySum.h"
#include "platform/forms/ButtonRow.h"
#include "platform/forms/Buttons.h"
#include "platform/forms/FormsApplication.h"
#include "platform/forms/Hourglass.h"
#include "platform/forms/Pictures.h"
#include "platform/screens/ListBars.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"

namespace tevra {

ListScreen::ListScreen(const char* name, const QString& caption, QWidget* parent)
    : Form(name, caption, parent) {}

// The rows hold the file open.
ListScreen::~ListScreen() {
  if (datPrimaryRS) datPrimaryRS->Close();
}

void ListScreen::Open(ListDescription description) {
  list_ = std::move(description);
  BuildGrid();
  BuildButtons();
  Place();
  OrderControls();
  Connect();
  const auto read = [this](Procedure& running) {
    const Hourglass waiting;
    running.line = 1;
    datPrimaryRS->SetConnectionString(list_.connection);
    datPrimaryRS->SetRecordSource(list_.statement, list_.params);
    datPrimaryRS->SetTotalledFields(TotalledFields());
    ReadRows();
    datPrimaryRS->SetTotalledFields({});  // a search leaves the totals as they are
    running.line = 2;
    if (!list_.totals.empty()) ShowTotals(TotalsOfRows());
    ShowCount();
    fresh_ = true;
  };
  list_.shortFailures ? RunShort("Form_Load", read) : Run("Form_Load", read);
  MarkBoxesSaved();
}

// A type or a date that nobody typed anything with is no loss.
void ListScreen::MarkBoxesSaved() {
  for (QWidget* box : list_.boxes) {
    if (qobject_cast<QLineEdit*>(box)) MarkSaved(box);
  }
}

// ---- Building -----------------------------------------------------------------------------------

void ListScreen::BuildGrid() {
  datPrimaryRS = new Adodc(list_.source, this);
  grid_ = new DataGrid(list_.grid, this);
  grid_->SetColumns(list_.columns);
  grid_->SetDataSource(datPrimaryRS);
  grid_->SetRowSelect(list_.rowSelect);
  grid_->SetAllowUpdate(list_.editable);
  grid_->SetPrintInfo(list_.print);
  if (list_.sort) {
    grid_->SetGroupArea(true);
    grid_->SetGroupText(list_.sort->groupText);
    extTDBGrid = new tevra::extTDBGrid(this);
    extTDBGrid->SetTDBGridName(list_.grid);
  }
  if (!list_.toolsKey.empty()) grid_->SetTools(list_.toolsKey, windowTitle());
}

void ListScreen::BuildButtons() {
  picButtons = new QWidget(this);
  picButtons->setObjectName("picButtons");
  auto* row = new ButtonRow(picButtons);
  for (const ListButton& each : list_.buttons) {
    QPushButton* button = MakeButton(each.name, each.caption, each.tip, picButtons);
    *each.member = button;
    row->addWidget(button);
    if (each.role != ListButton::Role::kClose) continue;
    button->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
    SetCancelButton(button);
  }
}

void ListScreen::Place() {
  const ListBar made = MakeListBar(list_, this);
  bar_ = made.bar;
  txtCautare = made.text;
  if (made.search) cmdCauta = made.search;
  ways_ = made.ways;
  cmdUp = made.up;
  cmdDown = made.down;
  lblRecCount = made.count;
  auto* all = new QVBoxLayout(this);
  if (list_.above) all->addWidget(list_.above);
  if (bar_) all->addWidget(bar_);
  all->addWidget(grid_, 1);
  if (list_.strip) {
    all->addWidget(datPrimaryRS);
    datPrimaryRS->show();
  }
  if (list_.below) all->addWidget(list_.below);
  all->addWidget(picButtons);
  setMinimumSize(list_.least);
  resize(list_.size);
  list_.boxes.empty() ? GiveFocus(grid_) : GiveFocus(list_.boxes.front());
}

// As one reads, but for the button that takes what the boxes hold: it comes next after them.
void ListScreen::OrderControls() {
  std::vector<QWidget*> order = list_.boxes;
  const auto add = [&order](QWidget* control) {
    if (control) order.push_back(control);
  };
  const auto addButtons = [&](bool adding) {
    for (const ListButton& each : list_.buttons) {
      if ((each.role == ListButton::Role::kAdd) == adding) add(*each.member);
    }
  };
  addButtons(true);
  add(txtCautare);
  for (OptionButton* way : ways_) add(way);
  for (QWidget* control : std::initializer_list<QWidget*>{cmdCauta, cmdUp, cmdDown}) add(control);
  add(grid_->View());
  add(datPrimaryRS);
  addButtons(false);
  for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

// ---- Wiring -------------------------------------------------------------------------------------

void ListScreen::Connect() {
  ConnectButtons();
  if (list_.search) {
    const Body search = [this](Procedure& running) { cmdCauta_Click(running); };
    list_.shortFailures ? OnClickShort(cmdCauta, "cmdCauta_Click", search)
                        : OnClick(cmdCauta, "cmdCauta_Click", search);
    connect(txtCautare, &QLineEdit::returnPressed, cmdCauta, &QPushButton::click);
  }
  if (cmdUp) {
    OnClickShort(cmdUp, "cmdUp_Click", [this](Procedure&) { Sort(1); });
    OnClickShort(cmdDown, "cmdDown_Click", [this](Procedure&) { Sort(2); });
  }
  connect(grid_, &DataGrid::RowMenu, this, &ListScreen::FillRowMenu);
  connect(grid_, &DataGrid::SelChange, this, [this] {
    const std::string procedure = std::string(list_.grid) + "_SelChange";
    RunShort(procedure.c_str(), [this](Procedure&) { FollowSelection(); });
  });
}

void ListScreen::ConnectButtons() {
  for (const ListButton& each : list_.buttons) {
    QPushButton* button = *each.member;
    // Giving up leaves no box, so it goes past what a click does first.
    if (each.role == ListButton::Role::kClose) {
      connect(button, &QPushButton::clicked, this, [this] { close(); });
      continue;
    }
    const Body body = each.pressed;
    procedures_.push_back(std::string(each.name) + "_Click");
    const char* procedure = procedures_.back().c_str();
    list_.shortFailures ? OnClickShort(button, procedure, body) : OnClick(button, procedure, body);
    if (each.role == ListButton::Role::kChange && !list_.editable) {
      connect(grid_->View(), &QTableView::activated, button, &QPushButton::click);
    }
  }
}

void ListScreen::FillRowMenu(QMenu* menu) {
  for (const ListButton& each : list_.buttons) {
    if (!each.inRowMenu) continue;
    QPushButton* button = *each.member;
    QAction* action = menu->addAction(button->text(), button, &QPushButton::click);
    action->setEnabled(button->isEnabled() && datPrimaryRS->HasRow());
    action->setToolTip(button->toolTip());
  }
  for (const RowCommand& each : list_.rowCommands) {
    const auto run = [this, &each] {
      AfterEvent(this, [this, &each] {
        list_.shortFailures ? RunShort(each.name, each.chosen) : Run(each.name, each.chosen);
      });
    };
    menu->addAction(each.caption, this, run)->setEnabled(datPrimaryRS->HasRow());
  }
}

// ---- Rows ---------------------------------------------------------------------------------------

void ListScreen::ReadRows() {
  datPrimaryRS->Refresh();
}

// Coming back from another screen shows what was saved there.
void ListScreen::Form_Activate() {
  if (std::exchange(fresh_, false) || !list_.refreshed) return;
  RefreshInPlace();
}

void ListScreen::RefreshInPlace() {
  grid_->RefreshInPlace(list_.key);
  ShowCount();
}

void ListScreen::ShowCount() {
  if (!lblRecCount) return;
  const Recordset& rows = datPrimaryRS->Recordset();
  lblRecCount->setText(QString::number(rows.IsOpen() ? rows.RecordCount() : 0));
}

// Where nothing is marked any more, the row marked before stays the one that was selected last.
void ListScreen::FollowSelection() {
  const std::vector<std::size_t> marked = grid_->SelectedRows();
  if (marked.empty() || list_.key.empty()) return;
  const Recordset& rows = datPrimaryRS->Recordset();
  const bool onCurrent =
      datPrimaryRS->HasRow() && std::binary_search(marked.begin(), marked.end(), rows.Position());
  const std::size_t row = onCurrent ? rows.Position() : marked.front();
  RowSelected(rows.ValueAt(row, rows.FieldIndex(list_.key)).TextOrEmpty());
}

void ListScreen::Sort(long sortType) {
  extTDBGrid->SetSortType(sortType);
  extTDBGrid->Sort();
}

const ListSearchWay& ListScreen::ChosenWay() const {
  const std::vector<ListSearchWay>& ways = list_.search->ways;
  for (std::size_t i = 0; i < ways_.size(); ++i) {
    if (ways_[i]->isChecked()) return ways[i];
  }
  return ways.front();
}

void ListScreen::cmdCauta_Click(Procedure& running) {
  const std::string typed = txtCautare->Text();
  const std::string term = Trim(typed);
  running.line = 1;
  if (term.empty()) {
    datPrimaryRS->SetRecordSource(list_.search->all);
    datPrimaryRS->Refresh();
  } else {
    const Hourglass waiting;
    const ListSearchWay& way = ChosenWay();
    const Values beginning{term + "%"};
    running.line = 2;
    Connection& connection = datPrimaryRS->GetConnection();
    if (connection.OpenKeyset(way.statement, beginning).RecordCount() > 0) {
      datPrimaryRS->SetRecordSource(way.statement, beginning);
      datPrimaryRS->Refresh();
    } else {
      ShowMessage({way.nothingFound + typed + " !", kInformation, {}, {}});
    }
  }
  GiveFocus(txtCautare);
  ShowCount();
  Searched();
}

void ListScreen::AddRow(const std::vector<std::pair<std::string, Value>>& fields) {
  Recordset& rows = datPrimaryRS->Recordset();
  rows.AddNew();
  try {
    for (const auto& [field, value] : fields) rows.Set(field, value);
    rows.Update();
  } catch (const Failure&) {
    rows.CancelUpdate();
    throw;
  }
  datPrimaryRS->Notify();
  ShowCount();
}

bool ListScreen::AskToDelete(const std::string& question, long icon) const {
  const long buttons = kYesNo | icon | kDefaultStep;
  return ShowMessage({question, buttons, "Confirmare stergere", {}}) == kYes;
}

// The row is the one that the question named, also where the list moves on while it is asked.
void ListScreen::DeleteRow(Procedure& running, const std::string& question, long icon,
                           const std::function<void(const Value& key)>& remove) {
  if (!datPrimaryRS->HasRow()) return;
  const Value key = datPrimaryRS->Recordset().Get(list_.key);
  running.line = 1;
  if (!AskToDelete(question, icon)) return;
  running.line = 2;
  remove(key);
  running.line = 3;
  RefreshInPlace();
}

void ListScreen::ShowWithoutDeleted() {
  Recordset& rows = datPrimaryRS->Recordset();
  if (rows.Eof() && rows.RecordCount() > 0) rows.MoveLast();
  datPrimaryRS->Notify();
  ShowCount();
}

// ---- Totals and paper ---------------------------------------------------------------------------

std::vector<std::string> ListScreen::TotalledFields() const {
  std::vector<std::string> fields;
  for (const ListTotal& total : list_.totals) fields.emplace_back(total.field);
  return fields;
}

std::vector<double> ListScreen::TotalsOfRows() const {
  std::vector<double> totals;
  for (const ListTotal& total : list_.totals) {
    totals.push_back(datPrimaryRS->Recordset().Total(total.field));
  }
  return totals;
}

void ListScreen::AddToTotals(std::vector<double>& totals, const Values& row) const {
  for (std::size_t i = 0; i < totals.size(); ++i) {
    if (!row[i].IsNull()) totals[i] += row[i].AsDouble();
  }
}

void ListScreen::ShowTotals(const std::vector<double>& totals) {
  for (std::size_t i = 0; i < totals.size(); ++i) {
    const ListTotal& total = list_.totals[i];
    grid_->SetFooter(total.field, QString::fromStdString(Format(totals[i], total.format)));
  }
}

std::vector<double> ListScreen::TotalsOfMarked() const {
  const Hourglass waiting;
  const Recordset& rows = datPrimaryRS->Recordset();
  std::vector<std::size_t> fields;
  for (const ListTotal& total : list_.totals) fields.push_back(rows.FieldIndex(total.field));
  std::vector<double> totals(fields.size());
  Values values(fields.size());
  for (const std::size_t row : grid_->SelectedRows()) {
    for (std::size_t i = 0; i < fields.size(); ++i) values[i] = rows.ValueAt(row, fields[i]);
    AddToTotals(totals, values);
  }
  for (double& total : totals) {
    MoneySum sum;
    sum.Add(total);
    total = sum.Total();
  }
  return totals;
}

void ListScreen::ShowTotalsOfMarked() {
  ShowTotals(TotalsOfMarked());
}

// Black on white with bold headings is how every list is printed; the grid keeps its colours.
void ListScreen::ListMarked(Procedure& running) {
  RunShort("Total", [this](Procedure&) { ShowTotalsOfMarked(); });
  running.line = 1;
  PreviewGridAfterSetup(grid_->Content(DataGrid::Rows::kMarked), grid_->PrintInfo(), windowTitle());
}

}  // namespace tevra
