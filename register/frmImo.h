// The list of fixed assets.
#pragma once

#include "platform/screens/ListScreen.h"
#include "register/InventoryTransfer.h"

namespace tevra {

/// The list of all assets with their totals: search, sort, card, plan, disposal, deletion, listing
/// of the selected rows, transfer of the smallest assets to the inventory objects.
class frmImo : public ListScreen {
 public:
  explicit frmImo(QWidget* parent = nullptr);

  std::string sNrCrt;      ///< the NRCRT of the row last selected in the grid
  bool bAdaugare = false;  ///< the card opens for a new asset

  DataGrid* TDBGrid1;
  QLabel* Label1;  ///< hidden: the number that stands in lblRecCount
  QPushButton* cmdCreare;
  QPushButton* cmdModificare;
  QPushButton* CommandButton3;
  QPushButton* cmdListare;
  QPushButton* cmdPlan;
  QPushButton* cmdInv;
  QPushButton* cmdClose;

  /// Reads the rows anew after an asset was changed on another screen; a failure is shown.
  void ShowChanges();

 private:
  ListDescription Describe();
  std::vector<ListButton> Buttons();
  void cmdCreare_Click();
  void cmdModificare_Click();
  void CommandButton3_Click(Procedure& running);
  void cmdPlan_Click(Procedure& running);
  void cmdInv_Click(Procedure& running);
  void Transfer(Connection& connection, const TransferSelection& selection, const DateTime& day);
  void OpenDisposalOfRow();

  void AddToTotals(std::vector<double>& totals, const Values& row) const override;
  void RowSelected(const std::string& key) override { sNrCrt = key; }
  void ShowCount() override;
};

}  // namespace tevra
