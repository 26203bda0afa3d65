#include "register/frmFisaImo.h"

#include "engine/Module3.h"
#include "platform/forms/Hourglass.h"
#include "platform/forms/Windows.h"
#include "platform/system/Clock.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "session/Combos.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

using enum text::Place;
using enum number::Place;
using enum date::Place;

const DateTime kNewCatalogue(2005, 1, 1);

// The list of classes changes one day later than the field that stores the class.
bool OffersNewClasses() {
  return clock::Today() > kNewCatalogue;
}

bool KeepsNewClass() {
  return clock::Today() >= kNewCatalogue;
}

QString TagOf(const QWidget* box) {
  return box->property("Tag").toString();
}

}  // namespace

/// A combo of the card, the box with its value, and its statements.
struct frmFisaImo::ComboSource {
  DataCombo* combo;
  QLineEdit* box;
  const char* boundColumn;
  const char* listField;
  const char* list;
  const char* text;  ///< returns the combo's text for a value; none when the value is the text
};

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
  OnClickShort(cmdVanzare, "cmdVanzare_Click", [](Procedure&) {
    MsgBoxEx(
        "Ecranul \"Iesire imobilizare\" nu este disponibil in aceasta versiune a programului !",
        kInformation);
  });
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
  for (const ComboSource& combo : Combos()) {
    connect(combo.combo, &DataCombo::Picked, this, [this, combo] { PickedInCombo(combo); });
  }
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

// ---- Loading ------------------------------------------------------------------------------------

void frmFisaImo::Form_Load() {
  const Hourglass hourglass;
  loading_ = true;
  RunShort("Form_Load", [this](Procedure&) {
    asset_.bAdaugare ? OpenNew() : OpenExisting();
    LoadCombos();
  });
  loading_ = false;
  MarkSaved();
  settled_.Remember(this);
  Settle();
}

void frmFisaImo::OpenNew() {
  for (DateBox* box : DTPicker1) box->SetDate(clock::Today());
  cmdModificare->setEnabled(false);
  cmdVanzare->setEnabled(false);
  cmdSalvare->setDefault(true);
  Liniara->setChecked(true);
  txtNumar[kUse]->SetText("100");
  txtText[kVat]->SetText("0");
  txtNumar[kExpensed]->SetText("0");
  txtNumar[kExpensedForeign]->SetText("0");
  DTPicker1[kStart]->SetDate(DTPicker1[kInService]->Date().value().AddMonths(1));
  DTPicker1[kEnd]->SetDate(DTPicker1[kStart]->Date());
}

void frmFisaImo::OpenExisting() {
  cmdSalvare->setEnabled(false);
  cmdModificare->setDefault(true);
  const Recordset row =
      OpenRecordset("Select * from I_IMO Where NRCRT = ?", {CLng(CDbl(asset_.sNrCrt))});
  LoadBoxes(row);
  if (KeepsNewClass()) txtText[kGroup]->SetText(row.Get("COD_GR_NOU").TextOrEmpty());
  if (Nz(row.Get("BLOCATA"), Value::YesNo(false)).AsBool()) chkBlocata->setChecked(true);
  for (OptionButton* option : {Liniara, CuUzura, FaraUzura, Accelerata, Faraam}) {
    if (MethodOf(option) != Letter()) continue;
    option->setChecked(true);
    break;
  }
  const std::optional<double> expensed = txtNumar[kExpensed]->Number();
  chkChelt->setChecked(expensed && *expensed != 0);
}

void frmFisaImo::LoadBoxes(const Recordset& row) {
  static constexpr const char* kTextFields[] = {
      "COD",          "COD_GR",       "DENUMIRE", "COD_CC", "COD_LOC", "DOCUMENT",
      "COD_FURNIZOR", "COD_TVA_CUMP", "CONT",     "TIP_AM", "OBS1"};
  static constexpr const char* kNumberFields[] = {
      "VAL_CUMP",    "CURS",   "VAL_CUMP_VAL", "DNFANI",          "DRFANI",
      "COTA_ANUALA", "GRAD_U", "VAL_BLOCATA",  "VAL_BLOCATA_VAL", "NRCRT",
      "COEF",        nullptr,  nullptr,        "VALCHELEI",       "VALCHEVAL"};
  static constexpr const char* kDateFields[] = {"DATA_ACH", "DATA_PF", "DATA_IN_AM", "DATA_SF",
                                                "DATA_BLOCARE"};
  for (std::size_t i = 0; i < txtNumar.size(); ++i) {
    if (!kNumberFields[i]) continue;
    const Value value = row.Get(kNumberFields[i]);
    txtNumar[i]->SetNumber(value.IsNull() ? std::nullopt : std::optional(value.AsDouble()));
  }
  for (std::size_t i = 0; i < txtText.size(); ++i) {
    txtText[i]->SetText(Nz(row.Get(kTextFields[i]), "").TextOrEmpty());
  }
  for (std::size_t i = 0; i < DTPicker1.size(); ++i) {
    const Value date = row.Get(kDateFields[i]);
    DTPicker1[i]->SetDate(date.IsNull() ? clock::Today() : date.AsDateTime());
  }
}

