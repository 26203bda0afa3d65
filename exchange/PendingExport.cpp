#include "exchange/PendingExport.h"

#include <vector>

#include "platform/system/Paths.h"
#include "platform/system/StandardError.h"
#include "platform/text/Dates.h"
#include "platform/text/Strings.h"
#include "session/CompanySettings.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

constexpr const char* kTemporary = ".tmp";
// Another program that exports at this moment has the lock; its temporary file is none of ours.
constexpr const char* kShortWait = ";Lock Timeout=100";

// The names of the temporary files, also of those that were never finished.
std::vector<std::string> TemporaryNames() {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(ExportFolder(), error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (LikeNoCase(name, std::string("Export*.xml") + kTemporary)) names.push_back(name);
  }
  return names;
}

}  // namespace

fs::path ExportRoot() {
  const std::string& directory = CurrentSession().databasesPath;
  return paths::Resolve(directory.substr(0, directory.size() - 1) + "\\Export\\");
}

fs::path ExportFolder() {
  return paths::Resolve(ExportRoot().string() + "\\" + GetCodSocietate());
}

std::string ExportFileName(const DateTime& moment) {
  return "Export" + Format(moment, "dd.MM.yyyy - hh.nn.ss") + ".xml";
}

fs::path TemporaryExport(const std::string& name) {
  return ExportFolder() / (name + kTemporary);
}

void SettleExport(Connection& company) {
  Transaction transaction(company);
  const std::string name = TextOf(company, CompanyText::kPendingExport);
  if (!name.empty()) {
    const fs::path finished = TemporaryExport(name);
    if (paths::FileExists(finished.string())) paths::PlaceFile(finished, ExportFolder() / name);
    SetText(company, CompanyText::kPendingExport, {});
  }
  for (const std::string& left : TemporaryNames()) {
    std::error_code ignored;
    fs::remove(ExportFolder() / left, ignored);
  }
  transaction.Commit();
}

void SettleExportAtOpening() noexcept {
  try {
    if (TemporaryNames().empty()) return;
    Connection company(CurrentSession().connectionString + kShortWait);
    SettleExport(company);
  } catch (const std::exception&) {
    LogCaughtFailure({"SettleExport", "Module", "PendingExport"});
  }
}

}  // namespace tevra
