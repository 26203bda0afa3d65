// The lists from which the card of an inventory object takes codes.
#pragma once

#include <array>
#include <string>

#include "inventory/ObjectCard.h"

namespace tevra {

struct ObjectCodeList {
  object::Text box;         ///< the box that gets the code
  const char* combo;        ///< the name of the list's combo
  const char* boundColumn;  ///< the codes
  const char* listField;    ///< what is shown
  const char* list;         ///< the statement of the entries
  const char* text;         ///< the statement of one code's text; its parameter is the code
};

/// In the order in which the card loads them.
const std::array<ObjectCodeList, 5>& ObjectCodeLists();

/// The list for a box that has one.
const ObjectCodeList& ListOf(object::Text box);

}  // namespace tevra
