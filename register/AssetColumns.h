// The columns of the list of assets.
#pragma once

#include <vector>

#include "platform/grid/GridColumn.h"

namespace tevra {

/// All 65, in their order; those after the remaining value are hidden at first.
std::vector<GridColumn> AssetColumns();

}  // namespace tevra
