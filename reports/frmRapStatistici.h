// The request for the statistics of purchases.
#pragma once

#include "reports/ReportScreen.h"

namespace tevra {

class frmRapStatistici : public PeriodReportScreen {
 public:
  explicit frmRapStatistici(QWidget* parent = nullptr);

  OptionButton* Option1;
  OptionButton* Option2;  ///< changes nothing: there is one kind of statistics
  OptionButton* optCont;
  OptionButton* optCODCL;
  OptionButton* optLoc;
  OptionButton* optCC;
};

}  // namespace tevra
