// The list of inventory objects.
#pragma once

#include "platform/screens/ListScreen.h"

namespace tevra {

/// The list of all objects with their totals: two searches, sort, card, deletion, listing of the
/// selected rows.
class frmObInv : public ListScreen {
 public:
  explicit frmObInv(QWidget* parent = nullptr);

  std::string sNrCrt;      ///< the nrcrt of the row last selected; empty when none was
  bool bAdaugare = false;  ///< the card opens for a new object

  DataGrid* TDBGrid1;
  QPushButton* cmdCreare;
  QPushButton* cmdModificare;
  QPushButton* CommandButton3;
  QPushButton* cmdListare;
  QPushButton* cmdClose;

 private:
  ListDescription Describe();
  std::vector<ListButton> Buttons();
  void cmdCreare_Click();
  void cmdModificare_Click();
  void CommandButton3_Click(Procedure& running);
  void cmdListare_Click(Procedure& running);
  void Total();
  void TotalGeneral();

  void RowSelected(const std::string& key) override;
  void cmdCauta_Click(Procedure& running) override;
  void Searched() override { TotalGeneral(); }
  void RefreshInPlace() override;

  bool rounded_ = false;  // the totals of all rows are those of TotalGeneral
};

}  // namespace tevra
