// Damage of a company's file, and the backup that could replace it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "care/Backup.h"
#include "platform/data/Connection.h"
#include "platform/text/Failure.h"

namespace tevra {

/// The newest backup of the company in the folder of backups that is in order, by the moment in its
/// name: made by the user or before a work. Files that a restore or a new company replaced do not
/// count.
std::optional<std::filesystem::path> NewestSoundBackup(const CompanyFile& company);

/// The sentence about that backup for a message about damage.
std::string SoundBackupText(const CompanyFile& company);

/// The same sentence on a line of its own behind a failure because of the session's damaged file;
/// empty for every other failure and for one that has it already.
std::string SoundBackupHint(const Failure& failure);

/// Reads the session's company once a day, within the caller's transaction, which stores that it
/// was in order; a later call of the day does nothing. Throws DamagedFile with the file, the first
/// fault and the newest sound backup.
void RequireSoundOnceADay(Connection& company);

}  // namespace tevra
