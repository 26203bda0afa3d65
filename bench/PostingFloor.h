// The least that posting a month can cost: bare engine calls around the same rows and lines.
#pragma once

#include <filesystem>

#include "platform/text/DateTime.h"

namespace tevra::bench {

/// Deletes the month's document, reads the assets with their charges and writes two lines for each,
/// in one transaction with synchronous=FULL. Returns the number of lines.
int RunPostingFloor(const std::filesystem::path& file, const DateTime& date);

}  // namespace tevra::bench
