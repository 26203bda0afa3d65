// The window with the program's name and version.
#pragma once

#include <QLabel>
#include <QPushButton>

#include "platform/forms/Form.h"

namespace tevra {

class frmAbout : public Form {
 public:
  explicit frmAbout(QWidget* parent = nullptr);

  QLabel* imgLogo;
  QLabel* lblTitle;
  QLabel* lblVersion;
  QLabel* lblDescription;
  QPushButton* cmdOK;
};

}  // namespace tevra
