// The handlers of the card's method panel, which copy numbers between the boxes and MethodPanel.
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "register/frmFisaImo.h"
#include "session/Module1.h"
#include "session/RateOffer.h"
#include "session/Session.h"

namespace tevra {

namespace {

using enum text::Place;
using enum number::Place;
using enum date::Place;

Coefficients CompanyCoefficients() {
  Connection connection(CurrentSession().connectionString);
  return ReadCoefficients(connection);
}

// The number in a box that must contain one.
double NumberIn(const NumberBox& box) {
  const std::optional<double> number = box.Number();
  if (!number) throw Failure(kTypeMismatch, "Type mismatch");
  return *number;
}

}  // namespace

Method frmFisaImo::Letter() const {
  const std::string letter = txtText[kMethod]->Text();
  return letter.empty() ? kNoMethod : static_cast<Method>(letter[0]);
}

Method frmFisaImo::MethodOf(const OptionButton* option) {
  return static_cast<Method>(option->property("Letter").toString()[0].toLatin1());
}

std::array<OptionButton*, 5> frmFisaImo::Options() const {
  return {Liniara, Accelerata, CuUzura, FaraUzura, Faraam};
}

// ---- The options --------------------------------------------------------------------------------

void frmFisaImo::OptionClicked(Method method) {
  switch (method) {
    case kLinear:
      RunShort("Liniara_Click", [this](Procedure&) { Liniara_Click(); });
      return;
    case kAccelerated:
      RunShort("Accelerata_Click", [this](Procedure&) { MethodClick(kAccelerated); });
      return;
    case kWithWear:
      RunShort("CuUzura_Click", [this](Procedure&) { MethodClick(kWithWear); });
      return;
    case kWithoutWear:
      RunShort("FaraUzura_Click", [this](Procedure&) { MethodClick(kWithoutWear); });
      return;
    default:
      RunShort("Faraam_Click", [this](Procedure&) { MethodClick(kNoDepreciation); });
      return;
  }
}

void frmFisaImo::Liniara_Click() {
  txtText[kMethod]->SetText("L");
  Frame7->setEnabled(true);
  Derived derived;
  PickLinear(txtNumar[kNormalYears]->Number(), derived);
  Apply(derived);
  txtNumar[kCoef]->setEnabled(false);
}

// Only a linear asset may have a direct expense.
void frmFisaImo::MethodClick(Method method) {
  txtText[kMethod]->SetText(std::string(1, static_cast<char>(method)));
  Frame7->setEnabled(false);
  txtNumar[kExpensed]->SetText("0");
  txtNumar[kExpensedForeign]->SetText("0");
  chkChelt->setChecked(false);
  if (txtNumar[kNormalYears]->IsEmpty()) {
    MsgBoxEx("Va rugam completati " +
             txtNumar[kNormalYears]->property("Tag").toString().toStdString() + " !");
    FallBackToLinear();
    GiveFocus(txtNumar[kNormalYears]);
    return;
  }
  Derived derived;
  derived.realIsNormal = method == kAccelerated;
  bool fits = false;
  try {
    // Only the boxes that the method uses must contain numbers.
    const bool byYearsLeft = method == kAccelerated && chkBlocata->isChecked();
    const bool byNormal = method != kNoDepreciation && !byYearsLeft;
    fits = PickMethod(method, byNormal ? NumberIn(*txtNumar[kNormalYears]) : 0, byYearsLeft,
                      byYearsLeft ? txtNumar[kYearsLeft]->Number() : std::nullopt,
                      CompanyCoefficients, derived);
  } catch (const Failure&) {
    Apply(derived);
    throw;
  }
  if (!fits) {
    MsgBoxEx(OutOfRangeText(method, txtNumar[kNormalYears]->Text()));
    return FallBackToLinear();
  }
  Apply(derived);
  txtNumar[kCoef]->setEnabled(method == kAccelerated);
}

void frmFisaImo::FallBackToLinear() {
  if (Liniara->isChecked()) {
    Liniara_Click();
  } else {
    Liniara->setChecked(true);
  }
  GiveFocus(Liniara);
}

void frmFisaImo::Apply(const Derived& derived, bool withReal) {
  if (derived.realIsNormal) {
    if (txtNumar[kNormalYears]->IsNumeric()) {
      txtNumar[kRealYears]->SetNumber(txtNumar[kNormalYears]->Number());
    } else {
      txtNumar[kRealYears]->SetText(txtNumar[kNormalYears]->Text());
    }
  }
  if (withReal && derived.real) txtNumar[kRealYears]->SetNumber(derived.real);
  settled_.Remember(txtNumar[kRealYears]);
  if (derived.rate) txtNumar[kRate]->SetNumber(derived.rate);
  if (derived.coef) txtNumar[kCoef]->SetNumber(derived.coef);
}

// ---- Leaving number boxes -----------------------------------------------------------------------

void frmFisaImo::txtNumar_LostFocus(number::Place left) {
  const auto told = [](const Failure& failure, const Procedure& procedure) {
    MsgBoxEx(ShortErrorText(failure), kCritical,
             "TxtNumar_lostfocus - Linia " + std::to_string(procedure.line));
  };
  RunWith(
      "txtNumar_LostFocus",
      [&](Procedure& procedure) {
        procedure.line = static_cast<int>(left) + 1;
        if (left == kValue || left == kExchangeRate) {
          if (!txtNumar[kValue]->IsNumeric() || !txtNumar[kExchangeRate]->IsNumeric()) return;
          txtNumar[kForeignValue]->SetNumber(
              ValueInCurrency(NumberIn(*txtNumar[kValue]), NumberIn(*txtNumar[kExchangeRate])));
        }
        if (left == kNormalYears) LeaveNormalDuration();
        if (left == kRealYears) LeaveRealDuration();
        if (left == kBlockedValue || left == kBlockedForeignValue) {
          const double rate = txtNumar[kExchangeRate]->Number().value_or(0);
          if (rate != 0 && !txtNumar[kBlockedValue]->IsEmpty())
            txtNumar[kBlockedForeignValue]->SetNumber(
                RoundTo(NumberIn(*txtNumar[kBlockedValue]) / rate, 0));
        }
      },
      told);
}

void frmFisaImo::TakeRateOfDay() {
  if (!OfferRate(*txtNumar[kExchangeRate], DTPicker1[kBought]->Date().value())) return;
  txtNumar_LostFocus(kExchangeRate);
  Settle();
}

void frmFisaImo::LeaveNormalDuration() {
  if (txtNumar[kNormalYears]->IsEmpty()) {
    MsgBoxEx("Va rugam completati " +
             txtNumar[kNormalYears]->property("Tag").toString().toStdString() + " !");
    Liniara->setChecked(true);
    return GiveFocus(txtNumar[kNormalYears]);
  }
  DeriveFromDuration(true);
  DTPicker1[kEnd]->SetDate(InYearOfEnd(DTPicker1[kEnd]->Date().value(),
                                       DTPicker1[kInService]->Date().value(),
                                       NumberIn(*txtNumar[kRealYears])));
}

void frmFisaImo::LeaveRealDuration() {
  if (txtNumar[kNormalYears]->IsEmpty()) {
    MsgBoxEx("Va rugam introduceti o valoare numerica");
    return GiveFocus(txtNumar[kNormalYears]);
  }
  DeriveFromDuration(NumberIn(*txtNumar[kNormalYears]) <= 0);
}

void frmFisaImo::DeriveFromDuration(bool withReal) {
  Derived derived;
  Method method = kNoMethod;
  for (const OptionButton* option : Options()) {
    if (option->isChecked()) method = MethodOf(option);
  }
  bool fits = false;
  try {
    fits = LeaveDuration(method, NumberIn(*txtNumar[kNormalYears]), CompanyCoefficients, derived);
  } catch (const Failure&) {
    Apply(derived, withReal);
    throw;
  }
  if (fits) {
    Apply(derived, withReal);
  } else {
    MsgBoxEx(OutOfRangeText(method, txtNumar[kNormalYears]->Text()));
    FallBackToLinear();
  }
}

// ---- Leaving dates ------------------------------------------------------------------------------

// Each date derives the ones below it: bought, in service, start, end, blocking.
void frmFisaImo::DTPicker1_LostFocus(date::Place left) {
  const std::optional<DateTime> bought = DTPicker1[kBought]->Date();
  if (Faraam->isChecked()) {
    const std::size_t last = left == kStart ? kEnd : kBlockedFrom;
    for (std::size_t i = left + 1; i <= last; ++i) {
      DTPicker1[i]->SetDate(bought);
    }
    return;
  }
  if (left == kBought) DTPicker1[kInService]->SetDate(bought);
  if (left != kStart)
    DTPicker1[kStart]->SetDate(FirstOfNextMonth(DTPicker1[kInService]->Date().value()));
  const DateTime start = DTPicker1[kStart]->Date().value();
  if (!txtNumar[kRealYears]->IsEmpty())
    DTPicker1[kEnd]->SetDate(EndOfLife(start, NumberIn(*txtNumar[kRealYears])));
  DTPicker1[kBlockedFrom]->SetDate(start);
}

// ---- Blocking and direct expense ----------------------------------------------------------------

void frmFisaImo::chkBlocata_Click() {
  const TimeLeft left =
      TimeLeftAt(DTPicker1[kBlockedFrom]->Date().value(), DTPicker1[kEnd]->Date().value());
  txtNumar[kYearsLeft]->SetNumber(left.years);
  txtNumar[kMonthsLeft]->SetNumber(left.months);
  const Method method = Letter();
  Derived derived;
  if (Block(method, left.years, CompanyCoefficients, derived)) {
    Apply(derived);
  } else {
    // For the method without wear the message names the whole life.
    const NumberBox& years = method == kWithWear ? *txtNumar[kYearsLeft] : *txtNumar[kNormalYears];
    MsgBoxEx(OutOfRangeText(method, years.Text()));
    FallBackToLinear();
  }
  for (OptionButton* option : Options()) option->setEnabled(false);
}

void frmFisaImo::chkBlocata_LostFocus() {
  if (chkBlocata->isChecked()) return;
  for (OptionButton* option : Options()) option->setEnabled(true);
  for (const auto place : {kBlockedValue, kBlockedForeignValue, kYearsLeft, kMonthsLeft}) {
    txtNumar[place]->SetText("0");
  }
}

void frmFisaImo::chkChelt_Click() {
  if (!chkChelt->isChecked()) {
    txtNumar[kExpensed]->SetText("0");
    txtNumar[kExpensedForeign]->SetText("0");
    return;
  }
  if (txtNumar[kValue]->IsNumeric())
    txtNumar[kExpensed]->SetNumber(DirectExpense(NumberIn(*txtNumar[kValue])));
  const bool hasRate =
      !txtNumar[kExchangeRate]->IsEmpty() && NumberIn(*txtNumar[kExchangeRate]) != 0;
  if (txtNumar[kForeignValue]->IsNumeric() && hasRate) {
    txtNumar[kExpensedForeign]->SetNumber(DirectExpense(NumberIn(*txtNumar[kForeignValue])));
  }
}

}  // namespace tevra
