#include "reports/CurrencyChoice.h"

#include "reports/Reports.h"
#include "session/Combos.h"

namespace tevra {

namespace {

// The colour of a box that the user has to fill in.
constexpr const char* kHighlighted = "QComboBox { background: #ffffc8; }";

}  // namespace

CurrencyChoice::CurrencyChoice(QWidget* screen)
    : ckbDeviza(new CheckBox("ckbDeviza", "Pentru de&viza", screen)),
      cboCodDeviza(new QComboBox(screen)) {
  ckbDeviza->setToolTip("Valorile in valuta in locul celor in lei");
  cboCodDeviza->setObjectName("cboCodDeviza");
  cboCodDeviza->setEditable(true);
  cboCodDeviza->setInsertPolicy(QComboBox::NoInsert);
  cboCodDeviza->setAccessibleName("Codul valutei");
}

void CurrencyChoice::Load() {
  ckbDeviza->setChecked(false);
  LoadComboBox(*cboCodDeviza);
  ckbDeviza_Click();
  QObject::connect(ckbDeviza, &CheckBox::Click, ckbDeviza, [this] { ckbDeviza_Click(); });
}

void CurrencyChoice::ckbDeviza_Click() {
  const bool ticked = ckbDeviza->isChecked();
  cboCodDeviza->setEnabled(ticked);
  cboCodDeviza->setStyleSheet(ticked ? kHighlighted : "");
  cboCodDeviza->setCurrentIndex(-1);
  cboCodDeviza->setEditText(ticked ? "" : kLei);
}

std::string CurrencyChoice::Currency() const {
  if (!ckbDeviza->isChecked()) return kLei;
  return CodeOf(cboCodDeviza->currentText().toStdString());
}

}  // namespace tevra
