#include "platform/data/FileCheck.h"

#include <algorithm>
#include <string_view>

#include "platform/data/RowReader.h"

namespace tevra {

namespace {

constexpr const char* kDamaged = "Baza de date este deteriorata";

constexpr std::size_t kMostFaults = 20;

// One row of the engine may have many lines, the first of which only names the database.
void AddLines(std::string_view row, std::vector<std::string>& faults) {
  while (!row.empty() && faults.size() < kMostFaults) {
    const std::size_t end = std::min(row.find('\n'), row.size());
    const std::string_view line = row.substr(0, end);
    if (!line.empty() && !line.starts_with("***")) faults.emplace_back(line);
    row.remove_prefix(std::min(end + 1, row.size()));
  }
}

}  // namespace

std::vector<std::string> FindDamage(Connection& company, CheckDepth depth) {
  std::vector<std::string> faults;
  try {
    RowReader rows(company, depth == CheckDepth::kQuick ? "PRAGMA quick_check(20)"
                                                        : "PRAGMA integrity_check(20)");
    while (rows.Next()) AddLines(rows.Text(0), faults);
  } catch (const Failure& failure) {
    // Damage of the page with the structure stops the check itself.
    if (!TellsDamage(failure)) throw;
    if (faults.empty()) faults.push_back(failure.Description());
  }
  if (faults.size() == 1 && faults.front() == "ok") faults.clear();
  return faults;
}

bool TellsDamage(const Failure& failure) {
  return failure.Description().find(kDamaged) != std::string::npos;
}

std::string DamageText(const std::string& file, const std::string& fault) {
  return std::string(kDamaged) + ": " + file + " (" + fault + ")";
}

void RequireIntact(Connection& company) {
  const std::vector<std::string> faults = FindDamage(company, CheckDepth::kQuick);
  if (!faults.empty()) throw DamagedFile(DamageText(company.Path(), faults.front()));
}

}  // namespace tevra
