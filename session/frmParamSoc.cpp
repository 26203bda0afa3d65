#include "session/frmParamSoc.h"

#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "session/Combos.h"
#include "session/CompanySettings.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

enum Tabs { kInfoTab, kYearsTab, kConfigurationTab };

constexpr const char* kAccounts =
    "Select CONT, CONT & '-' & TITLU As CONT_TITLU from kv_PC WHERE LEN(CONT) >=3 order by CONT";
constexpr const char* kAccountText =
    "Select CONT & '-' & TITLU As CONT_TITLU from kv_PC where CONT = ?";

bool IsNumericText(const QLineEdit& box) {
  return IsNumeric(box.text().toStdString());
}

}  // namespace

frmParamSoc::frmParamSoc(QWidget* parent) : Form("frmParamSoc", "Date despre societate", parent) {
  adoInfoSoc = new Adodc("adoInfoSoc", this);
  AdoExercitiu = new Adodc("AdoExercitiu", this);
  adoCoefAD = new Adodc("adoCoefAD", this);
  adoConfigurari = new Adodc("adoConfigurari", this);
  adoConturi_ = new Adodc("adoConturi", this);
  adoDeviza_ = new Adodc("adoDeviza", this);
  GuardCoefficients();
  Build();
  CheckOnLeaving();
  OnClick(cmdSalvare, "Salvare", [this](Procedure& running) { cmdSalvare_Click(running); });
  connect(cmdCancel, &QPushButton::clicked, this, [this] { close(); });
  Form_Load();
}

frmParamSoc::~frmParamSoc() {
  for (Adodc* source :
       {adoInfoSoc, AdoExercitiu, adoCoefAD, adoConfigurari, adoConturi_, adoDeviza_}) {
    source->disconnect();
  }
}

// ---- Leaving boxes ------------------------------------------------------------------------------

// An empty box that was not changed may be left, because a new company has many of them.
void frmParamSoc::CheckOnLeaving() {
  const auto numeric = [this](const char* field, const char* message) {
    QLineEdit* box = txtInfo.at(field);
    OnLeave(box, field, [box, message](Procedure&) {
      if (IsNumericText(*box) || (box->text().isEmpty() && !box->isModified())) return true;
      MsgBoxEx(message, kCritical);
      return false;
    });
  };
  numeric("CAPSOC", "Va rugam introduceti o valoare numerica pentru capitalul social !");
  numeric("FP", "Va rugam introduceti o valoare numerica pentru forma de proprietate !");
  numeric("RAMURA", "Va rugam introduceti o valoare numerica pentru Cod CAEN !");
  QLineEdit* vat = txtInfo.at("PLATITVA");
  OnLeave(vat, "PLATITVA", [vat](Procedure&) {
    const QString text = vat->text();
    if (text == "D" || text == "N" || (text.isEmpty() && !vat->isModified())) return true;
    MsgBoxEx("Va rugam completati D (de la DA) sau N (de la NU) !", kCritical);
    return false;
  });
  for (std::size_t i = 0; i < DTPicker1.size(); ++i) {
    OnLeave(DTPicker1[i], "DTPicker1_Validate", [this, i](Procedure&) {
      const auto wrong = CheckLeftDate(Years(), static_cast<int>(i));
      if (wrong) MsgBoxEx(*wrong, kCritical, "Validare");
      return !wrong;
    });
  }
}

FinancialYears frmParamSoc::Years() const {
  FinancialYears years;
  for (std::size_t i = 0; i < years.size(); ++i) years[i] = DTPicker1[i]->Date();
  return years;
}

// ---- Coefficients -------------------------------------------------------------------------------

// The strip writes the row too. Connected before the boxes are bound, so that this refusal, which
// names the box, comes before theirs.
void frmParamSoc::GuardCoefficients() {
  connect(adoCoefAD, &Adodc::Collecting, this, [this](Adodc::Collected& collected) {
    collected.Try([this] {
      const auto wrong = WrongCoefficient();
      if (wrong) throw Failure(kTypeMismatch, WrongCoefficientText(*wrong));
    });
  });
  connect(adoCoefAD, &Adodc::MovedByUser, this, [this] { MarkSaved(frmCoeficienti_); });
}

// The first coefficient that is not a number above 0. A company that lacks one already may still
// save its accounts: unchanged coefficients are not checked.
std::optional<std::size_t> frmParamSoc::WrongCoefficient() const {
  if (!HasChanges(frmCoeficienti_)) return std::nullopt;
  for (std::size_t i = 0; i < txtCoefDeg.size(); ++i) {
    const NumberBox& box = *txtCoefDeg[i];
    if (!box.IsNumeric() || box.Number().value_or(0) <= 0) return i;
  }
  return std::nullopt;
}

std::string frmParamSoc::WrongCoefficientText(std::size_t index) const {
  return "Va rugam introduceti o valoare numerica mai mare decat 0 pentru coeficientul \"" +
         txtCoefDeg[index]->property("Tag").toString().toStdString() + "\" !";
}

