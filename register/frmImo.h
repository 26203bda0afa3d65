// The register of fixed assets.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <string>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/grid/DataGrid.h"
#include "platform/grid/extTDBGrid.h"

namespace tevra {

/// The list of all assets with their totals: search, sort, the way to the card and to the plan,
/// deleting, listing of the rows that are marked.
class frmImo : public Form {
 public:
  explicit frmImo(QWidget* parent = nullptr);
  ~frmImo() override;

  std::string sNrCrt;      ///< the NRCRT of the row last selected in the grid
  bool bAdaugare = false;  ///< the card opens for a new asset

  Adodc* datPrimaryRS;
  DataGrid* TDBGrid1;
  tevra::extTDBGrid* extTDBGrid;
  TextBox* txtCautare;
  QPushButton* cmdCauta;
  QToolButton* cmdUp;
  QToolButton* cmdDown;
  QLabel* lblRecCount;
  QLabel* Label1;
  QWidget* picButtons;
  QPushButton* cmdCreare;
  QPushButton* cmdModificare;
  QPushButton* CommandButton3;
  QPushButton* cmdListare;
  QPushButton* cmdPlan;
  QPushButton* cmdInv;
  QPushButton* cmdClose;

 protected:
  void Form_Activate() override;

 private:
  void Build();
  QWidget* BuildSearch();
  QWidget* BuildButtons();
  void Connect();
  void Form_Load(Procedure& running);
  void TDBGrid1_SelChange();
  void cmdCauta_Click(Procedure& running);
  void cmdCreare_Click();
  void cmdModificare_Click();
  void CommandButton3_Click(Procedure& running);
  void cmdListare_Click(Procedure& running);
  void cmdPlan_Click(Procedure& running);
  void Total();

  void ShowRecCount();
  void ShowFooters(const std::array<double, 6>& totals);
  void Sort(long sortType);

  std::string sSelectBaza_;
  bool fresh_ = false;  // the rows were read just now, when the screen opened
};

}  // namespace tevra
