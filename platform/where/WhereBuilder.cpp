#include "platform/where/WhereBuilder.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollArea>
#include <QShortcut>
#include <algorithm>
#include <utility>

#include "platform/forms/Buttons.h"
#include "platform/forms/FormsApplication.h"
#include "platform/system/MessageBox.h"
#include "platform/system/StandardError.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {
constexpr int kRowsOnShow = 5;
constexpr int kLongestName = 50;
}  // namespace

WhereBuilder::WhereBuilder(const char* name, QWidget* parent)
    : QGroupBox("Conditii", parent), lists_(this) {
  setObjectName(name);
}

WhereBuilder::~WhereBuilder() = default;

void WhereBuilder::SetUp(WhereDescription description) {
  description_ = std::move(description);
  lists_.SetConnectionString(description_.connection);
  auto* all = new QHBoxLayout(this);
  auto* left = new QVBoxLayout;
  all->addLayout(left, 1);
  BuildRows();
  left->addWidget(area_);
  cmdAdauga_ =
      MakeButton("cmdAdaugaConditie", "&Adauga conditie",
                 "Inca o conditie; se cauta inregistrarile care le indeplinesc pe toate", this);
  auto* below = new QHBoxLayout;
  below->addWidget(cmdAdauga_);
  below->addSpacing(16);
  left->addLayout(below);
  left->addStretch(1);
  if (!description_.settingsKey.empty()) {
    BuildSets();
    below->addStretch(1);
    below->addWidget(new QLabel("Set de conditii:", this));
    below->addWidget(cboSeturi_, 1);
    below->addWidget(cmdSalveazaSet_);
    below->addWidget(cmdStergeSet_);
  } else {
    below->addStretch(1);
  }
  connect(cmdAdauga_, &QPushButton::clicked, this,
          [this] { AfterEvent(this, [this] { AddAndEnter(); }); });
  auto* remove = new QShortcut(QKeySequence("Alt+Del"), this);
  remove->setContext(Qt::WidgetWithChildrenShortcut);
  connect(remove, &QShortcut::activated, this,
          [this] { AfterEvent(this, [this] { RemoveFocused(); }); });
  SetConditions({});
}

// Many rows scroll, so that the list below keeps its room.
void WhereBuilder::BuildRows() {
  area_ = new QScrollArea(this);
  area_->setWidgetResizable(true);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area_->setFocusPolicy(Qt::NoFocus);
  inside_ = new QWidget;
  column_ = new QVBoxLayout(inside_);
  column_->setContentsMargins(0, 0, 0, 0);
  column_->setSpacing(4);
  area_->setWidget(inside_);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now && inside_->isAncestorOf(now)) area_->ensureWidgetVisible(now, 0, 2);
  });
}

void WhereBuilder::BuildSets() {
  sets_ = std::make_unique<SavedConditions>(description_.settingsKey);
  cboSeturi_ = new QComboBox(this);
  cboSeturi_->setObjectName("cboSeturi");
  cboSeturi_->setEditable(true);
  cboSeturi_->setInsertPolicy(QComboBox::NoInsert);
  cboSeturi_->lineEdit()->setMaxLength(kLongestName);
  cboSeturi_->setMinimumWidth(160);
  cboSeturi_->setAccessibleName("Set de conditii");
  cboSeturi_->setToolTip("Numele sub care se salveaza conditiile; cele salvate se aleg din lista");
  cmdSalveazaSet_ =
      MakeButton("cmdSalveazaSet", "Sal&veaza", "Salveaza conditiile sub acest nume", this);
  cmdStergeSet_ =
      MakeButton("cmdStergeSet", "Sterge setul", "Sterge setul salvat sub acest nume", this);
  ShowNames({});
  connect(cboSeturi_, &QComboBox::activated, this,
          [this](int) { AfterEvent(this, [this] { LoadSet(); }); });
  connect(cmdSalveazaSet_, &QPushButton::clicked, this,
          [this] { AfterEvent(this, [this] { SaveSet(); }); });
  connect(cmdStergeSet_, &QPushButton::clicked, this,
          [this] { AfterEvent(this, [this] { RemoveSet(); }); });
}

// Shows a failure of `work`, which an event of the toolkit must not meet.
template <class Work>
void WhereBuilder::Told(Work work) {
  try {
    work();
  } catch (const std::exception&) {
    ShowMessage({ShortErrorText(CaughtFailure()), kCritical, {}, {}});
  }
}

// ---- Conditions ---------------------------------------------------------------------------------

std::optional<WhereClause> WhereBuilder::Clause() {
  std::vector<Condition> conditions;
  for (WhereRow* row : rows_) {
    try {
      conditions.push_back(row->Get());
      row->RequireTaken();
      (void)ClauseOf(description_.fields, {conditions.back()});
    } catch (const Failure& failure) {
      if (failure.Number() != kTypeMismatch) throw;
      ShowMessage({failure.Description() + " !", kExclamation, {}, {}});
      row->FirstBox()->setFocus();
      return std::nullopt;
    }
  }
  return ClauseOf(description_.fields, conditions);
}

std::vector<Condition> WhereBuilder::Conditions() const {
  std::vector<Condition> conditions;
  for (const WhereRow* row : rows_) {
    const Condition condition = row->Get();
    if (!IsBlank(condition)) conditions.push_back(condition);
  }
  return conditions;
}

