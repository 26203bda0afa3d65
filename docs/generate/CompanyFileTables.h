// The tables of docs/company-file.md.
#pragma once

#include "docs/generate/Blocks.h"
#include "template/Schema.h"

namespace tevra {

/// A block for each table, named as the table, "copies" for the tables with the columns of another
/// one and "queries" for the saved queries. Throws Failure naming a field or query whose meaning
/// the description lacks.
Blocks CompanyFileTables(const Schema& schema);

}  // namespace tevra
