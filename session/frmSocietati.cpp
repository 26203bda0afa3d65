#include "session/frmSocietati.h"

#include <QRegularExpressionValidator>

#include "platform/screens/InputFrame.h"
#include "platform/text/Strings.h"
#include "session/Companies.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {
constexpr int kLongestName = 50;
constexpr const char* kFirstCompany = "01";
}  // namespace

frmSocietati::frmSocietati(QWidget* parent) : ListScreen("frmSocietati", "Societati", parent) {
  BuildInput();
  Open(Describe());
  TDBGrid1 = Grid();
  TDBGrid1->SetBeforeColUpdate(
      [this](int, const QString&, const QString& text) { return TDBGrid1_BeforeColUpdate(text); });
}

void frmSocietati::BuildInput() {
  fraInput = MakeInputFrame("fraInput", "Societate noua", this);
  txtCod = new TextBox("txtCod", fraInput, 2);
  txtCod->setToolTip("Cod societate, maxim 2 caractere alfanumerice");
  txtCod->setValidator(
      new QRegularExpressionValidator(QRegularExpression("[0-9A-Za-z]{0,2}"), txtCod));
  txtCod->setMaximumWidth(70);
  txtDenumire = new TextBox("txtDenumire", fraInput, kLongestName);
  txtDenumire->setToolTip("Denumire societate, maxim 50 caractere");
  PlaceBoxes(fraInput, {{"&Cod", txtCod}, {"&Denumire", txtDenumire}}, 1);
}

ListDescription frmSocietati::Describe() {
  using Role = ListButton::Role;
  ListDescription list;
  list.columns = {{"Cod", "COD", {}, {}, 6, true},
                  {"Denumire", "DENUMIRE", {}, {}, 36},
                  {"Baza de date", "NUMEBD", {}, {}, 16, true}};
  list.editable = true;
  list.above = fraInput;
  list.boxes = {txtCod, txtDenumire};
  list.buttons = {
      {&cmdAdauga, "cmdAdauga", "Adaugare", "Creare societate noua",
       [this](Procedure&) { Run("Adauga societate", [this](Procedure&) { cmdAdauga_Click(); }); },
       Role::kAdd},
      {&cmdSterge, "cmdSterge", "Stergere", "Stergere societate selectata",
       [this](Procedure&) { cmdSterge_Click(); }, Role::kPlain, true},
      {&cmdIesire, "cmdIesire", "Iesire", "Inchidere fereastra", {}, Role::kClose}};
  list.size = {580, 430};
  return list;
}

void frmSocietati::ReadRows() {
  registry_ = CompanyRegistry::Load(CurrentSession().databasesPath);
  datPrimaryRS->SetRecordset(registry_->Rows());
  datPrimaryRS->MoveFirst();
}

bool frmSocietati::TDBGrid1_BeforeColUpdate(const QString& text) {
  if (text.trimmed().isEmpty()) {
    MsgBoxEx("Va rugam completati denumirea societatii  !", kCritical);
    return false;
  }
  return RunShort("TDBGrid1_BeforeColUpdate",
                  [&](Procedure&) { CompanyRegistry::CheckName(text.toStdString()); });
}

// What was changed in the grid reaches the file. A list that nobody changed writes nothing: its
// directory may be read-only. A registry that could not be read is left alone.
void frmSocietati::Form_Unload() {
  if (registry_ && registry_->IsChanged()) SaveRegistry(*registry_, CurrentSession().databasesPath);
}

bool frmSocietati::ExistaCodSocietate(const std::string& code) const {
  return registry_->Find(UCase(code)).has_value();
}

void frmSocietati::cmdAdauga_Click() {
  const std::string code = Trim(txtCod->Text());
  const std::string name = Trim(txtDenumire->Text());
  if (code.empty()) {
    MsgBoxEx("Va rugam completati codul societatii  !", kCritical);
    return GiveFocus(txtCod);
  }
  if (name.empty()) {
    MsgBoxEx("Va rugam completati denumirea societatii  !", kCritical);
    return GiveFocus(txtDenumire);
  }
  bool there = true;
  const bool asked = Run("ExistaCodSocietate", [&](Procedure& procedure) {
    procedure.line = 1;
    if (!registry_) throw Failure(kObjectRequired, "Object required");
    there = ExistaCodSocietate(code);
  });
  if (!asked) return;
  if (there) {
    MsgBoxEx("Acest cod de societate exista deja ! Adaugarea nu se poate efectua !", kCritical);
    return;
  }
  const bool added = Run("AdaugaSocietate", [&](Procedure& procedure) {
    const std::string& directory = CurrentSession().databasesPath;
    procedure.line = 1;
    const auto existing = AskAboutExistingFile(directory, code);
    there = !existing;
    if (there) return;
    procedure.line = 2;
    AdaugaSocietate(*registry_, directory, code, name, *existing);
  });
  if (there) return;
  ShowRegistry(added ? UCase(code) : Selected().cod);
  if (!added) return;
  txtCod->clear();
  txtDenumire->clear();
  GiveFocus(txtCod);
}

// The list now also has the changes that other programs made meanwhile.
void frmSocietati::ShowRegistry(const std::string& code) {
  if (!registry_) return;
  Recordset& rows = datPrimaryRS->Recordset();
  rows.MoveFirst();
  if (!code.empty()) rows.Find("COD = '" + code + "'");
  if (rows.Eof()) rows.MoveFirst();
  datPrimaryRS->Notify();
}

Company frmSocietati::Selected() const {
  return {Text("COD"), Text("DENUMIRE"), Text("NUMEBD")};
}

void frmSocietati::cmdSterge_Click() {
  if (!datPrimaryRS->HasRow()) return;
  const Company doomed = Selected();
  if (doomed.cod == kFirstCompany) {
    MsgBoxEx("Societatea cu codul 01 nu se poate sterge !", kCritical);
    return;
  }
  if (!AskToDelete("Sunteti sigur ca doriti sa stergeti societatea : " + doomed.cod + " - " +
                   doomed.denumire + " si baza de date aferenta ?")) {
    return;
  }
  const bool done = Run("cmdSterge_Click", [&](Procedure& procedure) {
    procedure.line = 4;
    StergeSocietate(*registry_, CurrentSession().databasesPath, doomed);
  });
  ShowRegistry(done ? std::string() : doomed.cod);
}

}  // namespace tevra
