// The least that a month's calculation can cost: bare engine calls around the same formulas.
#pragma once

#include <filesystem>

#include "platform/text/DateTime.h"

namespace tevra::bench {

/// Reads the columns, computes, and writes the rows that changed back through one prepared
/// statement by row id, in one transaction with synchronous=FULL; `checks`: the table's checks are
/// on. Returns the number of assets.
int RunFloor(const std::filesystem::path& file, const DateTime& dataCalcul, bool checks);

}  // namespace tevra::bench
