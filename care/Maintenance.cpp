#include "care/Maintenance.h"

#include "care/Backup.h"
#include "care/FileHealth.h"
#include "platform/data/CompanyFile.h"
#include "platform/system/MessageBox.h"
#include "session/Module1.h"

namespace fs = std::filesystem;

namespace tevra {

fs::path Salvare(const Progress& progress) {
  const CompanyFile company = SessionCompany();
  const fs::path copy = BackUp(company, MakeBackupFolder(), progress);
  MsgBoxEx("Salvare cu succes a bazei de date " + company.database, kInformation);
  return copy;
}

void CompactFile(const fs::path& file, const Progress& progress) {
  CompactCompanyFile(file, file.parent_path() / ("Compact" + file.filename().string()), progress);
}

void Compactare(const Progress& progress) {
  const CompanyFile company = SessionCompany();
  try {
    CompactFile(company.file, progress);
  } catch (const Failure& failure) {
    // That somebody has the file open is what the menu's own message says next.
    const bool inUse = failure.Number() == kPermissionDenied;
    MsgBoxEx("Eroare la compactarea bazei de date" +
             (inUse ? std::string() : ": " + failure.Description() + SoundBackupHint(failure)));
    throw;
  }
  MsgBoxEx("Compactarea bazei de date " + company.database + " s-a realizat cu succes !",
           kInformation);
}

}  // namespace tevra
