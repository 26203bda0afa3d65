// The card's loading: the row's values into the boxes, the lists into the combos.
#include "engine/Module3.h"
#include "platform/forms/Hourglass.h"
#include "platform/system/Clock.h"
#include "platform/text/Numbers.h"
#include "register/frmFisaImo.h"
#include "session/CodeLists.h"
#include "session/Combos.h"
#include "session/Module1.h"

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

constexpr CodeList kNewClasses{
    "COD_GR_NOU", "COD_DENUMIRE",
    "Select COD_GR_NOU, COD_GR_NOU & '-' & DEN_GR As COD_DENUMIRE from I_CLASIFICARE where "
    "durnor_nou<>0 order by COD_GR_NOU",
    "Select COD_GR_NOU & '-' & DEN_GR As COD_DENUMIRE from I_CLASIFICARE where COD_GR_NOU = ?"};

constexpr CodeList kOldClasses{
    "COD_GR", "COD_DENUMIRE",
    "Select COD_GR, COD_GR & '-' & DEN_GR As COD_DENUMIRE from I_CLASIFICARE where durnor<>0 order "
    "by COD_GR",
    "Select COD_GR & '-' & DEN_GR As COD_DENUMIRE from I_CLASIFICARE where COD_GR = ?"};

}  // namespace

/// A combo of the card and the box with its value.
struct frmFisaImo::ComboSource : CodeList {
  DataCombo* combo;
  QLineEdit* box;
};

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
  ShowTitle();
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

// Several cards may be open; the title says which asset each one has.
void frmFisaImo::ShowTitle() {
  setWindowTitle("Fisa imobilizare - " + txtText[kCode]->text() + " " + txtText[kName]->text());
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
    if (kNumberFields[i]) txtNumar[i]->SetContent(row.Get(kNumberFields[i]));
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
  const CodeList vat =
      VatRates("Select COD, CONT & '-' & PROCENT As CONT_PROCENT from kv_COTE Order by COD");
  const CodeList accounts = Accounts(
      "Select CONT, CONT & '-' & TITLU As CONT_TITLU from kv_PC WHERE LEN(CONT) >=3 order by CONT");
  const CodeList use{"Indice", "Indice", "Select INDICE from I_Grade Order by Indice desc",
                     nullptr};
  return {{
      {OffersNewClasses() ? kNewClasses : kOldClasses, cboGrupa, txtText[kGroup]},
      {kCostCentres, cboCentruCost, txtText[kCostCentre]},
      {kLocations, cboLocalizare, txtText[kLocation]},
      {kSuppliers, cboFurnizori, txtText[kSupplier]},
      {vat, cboTVA, txtText[kVat]},
      {accounts, cboCont, txtText[kAccount]},
      {use, cboGradUtiliz, txtNumar[kUse]},
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
    if (each.text) {
      ShowCode(*each.combo, each.text, value);
    } else if (value != "0") {
      each.combo->SetBoundText(value, value);
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

void frmFisaImo::ConnectCombos() {
  for (const ComboSource& combo : Combos()) {
    connect(combo.combo, &DataCombo::Picked, this, [this, combo] { PickedInCombo(combo); });
  }
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

}  // namespace tevra
