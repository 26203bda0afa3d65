// The card's method panel: the handlers, which move numbers between the boxes and the derivations.
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "register/frmFisaImo.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

Coefficients CompanyCoefficients() {
  Connection connection(CurrentSession().connectionString);
  return ReadCoefficients(connection);
}

// The number in a box that must hold one.
double NumberIn(const NumberBox& box) {
  const std::optional<double> number = box.Number();
  if (!number) throw Failure(kTypeMismatch, "Type mismatch");
  return *number;
}

}  // namespace

Method frmFisaImo::Letter() const {
  const std::string letter = txtText[9]->Text();
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
  txtText[9]->SetText("L");
  Frame7->setEnabled(true);
  Derived derived;
  PickLinear(txtNumar[3]->Number(), derived);
  Apply(derived);
  txtNumar[10]->setEnabled(false);
}

// A direct expense stays on a linear asset only.
void frmFisaImo::MethodClick(Method method) {
  txtText[9]->SetText(std::string(1, static_cast<char>(method)));
  Frame7->setEnabled(false);
  txtNumar[13]->SetText("0");
  txtNumar[14]->SetText("0");
  chkChelt->setChecked(false);
  if (txtNumar[3]->IsEmpty()) {
    MsgBoxEx("Va rugam completati " + txtNumar[3]->property("Tag").toString().toStdString() + " !");
    FallBackToLinear();
    GiveFocus(txtNumar[3]);
    return;
  }
  Derived derived;
  derived.realIsNormal = method == kAccelerated;
  bool fits = false;
  try {
    // Only what the method looks at must be a number.
    const bool byYearsLeft = method == kAccelerated && chkBlocata->isChecked();
    const bool byNormal = method != kNoDepreciation && !byYearsLeft;
    fits = PickMethod(method, byNormal ? NumberIn(*txtNumar[3]) : 0, byYearsLeft,
                      byYearsLeft ? txtNumar[11]->Number() : std::nullopt, CompanyCoefficients,
                      derived);
  } catch (const Failure&) {
    Apply(derived);
    throw;
  }
  if (!fits) {
    MsgBoxEx(OutOfRangeText(method, txtNumar[3]->Text()));
    return FallBackToLinear();
  }
  Apply(derived);
  txtNumar[10]->setEnabled(method == kAccelerated);
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
    if (txtNumar[3]->IsNumeric()) {
      txtNumar[4]->SetNumber(txtNumar[3]->Number());
    } else {
      txtNumar[4]->SetText(txtNumar[3]->Text());
    }
  }
  if (withReal && derived.real) txtNumar[4]->SetNumber(derived.real);
  if (derived.rate) txtNumar[5]->SetNumber(derived.rate);
  if (derived.coef) txtNumar[10]->SetNumber(derived.coef);
}

// ---- Leaving number boxes -----------------------------------------------------------------------

void frmFisaImo::txtNumar_LostFocus(int index) {
  const auto told = [](const Failure& failure, const Procedure& procedure) {
    MsgBoxEx(ShortErrorText(failure), kCritical,
             "TxtNumar_lostfocus - Linia " + std::to_string(procedure.line));
  };
  RunWith(
      "txtNumar_LostFocus",
      [&](Procedure& procedure) {
        procedure.line = index + 1;
        if (index == 0 || index == 1) {
          if (!txtNumar[0]->IsNumeric() || !txtNumar[1]->IsNumeric()) return;
          txtNumar[2]->SetNumber(ValueInCurrency(NumberIn(*txtNumar[0]), NumberIn(*txtNumar[1])));
        }
        if (index == 3) LeaveNormalDuration();
        if (index == 4) LeaveRealDuration();
        if (index == 7 || index == 8) {
          const double rate = txtNumar[1]->Number().value_or(0);
          if (rate != 0 && !txtNumar[7]->IsEmpty())
            txtNumar[8]->SetNumber(RoundTo(NumberIn(*txtNumar[7]) / rate, 0));
        }
      },
      told);
}

