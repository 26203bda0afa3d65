// The backups that the program makes by itself before a work that changes much of a company.
#pragma once

#include <filesystem>
#include <string>

#include "care/Backup.h"

namespace tevra {

/// The works, as the names of their backups begin.
inline constexpr const char* kBeforeUpgrade = "Actualizare";
inline constexpr const char* kBeforeImport = "Import";
inline constexpr const char* kBeforeReclassification = "Reclasificare";

/// Backs the company up to "<work>_<database>_<moment>.mdb" in the folder of backups, which is made
/// when it is missing, under a name that no file has yet. Then removes older automatic backups of
/// the company, by the moments in their names: the newest 14 stay, and the last one of each month.
/// One that cannot be removed stays. Throws as BackUp, with a description that says that this
/// backup failed.
std::filesystem::path BackUpBefore(const CompanyFile& company, const std::string& work,
                                   const Progress& progress = {});

}  // namespace tevra
