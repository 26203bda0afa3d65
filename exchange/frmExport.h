// The screen that writes the data of a period for the centre.
#pragma once

#include <QLabel>

#include "exchange/ExportFile.h"
#include "platform/data/Connection.h"
#include "platform/forms/DateBox.h"
#include "platform/forms/Form.h"

namespace tevra {

class frmExport : public Form {
  Q_OBJECT

 public:
  explicit frmExport(QWidget* parent = nullptr);

  DateBox* dtDataDeLa;
  DateBox* dtPanaLa;
  QPushButton* cmdExport;
  QPushButton* cmdIesire;

 private:
  void Build();
  void Form_Load();
  void cmdExport_Click(Procedure& running);
  bool GenerateXML();
  Exported Write(bool again);

  Connection connection_;
};

}  // namespace tevra
