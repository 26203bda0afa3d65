#include "platform/data/FileCheck.h"

#include "platform/data/RowReader.h"

namespace tevra {

namespace {

constexpr const char* kDamaged = "Baza de date este deteriorata";

}  // namespace

std::vector<std::string> FindDamage(Connection& company, CheckDepth depth) {
  std::vector<std::string> faults;
  try {
    RowReader rows(company, depth == CheckDepth::kQuick ? "PRAGMA quick_check(20)"
                                                        : "PRAGMA integrity_check(20)");
    while (rows.Next()) faults.emplace_back(rows.Text(0));
  } catch (const Failure& failure) {
    // Damage of the page with the structure stops the check itself.
    if (!TellsDamage(failure)) throw;
    faults.push_back(failure.Description());
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
