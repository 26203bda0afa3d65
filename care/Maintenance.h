// The commands of the menu "Intretinere" on the session's company, with their messages.
#pragma once

#include <filesystem>

#include "platform/system/Progress.h"

namespace tevra {

/// Backs the company up into the folder of backups, which is made when it is missing, and says so.
/// Returns the copy. Throws Failure as BackUp, 70 when the folder cannot be made, and GivenUp.
std::filesystem::path Salvare(const Progress& progress = {});

/// Compacts the company's file and says so. A failure is shown, then thrown: Failure as
/// CompactCompanyFile. Also throws GivenUp.
void Compactare(const Progress& progress = {});

/// Compacts a company's file without a message, through the file "Compact<name>" beside it.
void CompactFile(const std::filesystem::path& file, const Progress& progress = {});

}  // namespace tevra
