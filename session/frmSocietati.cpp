#include "session/frmSocietati.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Strings.h"
#include "session/Companies.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {
constexpr int kLongestName = 50;
constexpr const char* kFirstCompany = "01";
}  // namespace

frmSocietati::frmSocietati(QWidget* parent) : Form("frmSocietati", "Societati", parent) {
  source_ = new Adodc("datSocietati", this);
  Build();
  connect(cmdAdauga, &QPushButton::clicked, this, [this] { cmdAdauga_Click(); });
  connect(cmdSterge, &QPushButton::clicked, this, [this] { cmdSterge_Click(); });
  connect(cmdIesire, &QPushButton::clicked, this, [this] { close(); });
  TDBGrid1->SetBeforeColUpdate([this](int, const QString&, const QString& text) {
    if (text.trimmed().isEmpty()) {
      MsgBoxEx("Va rugam completati denumirea societatii  !", kCritical);
      return false;
    }
    return RunShort("TDBGrid1_BeforeColUpdate",
                    [&](Procedure&) { CompanyRegistry::CheckName(text.toStdString()); });
  });
  Form_Load();
  for (TextBox* box : {txtCod, txtDenumire}) MarkSaved(box);
}

frmSocietati::~frmSocietati() {
  source_->Close();
}

void frmSocietati::Build() {
  TDBGrid1 = new DataGrid("TDBGrid1", this);
  TDBGrid1->SetColumns({{"Cod", "COD", {}, {}, 6, true},
                        {"Denumire", "DENUMIRE", {}, {}, 36},
                        {"Baza de date", "NUMEBD", {}, {}, 16, true}});
  TDBGrid1->SetAllowUpdate(true);
  TDBGrid1->SetDataSource(source_);

  fraInput = new QGroupBox("Societate noua", this);
  fraInput->setObjectName("fraInput");
  txtCod = new TextBox("txtCod", fraInput, 2);
  txtCod->setToolTip("Cod societate, maxim 2 caractere alfanumerice");
  txtCod->setValidator(
      new QRegularExpressionValidator(QRegularExpression("[0-9A-Za-z]{0,2}"), txtCod));
  txtCod->setMaximumWidth(70);
  txtDenumire = new TextBox("txtDenumire", fraInput, kLongestName);
  txtDenumire->setToolTip("Denumire societate, maxim 50 caractere");
  auto* boxes = new QFormLayout(fraInput);
  boxes->addRow("&Cod", txtCod);
  boxes->addRow("&Denumire", txtDenumire);

  cmdAdauga = MakeButton("cmdAdauga", "Adaugare", "Creare societate noua", this);
  cmdSterge = MakeButton("cmdSterge", "Stergere", "Stergere societate selectata", this);
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
  all->addWidget(TDBGrid1, 1);
  all->addLayout(buttons);
  OrderTabs({txtCod, txtDenumire, cmdAdauga, TDBGrid1->View(), cmdSterge, cmdIesire});
  setMinimumSize(480, 240);
  resize(580, 430);
  txtCod->setFocus();
}

void frmSocietati::Form_Load() {
  Run("Form_Load", [this](Procedure& procedure) {
    procedure.line = 1;
    registry_ = CompanyRegistry::Load(CurrentSession().databasesPath);
    procedure.line = 3;
    source_->SetRecordset(registry_->Rows());
    source_->MoveFirst();
  });
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
    return txtCod->setFocus();
  }
  if (name.empty()) {
    MsgBoxEx("Va rugam completati denumirea societatii  !", kCritical);
    return txtDenumire->setFocus();
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
  txtCod->setFocus();
}

// What other programs entered or took away meanwhile has come into the list too.
void frmSocietati::ShowRegistry(const std::string& code) {
  if (!registry_) return;
  Recordset& rows = source_->Recordset();
  rows.MoveFirst();
  if (!code.empty()) rows.Find("COD = '" + code + "'");
  if (rows.Eof()) rows.MoveFirst();
  source_->Notify();
}

Company frmSocietati::Selected() const {
  const auto text = [this](const char* field) {
    return TDBGrid1->ColumnText(TDBGrid1->ColumnOf(field));
  };
  return {text("COD"), text("DENUMIRE"), text("NUMEBD")};
}

void frmSocietati::cmdSterge_Click() {
  if (!source_->HasRow()) return;
  const Company doomed = Selected();
  if (doomed.cod == kFirstCompany) {
    MsgBoxEx("Societatea cu codul 01 nu se poate sterge !", kCritical);
    return;
  }
  const long answer = MsgBoxEx("Sunteti sigur ca doriti sa stergeti societatea : " + doomed.cod +
                                   " - " + doomed.denumire + " si baza de date aferenta ?",
                               kYesNo | kQuestion | kDefaultStep, "Confirmare stergere");
  if (answer != kYes) return;
  const bool done = Run("cmdSterge_Click", [&](Procedure& procedure) {
    procedure.line = 4;
    StergeSocietate(*registry_, CurrentSession().databasesPath, doomed);
  });
  ShowRegistry(done ? std::string() : doomed.cod);
}

}  // namespace tevra
