// The rows behind recordsets, and how they are read from and written to the file.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/data/Recordset.h"
#include "platform/dialect/Rewriter.h"

namespace tevra::detail {

enum class RowState {
  Stored,   // as in the file, or in memory as loaded
  Added,    // in memory, not in the file
  Changed,  // in memory, `before` is what the file has
  Deleted,  // in memory, still in the file
  Gone,     // deleted everywhere
};

struct Row {
  Values values;  // the fields, then a hidden row id a source
  std::unique_ptr<Values> before;
  RowState state = RowState::Stored;
};

using Edits = std::map<std::size_t, Value>;

/// Connected, every change is written at once; else it waits for WriteBatch.
struct RowStore {
  Connection connection;  // not open when the recordset is disconnected
  std::string sql;
  Values params;
  std::vector<FieldInfo> fields;
  std::vector<dialect::Source> sources;  // with hidden row ids; empty when rows cannot be written
  std::vector<Row> rows;
  std::size_t loads = 0;    // how often the rows were read; their numbers last until the next time
  std::size_t changes = 0;  // how often rows came or went

  /// Throws and leaves the rows as they were when the statement fails.
  void Load();
  std::size_t Add(const Edits& edits);
  void Change(std::size_t row, const Edits& edits);
  void Remove(std::size_t row);
  void WriteBatch(Connection& target);

 private:
  void InsertInto(Connection& target, Row& row, const Edits& edits);
  void UpdateIn(Connection& target, Row& row, const Values& before, const Edits& edits);
  void DeleteFrom(Connection& target, const Row& row);
  void Reread(Connection& target, Row& row, std::size_t source);
  std::size_t SourceOf(std::size_t field) const;
  void FollowRowId(Connection& target, Row& row, const Values& before, std::size_t field) const;
};

}  // namespace tevra::detail
