#include "care/Backup.h"

#include <filesystem>

#include "app/batch/Refusal.h"
#include "app/batch/Rights.h"
#include "app/batch/commands/Commands.h"
#include "care/Maintenance.h"
#include "care/Restore.h"
#include "care/Upgrade.h"
#include "platform/system/MessageBox.h"
#include "platform/system/Paths.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace fs = std::filesystem;

namespace tevra::batch {

namespace {

fs::path FolderOf(const BackupOptions& options) {
  if (options.folder.empty()) return MakeBackupFolder();
  if (!paths::FolderExists(options.folder)) {
    throw Refusal("Directorul \"" + options.folder + "\" nu exista !");
  }
  return fs::absolute(paths::Resolve(options.folder)).lexically_normal();
}

std::string Kilobytes(const fs::path& file) {
  return std::to_string((fs::file_size(file) + 1023) / 1024) + " KB";
}

// A company file that is missing or cannot be read has nothing to compare.
void AskAboutAnotherCompany(const CompanyContent& backup, const fs::path& current) {
  CompanyContent content;
  try {
    content = Inspect(current);
  } catch (const Failure&) {
    return;
  }
  if (!OfAnotherCompany(backup, content)) return;
  const long answer = MsgBoxEx(AnotherCompanyQuestion(backup, content),
                               kYesNo | kQuestion | kDefaultStep, "Restaurare");
  if (answer != kYes) throw Refusal("Nu s-a efectuat nimic !");
}

}  // namespace

void RequireMaintenance() {
  RequireMenuItem("mnuIntretinere", "intretina baza de date");
}

void BackUpCompany(const BackupOptions& options, std::ostream& out) {
  RequireMaintenance();
  const CompanyFile company = SessionCompany();
  const fs::path copy = WithReason([&] { return BackUp(company, FolderOf(options)); });
  out << "Salvare cu succes a bazei de date " << company.database << ": " << copy.string() << '\n';
  if (options.kept == 0) return;
  const int removed = WithReason([&] { return RemoveOlderBackups(company, copy, options.kept); });
  out << "Salvari mai vechi sterse: " << removed << '\n';
}

void RestoreCompany(const std::string& file, std::ostream& out) {
  RequireMaintenance();
  const fs::path target = SessionCompany().file;
  const fs::path backup = BackupToRestore(file);
  const CompanyContent content = WithReason([&] {
    CompanyContent read = Inspect(backup);
    RequireKnownStructure(read);
    return read;
  });
  AskAboutAnotherCompany(content, target);
  const fs::path before = WithReason([&] { return RestoreBackup(backup, target); });
  out << "Restaurare cu succes a bazei de date " << target.string() << "\n"
      << Description(content) << '\n';
  if (!before.empty()) out << "Baza de date inlocuita: " << before.string() << '\n';
}

void CompactCompany(std::ostream& out) {
  RequireMaintenance();
  const CompanyFile company = SessionCompany();
  const std::string before = Kilobytes(company.file);
  WithReason([&] { CompactFile(company.file); });
  out << "Compactarea bazei de date " << company.database << " s-a realizat cu succes ! " << before
      << " -> " << Kilobytes(company.file) << '\n';
}

void UpgradeCompany(bool dryRun, std::ostream& out) {
  const CompanyFile company = SessionCompany();
  const UpgradeResult result = WithReason([&] { return UpgradeStructure(company, dryRun); });
  for (const std::string& change : result.changes) out << change << '\n';
  if (!result.left.empty()) out << LeftText(result) << '\n';
  if (dryRun) {
    out << "Nu s-a scris nimic (--dry-run).\n";
    return;
  }
  out << "Actualizarea bazei de date " << company.database
      << " s-a incheiat ! Salvarea dinainte: " << result.backup.string() << '\n';
}

fs::path BackupToRestore(const std::string& written) {
  const fs::path file = paths::Resolve(written);
  if (!paths::FileExists(file.string())) throw Refusal("Fisierul: " + written + " nu exista!");
  return fs::absolute(file).lexically_normal();
}

}  // namespace tevra::batch
