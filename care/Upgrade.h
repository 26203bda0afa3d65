// The upgrade of a company file's structure.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "care/Backup.h"
#include "platform/system/Progress.h"

namespace tevra {

struct UpgradeResult {
  std::vector<std::string> changes;  ///< in words
  std::vector<std::string> left;     ///< what could not be changed, and why
  std::filesystem::path backup;      ///< the file of before; empty after a dry run
};

/// Brings a company's file to the structure of the template and writes this build's structure
/// version, after a backup "Actualizare_<database>_<moment>.mdb" in the folder of backups. One
/// transaction: a failure or a killed program leaves the old structure. `dryRun`: finds out what
/// would change, and changes nothing. Throws Failure 70 with the file's name when anybody else has
/// it open, else as BackUp and Catalogue, and GivenUp.
UpgradeResult UpgradeStructure(const CompanyFile& company, bool dryRun,
                               const Progress& progress = {});

/// Upgrades the session's company and tells the user what could not be changed. Throws as
/// UpgradeStructure.
void ActualizeazaBD(const Progress& progress = {});

/// What could not be changed, as one text for the user.
std::string LeftText(const UpgradeResult& result);

}  // namespace tevra
