#include "care/AutomaticBackups.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <utility>
#include <vector>

#include "care/BackupName.h"
#include "care/FileHealth.h"
#include "platform/system/Clock.h"
#include "platform/text/Dates.h"
#include "platform/text/Failure.h"
#include "session/DatabaseFiles.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

constexpr std::size_t kNewest = 14;

std::string Beginning(const std::string& work, const CompanyFile& company) {
  return work + "_" + BareDatabase(company.database) + "_";
}

// Two backups made within one second need two names.
fs::path FreeName(const fs::path& folder, const std::string& begin) {
  fs::path free = folder / (begin + ".mdb");
  for (int i = 2; fs::exists(fs::symlink_status(free)); ++i) {
    free = folder / (begin + "_" + std::to_string(i) + ".mdb");
  }
  return free;
}

// The moment in a name that FreeName gave, and the number behind it, 1 where it has none.
std::optional<std::pair<DateTime, int>> MomentAndNumber(std::string name,
                                                        const std::string& begin) {
  constexpr std::size_t kMomentSize = 19;
  constexpr std::size_t kMostDigits = 6;
  if (!name.starts_with(begin) || !name.ends_with(".mdb")) return std::nullopt;
  name = name.substr(begin.size(), name.size() - begin.size() - 4);
  const auto moment = MomentInName(name.substr(0, kMomentSize) + ".mdb");
  if (!moment || name.size() < kMomentSize) return std::nullopt;
  const std::string rest = name.substr(kMomentSize);
  if (rest.empty()) return {{*moment, 1}};
  const std::string digits = rest.substr(1);
  const bool numbered = rest[0] == '_' && !digits.empty() && digits.size() <= kMostDigits &&
                        std::all_of(digits.begin(), digits.end(),
                                    [](unsigned char c) { return std::isdigit(c) != 0; });
  if (!numbered) return std::nullopt;
  return {{*moment, std::stoi(digits)}};
}

struct Made {
  std::pair<DateTime, int> when;
  fs::path file;
};

// The automatic backups of the company, the newest first.
std::vector<Made> AllMade(const CompanyFile& company, const fs::path& folder) {
  std::vector<Made> made;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    std::error_code unknown;
    if (!fs::is_regular_file(it->symlink_status(unknown))) continue;
    const std::string name = it->path().filename().string();
    for (const char* work : {kBeforeUpgrade, kBeforeImport, kBeforeReclassification}) {
      if (const auto when = MomentAndNumber(name, Beginning(work, company))) {
        made.push_back({*when, it->path()});
      }
    }
  }
  std::sort(made.begin(), made.end(), [](const Made& a, const Made& b) { return b.when < a.when; });
  return made;
}

void RemoveOlder(const CompanyFile& company, const fs::path& newest) {
  std::vector<Made> made = AllMade(company, newest.parent_path());
  std::erase_if(made, [&](const Made& each) { return each.file == newest; });
  std::pair<int, int> month;
  for (std::size_t i = kNewest - 1; i < made.size(); ++i) {
    const DateTime& moment = made[i].when.first;
    const std::pair<int, int> own{moment.Year(), moment.Month()};
    if (std::exchange(month, own) != own) continue;
    std::error_code stays;
    fs::remove(made[i].file, stays);
  }
}

fs::path MakeBackup(const CompanyFile& company, const std::string& work, const Progress& progress) {
  const fs::path copy = FreeName(
      MakeBackupFolder(), Beginning(work, company) + Format(clock::Now(), "dd.mm.yyyy_hh.nn.ss"));
  OverwriteWithCopy(company.file, copy, {}, progress);
  return copy;
}

}  // namespace

fs::path BackUpBefore(const CompanyFile& company, const std::string& work,
                      const Progress& progress) {
  fs::path copy;
  try {
    copy = MakeBackup(company, work, progress);
  } catch (const Failure& failure) {
    throw Failure(failure.Number(),
                  "Salvarea dinaintea lucrarii nu a reusit, nu s-a schimbat nimic: " +
                      failure.Description() + SoundBackupHint(failure),
                  failure.Source());
  }
  RemoveOlder(company, copy);
  return copy;
}

}  // namespace tevra
