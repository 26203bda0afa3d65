#include "register/frmIesireImo.h"

#include "platform/forms/Hourglass.h"
#include "platform/forms/Windows.h"
#include "platform/system/Clock.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "session/Combos.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

using namespace amount;
using namespace account;

enum Source : std::size_t { kExpenses, kCustomers, kRevenues, kVatRates, kClients };

void ShowNotice(QLabel* label, const std::string& text) {
  label->setText(QString::fromStdString(text));
  label->setVisible(!text.empty());
}

}  // namespace

frmIesireImo::frmIesireImo(std::int32_t nrCrt, QWidget* parent)
    : Form("frmIesireImo", "Iesire Imobilizare", parent), nrCrt_(nrCrt) {
  static constexpr const char* kSources[] = {"adoCheltuieli", "adoClient", "adoVenituri",
                                             "adoCoteTVA", "adoIDClient"};
  for (std::size_t i = 0; i < sources_.size(); ++i) sources_[i] = new Adodc(kSources[i], this);
  adoImobilizare = new Adodc("adoImobilizare", this);
  adoTVA = new Adodc("adoTVA", this);
  Build();
  Connect();
  Form_Load();
}

frmIesireImo::~frmIesireImo() {
  for (Adodc* source : sources_) source->disconnect();
}

void frmIesireImo::Connect() {
  connect(Casare, &OptionButton::Click, this,
          [this] { Run("Casare_Click", [this](Procedure&) { Casare_Click(); }); });
  connect(Vanzare, &OptionButton::Click, this,
          [this] { Run("Vanzare_Click", [this](Procedure&) { Vanzare_Click(); }); });
  // A residual value that does not belong to the date must not be saved: the date is not left until
  // the asset could be calculated to it.
  OnLeave(DTPicker1, "DTPicker1_LostFocus", [this](Procedure&) {
    DTPicker1_LostFocus();
    return true;
  });
  for (const amount::Place left : {kPrice, kForeignPrice}) {
    OnLeave(txtValoare[left], "txtValoare_LostFocus",
            [this, left](Procedure&) { return txtValoare_LostFocus(left); });
  }
  ConnectCombos();
  connect(this, &Form::Edited, this, [this] {
    if (!loading_) ShowNotes();
  });
  OnClick(cmdSalvare, "cmdSalvare_Click",
          [this](Procedure& running) { cmdSalvare_Click(running); });
  connect(cmdIesire, &QPushButton::clicked, this, [this] { close(); });
}

void frmIesireImo::ConnectCombos() {
  const std::pair<DataCombo*, account::Place> combos[] = {
      {cboCheltuieli, kExpense}, {cboClient, kCustomer}, {cboVenituri, kRevenue}};
  for (const auto& [combo, place] : combos) {
    connect(combo, &DataCombo::Picked, this,
            [this, from = combo, to = place] { txtCont[to]->SetText(from->BoundText()); });
  }
  connect(cboTVA, &DataCombo::Picked, this,
          [this] { Run("cboTVA_Click", [this](Procedure&) { cboTVA_Click(); }); });
}

// ---- Loading ------------------------------------------------------------------------------------

void frmIesireImo::Form_Load() {
  const Hourglass hourglass;
  loading_ = true;
  Run("Form_Load", [this](Procedure& running) {
    adoImobilizare->SetConnectionString(CurrentSession().connectionString);
    for (const auto place : {kResidual, kForeignResidual}) txtValoare[place]->SetNumber(0);
    for (const auto place : {kPrice, kForeignPrice, kDifference, kForeignDifference}) {
      txtValoare[place]->setEnabled(false);
    }
    for (QWidget* box :
         std::initializer_list<QWidget*>{cboClient, cboVenituri, cboTVA, txtTVA, txtProcent}) {
      box->setEnabled(false);
    }
    DTPicker1->SetDate(clock::Today());
    running.line = 1;
    adoImobilizare->SetRecordSource("Select * from i_imo where NRCRT = ?", {nrCrt_});
    txtNrInv->SetDataField(adoImobilizare, "COD");
    txtDenumire->SetDataField(adoImobilizare, "DENUMIRE");
    adoImobilizare->Refresh();
    running.line = 2;
    Casare->setChecked(true);
    txtOut->SetText("C");
    LoadAllAccounts();
    LoadCombo(kClients, *cboIDClient, kDisposalClients, "Nume", "COD");
    running.line = 3;
    ShowLeftBefore();
  });
  loading_ = false;
  MarkSaved();
  ShowNotes();
}

