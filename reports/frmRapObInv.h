// The request for the report of inventory objects bought in a period.
#pragma once

#include "reports/ReportScreen.h"

namespace tevra {

class frmRapObInv : public PeriodReportScreen {
 public:
  explicit frmRapObInv(QWidget* parent = nullptr);

  CheckBox* chkGenNoteContabile;  ///< changes nothing: the report writes no notes
  OptionButton* optCont;
  OptionButton* optPers;
  OptionButton* optLoc;
  OptionButton* optCC;
};

}  // namespace tevra
