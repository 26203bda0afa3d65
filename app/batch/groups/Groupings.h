// The word for a grouping on the command line.
#pragma once

#include <string>

#include "app/batch/CommandLine.h"

namespace tevra::batch {

/// The grouping that the user wrote. Inventory objects have "person" where charges have "class".
/// Throws UsageError for an unknown one.
Grouping GroupingNamed(const std::string& written, bool inventory);

}  // namespace tevra::batch