void frmIesireImo::LoadCombo(std::size_t source, DataCombo& combo, const char* statement,
                             const char* listField, const char* boundColumn) {
  LoadDataCombo(*sources_[source], combo, statement, listField, boundColumn);
}

void frmIesireImo::LoadAllAccounts() {
  LoadCombo(kExpenses, *cboCheltuieli, kAllAccounts);
}

// The list of VAT rates stays enabled after a change from sale to scrapping.
void frmIesireImo::Casare_Click() {
  txtOut->SetText("C");
  for (const auto place : {kPrice, kForeignPrice, kDifference, kForeignDifference}) {
    txtValoare[place]->setEnabled(false);
  }
  for (QWidget* box : std::initializer_list<QWidget*>{cboClient, cboVenituri, txtTVA}) {
    box->setEnabled(false);
  }
  LoadAllAccounts();
  Calculate();
  for (const auto place : {kResidual, kForeignResidual}) txtValoare[place]->setEnabled(false);
  ShowNotes();
}

void frmIesireImo::Vanzare_Click() {
  txtOut->SetText("V");
  for (const auto place : {kResidual, kForeignResidual}) txtValoare[place]->setEnabled(false);
  for (QWidget* box :
       std::initializer_list<QWidget*>{txtValoare[kPrice], cboClient, cboVenituri, cboTVA}) {
    box->setEnabled(true);
  }
  txtTVA->setEnabled(false);
  LoadCombo(kExpenses, *cboCheltuieli, kExpenseAccounts);
  LoadCombo(kCustomers, *cboClient, kCustomerAccounts);
  LoadCombo(kRevenues, *cboVenituri, kRevenueAccounts);
  LoadCombo(kVatRates, *cboTVA, kSaleVatRates, "CONT_PROCENT", "COD");
  if (const std::optional<DisposalAsset> asset = Calculate()) {
    sCont_ = asset->account;
    sCodCC_ = asset->costCentre;
    ReadDepreciationAccount();
    if (!txtValoare[kPrice]->IsEmpty()) {
      DeriveForeignPrice(asset->rate);
      DeriveDifferences(asset->rate);
    }
  }
  ShowNotes();
}

void frmIesireImo::ReadDepreciationAccount() {
  Connection connection(CurrentSession().connectionString);
  depreciationAccount_ = DepreciationAccount(connection, sCont_);
}

std::optional<DisposalAsset> frmIesireImo::Calculate() {
  const Hourglass hourglass;
  const DateTime date = DTPicker1->Date().value();
  calculated_.reset();
  const std::optional<DisposalAsset> asset = BringUpTo(nrCrt_, date);
  calculated_ = date;
  if (!asset) return asset;
  ShowResidual(*asset);
  TextCump->SetContent(asset->cost);
  TextCumpDev->SetContent(asset->foreignCost);
  noteRate_ = asset->noteRate;
  return asset;
}

void frmIesireImo::ShowResidual(const DisposalAsset& asset) {
  txtValoare[kResidual]->SetContent(asset.residual);
  txtValoare[kForeignResidual]->SetContent(asset.foreignResidual);
  shown_ = asset;
}

void frmIesireImo::ShowLeftBefore() {
  ShowNotice(lblIesita, LeftBefore(nrCrt_));
}

