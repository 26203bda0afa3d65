#include "session/frmUtilizatori.h"

#include "platform/screens/InputFrame.h"
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

frmUtilizatori::frmUtilizatori(QWidget* parent)
    : ListScreen("frmUtilizatori", "Utilizatori", parent) {
  BuildInput();
  Open(Describe());
  grdDataGrid = Grid();
  grdDataGrid->SetCellWriter(
      [this](int column, const Value& value, const std::function<void()>& write) {
        return grdDataGrid_BeforeColUpdate(column, value, write);
      });
}

void frmUtilizatori::BuildInput() {
  fraInput = MakeInputFrame("fraInput", "Utilizator", this);
  txtNume = new TextBox("txtNume", fraInput, kLongest);
  txtParola = new TextBox("txtParola", fraInput, kLongest);
  for (TextBox* box : {txtNume, txtParola}) box->setToolTip("Maxim 10 caractere alfanumerice");
  cboTip = new QComboBox(fraInput);
  cboTip->setObjectName("cboTip");
  for (const char* type : kTypes) cboTip->addItem(type);
  PlaceBoxes(fraInput, {{"&Nume", txtNume, 2}, {"Parol&a", txtParola, 2}, {"Tip", cboTip, 3}}, 3);
}

ListDescription frmUtilizatori::Describe() {
  using Role = ListButton::Role;
  ListDescription list;
  list.grid = "grdDataGrid";
  list.connection = CurrentSession().connectionString;
  list.statement = "select * from utilizatori order by nume";
  list.columns = {{"Nume", "NUME", {}, {}, 16},
                  {"Parola", "PAROLA", {}, {}, 16},
                  {"Tip", "TIP", {}, TypeList()}};
  list.editable = true;
  list.above = fraInput;
  list.boxes = {txtNume, txtParola, cboTip};
  list.buttons = {{&cmdAdauga, "cmdAdauga", "Adaugare", "Creare utilizator nou",
                   [this](Procedure& running) { cmdAdauga_Click(running); }, Role::kAdd},
                  {&cmdSterge, "cmdSterge", "Stergere", "Stergere utilizator selectat",
                   [this](Procedure& running) { cmdSterge_Click(running); }, Role::kPlain, true},
                  {&cmdIesire, "cmdIesire", "Iesire", "Inchidere fereastra", {}, Role::kClose}};
  list.least = {520, 240};
  list.size = {620, 400};
  return list;
}

bool frmUtilizatori::grdDataGrid_BeforeColUpdate(int column, const Value& value,
                                                 const std::function<void()>& write) {
  const std::string name = datPrimaryRS->Recordset().Get("NUME").TextOrEmpty();
  const std::string& field = grdDataGrid->Columns()[static_cast<std::size_t>(column)].field;
  return WriteUnlessRefused(
      [&](Connection& company) { return RefusalOfUserChange(company, name, field, value); }, write);
}

// The rules are asked in the transaction that writes. The message waits until that is over: it must
// not keep other programs from writing.
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
    return GiveFocus(txtNume);
  }
  if (password.empty()) {
    MsgBoxEx("Va rugam introduceti parola !", kCritical);
    return GiveFocus(txtParola);
  }
  procedure.line = 3;
  if (ExistaInTabela(name, "UTILIZATOR")) {
    MsgBoxEx("Acest nume de utilizator exista deja ! Adaugarea nu se poate efectua !", kCritical);
    return;
  }
  procedure.line = 4;
  AddRow({{"NUME", name}, {"PAROLA", password}, {"TIP", Val(cboTip->currentText().toStdString())}});
  ClearFields();
}

void frmUtilizatori::cmdSterge_Click(Procedure& procedure) {
  if (!datPrimaryRS->HasRow()) return;
  const std::string name = Text("NUME");
  ClearFields();
  procedure.line = 3;
  if (const auto refusal = RefusalOfUserDeletion(datPrimaryRS->GetConnection(), name)) {
    MsgBoxEx(*refusal, kCritical);
    return;
  }
  if (!AskToDelete("Sunteti sigur ca doriti sa stergeti utilizatorul : " + name + " ?")) return;
  procedure.line = 5;
  // Another program may have changed the users while the question stood on the screen.
  const bool deleted =
      WriteUnlessRefused([&](Connection& company) { return RefusalOfUserDeletion(company, name); },
                         [this] { datPrimaryRS->Recordset().Delete(); });
  if (deleted) ShowWithoutDeleted();
}

void frmUtilizatori::ClearFields() {
  txtNume->clear();
  txtParola->clear();
  cboTip->setCurrentIndex(0);
}

}  // namespace tevra
