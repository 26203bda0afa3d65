#include "register/frmFisaImo.h"

#include "platform/forms/BoxButton.h"
#include "platform/forms/Windows.h"
#include "platform/system/Clock.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "register/frmIesireImo.h"
#include "session/Module1.h"
#include "session/RateOffer.h"
#include "session/Session.h"

namespace tevra {

namespace {

using enum text::Place;
using enum number::Place;
using enum date::Place;

}  // namespace

frmFisaImo::frmFisaImo(const AssetToOpen& asset, QWidget* parent)
    : Form("frmFisaImo", "Fisa imobilizare", parent), asset_(asset) {
  static constexpr const char* kSources[] = {"adoGrupa", "adoCC",   "adoLoc",       "adoFur",
                                             "adoTVA",   "adoCont", "adoGradUtiliz"};
  for (std::size_t i = 0; i < sources_.size(); ++i) sources_[i] = new Adodc(kSources[i], this);
  Build();
  Connect();
  Form_Load();
}

frmFisaImo::~frmFisaImo() {
  for (Adodc* source : sources_) source->disconnect();
}

void frmFisaImo::Connect() {
  OnClickShort(cmdSalvare, "cmdSalvare_Click", [this](Procedure&) { cmdSalvare_Click(); });
  OnClickShort(cmdModificare, "cmdModificare_Click", [this](Procedure&) { cmdModificare_Click(); });
  OnClickShort(cmdVanzare, "cmdVanzare_Click",
               [this](Procedure&) { OpenDisposal(CLng(CDbl(asset_.sNrCrt))); });
  connect(cmdIesire, &QPushButton::clicked, this, [this] { close(); });

  for (OptionButton* option : Options()) {
    connect(option, &OptionButton::Click, this,
            [this, option] { OptionClicked(MethodOf(option)); });
  }
  for (const number::Place left :
       {kValue, kExchangeRate, kNormalYears, kRealYears, kBlockedValue, kBlockedForeignValue}) {
    NumberBox* box = txtNumar[left];
    connect(box, &QLineEdit::textEdited, this, [this, box] { touched_.insert(box); });
    OnLeaveTouched(box, "txtNumar_LostFocus", [this, left] { txtNumar_LostFocus(left); });
  }
  for (const date::Place left : {kBought, kInService, kStart}) {
    OnLeaveTouched(DTPicker1[left], "DTPicker1_LostFocus", [this, left] {
      RunShort("DTPicker1_LostFocus", [&](Procedure&) { DTPicker1_LostFocus(left); });
    });
  }
  OnBoxButton(*txtNumar[kExchangeRate], kRateOfferTip,
              [this] { RunShort("cmdCurs_Click", [this](Procedure&) { TakeRateOfDay(); }); });
  connect(chkBlocata, &CheckBox::Click, this, [this] {
    touched_.insert(chkBlocata);
    RunShort("chkBlocata_Click", [this](Procedure&) { chkBlocata_Click(); });
  });
  OnLeaveTouched(chkBlocata, "chkBlocata_LostFocus", [this] {
    RunShort("chkBlocata_LostFocus", [this](Procedure&) { chkBlocata_LostFocus(); });
  });
  connect(chkChelt, &CheckBox::Click, this, [this] {
    if (!loading_) RunShort("chkChelt_Click", [this](Procedure&) { chkChelt_Click(); });
  });
  ConnectCombos();
}

// On the card of an asset that exists, a box that the user only passed through derives nothing:
// what was stored would give way to what the rules make of it today. What cannot be derived is told
// and does not keep the focus: the box with the mistake may be another one.
void frmFisaImo::OnLeaveTouched(QWidget* box, const char* procedure,
                                const std::function<void()>& derive) {
  OnLeave(box, procedure, [this, box, derive](Procedure&) {
    if (!IsUntouched(box)) derive();
    Settle();
    return true;
  });
}

bool frmFisaImo::IsUntouched(const QWidget* box) const {
  return !asset_.bAdaugare && touched_.count(box) == 0 && !settled_.Differs(box);
}

void frmFisaImo::Settle() {
  touched_.clear();
  settled_.RememberAll();
}

AssetCard frmFisaImo::Card() const {
  AssetCard card;
  for (std::size_t i = 0; i < txtText.size(); ++i) card.text[i] = txtText[i]->Text();
  for (std::size_t i = 0; i < txtNumar.size(); ++i) card.number[i] = txtNumar[i]->Content();
  for (std::size_t i = 0; i < DTPicker1.size(); ++i) {
    card.date[i] = DTPicker1[i]->Date().value_or(clock::Today());
  }
  card.blocked = chkBlocata->isChecked();
  card.tva = cboTVA->Text();
  return card;
}

void frmFisaImo::ShowSaved(const AssetRow& row) {
  if (row.real) txtNumar[kRealYears]->SetNumber(row.real);
  settled_.Remember(txtNumar[kRealYears]);
  if (row.blocking) DTPicker1[kBlockedFrom]->SetDate(row.blocking);
}

void frmFisaImo::cmdSalvare_Click() {
  if (sources_[0]->Recordset().RecordCount() == 0) {
    MsgBoxEx(
        "Va rog stabiliti duratele normale noi (HG 2139/2004 )in Tabelul Coduri de Clasificare");
    return;
  }
  PurchaseNoteUse use;
  if (!EsteFisaValida() || !MayReplaceNotes(use)) return;
  const bool saved = RunWith(
      "pAdaugaImobilizare",
      [this](Procedure&) {
        ShowSaved(pAdaugaImobilizare(Card()));
        MsgBoxEx("Datele au fost salvate cu succes in Imobilizari!", kInformation);
      },
      [](const Failure& failure, const Procedure&) {
        MsgBoxEx(ShortErrorText(failure), kCritical, "Salvare");
      });
  if (!saved) return;
  AddNote(use);
  RunShort("CurataCampuri", [this](Procedure&) { CurataCampuri(); });
  MarkSaved();
}

void frmFisaImo::cmdModificare_Click() {
  PurchaseNoteUse use;
  if (!EsteFisaValida() || !MayReplaceNotes(use)) return;
  const bool saved = RunWith(
      "pModificaImobilizare",
      [this](Procedure& procedure) {
        procedure.line = 2;
        for (const auto place : {kExpensed, kExpensedForeign}) {
          if (txtNumar[place]->IsEmpty()) txtNumar[place]->SetText("0");
        }
        procedure.line = 3;
        ShowSaved(pModificaImobilizare(Card(), CLng(CDbl(asset_.sNrCrt))));
        MsgBoxEx("Datele au fost modificate cu succes !", kInformation);
      },
      [](const Failure& failure, const Procedure& procedure) {
        MsgBoxEx(ShortErrorText(failure) + " Linia: " + std::to_string(procedure.line), kCritical,
                 "Modificare ");
      });
  if (!saved) return;
  ShowTitle();
  MarkSaved();
  AddNote(use);
}

// Asks before the row is written: a No saves neither the row nor the note.
bool frmFisaImo::MayReplaceNotes(PurchaseNoteUse& use) {
  bool may = false;
  RunShort("pAddNoteContabile", [&](Procedure&) {
    Connection connection(CurrentSession().connectionString);
    std::optional<std::int32_t> number;
    if (!asset_.bAdaugare) number = CLng(CDbl(asset_.sNrCrt));
    use = FindPurchaseNoteUse(connection, txtText[kCode]->Text(), number);
    may = MaySavePurchaseNote(use);
  });
  return may;
}

void frmFisaImo::AddNote(const PurchaseNoteUse& agreed) {
  Run("pAddNoteContabile", [&](Procedure& procedure) {
    procedure.line = 1;
    pAddNoteContabile(Card(), agreed);
  });
}

// The amounts of direct expense, the remaining duration of a blocked asset and both check boxes
// keep their values.
void frmFisaImo::CurataCampuri() {
  for (std::size_t i = 0; i <= kCoef; ++i) txtNumar[i]->SetNumber(std::nullopt);
  for (TextBox* box : txtText) box->SetText("");
  for (DateBox* box : DTPicker1) box->SetDate(clock::Today());
  for (DataCombo* combo :
       {cboCentruCost, cboCont, cboFurnizori, cboGradUtiliz, cboGrupa, cboLocalizare, cboTVA}) {
    combo->SetText("");
  }
  for (OptionButton* option : Options()) {
    option->setAutoExclusive(false);
    option->setChecked(false);
    option->setAutoExclusive(true);
  }
  Liniara->setChecked(true);
  txtNumar[kUse]->SetText("100");
  GiveFocus(txtText[kCode]);
}

frmFisaImo& OpenAssetCard(const AssetToOpen& asset) {
  const std::string key = asset.bAdaugare ? std::string() : asset.sNrCrt;
  return windows::OpenFor<frmFisaImo>(key, [&] { return new frmFisaImo(asset); });
}

}  // namespace tevra
