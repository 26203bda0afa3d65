// Asks for a month.
#pragma once

#include <QPushButton>
#include <cstdint>

#include "platform/forms/DateBox.h"
#include "platform/forms/Form.h"

namespace tevra {

/// A modal screen; shown by ShowModal, it hides when the user has chosen or given up.
class frmSelLuna : public Form {
 public:
  /// `shown`: what the choice is about, below the month; the screen takes it over.
  explicit frmSelLuna(QWidget* parent = nullptr, QWidget* shown = nullptr);

  std::uint8_t Luna = 0;   ///< the month chosen, from 1
  std::int16_t An = 0;     ///< its year
  bool OkPressed = false;  ///< a month was chosen

  DateBox* DTPicker;
  QPushButton* cmdOk;
  QPushButton* cmdCancel;

 private:
  void Build(QWidget* shown);
  void cmdOk_Click();
  void cmdCancel_Click();
};

}  // namespace tevra
