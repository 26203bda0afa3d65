// Directories from before the XML registry and before today's database names and password.
#pragma once

#include <optional>
#include <string>

#include "platform/text/Failure.h"
#include "session/CompanyRegistry.h"

namespace tevra {

/// True when a directory has the registry in its older form, the dBase table Societat.DBF.
bool HasOlderRegistry(const std::string& directory);

/// Writes the companies of Societat.DBF, which stays as it is, to a new registry. Deleted and blank
/// records are left out. Texts are read by the code page that the table names (852 or 1250); "?"
/// stands for what is not known. Throws Failure -2147467259 for a table that is damaged or lacks a
/// field, -2147217887 for a text that is too long for the registry, else as CompanyRegistry::Save.
void ConvertOlderRegistry(const std::string& directory);

/// Copies every database "Tevra<code>.mdb" of the registry to "Kelnar<code>.MDB" with today's file
/// password, over a file of that name, and enters the new name. The old file stays. A company that
/// fails keeps its row and the others go on; the first failure is returned, one of writing the
/// registry too, after which all rows are as they were.
std::optional<Failure> pChangeDatabases(CompanyRegistry& registry, const std::string& directory);

}  // namespace tevra
