// The statements' dialect made understood: a statement's words stay, its tokens are rewritten.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialect/SingleRowGroups.h"

namespace tevra::dialect {

/// A table that a statement reads from at its outermost FROM.
struct Source {
  std::string table;
  std::string alias;  ///< the name by which the statement speaks of it
};

/// What becomes of a statement.
struct Rewritten {
  std::string sql;
  /// For a SELECT whose rows are rows of its tables (no grouping, aggregate, DISTINCT or UNION, no
  /// subquery as a source): its sources, the kept table of outer joins first. Else empty.
  std::vector<Source> sources;
};

struct Options {
  /// Put the hidden row id of every source behind the list, as "__row1", "__row2", ... in the order
  /// of `sources`.
  bool addRowIds = false;
  /// In the place of a list that is "*" alone: these columns of the only source.
  std::vector<std::string> columnsForStar;
  /// Aliases of the outermost list that are replaced by what they stand for where another item of
  /// the same list uses them, see AliasesToExpand.
  std::vector<std::string> expandAliases;
  /// Tells the row number's column of a table; when set, groups of one row are no groups, see
  /// RemoveSingleRowGroups.
  RowKeyOf rowKeyOf;
};

/// Rewrites one statement. What it does not know passes through as it stands. Throws Failure
/// -2147217900 for an unclosed text or bracket.
Rewritten Rewrite(const std::string& sql, const Options& options = {});

/// The names of the columns that a SELECT of the dialect gives; none where it cannot be run.
using ColumnsOf = std::function<std::vector<std::string>(const std::string& select)>;

/// For a statement that the engine refused: the aliases that other items of the same list use and
/// that are no column of what the list reads.
std::vector<std::string> AliasesToExpand(const std::string& sql, const ColumnsOf& columnsOf);

/// What "CREATE INDEX PrimaryKey ON table (fields) WITH PRIMARY" asks for.
struct PrimaryKeyStatement {
  std::string table;
  std::vector<std::string> fields;
};

/// Nothing when the statement is another one; Rewrite passes it through as it stands.
std::optional<PrimaryKeyStatement> AsPrimaryKeyStatement(const std::string& sql);

}  // namespace tevra::dialect
