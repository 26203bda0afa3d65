#include "reports/frmRapStatistici.h"

namespace tevra {

frmRapStatistici::frmRapStatistici(QWidget* parent)
    : PeriodReportScreen("frmRapStatistici", "Statistici", parent) {
  Option1 = new OptionButton("Option1", "Achizitii", this);
  Option2 = new OptionButton("Option2", "Cheltuieli exercitiu", this);
  Option1->setChecked(true);
  PeriodReportDescription request;
  request.groupings = {{&optCont, "optCont", "&Cont"},
                       {&optCODCL, "optCODCL", "Cod c&lasificare"},
                       {&optLoc, "optLoc", "Locali&zare"},
                       {&optCC, "optCC", "Centre de co&st"}};
  request.options = "Statistici";
  request.more = {Option1, Option2};
  request.report = PurchasesReport;
  Open(std::move(request));
}

}  // namespace tevra
