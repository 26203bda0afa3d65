#include "app/batch/Refusal.h"
#include "app/batch/commands/Commands.h"
#include "care/FileHealth.h"
#include "platform/data/FileCheck.h"
#include "session/Module1.h"

namespace tevra::batch {

void CheckCompany(bool full, std::ostream& out) {
  const CompanyFile company = SessionCompany();
  Connection file("Data Source=" + company.file.string() + ";Mode=Read;PWD=" + kFilePassword);
  const auto faults = FindDamage(file, full ? CheckDepth::kFull : CheckDepth::kQuick);
  for (const std::string& fault : faults) out << fault << '\n';
  if (!faults.empty()) {
    throw Refusal("Baza de date " + company.database + " este deteriorata !\n" +
                  SoundBackupText(company));
  }
  out << "Baza de date " << company.database << " este in ordine ("
      << (full ? "verificare completa" : "verificare rapida") << ").\n";
}

}  // namespace tevra::batch
