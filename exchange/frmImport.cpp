#include "exchange/frmImport.h"

#include "exchange/ChangesText.h"
#include "platform/forms/frmProgress.h"
#include "platform/system/Desktop.h"
#include "platform/system/MessageBox.h"
#include "platform/system/StandardError.h"
#include "platform/text/Dates.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

constexpr const char* kFailed = "Importul nereusit";
constexpr const char* kChangedMeanwhile =
    "Datele societatii s-au schimbat intre timp. Verificati din nou ce se importa !";

// Those procedures whose messages name the table instead of the reason.
bool NamesTable(const std::string& procedure) {
  return procedure == "XMLNode2Recordset" || procedure == "InsertFromRstTemp";
}

}  // namespace

frmImport::frmImport(QWidget* parent) : Form("frmImport", "Import", parent) {
  Build();
  OnClick(cmdSelFile, "cmdSelFile_Click",
          [this](Procedure& running) { cmdSelFile_Click(running); });
  OnClick(cmdImport, "cmdImport_Click", [this](Procedure& running) { cmdImport_Click(running); });
  connect(cmdIesire, &QPushButton::clicked, this, [this] { close(); });
  Form_Load();
}

void frmImport::Form_Load() {
  Run("Form_Load", [this](Procedure&) { connection_.Open(CurrentSession().connectionString); });
}

// ---- The file -----------------------------------------------------------------------------------

void frmImport::cmdSelFile_Click(Procedure& running) {
  running.line = 1;
  const auto chosen = AskOpenFile({"Import", "Fisiere XML|*.xml", CurrentSession().databasesPath});
  Clear();
  txtFileName->SetText(chosen.value_or(std::string()));
  if (!chosen) return;
  HeaderTexts texts;
  running.line = 2;
  try {
    texts = LoadExchange(*chosen);
  } catch (const Failure& failure) {
    LogCaughtFailure(running);
    Tell(failure.Description());
    MsgBoxEx(kNotLoaded);
    return;
  }
  file_ = *chosen;
  if (!GetXMLHeader(texts)) return file_.clear();
  ShowHeader();
  running.line = 3;
  if (const std::string own = OwnFileText(header_); !own.empty()) return Tell(own);
  Preview();
}

bool frmImport::GetXMLHeader(const HeaderTexts& texts) {
  return Run("GetXMLHeader", [&](Procedure&) { header_ = tevra::GetXMLHeader(texts, file_); });
}

void frmImport::ShowHeader() {
  (header_.isCentre ? optDa : optNu)->setChecked(true);
  txtCodSocietate->SetText(header_.code);
  txtDeLa->SetText(ShortDate(header_.from));
  txtPanaLa->SetText(ShortDate(header_.to));
}

// ---- The import ---------------------------------------------------------------------------------

void frmImport::cmdImport_Click(Procedure& running) {
  running.line = 1;
  if (!MayImport()) return;
  running.line = 2;
  const Imported imported = Import(false);
  switch (imported.result) {
    case Imported::Result::kStopped:
      return;
    case Imported::Result::kChanged:
      MsgBoxEx(kChangedMeanwhile, kExclamation);
      return Preview();
    case Imported::Result::kDone:
      MsgBoxEx("Import cu succes", kInformation);
      break;
    case Imported::Result::kFailed:
      MsgBoxEx(kFailed, kCritical);
      break;
  }
  close();
}

bool frmImport::MayImport() {
  if (txtFileName->Text().empty() || file_.empty()) {
    MsgBoxEx("Selectati fisierul pentru import", kExclamation);
    return false;
  }
  const std::string own = OwnFileText(header_);
  if (!own.empty()) MsgBoxEx(own, kInformation);
  return own.empty();
}

void frmImport::Preview() {
  shown_.reset();
  Tell({});
  try {
    Imported imported = Import(true);
    if (imported.result == Imported::Result::kDone) shown_ = std::move(imported.changes);
  } catch (const Failure& failure) {
    LogCaughtFailure({"Preview", "Form", "frmImport"});
    Tell(failure.Description());
  }
  ShowChanges();
}

Imported frmImport::Import(bool dryRun) {
  frmProgress progress(dryRun ? "Citirea fisierului" : "Import", {}, this);
  ImportRequest request;
  request.load.file = file_;
  request.load.header = header_;
  request.load.progress = progress.Asked();
  request.load.run = dryRun ? ToLabel() : ToMessages();
  request.load.refuse = [this, dryRun](const std::string& text) {
    dryRun ? Tell(text) : void(MsgBoxEx(text, kCritical));
  };
  request.dryRun = dryRun;
  if (!dryRun && shown_) request.agreed = &*shown_;
  return ImportFile(connection_, request);
}

// The reason and its place in the file go to the label, where the message leaves them out.
StepRunner frmImport::ToMessages() {
  return [this](const char* procedure, const std::string& table, const auto& step) {
    return RunWith(
        procedure, [&](Procedure&) { step(); },
        [&](const Failure& failure, const Procedure& running) {
          Tell(failure.Description());
          if (std::string(procedure) == "PrelTerti") {
            MsgBoxEx("Eroare " + std::to_string(failure.Number()) + " - " + failure.Description() +
                         "  in procedura PrelTerti din Form frmImport Linia: " +
                         std::to_string(running.line),
                     kCritical);
          } else if (NamesTable(procedure)) {
            MsgBoxEx("Eroare " + std::to_string(failure.Number()) + " -  [TABELA=" + table +
                         "] in procedura " + procedure +
                         " din Form frmImport Linia: " + std::to_string(running.line),
                     kCritical);
          } else {
            ShowStandardError(failure, running);
          }
        });
  };
}

StepRunner frmImport::ToLabel() {
  return [this](const char* procedure, const std::string& /*table*/, const auto& step) {
    return RunWith(
        procedure, [&](Procedure&) { step(); },
        [this](const Failure& failure, const Procedure&) { Tell(failure.Description()); });
  };
}

// ---- What it changes ----------------------------------------------------------------------------

void frmImport::ShowChanges() {
  grdModificari->setRowCount(0);
  lblLinii->clear();
  if (!shown_) return;
  const std::vector<ChangeRow> rows = ChangeRows(*shown_);
  grdModificari->setRowCount(static_cast<int>(rows.size()));
  int row = -1;
  for (const ChangeRow& texts : rows) {
    ++row;
    int column = 0;
    for (const std::string& text : texts) {
      grdModificari->setItem(row, column++, new QTableWidgetItem(QString::fromStdString(text)));
    }
  }
  lblLinii->setText(QString::fromStdString(LinesText(*shown_)));
  std::string warnings;
  for (const std::string& each : ImportWarnings(*shown_)) {
    warnings += (warnings.empty() ? "" : "\n") + each;
  }
  Tell(warnings);
}

void frmImport::Clear() {
  file_.clear();
  shown_.reset();
  for (TextBox* box : {txtFileName, txtCodSocietate, txtDeLa, txtPanaLa}) box->clear();
  Tell({});
  ShowChanges();
}

void frmImport::Tell(const std::string& text) {
  lblStare->setText(QString::fromStdString(text));
  lblStare->setVisible(!text.empty());
}

}  // namespace tevra
