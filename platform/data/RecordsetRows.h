// The rows of recordsets, and reading them from and writing them to the file.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/data/Keyset.h"
#include "platform/data/Recordset.h"
#include "platform/data/RowTable.h"
#include "platform/dialect/Rewriter.h"

struct sqlite3_stmt;

namespace tevra::detail {

/// The columns of a statement without the last `hidden` ones.
std::vector<FieldInfo> ReadFields(sqlite3_stmt* stmt, std::size_t hidden);

using Edits = std::map<std::size_t, Value>;

/// When connected every change is written at once, otherwise by WriteBatch.
class RowStore {
 public:
  Connection connection;  // not open when the recordset is disconnected
  std::string sql;
  Values params;
  bool byPages = false;               // rows are read when looked at, if the statement allows it
  std::vector<std::string> totalled;  // fields that are added up when the rows are read
  std::vector<double> totals;         // their sums
  std::vector<FieldInfo> fields;
  RowTable rows;
  std::size_t loads = 0;  // how often the rows were read; row numbers are valid until the next time
  std::size_t changes = 0;  // how often rows were added or removed
  std::size_t writes = 0;   // how often a row's values changed

  /// Throws when the statement fails, and then keeps the rows.
  void Load();
  /// A row's values; they do not change while the caller holds them.
  RowValues ValuesOf(std::size_t row);
  void Disconnect();
  std::size_t Add(const Edits& edits);
  /// `seen`: the row as the user saw it.
  void Change(std::size_t row, const Values& seen, const Edits& edits);
  void Remove(std::size_t row);
  void WriteBatch(Connection& target);

 private:
  friend class FieldReader;
  std::vector<std::size_t> MissingOf(std::size_t page) const;
  void FetchPage(std::size_t page);
  Values InsertInto(Connection& target, const Edits& edits);
  Values UpdateIn(Connection& target, const Values& before, const Edits& edits);
  void DeleteFrom(Connection& target, const Values& values);
  std::vector<std::size_t> FieldsOf(std::size_t source) const;
  std::vector<std::size_t> KeyOf(Connection& target, std::size_t source) const;
  void Reread(Connection& target, Values& values, std::size_t source);
  std::size_t SourceOf(std::size_t field) const;
  void FollowRowId(Connection& target, Values& values, const Values& before,
                   std::size_t field) const;

  std::vector<dialect::Source> sources_;  // with hidden row ids; empty when rows cannot be written
  std::unique_ptr<Keyset> keyset_;        // of a long list
  std::deque<std::size_t> pages_;         // loaded pages, the oldest first
};

/// Some fields of all rows, for sorting and searching; for a long list they are read in one pass.
class FieldReader {
 public:
  FieldReader(RowStore& store, const std::vector<std::size_t>& fields);
  const Value& At(std::size_t row, std::size_t field) const;

 private:
  const RowStore& store_;
  std::vector<std::size_t> columnOf_;  // by field
  std::vector<Values> scanned_;        // empty when all rows are in memory
};

}  // namespace tevra::detail