// In the order in which they are loaded.
std::array<frmFisaImo::ComboSource, 7> frmFisaImo::Combos() const {
  const bool newer = OffersNewClasses();
  return {{
      {cboGrupa, txtText[kGroup], newer ? "COD_GR_NOU" : "COD_GR", "COD_DENUMIRE",
       newer ? "Select COD_GR_NOU, COD_GR_NOU & '-' & DEN_GR As COD_DENUMIRE from I_CLASIFICARE "
               "where durnor_nou<>0 order by COD_GR_NOU"
             : "Select COD_GR, COD_GR & '-' & DEN_GR As COD_DENUMIRE from I_CLASIFICARE where "
               "durnor<>0 order by COD_GR",
       newer ? "Select COD_GR_NOU & '-' & DEN_GR As COD_DENUMIRE from I_CLASIFICARE where "
               "COD_GR_NOU = ?"
             : "Select COD_GR & '-' & DEN_GR As COD_DENUMIRE from I_CLASIFICARE where COD_GR = ?"},
      {cboCentruCost, txtText[kCostCentre], "COD", "COD_TITLU",
       "Select COD, COD & '-' & TITLU As COD_TITLU from kv_cc Where UTILIZABIL = 'D' order by COD",
       "Select COD & '-' & TITLU As COD_TITLU from kv_cc where COD = ?"},
      {cboLocalizare, txtText[kLocation], "COD", "COD_TITLU",
       "Select COD, COD & '-' & TITLU As COD_TITLU from I_LOCALIZARE order by COD",
       "Select COD & '-' & TITLU As COD_TITLU from I_LOCALIZARE where COD = ?"},
      {cboFurnizori, txtText[kSupplier], "COD", "NUME",
       "Select COD, NUME from kv_ter where Ucase(TIP) in ('F', 'M') order by NUME",
       "Select NUME  from kv_TER where COD = CLng(?)"},
      {cboTVA, txtText[kVat], "COD", "CONT_PROCENT",
       "Select COD, CONT & '-' & PROCENT As CONT_PROCENT from kv_COTE Order by COD",
       "Select CONT & '-' & PROCENT As CONT_PROCENT from kv_COTE where COD = CLng(?)"},
      {cboCont, txtText[kAccount], "CONT", "CONT_TITLU",
       "Select CONT, CONT & '-' & TITLU As CONT_TITLU from kv_PC WHERE LEN(CONT) >=3 order by CONT",
       "Select CONT & '-' & TITLU As CONT_TITLU from kv_PC where CONT = ?"},
      {cboGradUtiliz, txtNumar[kUse], "Indice", "Indice",
       "Select INDICE from I_Grade Order by Indice desc", nullptr},
  }};
}

// A code that is no longer in its table leaves its combo empty, and the card cannot be saved until
// another one is chosen.
void frmFisaImo::LoadCombos() {
  const auto combos = Combos();
  for (std::size_t i = 0; i < combos.size(); ++i) {
    const ComboSource& each = combos[i];
    LoadDataCombo(*sources_[i], *each.combo, each.list, each.listField, each.boundColumn);
    const std::string value = each.box->text().toStdString();
    if (value.empty()) continue;
    if (!each.text) {
      if (value != "0") each.combo->SetBoundText(value, value);
      continue;
    }
    const std::string text = GetTextDataCombo(each.text, {value});
    if (text.empty()) {
      each.combo->SetText("");
    } else {
      each.combo->SetBoundText(value, text);
    }
  }
  loaded_ = true;
}

// Loads codes that were added on other screens in the meantime.
void frmFisaImo::Form_Activate() {
  static constexpr std::size_t kOrder[] = {1, 6, 3, 0, 2, 5, 4};
  if (!loaded_) return;
  for (const std::size_t i : kOrder) sources_[i]->Refresh();
}

void frmFisaImo::PickedInCombo(const ComboSource& combo) {
  const std::string procedure = combo.combo->objectName().toStdString() + "_Click";
  RunShort(procedure.c_str(), [&](Procedure&) {
    const std::string bound = combo.combo->BoundText();
    if (combo.combo == cboGradUtiliz) return txtNumar[kUse]->SetText(bound);
    static_cast<TextBox*>(combo.box)->SetText(bound);
    if (combo.combo == cboGrupa && !bound.empty()) cboGrupa_Click();
  });
}

void frmFisaImo::cboGrupa_Click() {
  const double normal = DurataNormala(txtText[kGroup]->Text());
  txtNumar[kNormalYears]->SetNumber(normal);
  txtNumar[kRealYears]->SetNumber(normal);
  txtNumar[kRate]->SetNumber(Divide(1, normal));
}

// ---- Saving -------------------------------------------------------------------------------------

AssetCard frmFisaImo::Card() const {
  AssetCard card;
  for (std::size_t i = 0; i < txtText.size(); ++i) card.text[i] = txtText[i]->Text();
  for (std::size_t i = 0; i < txtNumar.size(); ++i) {
    const NumberBox& box = *txtNumar[i];
    if (box.IsEmpty()) continue;
    card.number[i] = box.IsNumeric() ? Value(box.Number().value()) : Value(box.Text());
  }
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
  if (!EsteFisaValida()) return;
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
  AddNote();
  RunShort("CurataCampuri", [this](Procedure&) { CurataCampuri(); });
  MarkSaved();
}

