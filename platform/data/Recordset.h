// A recordset: the rows of a statement with a current row, static or fetched as they are looked at.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/data/Connection.h"
#include "platform/data/FieldType.h"

namespace tevra {

/// One column of a recordset.
struct FieldInfo {
  FieldDef def;           ///< name in the recordset, type, size
  std::string baseTable;  ///< empty for an expression
  std::string baseColumn;
  bool typed = false;  ///< def comes from a table (or a rowset file); else from the values
};

/// Reads with a current row, edits row by row, sorts and filters in memory. Copies share rows and
/// position (a reference to one recordset); Clone shares the rows with a position of its own.
///
/// A static one has the rows as they were when it was opened. One of Connection::OpenKeyset has the
/// same rows in the same order, each as it is when it is looked at; one deleted meanwhile shows
/// Nulls. It sorts, filters and finds by the values of that moment. Disconnected it is static.
///
/// A row is written with the fields that changed only, found by hidden row ids, so that tables
/// without a key and joins can be updated. All routines that need a current row throw Failure 3021
/// without one; a field name or number that is not there throws Failure 3265.
class Recordset {
 public:
  Recordset() = default;

  /// A recordset in memory with these columns and no rows.
  static Recordset Create(std::vector<FieldInfo> fields);

  bool IsOpen() const { return s_ != nullptr; }
  void Close() { s_.reset(); }

  // Fields.
  std::size_t FieldCount() const;
  const FieldInfo& Field(std::size_t index) const;
  std::size_t FieldIndex(const std::string& name) const;  ///< without case; the first of that name
  std::optional<std::size_t> FindField(const std::string& name) const;

  /// The sum of a field, as the rows were when they were last read, all of them whatever the
  /// filter; Null counts as 0. Only of the fields for which OpenKeyset was asked to add up.
  double Total(const std::string& field) const;

  // Position.
  bool Bof() const;
  bool Eof() const;
  std::size_t RecordCount() const;  ///< rows under the filter
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  std::size_t Bookmark() const;  ///< stays with the row until Requery
  void SetBookmark(std::size_t bookmark);
  /// The place of the current row among the rows under the filter, as sorted, from 0.
  std::size_t Position() const;
  void SetPosition(std::size_t position);
  /// A value of the row at a place, without going there; edits that wait for their Update are not
  /// in it. Throws Failure 3021 for a place that is none.
  Value ValueAt(std::size_t position, std::size_t field) const;

  // Values of the current row, edits included.
  const Value& Get(const std::string& field) const;
  const Value& Get(std::size_t field) const;

  /// Sets a field of the current row; converted by the field's type, see ConvertToField. Nothing is
  /// written until Update.
  void Set(const std::string& field, const Value& value);
  void Set(std::size_t field, const Value& value);

  /// Starts a new row; it becomes the current one. Fields not set take the table's default.
  void AddNew();

  /// Writes the edits of the current row: to the file when connected, else to memory. A row that
  /// another user changed in the same fields or deleted meanwhile throws Failure -2147217864. After
  /// a failure the edits are still there to be mended or cancelled.
  void Update();
  void CancelUpdate();
  bool IsEditing() const;
  bool IsAdding() const;  ///< a new row waits for its Update

  /// Deletes the current row. The position moves to the next one.
  void Delete();

  /// Runs the statement again, with the same parameters; filter and sort are kept.
  void Requery();

  /// Cuts the recordset from the connection: it is walked and changed in memory from now on.
  void Disconnect();
  bool IsConnected() const;
  Connection GetConnection() const;

  /// Writes the changes made since Disconnect through `connection` as one transaction; when one of
  /// them is refused none is written and all are still there.
  void UpdateBatch(Connection& connection);

  /// "FIELD op value" joined by AND: op is =, <>, <, <=, >, >= or Like; value a number, 'text' or
  /// #date#. The empty text clears it. Throws Failure 3001 for what it cannot read.
  void SetFilter(const std::string& criteria);

  /// "FIELD [ASC|DESC], ..."; the empty text restores the statement's order.
  void SetSort(const std::string& order);
  const std::string& Sort() const;

  /// Moves to the first row from the current one on (`skip` rows later) that meets the criteria; to
  /// the end when there is none.
  void Find(const std::string& criteria, std::size_t skip = 0);

  Recordset Clone() const;

  struct Rows;

 private:
  friend class Connection;
  struct State;
  explicit Recordset(std::shared_ptr<State> s) : s_(std::move(s)) {}
  State& S() const;
  static Recordset Open(const Connection& connection, const std::string& sql, const Values& params,
                        bool byPages, const std::vector<std::string>& totalled);
  std::shared_ptr<State> s_;
};

}  // namespace tevra
