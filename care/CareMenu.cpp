#include "care/CareMenu.h"

#include <QApplication>

#include "care/Maintenance.h"
#include "platform/forms/frmProgress.h"
#include "reports/DataEnv.h"

namespace tevra {

namespace {

template <class Work>
void RunWithProgress(const char* caption, Work work) {
  frmProgress window(caption, {"Pagina %1 din %2", "Pagina %1"}, QApplication::activeWindow());
  try {
    work(window.Asked());
  } catch (const GivenUp&) {
    // The file is as it was, and the user knows what he has cancelled.
  }
}

}  // namespace

void mnuCompactare_Click() {
  CurrentDataEnv().CloseAll();
  RunWithProgress("Compactare", [](const Progress& progress) { Compactare(progress); });
}

void mnuSalvare_Click() {
  RunWithProgress("Salvare", [](const Progress& progress) { Salvare(progress); });
}

}  // namespace tevra
