#include "session/RateOffer.h"

#include <QToolTip>

#include "platform/data/Connection.h"
#include "platform/system/MessageBox.h"
#include "session/DayRate.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

std::string TextOf(double rate) {
  return Value(rate).AsText();
}

std::string TextOf(const DateTime& day) {
  return Value(day.Midnight()).AsText();
}

// What the user should know before the rate is taken; empty when there is nothing.
std::string Doubts(const NumberBox& box, const DayRate& offered, const DateTime& day) {
  const std::string& currency = CurrentSession().codDeviza;
  std::string doubts;
  if (IsOldRate(offered, day)) {
    doubts = "Ultimul curs " + currency + " dinainte de " + TextOf(day) + " este cel din " +
             TextOf(offered.day) + ". ";
  }
  const bool replaces = !box.IsEmpty() && !(box.IsNumeric() && box.Number() == 0.0);
  if (replaces) doubts += "Cursul " + box.Text() + " va fi inlocuit. ";
  return doubts;
}

}  // namespace

bool OfferRate(NumberBox& box, const DateTime& day) {
  const std::string& currency = CurrentSession().codDeviza;
  if (currency.empty()) {
    MsgBoxEx("Va rugam alegeti deviza in configurarea societatii !", kInformation);
    return false;
  }
  Connection company(CurrentSession().connectionString);
  const auto offered = RateAt(company, currency, day);
  if (!offered) {
    MsgBoxEx("Nu exista curs " + currency + " pentru " + TextOf(day) + " sau dinainte !",
             kInformation);
    return false;
  }
  if (box.IsNumeric() && box.Number() == offered->rate) return false;
  const std::string doubts = Doubts(box, *offered, day);
  if (!doubts.empty() && MsgBoxEx(doubts + "Doriti cursul " + TextOf(offered->rate) + " din " +
                                      TextOf(offered->day) + " ?",
                                  kYesNo | kQuestion | kDefaultStep, "Curs valutar") != kYes) {
    return false;
  }
  box.SetNumber(offered->rate);
  box.selectAll();
  QToolTip::showText(box.mapToGlobal(box.rect().bottomLeft()),
                     QString::fromStdString("Curs " + currency + " din " + TextOf(offered->day)),
                     &box);
  return true;
}

}  // namespace tevra