void frmFisaImo::LeaveNormalDuration() {
  if (txtNumar[3]->IsEmpty()) {
    MsgBoxEx("Va rugam completati " + txtNumar[3]->property("Tag").toString().toStdString() + " !");
    Liniara->setChecked(true);
    return GiveFocus(txtNumar[3]);
  }
  DeriveFromDuration(true);
  DTPicker1[3]->SetDate(InYearOfEnd(DTPicker1[3]->Date().value(), DTPicker1[1]->Date().value(),
                                    NumberIn(*txtNumar[4])));
}

void frmFisaImo::LeaveRealDuration() {
  if (txtNumar[3]->IsEmpty()) {
    MsgBoxEx("Va rugam introduceti o valoare numerica");
    return GiveFocus(txtNumar[3]);
  }
  DeriveFromDuration(NumberIn(*txtNumar[3]) <= 0);
}

void frmFisaImo::DeriveFromDuration(bool withReal) {
  Derived derived;
  Method method = kNoMethod;
  for (const OptionButton* option : Options()) {
    if (option->isChecked()) method = MethodOf(option);
  }
  bool fits = false;
  try {
    fits = LeaveDuration(method, NumberIn(*txtNumar[3]), CompanyCoefficients, derived);
  } catch (const Failure&) {
    Apply(derived, withReal);
    throw;
  }
  if (fits) {
    Apply(derived, withReal);
  } else {
    MsgBoxEx(OutOfRangeText(method, txtNumar[3]->Text()));
    FallBackToLinear();
  }
}

// ---- Leaving dates ------------------------------------------------------------------------------

// Each lower date follows the one above it: bought, in service, start, end, blocking.
void frmFisaImo::DTPicker1_LostFocus(int index) {
  const std::optional<DateTime> bought = DTPicker1[0]->Date();
  if (Faraam->isChecked()) {
    const std::size_t last = index == 2 ? 3 : 4;
    for (std::size_t i = static_cast<std::size_t>(index) + 1; i <= last; ++i) {
      DTPicker1[i]->SetDate(bought);
    }
    return;
  }
  if (index == 0) DTPicker1[1]->SetDate(bought);
  if (index <= 1) DTPicker1[2]->SetDate(FirstOfNextMonth(DTPicker1[1]->Date().value()));
  const DateTime start = DTPicker1[2]->Date().value();
  if (!txtNumar[4]->IsEmpty()) DTPicker1[3]->SetDate(EndOfLife(start, NumberIn(*txtNumar[4])));
  DTPicker1[4]->SetDate(start);
}

// ---- Blocking and direct expense ----------------------------------------------------------------

void frmFisaImo::chkBlocata_Click() {
  const TimeLeft left = TimeLeftAt(DTPicker1[4]->Date().value(), DTPicker1[3]->Date().value());
  txtNumar[11]->SetNumber(left.years);
  txtNumar[12]->SetNumber(left.months);
  const Method method = Letter();
  Derived derived;
  if (Block(method, left.years, CompanyCoefficients, derived)) {
    Apply(derived);
  } else {
    // Without wear the message speaks of the whole life.
    const NumberBox& years = method == kWithWear ? *txtNumar[11] : *txtNumar[3];
    MsgBoxEx(OutOfRangeText(method, years.Text()));
    FallBackToLinear();
  }
  for (OptionButton* option : Options()) option->setEnabled(false);
}

void frmFisaImo::chkBlocata_LostFocus() {
  if (chkBlocata->isChecked()) return;
  for (OptionButton* option : Options()) option->setEnabled(true);
  for (const std::size_t i : {7, 8, 11, 12}) txtNumar[i]->SetText("0");
}

void frmFisaImo::chkChelt_Click() {
  if (!chkChelt->isChecked()) {
    txtNumar[13]->SetText("0");
    txtNumar[14]->SetText("0");
    return;
  }
  if (txtNumar[0]->IsNumeric()) txtNumar[13]->SetNumber(DirectExpense(NumberIn(*txtNumar[0])));
  const bool hasRate = !txtNumar[1]->IsEmpty() && NumberIn(*txtNumar[1]) != 0;
  if (txtNumar[2]->IsNumeric() && hasRate) {
    txtNumar[14]->SetNumber(DirectExpense(NumberIn(*txtNumar[2])));
  }
}

}  // namespace tevra
