#include "app/tevra/Screens.h"

#include "accounting/frmLinii.h"
#include "care/AutomaticBackups.h"
#include "care/CareMenu.h"
#include "care/FileHealth.h"
#include "care/frmRestaurare.h"
#include "engine/Module3.h"
#include "exchange/ImportFile.h"
#include "exchange/frmExport.h"
#include "exchange/frmImport.h"
#include "inventory/frmObInv.h"
#include "platform/forms/Windows.h"
#include "reference/ReferenceScreen.h"
#include "reference/ReferenceTables.h"
#include "reference/frmTerti.h"
#include "reference/frmValute.h"
#include "register/frmImo.h"
#include "reports/frmRapCHE.h"
#include "reports/frmRapObInv.h"
#include "reports/frmRapStatistici.h"
#include "session/frmParamSoc.h"
#include "session/frmSocietati.h"
#include "session/frmUtilizatori.h"

namespace tevra {

void HandInScreens(frmMain& frame) {
  frame.SetOpener("Soc_Lista", [] { windows::Open<frmSocietati>(); });
  frame.SetOpener("Soc_Conf", [] { windows::Open<frmParamSoc>(); });
  frame.SetOpener("Utilizatori", [] { windows::Open<frmUtilizatori>(); });
  for (const ReferenceTable& table : ReferenceTables()) {
    frame.SetOpener(table.menuItem, [&table] { OpenReference(table.screen); });
    SetCodeEditor(table.table, [&table](const CodeAdded& added) {
      OpenReference(table.screen).WhenAdded(added);
    });
  }
  frame.SetOpener("Terti", [] { windows::Open<frmTerti>(); });
  SetCodeEditor("kv_Ter",
                [](const CodeAdded& added) { windows::Open<frmTerti>().WhenAdded(added); });
  frame.SetOpener("Tab_Valute", [] { windows::Open<frmValute>(); });
  frame.SetOpener("mnuLinii", [] { windows::OpenNew<frmLinii>(); });
  frame.SetOpener("Materiale_imo", [] { windows::Open<frmImo>(); });
  frame.SetOpener("Materiale_inv", [] { windows::Open<frmObInv>(); });
  frame.SetOpener("Rapoarte_Cheltuieli", [] { windows::Open<frmRapCHE>(); });
  frame.SetOpener("Rapoarte_Statistici", [] { windows::Open<frmRapStatistici>(); });
  frame.SetOpener("Rapoarte_inv", [] { windows::Open<frmRapObInv>(); });
  frame.SetOpener("Recalcul", Recalcul_Click);
  frame.SetOpener("Preluare", Preluare_Click);
  frame.SetOpener("Recalcul_2005", Recalcul_2005_Click);
  frame.SetOpener("mnuDenominare", mnuDenominare_Click);
  SetBeforeImport([] { BackUpWithProgress(kBeforeImport); });
  frame.SetOpener("mnuImport", [] { windows::OpenNew<frmImport>(); });
  frame.SetOpener("mnuEExport", [] { windows::OpenNew<frmExport>(); });
  SetBeforeMonth(RequireSoundOnceADay);
  frame.SetOpener("mnuCompactare", mnuCompactare_Click);
  frame.SetOpener("mnuSalvare", mnuSalvare_Click);
  frame.SetOpener("mnuRestaurare", [] { windows::Open<frmRestaurare>(); });
}

}  // namespace tevra
