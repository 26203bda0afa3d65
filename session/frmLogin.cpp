#include "session/frmLogin.h"

#include <QApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTableView>
#include <QVBoxLayout>

#include "platform/forms/FormsApplication.h"
#include "platform/forms/Hourglass.h"
#include "platform/forms/Pictures.h"
#include "platform/forms/frmProgress.h"
#include "platform/system/Desktop.h"
#include "platform/system/MessageBox.h"
#include "platform/system/Paths.h"
#include "platform/text/Strings.h"
#include "session/ApplicationFiles.h"
#include "session/Companies.h"
#include "session/Login.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "session/Version.h"

namespace tevra {

namespace {

// Longer than any name, so that a pasted text is not cut to a name that exists.
constexpr int kLongestTyped = 255;

// The key left of "1", whatever character it has.
bool IsUpgradeKey(const QKeyEvent& event) {
  constexpr quint32 kLeftOfOne = 49;
  if (event.nativeScanCode() != 0) return event.nativeScanCode() == kLeftOfOne;
  return event.key() == Qt::Key_QuoteLeft || event.key() == Qt::Key_AsciiTilde;
}

std::string BareName(const std::string& file) {
  const std::size_t slash = file.find_last_of("/\\");
  return slash == std::string::npos ? file : file.substr(slash + 1);
}

}  // namespace

frmLogin::frmLogin(StructureUpgrade upgrade)
    : Form("frmLogin", "Selectie Societate"), upgrade_(std::move(upgrade)) {
  source_ = new Adodc("datSocietati", this);
  Build();
  connect(TDBGrid1, &DataGrid::RowColChange, this, [this] { TDBGrid1_RowColChange(); });
  connect(TDBGrid1->View(), &QTableView::doubleClicked, txtUserName,
          [this] { txtUserName->setFocus(); });
  OnClick(cmdCauta, "cmdCauta_Click", [this](Procedure&) { cmdCauta_Click(); });
  connect(cmdOK, &QPushButton::clicked, this,
          [this] { AfterEvent(this, [this] { cmdOK_Click(); }); });
  connect(cmdCancel, &QPushButton::clicked, this, [this] { close(); });
  QApplication::instance()->installEventFilter(this);
  Form_Load();
}

frmLogin::~frmLogin() {
  source_->Close();
}

void frmLogin::Build() {
  TDBGrid1 = new DataGrid("TDBGrid1", this);
  TDBGrid1->SetColumns({{"Cod", "COD", {}, {}, 6},
                        {"Denumire", "DENUMIRE", {}, {}, 34},
                        {"Baza de date", "NUMEBD", {}, {}, 16}});
  TDBGrid1->SetDataSource(source_);
  TDBGrid1->setMinimumHeight(180);
  QWidget* server = BuildServer();
  auto* all = new QVBoxLayout(this);
  all->addWidget(TDBGrid1, 1);
  all->addWidget(server);
  all->addLayout(BuildUser());
  SetCancelButton(cmdCancel);
  QWidget* before = TDBGrid1->View();
  for (QWidget* next :
       std::initializer_list<QWidget*>{cmdCauta, txtUserName, txtPassword, cmdOK, cmdCancel}) {
    setTabOrder(before, next);
    before = next;
  }
  resize(560, 440);
}

QWidget* frmLogin::BuildServer() {
  Frame2 = new QGroupBox("Selectie server", this);
  Frame2->setObjectName("Frame2");
  Label1 = new QLabel(Frame2);
  Label1->setObjectName("Label1");
  Label1->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  Label1->setTextFormat(Qt::PlainText);
  cmdCauta = new QPushButton("Cautare", Frame2);
  cmdCauta->setObjectName("cmdCauta");
  cmdCauta->setToolTip("Selectati calea de acces la baza de date Kelnar.mdb");
  auto* row = new QHBoxLayout(Frame2);
  row->addWidget(Label1, 1);
  row->addWidget(cmdCauta);
  return Frame2;
}

QLayout* frmLogin::BuildUser() {
  txtUserName = new TextBox("txtUserName", this, kLongestTyped);
  txtUserName->setToolTip("Utilizator implicit, \"Admin\"");
  txtPassword = new TextBox("txtPassword", this, kLongestTyped);
  txtPassword->setToolTip("Parola implicita, \"1\"");
  txtPassword->setEchoMode(QLineEdit::Password);
  auto* boxes = new QFormLayout;
  boxes->addRow("&Utilizator", txtUserName);
  boxes->addRow("&Parola", txtPassword);

  cmdOK = new QPushButton("OK", this);
  cmdOK->setObjectName("cmdOK");
  cmdOK->setToolTip("Deschidere societate selectata");
  cmdOK->setIcon(PictureIcon("\\BMP\\OK.bmp"));
  cmdOK->setDefault(true);
  cmdCancel = new QPushButton("Iesire", this);
  cmdCancel->setObjectName("cmdCancel");
  cmdCancel->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  auto* buttons = new QVBoxLayout;
  for (QPushButton* button : {cmdOK, cmdCancel}) {
    button->setMinimumWidth(100);
    buttons->addWidget(button);
  }
  auto* row = new QHBoxLayout;
  row->setSpacing(18);
  row->addLayout(boxes, 1);
  row->addLayout(buttons);
  return row;
}

// ---- Directory and companies --------------------------------------------------------------------

void frmLogin::Form_Load() {
  Run("Form_Load", [this](Procedure& procedure) {
    procedure.line = 1;
    CurrentSession().databasesPath = GetDatabasesPath();
    procedure.line = 2;
    if (Trim(CurrentSession().databasesPath).empty() && !PrepareFirstStart()) return;
    procedure.line = 3;
    ShowDirectory();
    LoadSocietati();
  });
}

// A long path is shortened in the middle.
void frmLogin::ShowDirectory() {
  const QString path = QString::fromStdString(CurrentSession().databasesPath);
  Label1->setText(Label1->fontMetrics().elidedText(path, Qt::ElideMiddle, Label1->width()));
  // A tool tip interprets markup.
  Label1->setToolTip(Qt::mightBeRichText(path) ? "<span>" + path.toHtmlEscaped() + "</span>"
                                               : path);
}

void frmLogin::resizeEvent(QResizeEvent* event) {
  Form::resizeEvent(event);
  ShowDirectory();
}

void frmLogin::showEvent(QShowEvent* event) {
  Form::showEvent(event);
  ShowDirectory();
  (source_->HasRow() ? static_cast<QWidget*>(txtUserName) : cmdCauta)->setFocus();
}

void frmLogin::LoadSocietati() {
  if (ShowSocietati()) RebuildSocietati();
}

// True where the list could be made from the company files.
bool frmLogin::ShowSocietati() {
  LoadedCompanies loaded = tevra::LoadSocietati(CurrentSession().databasesPath);
  registry_ = std::move(loaded.registry);
  CurrentSession().selectedDatabase.clear();
  if (registry_) {
    source_->SetRecordset(registry_->Rows());
    source_->MoveFirst();
  } else {
    source_->Close();
  }
  TDBGrid1_RowColChange();
  if (loaded.failure) {
    MsgBoxEx(ShortErrorText(*loaded.failure) +
                 " : Eroare in deschidere Societat.dbf ! Linia: " + std::to_string(loaded.line),
             kCritical);
  }
  return loaded.rebuildable;
}

void frmLogin::RebuildSocietati() {
  const long answer = MsgBoxEx(
      "In director exista baze de date ale unor societati care nu sunt in lista !\nDoriti sa "
      "refaceti lista societatilor din aceste baze de date ?\nO lista deteriorata se pastreaza in "
      "directorul Salv_Tevra.",
      kYesNo | kQuestion | kDefaultStep, "Lista societatilor");
  if (answer != kYes) return;
  Run("RebuildRegistry", [this](Procedure& procedure) {
    procedure.line = 1;
    RebuildRegistry(CurrentSession().databasesPath);
    procedure.line = 2;
    ShowSocietati();
  });
}

void frmLogin::TDBGrid1_RowColChange() {
  Session& session = CurrentSession();
  session.selectedDatabase = session.selectedCompany = "";
  if (!source_->HasRow()) return;
  session.selectedDatabase = source_->Recordset().Get("NUMEBD").TextOrEmpty();
  session.selectedCompany = source_->Recordset().Get("DENUMIRE").TextOrEmpty();
}

// The last name is in mixed case and never met by one in capitals: company 01 alone does not tell a
// directory of companies, unless it is the current row.
bool frmLogin::IsDatabaseName(const std::string& name) const {
  return name == UCase(CurrentSession().selectedDatabase) || name == UCase("Kelnar.MDB") ||
         name == "Kelnar01.MDB";
}

void frmLogin::cmdCauta_Click() {
  const std::string& path = CurrentSession().databasesPath;
  // The machine's own spelling: a dialog that does not know "\\" would open the folder above.
  const auto chosen =
      AskOpenFile({"Select Database", "KELNAR.MDB|*MDB",
                   (path.empty() ? ApplicationDirectory() : paths::Resolve(path)).string()});
  if (chosen) {
    const std::string name = BareName(*chosen);
    if (chosen->find(';') != std::string::npos) {
      MsgBoxEx("Numele directorului nu poate contine caracterul \";\" !", kCritical);
    } else if (IsDatabaseName(UCase(name))) {
      SaveDatabasesPath(chosen->substr(0, chosen->size() - name.size()));
      ShowDirectory();
      LoadSocietati();
    } else {
      MsgBoxEx("Eroare selectare BD!");
    }
  }
  TDBGrid1->setFocus();
}

// ---- Login --------------------------------------------------------------------------------------

// Nothing when the query failed; a message has said why.
std::optional<bool> frmLogin::Asked(const char* procedure, const std::function<bool()>& question) {
  std::optional<bool> answer;
  Run(procedure, [&](Procedure& running) {
    running.line = 1;
    answer = question();
  });
  return answer;
}

void frmLogin::cmdOK_Click() {
  Session& session = CurrentSession();
  if (session.selectedDatabase.empty()) {
    MsgBoxEx("Va rugam selectati o societate !", kCritical);
    return;
  }
  session.connectionString =
      CompanyConnectionString(session.databasesPath, session.selectedDatabase);
  const std::string user = txtUserName->Text();
  const auto exists = Asked("ExistaUtilizator", [&] { return ExistaUtilizator(user); });
  if (!exists) return;
  if (!*exists) {
    MsgBoxEx("Utilizatorul " + user + " nu exista !", kCritical);
    return txtUserName->setFocus();
  }
  const std::string password = txtPassword->Text();
  const auto fits = Asked("ParolaValida", [&] { return ParolaValida(user, password); });
  if (!fits) return;
  if (!*fits) {
    MsgBoxEx("Parola nu este corecta !", kCritical);
    txtPassword->selectAll();
    return txtPassword->setFocus();
  }
  session.userName = user;
  VerificaVersiune();
  Run("cmdOK_Click", [this](Procedure& procedure) { CompleteLogin(procedure); });
}

// A step of Module1; its failures have its name.
bool frmLogin::RunOfModule(const char* name, const std::function<void()>& step) {
  try {
    step();
    return true;
  } catch (const std::exception&) {
    const Procedure procedure{name, "Module", "Module1", 1};
    ShowStandardError(CaughtFailure(procedure), procedure);
    return false;
  }
}

void frmLogin::CompleteLogin(Procedure& procedure) {
  Session& session = CurrentSession();
  procedure.line = 7;
  if (!RunOfModule("TipUtilizator", [&] { session.userType = TipUtilizator(session.userName); })) {
    return;
  }
  session.companyName = Nz(TDBGrid1->ColumnText(TDBGrid1->ColumnOf("DENUMIRE")), "").TextOrEmpty();
  succeeded_ = true;
  RunOfModule("LoadParametri", [] { LoadParametri(); });
  procedure.line = 10;
  close();
}

// False when the user cancelled: the structure is then the old one.
bool frmLogin::RunUpgrade() {
  const Hourglass hourglass;
  frmProgress window("Actualizare baza de date", {"Tabela %1 din %2", "Tabela %1"}, this);
  try {
    upgrade_(window.Asked());
    return true;
  } catch (const GivenUp&) {
    return false;
  }
}

void frmLogin::VerificaVersiune() {
  const char* kTitle = "Actualizare baza de date";
  const auto failed = [](const Failure& failure, const Procedure&) {
    MsgBoxEx(ShortErrorText(failure) + " : Eroare in actualizarea bazei de date !", kCritical,
             "Verificat Versiune");
  };
  RunWith(
      "VerificaVersiune",
      [&](Procedure&) {
        if (!forcedUpgrade_ && !StructuraDiferita()) return;
        const long answer =
            MsgBoxEx("Structura bazei de date " + CurrentSession().selectedDatabase +
                         " trebuie actualizata !\n Doriti sa efectuati actualizarea acum ?",
                     kYesNo | kQuestion, kTitle);
        if (answer != kYes) return;
        if (RunUpgrade()) MsgBoxEx("Actualizarea bazei de date s-a incheiat !", kInformation);
      },
      failed);
}

bool frmLogin::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && watched->isWidgetType() &&
      static_cast<QWidget*>(watched)->window() == this &&
      IsUpgradeKey(*static_cast<QKeyEvent*>(event))) {
    forcedUpgrade_ = true;
  }
  return Form::eventFilter(watched, event);
}

}  // namespace tevra