bool frmParamSoc::AreCoefficientsValid() {
  const auto wrong = WrongCoefficient();
  if (!wrong) return true;
  MsgBoxEx(WrongCoefficientText(*wrong), kCritical, "Validare");
  GiveFocus(txtCoefDeg[*wrong]);
  return false;
}

// ---- Loading and saving -------------------------------------------------------------------------

void frmParamSoc::Form_Load() {
  Run("Form_Load", [this](Procedure& procedure) {
    const std::pair<Adodc*, const char*> sources[] = {
        {adoInfoSoc, "select * from kv_info"},
        {AdoExercitiu, "select DATAIN, DATASN, DATAIN1, DATASN1, DATAIC, DATASC from kv_par"},
        {adoCoefAD, "select inceput, sfirsit, coef1, coef2, coef3 from i_coefad"},
        {adoConfigurari,
         "select CONTFURNIZORI, CONTCLIENTI, CODDeviza,CONTObiecteInventar from kv_par"},
    };
    procedure.line = 1;
    LoadAccountCombos();
    // Both are written by one save.
    Connection configuration(CurrentSession().connectionString);
    adoCoefAD->SetConnection(configuration);
    adoConfigurari->SetConnection(configuration);
    chkDocumentAn->setChecked(IsOn(configuration, CompanySetting::kDocumentWithYear));
    for (const auto& [source, statement] : sources) {
      ++procedure.line;
      source->SetConnectionString(CurrentSession().connectionString);
      source->SetRecordSource(statement);
      source->Refresh();
    }
  });
  MarkSaved();
  connect(this, &Form::Edited, lblStare, &QLabel::clear);
}

void frmParamSoc::LoadAccountCombos() {
  for (DataCombo* combo : cboCont) {
    LoadDataCombo(*adoConturi_, *combo, kAccounts, "CONT_TITLU", "CONT");
  }
  LoadDataCombo(*adoDeviza_, *cboDeviza, "SELECT COD from KV_VAL Order By Cod", "COD", "COD");
  cboDeviza->SetDataField(adoConfigurari, "CODDeviza");
}

void frmParamSoc::ShowAccount(std::size_t index) {
  const std::string account = txtConfig[index]->Text();
  Run("ShowAccount", [&](Procedure&) {
    const std::string text =
        account.empty() ? std::string() : GetTextDataCombo(kAccountText, {account});
    text.empty() ? cboCont[index]->SetText("") : cboCont[index]->SetBoundText(account, text);
  });
}

bool frmParamSoc::Validare() const {
  const auto wrong = ValidateYears(Years());
  if (wrong) MsgBoxEx(*wrong, kCritical, "Validare");
  return !wrong;
}

void frmParamSoc::ShowSaved() {
  MarkSaved(SSTab1->currentWidget());
  lblStare->setText(HasChanges() ? "Pagina a fost salvata. Alte pagini au modificari nesalvate."
                                 : "Datele au fost salvate.");
}

void frmParamSoc::cmdSalvare_Click(Procedure& procedure) {
  lblStare->clear();
  procedure.line = 1 + SSTab1->currentIndex();
  if (SSTab1->currentIndex() == kInfoTab) adoInfoSoc->UpdateRow();
  if (SSTab1->currentIndex() == kYearsTab) {
    if (!Validare()) return;
    UpdateParameters(*AdoExercitiu);
  }
  if (SSTab1->currentIndex() == kConfigurationTab) {
    if (!AreCoefficientsValid()) return;
    SaveConfiguration();
  }
  ShowSaved();
}

// Two tabs write the single row of kv_par; if there was none, the other tab may have created it.
void frmParamSoc::UpdateParameters(Adodc& source) {
  if (!source.HasRow()) source.Recordset().Requery();
  source.UpdateRow();
}

// Coefficients, accounts and settings are saved together or not at all. After a failure the boxes
// of both keep what was typed.
void frmParamSoc::SaveConfiguration() {
  const std::optional<DateTime> start = dtpInceput->Date();
  std::array<std::string, 3> typed;
  for (std::size_t i = 0; i < typed.size(); ++i) typed[i] = txtCoefDeg[i]->Text();
  const std::size_t row = adoCoefAD->HasRow() ? adoCoefAD->Recordset().Position() : 0;
  try {
    Connection connection = adoCoefAD->GetConnection();
    Transaction transaction(connection);
    adoCoefAD->UpdateRow();
    UpdateParameters(*adoConfigurari);
    if (HasChanges(chkDocumentAn)) {
      SetOn(connection, CompanySetting::kDocumentWithYear, chkDocumentAn->isChecked());
    }
    transaction.Commit();
  } catch (const Failure&) {
    adoCoefAD->Refresh();
    if (adoCoefAD->Recordset().RecordCount() > row) adoCoefAD->MoveTo(row);
    dtpInceput->SetDate(start);
    for (std::size_t i = 0; i < typed.size(); ++i) txtCoefDeg[i]->SetText(typed[i]);
    throw;
  }
}

}  // namespace tevra
