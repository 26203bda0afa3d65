#include "care/Upgrade.h"

#include "care/AutomaticBackups.h"
#include "care/clsCompareBD.h"
#include "platform/data/CompanyFile.h"
#include "platform/data/FileCheck.h"
#include "platform/system/MessageBox.h"
#include "session/ApplicationFiles.h"
#include "session/Login.h"
#include "session/Module1.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

Connection Open(const fs::path& file, const char* mode) {
  return Connection("Data Source=" + file.string() + ";Mode=" + mode + ";PWD=" + kFilePassword);
}

}  // namespace

UpgradeResult UpgradeStructure(const CompanyFile& company, bool dryRun, const Progress& progress) {
  UpgradeResult result;
  const fs::path source = TemplateFor(company.file.parent_path());
  if (!dryRun) {
    RequireSoleUse(company.file);
    result.backup = BackUpBefore(company, kBeforeUpgrade);
  }
  Connection target = Open(company.file, dryRun ? "ReadWrite" : "Share Exclusive");
  Transaction transaction(target);
  clsCompareBD comparison(Open(source, "Read"), target);
  comparison.ComparaBazeDate(progress);
  result.changes = comparison.Changes();
  result.left = comparison.Left();
  if (dryRun) return result;
  RequireIntact(target);
  SetVersiune(target);
  transaction.Commit();
  target.Close();
  return result;
}

std::string LeftText(const UpgradeResult& result) {
  std::string text = "Urmatoarele nu au putut fi actualizate si au ramas cum erau:";
  for (const std::string& line : result.left) text += "\n" + line;
  return text;
}

void ActualizeazaBD(const Progress& progress) {
  const UpgradeResult result = UpgradeStructure(SessionCompany(), false, progress);
  if (!result.left.empty()) MsgBoxEx(LeftText(result), kExclamation);
}

}  // namespace tevra
