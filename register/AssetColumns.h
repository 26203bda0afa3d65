// The columns of the register.
#pragma once

#include <vector>

#include "platform/grid/GridColumn.h"

namespace tevra {

/// All 65, in their order; those behind the remaining value are at first not on show.
std::vector<GridColumn> AssetColumns();

}  // namespace tevra
