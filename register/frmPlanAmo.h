// The depreciation plan that was made last, year by year, with its chart.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/grid/DataGrid.h"
#include "register/PlanChart.h"

namespace tevra {

class frmPlanAmo : public Form {
 public:
  explicit frmPlanAmo(QWidget* parent = nullptr);
  ~frmPlanAmo() override;

  /// Shows the plan that the company file contains now. Throws Failure.
  void ShowPlan();

  Adodc* datPrimaryRS;
  QGroupBox* Frame1;
  QLabel* Label1;
  QLabel* Label2;
  QLabel* Label3;
  QLabel* Label4;
  DataGrid* TDBGrid1;
  PlanChart* picGrafic;
  OptionButton* optLei;  ///< the chart in lei
  OptionButton* optVal;  ///< the chart in currency
  QPushButton* cmdListare;
  QPushButton* cmdClose;

 protected:
  void Form_Activate() override;

 private:
  void Build();
  QLayout* BuildHead();
  void ShowChart();
  GridPrintInfo PrintInfo() const;
  void cmdListare_Click();
};

}  // namespace tevra
