// Writes the rows of inventory objects and reads them back.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "inventory/ObjectCard.h"
#include "platform/data/Recordset.h"

namespace tevra {

using FieldValues = std::vector<std::pair<std::string, Value>>;

/// The fields of a new object's row in the order in which they are written. An empty box writes
/// nothing, but for the numbers, which become 0. Throws Failure 13 for a number that is none.
FieldValues NewObjectFields(const ObjectCard& card, const std::string& user);

/// The same for a changed object: the field of an empty box keeps what is stored, and a ticked
/// scrapping is written with its day.
FieldValues ChangedObjectFields(const ObjectCard& card, const std::string& user);

/// Writes a new object in its own transaction, on its own connection. Returns its NRCRT. Throws
/// Failure, and then nothing is written.
std::int32_t pAdaugaObiect(const ObjectCard& card);

/// Writes the changes of the object `id` likewise. Throws Failure 3021 when it no longer exists.
void pModificaObiect(const ObjectCard& card, std::int32_t id);

/// An object as it is stored. A Null date is `today`, as on the card.
struct StoredObject {
  ObjectCard card;  ///< `vat` as the list of rates shows it; empty for a rate that no longer exists
  bool writtenOff = false;  ///< Blocata
  bool left = false;        ///< IESIRE
};

/// The object of the current row of `rows`, all fields of I_INV. Throws Failure.
StoredObject ObjectOf(const Recordset& rows, const DateTime& today);

/// The object `id`; nothing when it does not exist. Throws Failure.
std::optional<StoredObject> ReadObject(Connection& connection, std::int32_t id);

}  // namespace tevra