void WhereBuilder::SetConditions(const std::vector<Condition>& conditions) {
  for (WhereRow* row : std::exchange(rows_, {})) Discard(row);
  for (const Condition& condition : conditions) {
    if (FindField(description_.fields, condition.field)) AddRow(condition);
  }
  if (rows_.empty()) AddRow({description_.first});
  Arrange();
}

// ---- Rows ---------------------------------------------------------------------------------------

WhereRow* WhereBuilder::AddRow(const Condition& condition) {
  auto* row = new WhereRow(description_.fields, lists_, inside_);
  rows_.push_back(row);
  column_->addWidget(row);
  row->SetPlace(static_cast<int>(rows_.size()) - 1);
  connect(row, &WhereRow::BoxesChanged, this, [this] { Arrange(); });
  connect(row, &WhereRow::Failed, this, [this](const QString& why) {
    AfterEvent(this, [why] { ShowMessage({why.toStdString(), kCritical, {}, {}}); });
    Arrange();
  });
  connect(row, &WhereRow::RemoveWanted, this,
          [this, row] { AfterEvent(row, [this, row] { RemoveRow(row); }); });
  row->Set(condition);
  row->show();
  return row;
}

// Until it is deleted, nothing finds its controls among those of the screen.
void WhereBuilder::Discard(WhereRow* row) {
  column_->removeWidget(row);
  row->hide();
  row->setParent(nullptr);
  row->deleteLater();
}

// The last row is emptied and stays.
void WhereBuilder::RemoveRow(WhereRow* row) {
  const auto found = std::find(rows_.begin(), rows_.end(), row);
  if (found == rows_.end()) return;
  if (rows_.size() == 1) {
    SetConditions({});
    FirstBox()->setFocus();
    return;
  }
  const auto place = static_cast<std::size_t>(found - rows_.begin());
  rows_.erase(found);
  Arrange();
  rows_[std::min(place, rows_.size() - 1)]->FirstBox()->setFocus();
  Discard(row);
}

// The list that a box drops down while one types would go on taking the keys.
void WhereBuilder::AddAndEnter() {
  if (QWidget* list = QApplication::activePopupWidget()) list->close();
  Told([this] {
    WhereRow* row = AddRow({description_.first});
    Arrange();
    inside_->adjustSize();
    row->Fields()->setFocus();
  });
}

void WhereBuilder::RemoveFocused() {
  for (WhereRow* row : rows_) {
    if (row->isAncestorOf(focusWidget())) return RemoveRow(row);
  }
}

// Names, the order of Tab, the room that the rows take.
void WhereBuilder::Arrange() {
  QWidget* before = nullptr;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    rows_[i]->SetPlace(static_cast<int>(i));
    for (QWidget* control : rows_[i]->Controls()) {
      if (before) setTabOrder(before, control);
      before = control;
    }
  }
  setTabOrder(before, cmdAdauga_);
  FitHeight();
}

void WhereBuilder::FitHeight() {
  const int rows = std::min(RowCount(), kRowsOnShow);
  int row = 0;  // the boxes of some fields are higher than those of others
  for (const WhereRow* each : rows_) row = std::max(row, each->sizeHint().height());
  area_->setFixedHeight(rows * row + (rows - 1) * column_->spacing());
}

void WhereBuilder::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter || qobject_cast<QAbstractButton*>(focusWidget())) {
    return QGroupBox::keyPressEvent(event);
  }
  emit SearchWanted();
}

// ---- Saved sets ---------------------------------------------------------------------------------

void WhereBuilder::ShowNames(const std::string& chosen) {
  cboSeturi_->clear();
  for (const std::string& name : sets_->Names()) cboSeturi_->addItem(QString::fromStdString(name));
  cboSeturi_->setCurrentIndex(cboSeturi_->findText(QString::fromStdString(chosen)));
  cboSeturi_->setEditText(QString::fromStdString(chosen));
}

void WhereBuilder::LoadSet() {
  Told([this] {
    const std::vector<Condition> conditions =
        sets_->Of(Trim(cboSeturi_->currentText().toStdString()));
    if (!conditions.empty()) SetConditions(conditions);
  });
}

void WhereBuilder::SaveSet() {
  const std::string name = Trim(cboSeturi_->currentText().toStdString());
  if (name.empty()) {
    ShowMessage({"Scrieti numele sub care se salveaza conditiile !", kExclamation, {}, {}});
    cboSeturi_->setFocus();
    return;
  }
  if (!Clause()) return;
  const std::vector<Condition> conditions = Conditions();
  if (conditions.empty()) {
    ShowMessage({"Nu exista nicio conditie de salvat !", kExclamation, {}, {}});
    return;
  }
  const std::string question =
      "Exista deja conditii salvate sub numele " + name + ". Le inlocuiti ?";
  if (sets_->Has(name) && sets_->Of(name) != conditions &&
      ShowMessage({question, kYesNo | kQuestion | kDefaultStep, {}, {}}) != kYes) {
    return;
  }
  Told([&] {
    sets_->Save(name, conditions);
    ShowNames(name);
  });
}

void WhereBuilder::RemoveSet() {
  const std::string name = Trim(cboSeturi_->currentText().toStdString());
  if (!sets_->Has(name)) {
    ShowMessage({"Nu exista conditii salvate sub numele " + name + " !", kExclamation, {}, {}});
    return;
  }
  const std::string question =
      "Sigur doriti sa stergeti conditiile salvate sub numele " + name + " ?";
  if (ShowMessage({question, kYesNo | kQuestion | kDefaultStep, {}, {}}) != kYes) return;
  Told([&] {
    sets_->Remove(name);
    ShowNames({});
  });
}

}  // namespace tevra
