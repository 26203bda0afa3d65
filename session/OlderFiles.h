// Converts directories from before the XML registry and before the current database names and
// password.
#pragma once

#include <optional>
#include <string>

#include "platform/text/Failure.h"
#include "session/CompanyRegistry.h"

namespace tevra {

/// True when a directory has the registry in its older form, the dBase table Societat.DBF.
bool HasOlderRegistry(const std::string& directory);

/// Writes the companies of Societat.DBF to a new registry and does not change Societat.DBF. Deleted
/// and blank records are left out. Texts are read with the table's code page (852 or 1250); unknown
/// characters become "?". Throws Failure -2147467259 for a table that is damaged or lacks a field,
/// -2147217887 for a text too long for the registry, otherwise like CompanyRegistry::Save.
void ConvertOlderRegistry(const std::string& directory);

/// Copies every database "Tevra<code>.mdb" of the registry to "Kelnar<code>.MDB" with the current
/// file password, replacing a file of that name, and enters the new name. The old file stays. A
/// company that fails keeps its row, and the others are still converted. Returns the first failure;
/// when the registry cannot be written, all its rows remain unchanged.
std::optional<Failure> pChangeDatabases(CompanyRegistry& registry, const std::string& directory);

}  // namespace tevra
