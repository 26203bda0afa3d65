// SQL of the schema: the definitions of tables, fields and indexes, and changing a table by
// rewriting it. For the data layer's own sources only.
#pragma once

#include <string>

#include "platform/data/Catalogue.h"

namespace tevra::detail {

/// "name" TYPE with its default and the checks that enforce the type.
std::string ColumnSql(const FieldDef& field);

/// The part of a text field's check that refuses the empty text; the catalogue recognises it.
std::string NotEmptyCheck(const std::string& field);

/// For the user index names belong to a table, for SQLite to the whole file.
std::string StoredIndexName(const std::string& table, const std::string& index);
std::string IndexNameIn(const std::string& table, const std::string& stored);
std::string CreateIndexSql(const std::string& table, const IndexDef& index);

/// Rewrites `old` with the structure `changed` (the same fields in the same order) and converts its
/// values, in one transaction. Throws the Failure of the first value that cannot be converted.
void RebuildTable(Connection& connection, const TableDef& old, const TableDef& changed);

}  // namespace tevra::detail