void frmFisaImo::cmdModificare_Click() {
  if (!EsteFisaValida()) return;
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
  MarkSaved();
  AddNote();
}

void frmFisaImo::AddNote() {
  Run("pAddNoteContabile", [this](Procedure& procedure) {
    procedure.line = 1;
    pAddNoteContabile(Card());
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

// ---- Validation ---------------------------------------------------------------------------------

bool frmFisaImo::Refuse(const std::string& message, QWidget* box) {
  MsgBoxEx(message, kCritical);
  if (box) GiveFocus(box);
  return false;
}

bool frmFisaImo::RefuseNumber(number::Place place) {
  NumberBox* box = txtNumar[place];
  return Refuse(
      "Va rugam introduceti o valoare numerica pozitiva pentru " + TagOf(box).toStdString() + " !",
      box);
}

bool frmFisaImo::IsNumberFromZero(number::Place place) const {
  const NumberBox& box = *txtNumar[place];
  return box.IsNumeric() && box.Number().value_or(-1) >= 0;
}

bool frmFisaImo::EsteFisaValida() {
  bool valid = false;
  RunShort("EsteFisaValida", [&](Procedure&) {
    for (const text::Place place : {kCode, kName, kDocument}) {
      TextBox* box = txtText[place];
      if (!Trim(box->Text()).empty()) continue;
      Refuse("Va rugam completati " + TagOf(box).toStdString() + " !", box);
      return;
    }
    const std::pair<DataCombo*, const char*> combos[] = {{cboTVA, " nu este completata !"},
                                                         {cboCont, " nu este completat !"},
                                                         {cboGrupa, " nu este completata !"},
                                                         {cboFurnizori, " nu este completat !"}};
    for (const auto& [combo, words] : combos) {
      if (!combo->Text().empty()) continue;
      Refuse(TagOf(combo).toStdString() + words, combo);
      return;
    }
    if (txtText[kMethod]->Text().empty()) {
      Refuse("Va rugam selectati tipul de amortizare !", nullptr);
      return;
    }
    valid = AreNumbersValid() && (!chkBlocata->isChecked() || IsBlockingValid());
  });
  return valid;
}

bool frmFisaImo::AreNumbersValid() {
  if (!IsNumberFromZero(kValue)) return RefuseNumber(kValue);
  for (const number::Place place : {kExchangeRate, kForeignValue}) {
    if (!txtNumar[place]->IsEmpty() && !IsNumberFromZero(place)) return RefuseNumber(place);
  }
  for (const number::Place place : {kNormalYears, kRealYears, kRate}) {
    if (!IsNumberFromZero(place)) return RefuseNumber(place);
  }
  if (!cboGradUtiliz->Text().empty()) return true;
  return Refuse(TagOf(cboGradUtiliz).toStdString() + " nu este completat !", cboGradUtiliz);
}

bool frmFisaImo::IsBlockingValid() {
  const number::Place blockedValues[] = {kBlockedValue, kBlockedForeignValue};
  for (const number::Place place : blockedValues) {
    if (!txtNumar[place]->IsNumeric()) return RefuseNumber(place);
  }
  for (const number::Place place : blockedValues) {
    if (!IsNumberFromZero(place)) return RefuseNumber(place);
  }
  const auto refuseAbove = [this](number::Place blocked, number::Place whole) {
    return Refuse("Va rugam introduceti o valoare numerica pozitiva pentru " +
                      TagOf(txtNumar[blocked]).toStdString() + " mai mica decat " +
                      TagOf(txtNumar[whole]).toStdString() + "!",
                  txtNumar[blocked]);
  };
  if (txtNumar[kBlockedValue]->Number() > txtNumar[kValue]->Number())
    return refuseAbove(kBlockedValue, kValue);
  if (!txtNumar[kForeignValue]->IsEmpty() &&
      txtNumar[kBlockedForeignValue]->Number() > txtNumar[kForeignValue]->Number()) {
    return refuseAbove(kBlockedForeignValue, kForeignValue);
  }
  if (DTPicker1[kBlockedFrom]->Date() < DTPicker1[kStart]->Date()) {
    return Refuse("Selectati data de blocare a imobilizarii corect!", DTPicker1[kBlockedFrom]);
  }
  if (DTPicker1[kBlockedFrom]->Date() > DTPicker1[kEnd]->Date()) {
    return Refuse(
        "Atentie! Nu puteti bloca o imobilizare a carei perioada de amortizare s-a sfarsit!",
        DTPicker1[kBlockedFrom]);
  }
  return true;
}

frmFisaImo& OpenAssetCard(const AssetToOpen& asset) {
  const std::string key = asset.bAdaugare ? std::string() : asset.sNrCrt;
  return windows::OpenFor<frmFisaImo>(key, [&] { return new frmFisaImo(asset); });
}

}  // namespace tevra
