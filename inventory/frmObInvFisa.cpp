#include "inventory/frmObInvFisa.h"

#include <algorithm>

#include "inventory/ObjectNotes.h"
#include "platform/forms/BoxButton.h"
#include "platform/forms/Hourglass.h"
#include "platform/forms/Windows.h"
#include "platform/system/Clock.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "session/Combos.h"
#include "session/MenuTable.h"
#include "session/Module1.h"
#include "session/RateOffer.h"
#include "session/Session.h"
#include "session/frmParamSoc.h"

namespace tevra {

namespace {

using namespace object;

constexpr const char* kNoInventoryAccount = "Va rog configurati contul de obiecte de inventar!";
constexpr int kAccountsTab = 2;

bool MayConfigure() {
  const std::vector<std::string> forbidden = ForbiddenItems(CurrentSession().userType);
  return std::find(forbidden.begin(), forbidden.end(), "Soc_Conf") == forbidden.end();
}

void ShowSavingFailure(const Failure& failure, const Procedure&) {
  MsgBoxEx(ShortErrorText(failure), kCritical, "Salvare");
}

}  // namespace

frmObInvFisa::frmObInvFisa(const ObjectToOpen& object, QWidget* parent)
    : Form("frmObInvFisa", "Fisa obiect inventar", parent), bAdaugare_(object.bAdaugare) {
  static constexpr const char* kSources[] = {"adoCC", "adoLoc", "adoFur", "adoTVA", "adoCont"};
  for (std::size_t i = 0; i < sources_.size(); ++i) sources_[i] = new Adodc(kSources[i], this);
  if (!bAdaugare_) ID = CLng(CDbl(object.sNrCrt));
  Build();
  Connect();
  Form_Load();
}

frmObInvFisa::~frmObInvFisa() {
  for (Adodc* source : sources_) source->disconnect();
}

void frmObInvFisa::Connect() {
  OnClick(cmdSalvare, "cmdSalvare_Click", [this](Procedure& run) { cmdSalvare_Click(run); });
  OnClickShort(cmdModificare, "cmdModificare_Click", [this](Procedure&) { cmdModificare_Click(); });
  OnClick(cmdDescarcare, "cmdDescarcare_Click",
          [this](Procedure& run) { cmdDescarcare_Click(run); });
  connect(cmdIesire, &QPushButton::clicked, this, [this] { close(); });
  for (const Number left : {kValue, kRate}) {
    connect(txtNumar[left], &QLineEdit::textEdited, this, [this, left] { typed_[left] = true; });
    OnLeave(txtNumar[left], "txtNumar_LostFocus", [this, left](Procedure&) {
      RunShort("txtNumar_LostFocus", [&](Procedure&) { txtNumar_LostFocus(left); });
      return true;
    });
  }
  OnBoxButton(*txtNumar[kRate], kRateOfferTip, [this] {
    RunShort("cmdCurs_Click", [this](Procedure&) {
      if (OfferRate(*txtNumar[kRate], DTPicker1[kBought]->Date().value()))
        txtNumar_LostFocus(kRate);
    });
  });
  const auto combos = Combos();
  for (std::size_t i = 0; i < combos.size(); ++i) {
    connect(combos[i], &DataCombo::Picked, this, [this, i] { PickedInCombo(i); });
  }
  connect(this, &Form::Edited, this, [this] { ShowNote(); });
}

// ---- Loading ------------------------------------------------------------------------------------

void frmObInvFisa::Form_Load() {
  const Hourglass waiting;
  RunShort("Form_Load", [this](Procedure&) {
    for (DateBox* box : DTPicker1) box->SetDate(clock::Today());
    bAdaugare_ ? OpenNew() : OpenExisting();
    LoadCombos();
  });
  derived_ = {txtNumar[kValue]->Content(), txtNumar[kRate]->Content()};
  MarkSaved();
  ShowNote();
}

void frmObInvFisa::OpenNew() {
  cmdModificare->setEnabled(false);
  Frame5->setEnabled(false);
  cmdSalvare->setDefault(true);
}

void frmObInvFisa::OpenExisting() {
  cmdSalvare->setEnabled(false);
  cmdModificare->setDefault(true);
  Connection connection(CurrentSession().connectionString);
  const auto stored = ReadObject(connection, ID);
  if (!stored) return;
  const ObjectCard& card = stored->card;
  for (std::size_t i = 0; i < kTexts; ++i) {
    txtText[i]->SetText(card.text[i]);
    txtText[i]->setCursorPosition(0);  // a long text shows its beginning
  }
  for (std::size_t i = 0; i < kNumbers; ++i) txtNumar[i]->SetContent(card.number[i]);
  for (std::size_t i = 0; i < kDates; ++i) DTPicker1[i]->SetDate(card.date[i]);
  chKCasare->setChecked(stored->left);
  Frame1->setEnabled(!stored->left);
  cmdModificare->setEnabled(!stored->left);
  bBlocata = writtenOff_ = stored->writtenOff;
  setWindowTitle(windowTitle() + " - " +
                 QString::fromStdString(card.text[kCode] + " " + card.text[kName]).trimmed());
}

// In the order of the lists.
std::array<DataCombo*, 5> frmObInvFisa::Combos() const {
  return {cboCentruCost, cboLocalizare, cboFurnizori, cboTVA, cboCont};
}

// A code that is no longer in its table leaves its combo empty; the box keeps it.
void frmObInvFisa::LoadCombos() {
  const auto combos = Combos();
  for (std::size_t i = 0; i < combos.size(); ++i) {
    const ObjectCodeList& list = ObjectCodeLists()[i];
    LoadDataCombo(*sources_[i], *combos[i], list.list, list.listField, list.boundColumn);
    const std::string code = txtText[list.box]->Text();
    if (!code.empty()) ShowCode(*combos[i], list.text, code);
  }
  loaded_ = true;
}

// Loads codes that were added on other screens in the meantime.
void frmObInvFisa::Form_Activate() {
  if (!loaded_) return;
  RunShort("Form_Activate", [this](Procedure&) {
    for (Adodc* source : sources_) source->Refresh();
  });
  expense_.reset();
  ShowNote();
}

void frmObInvFisa::PickedInCombo(std::size_t combo) {
  const ObjectCodeList& list = ObjectCodeLists()[combo];
  const std::string procedure = std::string(list.combo) + "_Click";
  RunShort(procedure.c_str(), [&](Procedure&) {
    txtText[list.box]->SetText(Combos()[combo]->BoundText());
    ShowNote();
  });
}

// On the card of an existing object a box that the user only passed through derives nothing: the
// value in currency may have been corrected by hand.
void frmObInvFisa::txtNumar_LostFocus(Number left) {
  const Value now = txtNumar[left]->Content();
  const bool passed = !bAdaugare_ && !typed_[left] && now == derived_[left];
  derived_[left] = now;
  typed_[left] = false;
  if (passed) return;
  const auto foreign = ForeignValue(txtNumar[kValue]->Content(), txtNumar[kRate]->Content());
  if (!foreign) return;
  NumberBox* box = txtNumar[kForeignValue];
  box->SetNumber(foreign);
  if (box->hasFocus()) box->selectAll();  // as Tab left it, so that typing replaces the number
}

// ---- Saving -------------------------------------------------------------------------------------

ObjectCard frmObInvFisa::Card() const {
  ObjectCard card;
  for (std::size_t i = 0; i < kTexts; ++i) card.text[i] = txtText[i]->Text();
  for (std::size_t i = 0; i < kNumbers; ++i) card.number[i] = txtNumar[i]->Content();
  for (std::size_t i = 0; i < kDates; ++i) {
    card.date[i] = DTPicker1[i]->Date().value_or(clock::Today());
  }
  card.scrapped = chKCasare->isChecked();
  card.vat = cboTVA->Text();
  return card;
}

bool frmObInvFisa::Refuse(const ObjectRefusal& refusal) {
  using Box = ObjectRefusal::Box;
  MsgBoxEx(refusal.message, refusal.icon);
  const std::pair<Box, NumberBox*> numbers[] = {{Box::kValue, txtNumar[kValue]},
                                                {Box::kForeignValue, txtNumar[kForeignValue]}};
  for (const auto& [box, number] : numbers) {
    if (box != refusal.box) continue;
    GiveFocus(number);
    number->selectAll();  // so that typing replaces what was refused
  }
  if (refusal.box == Box::kVat) GiveFocus(cboTVA);
  if (refusal.box == Box::kInService) GiveFocus(DTPicker1[kInService]);
  return false;
}

bool frmObInvFisa::EsteFisaValida() {
  const auto refusal = RefusalToSave(Card());
  return !refusal || Refuse(*refusal);
}

void frmObInvFisa::cmdSalvare_Click(Procedure& running) {
  if (CurrentSession().contObiecteInventar.empty()) {
    MsgBoxEx(kNoInventoryAccount, kInformation);
    if (MayConfigure()) windows::Open<frmParamSoc>().SSTab1->setCurrentIndex(kAccountsTab);
    return;
  }
  running.line = 1;
  if (!EsteFisaValida()) return;
  running.line = 2;
  const DocumentUse use = NotesBeforePurchase(Card());
  if (!MayDelete(use)) return;
  running.line = 3;
  const bool saved = RunWith(
      "pAdaugaObiect",
      [this](Procedure&) {
        pAdaugaObiect(Card());
        MsgBoxEx("Datele au fost salvate cu succes !", kInformation);
      },
      ShowSavingFailure);
  if (!saved) return;
  AddNote(use);
  CurataCampuri();
}

void frmObInvFisa::cmdModificare_Click() {
  if (!EsteFisaValida()) return;
  RunWith(
      "pModificaObiect",
      [this](Procedure&) {
        pModificaObiect(Card(), ID);
        MarkSaved();
        MsgBoxEx("Datele au fost modificate cu succes !", kInformation);
        // A disabled box would hand the focus to the screen behind the card.
        if (Frame1->isAncestorOf(focusWidget())) GiveFocus(cmdIesire);
        Frame1->setEnabled(false);
      },
      ShowSavingFailure);
}

// Users know this message by the name of another screen.
void frmObInvFisa::AddNote(const DocumentUse& agreed) {
  RunWith(
      "pAddNoteContabile", [&](Procedure&) { pAddNoteContabile(Card(), agreed); },
      [](const Failure& failure, const Procedure& running) {
        ShowStandardError(failure, {running.name, running.kind, "frmRapCHE", running.line});
      });
}

void frmObInvFisa::CurataCampuri() {
  for (TextBox* box : txtText) box->SetText("");
  for (NumberBox* box : txtNumar) box->SetNumber(std::nullopt);
  for (DateBox* box : DTPicker1) box->SetDate(clock::Today());
  for (DataCombo* combo : Combos()) combo->SetText("");
  GiveFocus(txtText[kCode]);
  MarkSaved();
  ShowNote();
}

void frmObInvFisa::cmdDescarcare_Click(Procedure& running) {
  const ObjectCard card = Card();
  if (const auto refusal = RefusalToWriteOff(card, bBlocata)) {
    Refuse(*refusal);
    return;
  }
  running.line = 1;
  if (const auto refusal = WriteOff(card, ID).refusal) {
    Refuse(*refusal);
    return;
  }
  writtenOff_ = true;
  ShowNote();
  MsgBoxEx("Descarcare cu succes !", kInformation);
}

// ---- The note -----------------------------------------------------------------------------------

// Read again when the account changes or the screen comes to the front.
const std::optional<std::string>& frmObInvFisa::ExpenseAccount(const std::string& account) {
  if (!expense_ || expense_->first != account) {
    Connection connection(CurrentSession().connectionString);
    expense_ = {account, ExpenseAccountOf(connection, account)};
  }
  return expense_->second;
}

// The note that the card would write now, or why it would write none.
std::string frmObInvFisa::WhyNoNote(const ObjectCard& card, Note& note) {
  if (bAdaugare_) {
    if (CurrentSession().contObiecteInventar.empty()) return kNoInventoryAccount;
    if (const auto refusal = RefusalToSave(card)) return refusal->message;
    note = PurchaseNote(card);
  } else {
    if (const auto refusal = RefusalToWriteOff(card, writtenOff_)) return refusal->message;
    const std::optional<std::string>& expense = ExpenseAccount(card.text[kAccount]);
    if (!expense) return NoExpenseAccount(card).message;
    note = WriteOffNote(card, *expense);
  }
  return "La valoarea 0 nu se scrie nota contabila.";
}

void frmObInvFisa::ShowNote() {
  Note note;
  std::string why;
  try {
    why = WhyNoNote(Card(), note);
  } catch (const std::exception&) {
    why = "Nota contabila nu se poate calcula: " + CaughtFailure().Description();
  }
  grdNota->Show({note}, why);
}

frmObInvFisa& OpenObjectCard(const ObjectToOpen& object) {
  const std::string key = object.bAdaugare ? std::string() : object.sNrCrt;
  return windows::OpenFor<frmObInvFisa>(key, [&] { return new frmObInvFisa(object); });
}

}  // namespace tevra
