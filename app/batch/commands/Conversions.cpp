#include "app/batch/Refusal.h"
#include "app/batch/Rights.h"
#include "app/batch/commands/Commands.h"
#include "care/AutomaticBackups.h"
#include "care/Denominare.h"
#include "engine/Reclassification2005.h"

namespace tevra::batch {

namespace {

BeforeWriting BackingUp(std::ostream& out) {
  return [&out] {
    const auto copy = BackUpBefore(SessionCompany(), kBeforeReclassification);
    out << "Salvarea dinainte: " << copy.string() << '\n';
  };
}

void RestartAssets(Connection& company, std::ostream& out) {
  const Restart restart = WithReason([&] { return RestartAt2005(company, BackingUp(out)); });
  if (!restart.refusal.empty()) {
    std::string text = restart.refusal + "\nImobilizarea: " + restart.asset;
    if (restart.assets > 0) text += "\n" + RestartedText(restart.assets);
    throw Refusal(text);
  }
  out << RestartedText(restart.assets) << '\n';
}

}  // namespace

void RedenominateCompany(Connection& company, std::ostream& out) {
  RequireMenuItem("mnuDenominare", "converti baza de date");
  if (IsRedenominated(company)) throw Refusal(kRedenominatedBefore);
  if (!AgreedToRedenominate()) throw Refusal("Nu s-a efectuat nimic !");
  const CompanyFile files = SessionCompany();
  WithReason([&] {
    const auto copy = BackUp(files, MakeBackupFolder());
    out << "Salvare cu succes a bazei de date " << files.database << ": " << copy.string() << '\n';
    if (!Redenominate(company)) throw Refusal(kRedenominatedBefore);
  });
  out << kRedenominated << '\n';
}

void ReclassifyCompany(Connection& company, Reclassification work, std::ostream& out) {
  RequireMenuItem(work == Reclassification::kCodes       ? "Recalcul"
                  : work == Reclassification::kDurations ? "Preluare"
                                                         : "Recalcul_2005",
                  "reclasifica imobilizarile");
  if (work == Reclassification::kRestart) return RestartAssets(company, out);
  WithReason([&] {
    BackingUp(out)();
    out << (work == Reclassification::kCodes ? NewCodesText(AssociateNewCodes(company))
                                             : LowerLimitsText(TakeLowerLimits(company)))
        << '\n';
  });
}

}  // namespace tevra::batch
