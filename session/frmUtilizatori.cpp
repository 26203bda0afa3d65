#include "session/frmUtilizatori.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "session/Users.h"

namespace tevra {

namespace {

constexpr int kLongest = 10;
constexpr const char* kTypes[] = {"0 (Toate)", "1 (Culegeri + raportari)", "2 (Raportari)"};

std::vector<std::pair<Value, QString>> TypeList() {
  std::vector<std::pair<Value, QString>> list;
  for (int type = 0; type < static_cast<int>(std::size(kTypes)); ++type) {
    list.emplace_back(type, kTypes[type]);
  }
  return list;
}

}  // namespace

frmUtilizatori::frmUtilizatori(QWidget* parent) : Form("frmUtilizatori", "Utilizatori", parent) {
  datPrimaryRS = new Adodc("datPrimaryRS", this);
  Build();
  grdDataGrid->SetCellWriter(
      [this](int column, const Value& value, const std::function<void()>& write) {
        return grdDataGrid_BeforeColUpdate(column, value, write);
      });
  OnClick(cmdAdauga, "cmdAdauga_Click", [this](Procedure& running) { cmdAdauga_Click(running); });
  OnClick(cmdSterge, "cmdSterge_Click", [this](Procedure& running) { cmdSterge_Click(running); });
  connect(cmdIesire, &QPushButton::clicked, this, [this] { close(); });
  Form_Load();
  for (TextBox* box : {txtNume, txtParola}) MarkSaved(box);
}

frmUtilizatori::~frmUtilizatori() {
  datPrimaryRS->Close();
}

void frmUtilizatori::BuildInput() {
  fraInput = new QGroupBox("Utilizator", this);
  fraInput->setObjectName("fraInput");
  txtNume = new TextBox("txtNume", fraInput, kLongest);
  txtParola = new TextBox("txtParola", fraInput, kLongest);
  for (TextBox* box : {txtNume, txtParola}) box->setToolTip("Maxim 10 caractere alfanumerice");
  cboTip = new QComboBox(fraInput);
  cboTip->setObjectName("cboTip");
  for (const char* type : kTypes) cboTip->addItem(type);
  auto* row = new QHBoxLayout(fraInput);
  const auto add = [&](const char* caption, QWidget* box, int stretch) {
    auto* label = new QLabel(caption, fraInput);
    label->setBuddy(box);
    row->addWidget(label);
    row->addWidget(box, stretch);
  };
  add("&Nume", txtNume, 2);
  add("Parol&a", txtParola, 2);
  add("Tip", cboTip, 3);
}

void frmUtilizatori::Build() {
  BuildInput();
  grdDataGrid = new DataGrid("grdDataGrid", this);
  grdDataGrid->SetColumns({{"Nume", "NUME", {}, {}, 16},
                           {"Parola", "PAROLA", {}, {}, 16},
                           {"Tip", "TIP", {}, TypeList()}});
  grdDataGrid->SetAllowUpdate(true);
  grdDataGrid->SetDataSource(datPrimaryRS);

  cmdAdauga = MakeButton("cmdAdauga", "Adaugare", "Creare utilizator nou", this);
  cmdSterge = MakeButton("cmdSterge", "Stergere", "Stergere utilizator selectat", this);
  cmdIesire = MakeButton("cmdIesire", "Iesire", "Inchidere fereastra", this);
  cmdIesire->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  SetCancelButton(cmdIesire);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdAdauga);
  buttons->addWidget(cmdSterge);
  buttons->addStretch();
  buttons->addWidget(cmdIesire);

  auto* all = new QVBoxLayout(this);
  all->addWidget(fraInput);
  all->addWidget(grdDataGrid, 1);
  all->addLayout(buttons);
  // "Adaugare" comes next after the boxes that it reads.
  OrderTabs({txtNume, txtParola, cboTip, cmdAdauga, grdDataGrid->View(), cmdSterge, cmdIesire});
  setMinimumSize(520, 240);
  resize(620, 400);
  txtNume->setFocus();
}

