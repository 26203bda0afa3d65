// The nine reference tables that have an editor.
#pragma once

#include <string>
#include <vector>

#include "reference/ReferenceTable.h"

namespace tevra {

const std::vector<ReferenceTable>& ReferenceTables();

/// The description of a screen, by its name. Throws Failure 5 for another name.
const ReferenceTable& ReferenceTableOf(const std::string& screen);

}  // namespace tevra
