#include "care/frmRestaurare.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <optional>

#include "care/Backup.h"
#include "care/BackupName.h"
#include "care/Restore.h"
#include "platform/forms/Buttons.h"
#include "platform/forms/FormsApplication.h"
#include "platform/forms/Hourglass.h"
#include "platform/forms/Pictures.h"
#include "platform/forms/frmProgress.h"
#include "platform/system/Desktop.h"
#include "platform/system/MessageBox.h"
#include "platform/system/Paths.h"
#include "platform/text/Strings.h"
#include "reports/DataEnv.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

// The form's name in it is that of another screen; users know the text so.
void ShowFailure(const Failure& failure, const Procedure& procedure) {
  MsgBoxEx("Error " + std::to_string(failure.Number()) + " (" + failure.Description() +
               ") in procedure " + procedure.name +
               " of Form frmImport Linia: " + std::to_string(procedure.line),
           kCritical);
}

// A file that cannot be read has no content to compare; it is replaced without a question.
std::optional<CompanyContent> ContentOf(const fs::path& file) {
  try {
    return Inspect(file);
  } catch (const Failure&) {
    return std::nullopt;
  }
}

}  // namespace

frmRestaurare::frmRestaurare(QWidget* parent)
    : Form("frmRestaurare", "Restaurare baza de date ...", parent) {
  Build();
  txtDirector->SetText(CurrentSession().databasesPath + "SALV_Tevra\\");
  const auto onClick = [this](QPushButton* button, const char* name, auto handler) {
    const auto run = [this, name, handler] {
      RunWith(
          name, [&](Procedure& running) { (this->*handler)(running); }, ShowFailure);
    };
    connect(button, &QPushButton::clicked, this, [this, run] { AfterEvent(this, run); });
  };
  onClick(cmdGetSourceSpec1, "cmdGetSourceSpec1_Click", &frmRestaurare::cmdGetSourceSpec1_Click);
  onClick(cmdOK, "cmdOK_Click", &frmRestaurare::cmdOK_Click);
  connect(cmdIesire, &QPushButton::clicked, this, [this] { close(); });
  OnLeave(txtSourceSpec1, "txtSourceSpec1_LostFocus", [this](Procedure&) {
    ShowContent();
    return true;
  });
}

void frmRestaurare::Build() {
  auto* all = new QVBoxLayout(this);
  all->addLayout(BuildBoxes());
  lblContinut = new QLabel(this);
  lblContinut->setObjectName("lblContinut");
  lblContinut->setTextFormat(Qt::PlainText);
  lblContinut->setWordWrap(true);
  lblContinut->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  lblContinut->setMinimumHeight(4 * fontMetrics().lineSpacing());
  all->addWidget(lblContinut, 1);
  lblProgressMsg = new QLabel("Restaurare in curs, va rugam asteptati ......", this);
  lblProgressMsg->setObjectName("lblProgressMsg");
  QSizePolicy place = lblProgressMsg->sizePolicy();
  place.setRetainSizeWhenHidden(true);
  lblProgressMsg->setSizePolicy(place);
  lblProgressMsg->hide();
  all->addWidget(lblProgressMsg);
  all->addLayout(BuildButtons());
  OrderTabs({txtDirector, txtSourceSpec1, cmdGetSourceSpec1, cmdOK, cmdIesire});
  txtSourceSpec1->setFocus();
  resize(620, 250);
}

QLayout* frmRestaurare::BuildBoxes() {
  txtDirector = new TextBox("txtDirector", this);
  txtDirector->setToolTip("Directorul in care se cauta un fisier scris fara director");
  txtSourceSpec1 = new TextBox("txtSourceSpec1", this);
  txtSourceSpec1->setToolTip("Salvarea din care se restaureaza baza de date");
  cmdGetSourceSpec1 = new QPushButton("...", this);
  cmdGetSourceSpec1->setObjectName("cmdGetSourceSpec1");
  cmdGetSourceSpec1->setToolTip("Alegerea salvarii");
  cmdGetSourceSpec1->setMaximumWidth(40);
  auto* boxes = new QGridLayout;
  boxes->addWidget(new QLabel("Director:", this), 0, 0);
  boxes->addWidget(txtDirector, 0, 1, 1, 2);
  boxes->addWidget(new QLabel("Fisier:", this), 1, 0);
  boxes->addWidget(txtSourceSpec1, 1, 1);
  boxes->addWidget(cmdGetSourceSpec1, 1, 2);
  boxes->setColumnStretch(1, 1);
  return boxes;
}