void frmUtilizatori::Form_Load() {
  Run("Form_Load", [this](Procedure& procedure) {
    procedure.line = 1;
    datPrimaryRS->SetConnectionString(CurrentSession().connectionString);
    datPrimaryRS->SetRecordSource("select * from utilizatori order by nume");
    procedure.line = 3;
    datPrimaryRS->Refresh();
  });
}

bool frmUtilizatori::grdDataGrid_BeforeColUpdate(int column, const Value& value,
                                                 const std::function<void()>& write) {
  const std::string name = datPrimaryRS->Recordset().Get("NUME").TextOrEmpty();
  const std::string& field = grdDataGrid->Columns()[static_cast<std::size_t>(column)].field;
  return WriteUnlessRefused(
      [&](Connection& company) { return RefusalOfUserChange(company, name, field, value); }, write);
}

// The question is asked in the transaction that writes. The message waits until that is over: it
// must not keep other programs from writing.
bool frmUtilizatori::WriteUnlessRefused(
    const std::function<std::optional<std::string>(Connection& company)>& refusalOf,
    const std::function<void()>& write) {
  std::optional<std::string> refusal;
  {
    Transaction transaction(datPrimaryRS->GetConnection());
    refusal = refusalOf(datPrimaryRS->GetConnection());
    if (!refusal) {
      write();
      transaction.Commit();
    }
  }
  if (refusal) MsgBoxEx(*refusal, kCritical);
  return !refusal;
}

void frmUtilizatori::cmdAdauga_Click(Procedure& procedure) {
  const std::string name = Trim(txtNume->Text());
  const std::string password = Trim(txtParola->Text());
  if (name.empty()) {
    MsgBoxEx("Va rugam introduceti numele !", kCritical);
    return txtNume->setFocus();
  }
  if (password.empty()) {
    MsgBoxEx("Va rugam introduceti parola !", kCritical);
    return txtParola->setFocus();
  }
  procedure.line = 3;
  if (ExistaInTabela(name, "UTILIZATOR")) {
    MsgBoxEx("Acest nume de utilizator exista deja ! Adaugarea nu se poate efectua !", kCritical);
    return;
  }
  procedure.line = 4;
  Recordset& rows = datPrimaryRS->Recordset();
  rows.AddNew();
  try {
    rows.Set("NUME", name);
    rows.Set("PAROLA", password);
    rows.Set("TIP", Val(cboTip->currentText().toStdString()));
    rows.Update();
  } catch (const Failure&) {
    rows.CancelUpdate();
    throw;
  }
  datPrimaryRS->Notify();
  ClearFields();
}

void frmUtilizatori::cmdSterge_Click(Procedure& procedure) {
  if (!datPrimaryRS->HasRow()) return;
  const std::string name = grdDataGrid->ColumnText(grdDataGrid->ColumnOf("NUME"));
  ClearFields();
  procedure.line = 3;
  if (const auto refusal = RefusalOfUserDeletion(datPrimaryRS->GetConnection(), name)) {
    MsgBoxEx(*refusal, kCritical);
    return;
  }
  const long answer = MsgBoxEx("Sunteti sigur ca doriti sa stergeti utilizatorul : " + name + " ?",
                               kYesNo | kQuestion | kDefaultStep, "Confirmare stergere");
  if (answer != kYes) return;
  procedure.line = 5;
  Recordset& rows = datPrimaryRS->Recordset();
  // Another program may have changed the users while the question stood on the screen.
  const bool deleted =
      WriteUnlessRefused([&](Connection& company) { return RefusalOfUserDeletion(company, name); },
                         [&] { rows.Delete(); });
  if (!deleted) return;
  if (rows.Eof() && rows.RecordCount() > 0) rows.MoveLast();
  datPrimaryRS->Notify();
}

void frmUtilizatori::ClearFields() {
  txtNume->clear();
  txtParola->clear();
  cboTip->setCurrentIndex(0);
}

}  // namespace tevra
