// The schema's words: how a table, field or index stands in the file, and changing a table by
// writing it anew. For the data layer's own sources only.
#pragma once

#include <string>

#include "platform/data/Catalogue.h"

namespace tevra::detail {

/// "name" TYPE with its default and the checks that hold what the type promises.
std::string ColumnSql(const FieldDef& field);

/// The part of a text field's check that refuses the empty text; the catalogue knows it again.
std::string NotEmptyCheck(const std::string& field);

/// Index names belong to a table for the user and to the whole file for the engine.
std::string StoredIndexName(const std::string& table, const std::string& index);
std::string IndexNameIn(const std::string& table, const std::string& stored);
std::string CreateIndexSql(const std::string& table, const IndexDef& index);

/// Writes `old` anew with the structure `changed` (the same fields in the same order), its values
/// converted by type, as one transaction. Throws Failure of the first value that does not convert.
void RebuildTable(Connection& connection, const TableDef& old, const TableDef& changed);

}  // namespace tevra::detail
