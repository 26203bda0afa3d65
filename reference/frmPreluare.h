// Asks where the rates of the National Bank come from.
#pragma once

#include <QPushButton>
#include <string>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"

namespace tevra {

/// A modal screen; shown by ShowModal, it hides when the user has chosen or given up. The address
/// is kept among the user's settings.
class frmPreluare : public Form {
 public:
  explicit frmPreluare(QWidget* parent = nullptr);

  bool OkPressed = false;
  std::string Adresa;  ///< the https address; empty when a file is wanted

  OptionButton* optFisier;
  OptionButton* optAdresa;
  TextBox* txtAdresa;
  QPushButton* cmdOk;
  QPushButton* cmdCancel;

 private:
  void Build();
  void cmdOk_Click();
};

}  // namespace tevra
