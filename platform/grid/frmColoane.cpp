#include "platform/grid/frmColoane.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/forms/Buttons.h"

namespace tevra {

frmColoane::frmColoane(const std::vector<ColumnChoice>& choices, const QString& title)
    : Form("frmColoane", "Coloane - " + title) {
  Build();
  for (const ColumnChoice& choice : choices) {
    auto* item = new QListWidgetItem(choice.caption, lstColoane);
    item->setData(Qt::UserRole, choice.column);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
                   Qt::ItemIsDragEnabled);
    item->setCheckState(choice.shown ? Qt::Checked : Qt::Unchecked);
  }
  lstColoane->setCurrentRow(0);
  OnClick(cmdSus, "cmdSus_Click", [this](Procedure&) { Move(-1); });
  OnClick(cmdJos, "cmdJos_Click", [this](Procedure&) { Move(1); });
  OnClick(cmdToate, "cmdToate_Click", [this](Procedure&) { SetAll(Qt::Checked); });
  OnClick(cmdNiciuna, "cmdNiciuna_Click", [this](Procedure&) { SetAll(Qt::Unchecked); });
  OnClick(cmdAccept, "cmdAccept_Click", [this](Procedure&) {
    accepted_ = true;
    close();
  });
  OnClick(cmdRenunta, "cmdRenunta_Click", [this](Procedure&) { close(); });
  connect(lstColoane, &QListWidget::itemChanged, this, [this] { FollowChoice(); });
  connect(lstColoane, &QListWidget::currentRowChanged, this, [this] { FollowChoice(); });
  connect(lstColoane->model(), &QAbstractItemModel::rowsMoved, this, [this] { FollowChoice(); });
  FollowChoice();
}

void frmColoane::Build() {
  lstColoane = new QListWidget(this);
  lstColoane->setObjectName("lstColoane");
  lstColoane->setDragDropMode(QAbstractItemView::InternalMove);
  lstColoane->setAlternatingRowColors(true);
  auto* hint = new QLabel("Coloanele &bifate se vad, in aceasta ordine:", this);
  hint->setBuddy(lstColoane);
  cmdSus = MakeButton("cmdSus", "Mai &sus", "Muta coloana spre stanga listei", this);
  cmdJos = MakeButton("cmdJos", "Mai &jos", "Muta coloana spre dreapta listei", this);
  cmdToate = MakeButton("cmdToate", "&Toate", "Bifeaza toate coloanele", this);
  cmdNiciuna = MakeButton("cmdNiciuna", "&Niciuna", "Sterge toate bifele", this);
  cmdAccept = MakeButton("cmdAccept", "&Accept", "Arata lista asa", this);
  cmdRenunta = MakeButton("cmdRenunta", "&Renunta", "Lasa lista cum este", this);
  cmdAccept->setDefault(true);
  SetCancelButton(cmdRenunta);
  auto* buttons = new QVBoxLayout;
  for (QPushButton* each : {cmdSus, cmdJos}) buttons->addWidget(each);
  buttons->addSpacing(12);
  for (QPushButton* each : {cmdToate, cmdNiciuna}) buttons->addWidget(each);
  buttons->addStretch();
  for (QPushButton* each : {cmdAccept, cmdRenunta}) buttons->addWidget(each);
  auto* middle = new QHBoxLayout;
  middle->addWidget(lstColoane, 1);
  middle->addLayout(buttons);
  auto* all = new QVBoxLayout(this);
  all->addWidget(hint);
  all->addLayout(middle, 1);
  resize(480, 520);
}

std::vector<ColumnChoice> frmColoane::Choices() const {
  std::vector<ColumnChoice> choices;
  for (int row = 0; row < lstColoane->count(); ++row) {
    const QListWidgetItem* item = lstColoane->item(row);
    choices.push_back(
        {item->data(Qt::UserRole).toInt(), item->text(), item->checkState() == Qt::Checked});
  }
  return choices;
}

void frmColoane::Move(int by) {
  const int row = lstColoane->currentRow();
  const int to = row + by;
  if (row < 0 || to < 0 || to >= lstColoane->count()) return;
  QListWidgetItem* item = lstColoane->takeItem(row);
  lstColoane->insertItem(to, item);
  lstColoane->setCurrentRow(to);
}

void frmColoane::SetAll(Qt::CheckState state) {
  for (int row = 0; row < lstColoane->count(); ++row) lstColoane->item(row)->setCheckState(state);
}

// A list without columns would offer nothing to show them again.
void frmColoane::FollowChoice() {
  const std::vector<ColumnChoice> choices = Choices();
  cmdAccept->setEnabled(std::any_of(choices.begin(), choices.end(),
                                    [](const ColumnChoice& choice) { return choice.shown; }));
  cmdSus->setEnabled(lstColoane->currentRow() > 0);
  cmdJos->setEnabled(lstColoane->currentRow() >= 0 &&
                     lstColoane->currentRow() + 1 < lstColoane->count());
}

std::optional<std::vector<ColumnChoice>> ChooseFrom(const std::vector<ColumnChoice>& choices,
                                                    const QString& title, QWidget* parent) {
  frmColoane form(choices, title);
  if (parent) form.move(parent->mapToGlobal(QPoint(60, 60)));
  form.ShowModal();
  if (!form.Accepted()) return std::nullopt;
  return form.Choices();
}

}  // namespace tevra
