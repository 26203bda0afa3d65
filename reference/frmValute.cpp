#include "reference/frmValute.h"

#include <QKeyEvent>
#include <QTableView>
#include <sstream>

#include "platform/forms/FormsApplication.h"
#include "platform/forms/Hourglass.h"
#include "platform/forms/frmProgress.h"
#include "platform/system/Clock.h"
#include "platform/system/Desktop.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Dates.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "platform/web/HttpsGet.h"
#include "reference/CodeUse.h"
#include "reference/ExchangeRates.h"
#include "reference/frmPreluare.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

constexpr const char* kNotNumeric = "Va rugam introduceti o valoare numerica !";
constexpr const char* kTakingOver = "Preluare BNR";

const std::vector<ReferenceUser>& UsersOfCurrency() {
  static const std::vector<ReferenceUser> kUsers{
      {"kv_par", {"CODDeviza"}}, {"kv_val2", {"COD"}}, {"Kv_Linii", {"COD"}}};
  return kUsers;
}

}  // namespace

frmValute::frmValute(QWidget* parent) : Form("frmValute", "Valute", parent) {
  Build();
  Connect();
  Run("Form_Load", [this](Procedure&) { Form_Load(); });
  for (QWidget* box : {static_cast<QWidget*>(txtCodValuta),
                       static_cast<QWidget*>(txtDenumireValuta), static_cast<QWidget*>(txtCurs)}) {
    MarkSaved(box);
  }
}

// The rows keep the file open.
frmValute::~frmValute() {
  adoCursValute->Close();
  adoValute->Close();
}

void frmValute::Connect() {
  OnClick(cmdCautaCurs, "cmdCautaCurs_Click", [this](Procedure&) { cmdCautaCurs_Click(); });
  OnClick(cmdAdauga, "cmdAdauga_Click", [this](Procedure&) { cmdAdauga_Click(); });
  OnClick(cmdPreluare, "cmdPreluare_Click", [this](Procedure&) { cmdPreluare_Click(); });
  connect(cmdIesire, &QPushButton::clicked, this, [this] { close(); });
  connect(optCurs, &OptionButton::Click, this, [this] { frames_->setCurrentWidget(fraCurs); });
  connect(optValuta, &OptionButton::Click, this, [this] { frames_->setCurrentWidget(fraValuta); });
  connect(grdValute, &DataGrid::RowColChange, this, [this] {
    Run("grdValute_RowColChange", [this](Procedure&) { grdValute_RowColChange(); });
  });
  grdCursValuta->SetBeforeColUpdate([](int, const QString&, const QString& text) {
    if (IsNumeric(text.toStdString())) return true;
    MsgBoxEx(kNotNumeric, kCritical);
    return false;
  });
  for (DataGrid* grid : {grdValute, grdCursValuta}) grid->View()->installEventFilter(this);
}

void frmValute::RunTitled(const char* title, const Body& body) {
  RunWith(title, body, [title](const Failure& failure, const Procedure&) {
    MsgBoxEx(ShortErrorText(failure), kCritical, title);
  });
}

void frmValute::Form_Load() {
  for (Adodc* source : {adoValute, adoCursValute}) {
    source->SetConnectionString(CurrentSession().connectionString);
  }
  dteDataCurs->SetDate(clock::Today());
  cboNumarCursuri->setCurrentIndex(0);
  adoValute->SetRecordSource("select * from kv_val order by COD");
  adoValute->Refresh();
  grdValute_RowColChange();
}

// ---- The lists ----------------------------------------------------------------------------------

void frmValute::grdValute_RowColChange() {
  sCodValuta = grdValute->ColumnText(0);
  pAfisareCursuri();
  lblValuta->setText(QString::fromStdString(sCodValuta));
}

void frmValute::pAfisareCursuri() {
  const std::string count = cboNumarCursuri->currentText().toStdString();
  const std::string columns =
      count == "Toate" ? "Select * from" : "Select top " + count + " COD, DATA, CURS from";
  adoCursValute->SetRecordSource(columns + " kv_val2 WHERE COD=? order by DATA desc", {sCodValuta});
  adoCursValute->Refresh();
}

void frmValute::cmdCautaCurs_Click() {
  const DateTime day = dteDataCurs->Date().value_or(clock::Today());
  adoCursValute->SetRecordSource("Select * from kv_val2 WHERE Clng(DATA) = ? AND COD=?",
                                 {CLng(day.Midnight().Serial()), sCodValuta});
  adoCursValute->Refresh();
}

// ---- Adding -------------------------------------------------------------------------------------

bool frmValute::Refuse(const char* message, QWidget* box) {
  MsgBoxEx(message, kCritical);
  if (box) GiveFocus(box);
  return false;
}

bool frmValute::MayAddCurrency() {
  const std::string code = Trim(txtCodValuta->Text());
  if (code.empty()) return Refuse("Va rugam completati codul valutei  !", txtCodValuta);
  if (!ExistaInTabela(code, "CodValuta")) return true;
  return Refuse("Acest cod de valuta exista deja ! Adaugarea nu se poate efectua !", nullptr);
}

