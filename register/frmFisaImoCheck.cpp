// The card's checks before a save.
#include "platform/system/MessageBox.h"
#include "platform/text/Strings.h"
#include "register/frmFisaImo.h"
#include "session/Module1.h"

namespace tevra {

namespace {

using enum text::Place;
using enum number::Place;
using enum date::Place;

QString TagOf(const QWidget* box) {
  return box->property("Tag").toString();
}

}  // namespace

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

}  // namespace tevra