QLayout* frmRestaurare::BuildButtons() {
  cmdOK = MakeButton("cmdOK", "OK", "Inlocuieste baza de date cu salvarea aleasa", this);
  cmdOK->setIcon(PictureIcon("\\BMP\\OK.bmp"));
  cmdOK->setDefault(true);
  cmdIesire = MakeButton("cmdIesire", "Iesire", "Inchidere fereastra", this);
  cmdIesire->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  SetCancelButton(cmdIesire);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(cmdOK);
  row->addWidget(cmdIesire);
  return row;
}

// A name without a folder is one in the folder shown.
fs::path frmRestaurare::Chosen() const {
  const std::string written = txtSourceSpec1->Text();
  const bool bare = written.find_first_of("/\\") == std::string::npos;
  return paths::Resolve(bare ? txtDirector->Text() + "\\" + written : written);
}

void frmRestaurare::cmdGetSourceSpec1_Click(Procedure& procedure) {
  procedure.line = 1;
  const std::string& directory = CurrentSession().databasesPath;
  fs::path start = BackupFolder();
  if (!paths::FolderExists(start.string())) {
    MsgBoxEx("Nu exista directorul cu salvarile!", kExclamation);
    MakeBackupFolder();
    start = paths::Resolve(directory);
  }
  procedure.line = 2;
  const auto chosen = AskOpenFile(
      {windowTitle().toStdString(),
       "[Baza de date].mdb|*" + BareDatabase(CurrentSession().selectedDatabase) + "*.mdb",
       start.string()});
  if (!chosen) return;
  txtSourceSpec1->SetText(*chosen);
  const std::size_t separator = chosen->find_last_of("/\\");
  if (separator != std::string::npos) txtDirector->SetText(chosen->substr(0, separator));
  ShowContent();
}

void frmRestaurare::ShowContent() {
  std::string text;
  try {
    if (!Trim(txtSourceSpec1->Text()).empty() && paths::FileExists(Chosen().string())) {
      const CompanyContent content = Inspect(Chosen());
      text = Description(content);
      RequireKnownStructure(content);
    }
  } catch (const Failure& failure) {
    text = failure.Description();
  }
  lblContinut->setText(QString::fromStdString(text));
}

bool frmRestaurare::MayReplace(const fs::path& backup) const {
  const CompanyContent content = Inspect(backup);
  RequireKnownStructure(content);
  const auto current = ContentOf(SessionCompany().file);
  if (!current || !OfAnotherCompany(content, *current)) return true;
  return MsgBoxEx(AnotherCompanyQuestion(content, *current), kYesNo | kQuestion | kDefaultStep,
                  windowTitle().toStdString()) == kYes;
}

// False when the user cancelled.
bool frmRestaurare::Restore(const fs::path& backup) {
  const Hourglass hourglass;
  lblProgressMsg->show();
  lblProgressMsg->repaint();
  frmProgress window(windowTitle(), {"Pagina %1 din %2", "Pagina %1"}, this);
  try {
    RestoreBackup(backup, SessionCompany().file, window.Asked());
    lblProgressMsg->hide();
    return true;
  } catch (const GivenUp&) {
    lblProgressMsg->hide();
    return false;
  } catch (...) {
    lblProgressMsg->hide();
    throw;
  }
}

void frmRestaurare::cmdOK_Click(Procedure& procedure) {
  procedure.line = 1;
  const fs::path backup = Chosen();
  if (Trim(txtSourceSpec1->Text()).empty() || !paths::FileExists(backup.string())) {
    MsgBoxEx("Fisierul: " + txtSourceSpec1->Text() + " nu exista!", kExclamation);
    return;
  }
  procedure.line = 2;
  if (!MayReplace(backup)) return;
  CurrentDataEnv().CloseAll();
  procedure.line = 3;
  if (!Restore(backup)) return;
  MsgBoxEx("Restaurare cu succes a bazei de date");
  close();
  // The accounts and years of the restored company are those that count from now on.
  LoadParametri();
}

}  // namespace tevra
