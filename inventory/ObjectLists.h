// The lists from which the card of an inventory object takes codes.
#pragma once

#include <array>
#include <string>

#include "inventory/ObjectCard.h"
#include "session/CodeLists.h"

namespace tevra {

struct ObjectCodeList : CodeList {
  object::Text box;   ///< the box that gets the code
  const char* combo;  ///< the name of the list's combo
};

/// In the order in which the card loads them.
const std::array<ObjectCodeList, 5>& ObjectCodeLists();

/// The list for a box that has one.
const ObjectCodeList& ListOf(object::Text box);

}  // namespace tevra
