// How often a code of a reference table is used.
#pragma once

#include <string>
#include <vector>

#include "platform/data/Value.h"
#include "reference/ReferenceTable.h"

namespace tevra {

/// A sentence for the question before a code is deleted: "\n\nEste folosit in 2 imobilizari si 14
/// inregistrari contabile." Empty when nothing uses the code. Throws Failure.
std::string UseSentence(const Value& code, const std::vector<ReferenceUser>& users);

}  // namespace tevra
