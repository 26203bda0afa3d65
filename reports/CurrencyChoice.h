// The choice of a report's currency: a check box and a combo, the same on all report screens.
#pragma once

#include <QComboBox>
#include <string>

#include "platform/forms/Boxes.h"

namespace tevra {

/// Unticked, the report is in lei. Ticked, it is in the currency of the combo, even when that is
/// empty.
class CurrencyChoice {
 public:
  /// Creates the two controls on a screen; Load fills them and sets their handlers.
  explicit CurrencyChoice(QWidget* screen);
  void Load();

  /// "LEI", the code before the first "-" of the combo's text, or the whole text.
  std::string Currency() const;

  CheckBox* ckbDeviza;
  QComboBox* cboCodDeviza;

 private:
  void ckbDeviza_Click();
};

}  // namespace tevra
