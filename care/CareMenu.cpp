#include "care/CareMenu.h"

#include <QApplication>

#include "care/AutomaticBackups.h"
#include "care/Denominare.h"
#include "care/Maintenance.h"
#include "engine/Reclassification2005.h"
#include "platform/forms/Hourglass.h"
#include "platform/forms/frmProgress.h"
#include "reports/DataEnv.h"

namespace tevra {

namespace {

template <class Work>
void WithProgress(const char* caption, Work work) {
  frmProgress window(caption, {"Pagina %1 din %2", "Pagina %1"}, QApplication::activeWindow());
  work(window.Asked());
}

template <class Work>
void UnlessGivenUp(Work work) {
  try {
    work();
  } catch (const GivenUp&) {
    // The file is as it was, and the user knows what he has cancelled.
  }
}

template <class Work>
void RunWithProgress(const char* caption, Work work) {
  UnlessGivenUp([&] { WithProgress(caption, work); });
}

void BackUpBeforeReclassification() {
  BackUpWithProgress(kBeforeReclassification);
}

}  // namespace

void mnuCompactare_Click() {
  CurrentDataEnv().CloseAll();
  RunWithProgress("Compactare", [](const Progress& progress) { Compactare(progress); });
}

void mnuSalvare_Click() {
  RunWithProgress("Salvare", [](const Progress& progress) { Salvare(progress); });
}

void BackUpWithProgress(const char* work) {
  WithProgress("Salvare", [work](const Progress& progress) {
    BackUpBefore(SessionCompany(), work, progress);
  });
}

void mnuDenominare_Click() {
  UnlessGivenUp([] {
    Denominare([](const auto& step) {
      const Hourglass busy(true, Qt::BusyCursor);
      WithProgress("Denominare", step);
    });
  });
}

void Recalcul_Click() {
  UnlessGivenUp([] { Recalcul2005(BackUpBeforeReclassification); });
}

void Preluare_Click() {
  UnlessGivenUp([] { PreluareLimInf(BackUpBeforeReclassification); });
}

void Recalcul_2005_Click() {
  UnlessGivenUp([] { Recalcul_DR_2005(BackUpBeforeReclassification); });
}

}  // namespace tevra
