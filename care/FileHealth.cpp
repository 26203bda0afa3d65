#include "care/FileHealth.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "care/BackupName.h"
#include "platform/data/CompanyFile.h"
#include "platform/data/FileCheck.h"
#include "platform/system/Clock.h"
#include "platform/text/Strings.h"
#include "session/CompanySettings.h"
#include "session/Session.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

bool IsSound(const fs::path& file) {
  try {
    CheckCompanyFile(file);
    return !IsDamaged(file);
  } catch (const Failure&) {
    return false;
  }
}

}  // namespace

std::optional<fs::path> NewestSoundBackup(const CompanyFile& company) {
  const std::string database = UCase("_" + BareDatabase(company.database) + "_");
  std::vector<std::pair<DateTime, fs::path>> backups;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(BackupFolder(), error)) {
    const std::string name = entry.path().filename().string();
    const auto moment = MomentInName(name);
    if (!moment || name.starts_with("Inlocuit_")) continue;
    if (UCase(name).find(database) == std::string::npos) continue;
    backups.emplace_back(*moment, entry.path());
  }
  std::sort(backups.begin(), backups.end(), std::greater<>());
  const auto sound = std::find_if(backups.begin(), backups.end(),
                                  [](const auto& backup) { return IsSound(backup.second); });
  return sound == backups.end() ? std::nullopt : std::optional(sound->second);
}

std::string SoundBackupText(const CompanyFile& company) {
  const auto backup = NewestSoundBackup(company);
  return backup ? "Cea mai noua salvare buna: " + backup->string()
                : "In " + BackupFolder().string() + " nu este nici o salvare buna.";
}

std::string SoundBackupHint(const Failure& failure) {
  const std::string description = failure.Description();
  if (CurrentSession().selectedDatabase.empty() || !TellsDamage(failure)) return {};
  const CompanyFile company = SessionCompany();
  if (description.find(company.file.string()) == std::string::npos) return {};
  const std::string text = SoundBackupText(company);
  return description.find(text) == std::string::npos ? "\n" + text : std::string();
}

void RequireSoundOnceADay(Connection& company) {
  const std::string today = clock::Today().Iso();
  if (TextOf(company, CompanyText::kCheckedOn) == today) return;
  try {
    RequireIntact(company);
  } catch (const DamagedFile& damaged) {
    throw DamagedFile(damaged.Description() + ". Nu s-a schimbat nimic. " +
                      SoundBackupText(SessionCompany()));
  }
  SetText(company, CompanyText::kCheckedOn, today);
}

}  // namespace tevra
