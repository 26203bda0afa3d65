// In which currency a report is printed: a tick and a combo, the same on all report screens.
#pragma once

#include <QComboBox>
#include <string>

#include "platform/forms/Boxes.h"

namespace tevra {

/// Unticked the report is in lei. Ticked, it is in the code that stands in the combo, an empty one
/// included.
class CurrencyChoice {
 public:
  /// Makes the two controls on a screen; Load fills and wires them.
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
