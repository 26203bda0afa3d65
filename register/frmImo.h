// The register of fixed assets.
#pragma once

#include <QPushButton>
#include <string>

#include "platform/forms/DataGrid.h"
#include "platform/forms/Form.h"

namespace tevra {

/// Opens the card for a new asset or for the one on the current row.
class frmImo : public Form {
 public:
  explicit frmImo(QWidget* parent = nullptr);
  ~frmImo() override;

  std::string sNrCrt;      ///< the NRCRT of the row last selected
  bool bAdaugare = false;  ///< the card opens for a new asset

  Adodc* datPrimaryRS;
  DataGrid* TDBGrid1;
  QPushButton* cmdCreare;
  QPushButton* cmdModificare;
  QPushButton* cmdClose;

 protected:
  void Form_Activate() override;

 private:
  void Build();
  void OpenCard(bool adds);
};

}  // namespace tevra