// A note that cannot be computed yet gives way to the reason.
void frmIesireImo::ShowNotes() {
  std::vector<Note> notes;
  std::string reason;
  std::string warning;
  try {
    const Disposal disposal = Contents();
    reason = NoNoteReason(disposal, noteRate_);
    if (reason.empty()) {
      notes = {SaleNote(disposal, noteRate_)};
      if (depreciationAccount_) {
        notes.push_back(RetirementNote(disposal, noteRate_, *depreciationAccount_));
      }
      warning = WarningsOf(disposal, notes);
      if (!depreciationAccount_) {
        warning += (warning.empty() ? "" : "\n") + NotAssociatedText(sCont_) + ".";
      }
    }
  } catch (const Failure& failure) {
    notes.clear();
    reason = "Nota contabila nu se poate calcula: " + failure.Description();
  }
  notePreview->Show(notes, reason);
  ShowNotice(lblAtentie, warning);
}

// The card or the month's calculation may have changed the asset, and the user may have come from
// the association of accounts: what is shown and posted must be the asset as it is.
void frmIesireImo::Form_Activate() {
  if (!shown_) return;
  const std::optional<DisposalAsset> stored = ReadDisposalAsset(nrCrt_);
  if (!stored) return;
  if (*stored == *shown_) {
    if (txtOut->Text() == "V") ReadDepreciationAccount();
    ShowNotes();
    return;
  }
  const bool typed = HasChanges();
  adoImobilizare->Refresh();
  txtOut->Text() == "V" ? Vanzare_Click() : Casare_Click();
  if (!typed) MarkSaved();
}

// ---- Boxes that are left, rows that are picked --------------------------------------------------

void frmIesireImo::DTPicker1_LostFocus() {
  const DateTime date = DTPicker1->Date().value();
  calculated_.reset();
  if (const std::optional<DisposalAsset> asset = BringUpTo(nrCrt_, date)) ShowResidual(*asset);
  calculated_ = date;
}

bool frmIesireImo::txtValoare_LostFocus(amount::Place left) {
  const double rate = RateOf(nrCrt_);
  NumberBox* price = txtValoare[kPrice];
  if (left == kPrice && !price->IsEmpty()) {
    if (!price->IsNumeric()) {
      MsgBoxEx(NotANumberText(kPrice), kExclamation);
      price->SetText("0");
      GiveFocus(price);
      price->selectAll();  // so that typing replaces it
      return false;
    }
    DeriveForeignPrice(rate);
  }
  if (price->IsEmpty()) return true;
  DeriveDifferences(rate);
  const std::string vatCode = txtCont[kVat]->Text();
  if (!vatCode.empty()) txtTVA->SetNumber(VatOnPrice(price->Number().value(), CDbl(vatCode)));
  return true;
}

void frmIesireImo::DeriveForeignPrice(double rate) {
  txtValoare[kForeignPrice]->SetNumber(PriceInCurrency(txtValoare[kPrice]->Number().value(), rate));
}

void frmIesireImo::DeriveDifferences(double rate) {
  const Differences differences = DifferencesOf(Contents(), rate);
  txtValoare[kDifference]->SetNumber(differences.lei);
  txtValoare[kForeignDifference]->SetNumber(differences.foreign);
}

// An emptied list counts as the rate with code 0.
void frmIesireImo::cboTVA_Click() {
  const std::string code = cboTVA->BoundText();
  txtCont[kVat]->SetText(code);
  if (code.empty() || CDbl(code) == 0) {
    txtTVA->SetNumber(0);
    return;
  }
  adoTVA->SetConnectionString(CurrentSession().connectionString);
  adoTVA->SetRecordSource(kPercentOfRate, {CLng(CDbl(code))});
  txtProcent->SetDataField(adoTVA, "procent");
  adoTVA->Refresh();
  if (txtValoare[kPrice]->IsEmpty()) return;
  txtTVA->SetNumber(
      VatAtRate(txtValoare[kPrice]->Number().value(), txtProcent->Number().value_or(0)));
}

frmIesireImo& OpenDisposal(std::int32_t nrCrt) {
  return windows::OpenFor<frmIesireImo>(std::to_string(nrCrt),
                                        [nrCrt] { return new frmIesireImo(nrCrt); });
}

}  // namespace tevra
