// Puts a backup in the place of a company's file.
#pragma once

#include <filesystem>
#include <string>

#include "platform/system/Progress.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// What a company file says about itself.
struct CompanyContent {
  std::filesystem::path file;
  std::string name;        ///< of the company; may be empty
  std::string fiscalCode;  ///< likewise
  int version = 0;         ///< of the structure; 0 when it has none
  DateTime moment;         ///< of a backup: from its name, otherwise the file's last change
  int assets = 0;
  int lines = 0;  ///< of accounting notes
};

/// Reads a company file without changing it. Throws Failure as Connection::Open, -2147467259 with
/// the file's name when it lacks the tables of a company.
CompanyContent Inspect(const std::filesystem::path& file);

/// The same in words: company, moment, structure and size.
std::string Description(const CompanyContent& content);

/// True unless both files say that they are of one company: by the fiscal code where both have one,
/// otherwise by the name. Files that say nothing are compared by the database's name in the
/// backup's.
bool OfAnotherCompany(const CompanyContent& backup, const CompanyContent& current);

/// The question before the backup of another company replaces the current file.
std::string AnotherCompanyQuestion(const CompanyContent& backup, const CompanyContent& current);

/// Throws Failure -2147467259 with the file's name when its structure is of a newer program.
void RequireKnownStructure(const CompanyContent& content);

/// Replaces the company file `target` by a checked copy of `backup`. The replaced file stays beside
/// it as "<name>_Inlocuit_<moment>.mdb" until the next restore; returns that file, the empty path
/// when there was none. A damaged target is replaced too. `progress` counts pages. All or nothing;
/// throws Failure 70 with the target's name when anybody has it open, else as Inspect,
/// RequireKnownStructure and CopyCompanyFile, and GivenUp.
std::filesystem::path RestoreBackup(const std::filesystem::path& backup,
                                    const std::filesystem::path& target,
                                    const Progress& progress = {});

}  // namespace tevra
