// Rewrites statements of the program's dialect for SQLite, token by token.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialect/SingleRowGroups.h"

namespace tevra::dialect {

/// A table in a statement's outermost FROM.
struct Source {
  std::string table;
  std::string alias;  ///< the name that the statement uses for it
};

/// A rewritten statement.
struct Rewritten {
  std::string sql;
  /// The sources of a SELECT whose rows are rows of its tables (no grouping, aggregate, DISTINCT or
  /// UNION, no subquery as a source), the kept table of outer joins first; otherwise empty.
  std::vector<Source> sources;
};

struct Options {
  /// Append the hidden row id of every source to the list, as "__row1", "__row2", ... in the order
  /// of `sources`.
  bool addRowIds = false;
  /// Columns of the only source that replace a list of "*" alone.
  std::vector<std::string> columnsForStar;
  /// Aliases of the outermost list that are replaced by what they stand for where another item of
  /// the same list uses them, see AliasesToExpand.
  std::vector<std::string> expandAliases;
  /// Tells the row number's column of a table; when set, groups of one row are no groups, see
  /// RemoveSingleRowGroups.
  RowKeyOf rowKeyOf;
};

/// Rewrites one statement. Unknown constructs pass unchanged. Throws Failure -2147217900 for an
/// unclosed text or bracket.
Rewritten Rewrite(const std::string& sql, const Options& options = {});

/// The names of the columns that a SELECT of the dialect gives; none where it cannot be run.
using ColumnsOf = std::function<std::vector<std::string>(const std::string& select)>;

/// For a statement that the engine refused: the aliases that other items of the same list use and
/// that are no column of what the list reads.
std::vector<std::string> AliasesToExpand(const std::string& sql, const ColumnsOf& columnsOf);

/// A statement "CREATE INDEX PrimaryKey ON table (fields) WITH PRIMARY".
struct PrimaryKeyStatement {
  std::string table;
  std::vector<std::string> fields;
};

/// Nothing when it is another statement; Rewrite passes this one unchanged.
std::optional<PrimaryKeyStatement> AsPrimaryKeyStatement(const std::string& sql);

}  // namespace tevra::dialect
