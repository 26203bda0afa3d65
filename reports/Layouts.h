// The designs of the program's twenty grouped reports.
#pragma once

#include <string>
#include <vector>

#include "platform/print/BandedLayout.h"

namespace tevra {

/// A design by its name, without case, with its original captions. Throws Failure 3265.
ReportLayout LayoutNamed(const std::string& name);

/// The names of all designs, by families: charges, purchases, inventory.
std::vector<std::string> LayoutNames();

}  // namespace tevra
