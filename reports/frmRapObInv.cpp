#include "reports/frmRapObInv.h"

namespace tevra {

frmRapObInv::frmRapObInv(QWidget* parent)
    : PeriodReportScreen("frmRapObInv", "Obiecte inventar", parent) {
  chkGenNoteContabile = new CheckBox("chkGenNoteContabile", "Note Contabile", this);
  chkGenNoteContabile->setToolTip("Nu are efect: acest raport nu scrie note contabile");
  PeriodReportDescription request;
  request.groupings = {{&optCont, "optCont", "&Cont"},
                       {&optPers, "optPers", "Persoana evid."},
                       {&optLoc, "optLoc", "Locali&zare"},
                       {&optCC, "optCC", "Centre de co&st"}};
  request.more = {chkGenNoteContabile};
  request.report = InventoryReport;
  Open(std::move(request));
  frmOptiuni->setTitle("Grupare");
}

}  // namespace tevra
