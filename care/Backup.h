// Copies a company's file into a folder of backups.
#pragma once

#include <filesystem>
#include <string>

#include "platform/system/Progress.h"

namespace tevra {

/// A company's file and the name by which its backups are known.
struct CompanyFile {
  std::filesystem::path file;
  std::string database;  ///< its file name as in the registry
  std::string name;      ///< the company's
};

/// The company of the session.
CompanyFile SessionCompany();

/// The folder of backups in the directory of the databases; it need not exist.
std::filesystem::path BackupFolder();

/// The same folder, made when it is missing. Throws Failure 70 with its name.
std::filesystem::path MakeBackupFolder();

/// Copies the company's file, also while others work with it, to `folder` under BackupName of this
/// moment, over an earlier backup of the same minute. The copy is checked. Returns the copy.
/// `progress` counts pages. All or nothing; throws Failure 76 when there is no such folder, else as
/// CopyCompanyFile, and GivenUp.
std::filesystem::path BackUp(const CompanyFile& company, const std::filesystem::path& folder,
                             const Progress& progress = {});

/// Removes all but the `keep` latest backups that BackUp made of the company in the folder, by the
/// moments in their names; `newest` always stays. Other files stay. Returns the number removed.
/// Throws Failure 70 with the name of one that cannot be removed.
int RemoveOlderBackups(const CompanyFile& company, const std::filesystem::path& newest, int keep);

}  // namespace tevra
