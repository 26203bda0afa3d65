// The names of backup files.
#pragma once

#include <optional>
#include <string>

#include "platform/text/DateTime.h"

namespace tevra {

/// The name of a company's backup made at a moment: the first 10 characters of the company's name,
/// the database's name, day, hour and minute. Two backups of a minute have the same name.
/// Characters that separate folders become "_".
std::string BackupName(const std::string& companyName, const std::string& database,
                       const DateTime& moment);

/// The moment in a name that BackupName gave for this company and database; nothing for any other
/// name.
std::optional<DateTime> MomentOfBackup(const std::string& name, const std::string& companyName,
                                       const std::string& database);

/// The moment at the end of a backup's name, with or without seconds, whoever's backup it is. A
/// number "_2" behind it does not count.
std::optional<DateTime> MomentInName(const std::string& name);

/// The database's name without its extension.
std::string BareDatabase(const std::string& database);

}  // namespace tevra
