// Values of a card as its boxes take them from what the user wrote.
#pragma once

#include <string>

#include "platform/data/Connection.h"
#include "platform/data/Value.h"

namespace tevra::batch {

/// An entry of a list: its code and the text that is shown.
struct Entry {
  std::string code;
  std::string text;
};

/// The entry with the code `written` of the list that `statement` reads; both parts are empty for
/// the empty text. Throws Refusal "<what> <written> nu exista in lista !" when the list does not
/// have it.
Entry PickEntry(Connection& company, const char* statement, const char* boundColumn,
                const char* listField, const std::string& written, const char* what);

/// The number that a text in Romanian form means; Null for a blank one, the text for any other.
Value NumberFrom(const std::string& written);

}  // namespace tevra::batch
