// The rows behind recordsets, and how they are read from and written to the file.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/data/Keyset.h"
#include "platform/data/Recordset.h"
#include "platform/dialect/Rewriter.h"

struct sqlite3_stmt;

namespace tevra::detail {

/// The columns of a statement but for the last `hidden` ones.
std::vector<FieldInfo> ReadFields(sqlite3_stmt* stmt, std::size_t hidden);

enum class RowState {
  Stored,   // as in the file, or in memory as loaded
  Added,    // in memory, not in the file
  Changed,  // in memory, `before` is what the file has
  Deleted,  // in memory, still in the file
  Gone,     // deleted everywhere
};

/// The fields' values, then a hidden row id a source.
using RowValues = std::shared_ptr<const Values>;

struct Row {
  RowValues values;  // none while a row of a long list has not been looked at
  RowValues before;
  RowState state = RowState::Stored;
  bool kept = false;  // written by this program: its list may no longer have it
};

using Edits = std::map<std::size_t, Value>;

/// Connected, every change is written at once; else it waits for WriteBatch.
class RowStore {
 public:
  Connection connection;  // not open when the recordset is disconnected
  std::string sql;
  Values params;
  bool byPages = false;  // rows are fetched as they are looked at, where the statement allows it
  std::vector<std::string> totalled;  // fields that are added up when the rows are read
  std::vector<double> totals;         // their sums
  std::vector<FieldInfo> fields;
  std::vector<Row> rows;
  std::size_t loads = 0;    // how often the rows were read; their numbers last until the next time
  std::size_t changes = 0;  // how often rows came or went
  std::size_t writes = 0;   // how often a row's values changed

  /// Throws and leaves the rows as they were when the statement fails.
  void Load();
  /// A row's values; they stay as they are while the caller holds them.
  RowValues ValuesOf(std::size_t row);
  void Disconnect();
  std::size_t Add(const Edits& edits);
  /// `seen`: the row as its user had it before him.
  void Change(std::size_t row, const Values& seen, const Edits& edits);
  void Remove(std::size_t row);
  void WriteBatch(Connection& target);

 private:
  friend class FieldReader;
  std::vector<std::size_t> MissingOf(std::size_t page) const;
  void FetchPage(std::size_t page);
  void LetGo(std::size_t page);
  Values InsertInto(Connection& target, const Edits& edits);
  Values UpdateIn(Connection& target, const Values& before, const Edits& edits);
  void DeleteFrom(Connection& target, const Values& values);
  std::vector<std::size_t> FieldsOf(std::size_t source) const;
  std::vector<std::size_t> KeyOf(Connection& target, std::size_t source) const;
  void Reread(Connection& target, Values& values, std::size_t source);
  std::size_t SourceOf(std::size_t field) const;
  void FollowRowId(Connection& target, Values& values, const Values& before,
                   std::size_t field) const;

  std::vector<dialect::Source> sources_;  // with hidden row ids; none when rows cannot be written
  std::unique_ptr<Keyset> keyset_;        // of a long list
  std::deque<std::size_t> pages_;         // fetched ones, the oldest first
};

/// Some fields of all rows, for sorting and searching: those of a long list are read in one pass.
class FieldReader {
 public:
  FieldReader(RowStore& store, const std::vector<std::size_t>& fields);
  const Value& At(std::size_t row, std::size_t field) const;

 private:
  const RowStore& store_;
  std::vector<std::size_t> columnOf_;  // by field
  std::vector<Values> scanned_;        // none of a store that holds its rows
};

}  // namespace tevra::detail