bool frmValute::MayAddRate() {
  if (!txtCurs->IsNumeric()) return Refuse(kNotNumeric, txtCurs);
  if (!lblValuta->text().isEmpty()) return true;
  return Refuse("Va rugam selectati un cod de valuta !", nullptr);
}

void frmValute::cmdAdauga_Click() {
  if (optValuta->isChecked()) {
    if (MayAddCurrency()) pAdaugaValuta();
  } else if (MayAddRate()) {
    pAdaugaCurs();
  }
}

void frmValute::pAdaugaValuta() {
  RunTitled("Eroare adaugare cod valuta", [this](Procedure&) {
    Recordset& rows = adoValute->Recordset();
    rows.AddNew();
    try {
      rows.Set("Cod", Trim(txtCodValuta->Text()));
      const std::string name = Trim(txtDenumireValuta->Text());
      rows.Set("Titlu", name.empty() ? Value() : Value(name));
      rows.Update();
    } catch (const Failure&) {
      rows.CancelUpdate();
      throw;
    }
    adoValute->Notify();
    grdValute_RowColChange();
    MarkSaved(fraValuta);
  });
}

void frmValute::pAdaugaCurs() {
  RunTitled("AdaugaCurs", [this](Procedure&) {
    ExecuteSQL("insert into kv_val2 (COD, DATA, CURS) values (?, ?, ?)",
               {Trim(lblValuta->text().toStdString()), dteDataCurs->Date().value_or(clock::Today()),
                txtCurs->Number().value()});
    MarkSaved(txtCurs);
    pAfisareCursuri();
  });
}

// Nothing when the user gave up.
std::optional<RatesFile> frmValute::ChosenRates() {
  frmPreluare choice(this);
  choice.ShowModal();
  if (!choice.OkPressed) return std::nullopt;
  if (!choice.Adresa.empty()) {
    try {
      return RatesAt(choice.Adresa);
    } catch (const GivenUp&) {
      return std::nullopt;
    }
  }
  const auto file = AskOpenFile({kTakingOver, "Cursuri BNR (*.xml)|*.xml", {}});
  if (!file) return std::nullopt;
  const Hourglass waiting;
  return ReadRatesFile(*file);
}

RatesFile frmValute::RatesAt(const std::string& address) {
  frmProgress progress(kTakingOver, {{}, "S-au citit %1 octeti de la adresa aleasa"}, this);
  std::istringstream document(HttpsGet(address, {}, progress.Asked()));
  return ReadRatesFile(document, address);
}

void frmValute::cmdPreluare_Click() {
  RunWith(
      "cmdPreluare_Click",
      [this](Procedure&) {
        const std::optional<RatesFile> rates = ChosenRates();
        if (!rates) return;
        std::string told;
        {
          const Hourglass waiting;
          Connection company(CurrentSession().connectionString);
          told = RatesStoredText(StoreRates(company, *rates));
          pAfisareCursuri();
        }
        MsgBoxEx("Cursurile au fost preluate: " + told + ".", kInformation, kTakingOver);
      },
      [](const Failure& failure, const Procedure&) {
        MsgBoxEx(failure.Description(), kCritical, kTakingOver);
      });
}

// ---- Deleting -----------------------------------------------------------------------------------

bool frmValute::eventFilter(QObject* watched, QEvent* event) {
  const bool deletes =
      event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete;
  if (deletes && watched == grdValute->View()) {
    AfterEvent(this,
               [this] { Run("grdValute_BeforeDelete", [this](Procedure&) { DeleteCurrency(); }); });
    return true;
  }
  if (deletes && watched == grdCursValuta->View()) {
    AfterEvent(this,
               [this] { Run("grdCursValuta_BeforeDelete", [this](Procedure&) { DeleteRate(); }); });
    return true;
  }
  return Form::eventFilter(watched, event);
}

bool frmValute::AskToDelete(const std::string& question) {
  return MsgBoxEx(question, kYesNo | kQuestion | kDefaultStep, "Confirmare stergere") == kYes;
}

void frmValute::DeleteCurrency() {
  if (!adoValute->HasRow()) return;
  Recordset& rows = adoValute->Recordset();
  const std::string question =
      "Sunteti sigur ca doriti sa stergeti valuta cu codul : " + grdValute->ColumnText(0) + " ?" +
      UseSentence(rows.Get("COD"), UsersOfCurrency());
  if (!AskToDelete(question)) return;
  rows.Delete();
  if (rows.Eof() && rows.RecordCount() > 0) rows.MoveLast();
  adoValute->Notify();
  grdValute_RowColChange();
}

// A rate typed for the wrong day, or twice, can go again.
void frmValute::DeleteRate() {
  if (!adoCursValute->HasRow()) return;
  Recordset& rows = adoCursValute->Recordset();
  const std::string question = "Sunteti sigur ca doriti sa stergeti cursul " +
                               rows.Get("COD").TextOrEmpty() + " din " +
                               rows.Get("DATA").TextOrEmpty() + " ?";
  if (!AskToDelete(question)) return;
  rows.Delete();
  if (rows.Eof() && rows.RecordCount() > 0) rows.MoveLast();
  adoCursValute->Notify();
}

}  // namespace tevra
