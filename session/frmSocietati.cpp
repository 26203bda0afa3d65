#include "session/frmSocietati.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

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
  TDBGrid1->SetBeforeColUpdate([](int, const QString&, const QString& text) {
    if (!text.trimmed().isEmpty()) return true;
    MsgBoxEx("Va rugam completati denumirea societatii  !", kCritical);
    return false;
  });
  Form_Load();
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

  const auto button = [this](const char* name, const char* caption, const char* tip) {
    auto* made = new QPushButton(caption, this);
    made->setObjectName(name);
    made->setToolTip(tip);
    made->setMinimumWidth(100);
    return made;
  };
  cmdAdauga = button("cmdAdauga", "Adaugare", "Creare societate noua");
  cmdAdauga->setDefault(true);
  cmdSterge = button("cmdSterge", "Stergere", "Stergere societate selectata");
  cmdIesire = button("cmdIesire", "Iesire", "Inchidere fereastra");
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
  setMinimumSize(480, 320);
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

// What was changed in the grid reaches the file; a registry that could not be read is left alone.
void frmSocietati::Form_Unload() {
  if (registry_) SaveRegistry(*registry_, CurrentSession().databasesPath);
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
  Run("AdaugaSocietate", [&](Procedure& procedure) {
    if (!registry_) throw Failure(kObjectRequired, "Object required");
    procedure.line = 1;
    if (ExistaCodSocietate(code)) {
      MsgBoxEx("Acest cod de societate exista deja ! Adaugarea nu se poate efectua !", kCritical);
      return;
    }
    procedure.line = 2;
    AdaugaSocietate(*registry_, CurrentSession().databasesPath, code, name);
    source_->Notify();
    txtCod->clear();
    txtDenumire->clear();
    txtCod->setFocus();
  });
}

void frmSocietati::cmdSterge_Click() {
  if (!source_->HasRow()) return;
  const std::string code = TDBGrid1->ColumnText(TDBGrid1->ColumnOf("COD"));
  if (code == kFirstCompany) {
    MsgBoxEx("Societatea cu codul 01 nu se poate sterge !", kCritical);
    return;
  }
  const std::string name = TDBGrid1->ColumnText(TDBGrid1->ColumnOf("DENUMIRE"));
  const long answer = MsgBoxEx("Sunteti sigur ca doriti sa stergeti societatea : " + code + " - " +
                                   name + " si baza de date aferenta ?",
                               kYesNo | kQuestion, "Confirmare stergere");
  if (answer != kYes) return;
  Run("cmdSterge_Click", [&](Procedure& procedure) {
    procedure.line = 4;
    StergeSocietate(*registry_, CurrentSession().databasesPath, code);
    source_->Notify();
    source_->MoveFirst();
  });
}

}  // namespace tevra
