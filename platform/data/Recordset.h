// A recordset: the rows of a statement with a current row, static or read when looked at.
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
  bool typed = false;  ///< def comes from a table (or a rowset file), otherwise from the values
};

/// Reads with a current row, edits row by row, sorts and filters in memory. Copies share rows and
/// position; Clone shares the rows and has its own position.
///
/// A static one has the rows as they were when it was opened. One of Connection::OpenKeyset has the
/// same rows in the same order, each with its values when it is looked at; a deleted row shows
/// Nulls. It sorts, filters and finds by the values of that moment. Disconnected it is static.
///
/// Only the changed fields of a row are written. The row is found by hidden row ids, so that tables
/// without a key and joins can be updated. All routines that need a current row throw Failure 3021
/// without one; an unknown field name or number throws Failure 3265.
class Recordset {
 public:
  Recordset() = default;

  /// A recordset in memory with these columns and no rows.
  [[nodiscard]] static Recordset Create(std::vector<FieldInfo> fields);

  [[nodiscard]] bool IsOpen() const { return s_ != nullptr; }
  void Close() { s_.reset(); }

  // Fields.
  [[nodiscard]] std::size_t FieldCount() const;
  [[nodiscard]] const FieldInfo& Field(std::size_t index) const;
  [[nodiscard]] std::size_t FieldIndex(
      const std::string& name) const;  ///< without case; the first of that name
  [[nodiscard]] std::optional<std::size_t> FindField(const std::string& name) const;

  /// The sum of a field, as the rows were when they were last read, all of them whatever the
  /// filter; Null counts as 0. Only of the fields for which OpenKeyset was asked to add up.
  [[nodiscard]] double Total(const std::string& field) const;

  // Position.
  [[nodiscard]] bool Bof() const;
  [[nodiscard]] bool Eof() const;
  [[nodiscard]] std::size_t RecordCount() const;  ///< filtered rows
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  [[nodiscard]] std::size_t Bookmark() const;  ///< identifies the row until Requery
  void SetBookmark(std::size_t bookmark);
  /// The place of the current row among the filtered and sorted rows, from 0.
  [[nodiscard]] std::size_t Position() const;
  void SetPosition(std::size_t position);
  /// A value of the row at a place, without moving there and without edits that wait for Update.
  /// Throws Failure 3021 for an unknown place.
  [[nodiscard]] Value ValueAt(std::size_t position, std::size_t field) const;

  // Values of the current row, edits included.
  [[nodiscard]] const Value& Get(const std::string& field) const;
  [[nodiscard]] const Value& Get(std::size_t field) const;

  /// Sets a field of the current row, converted to the field's type (see ConvertToField). Update
  /// writes it.
  void Set(const std::string& field, const Value& value);
  void Set(std::size_t field, const Value& value);

  /// Starts a new row, which becomes the current one. Fields not set get the table's default.
  void AddNew();

  /// Writes the edits of the current row: to the file when connected, otherwise to memory. Throws
  /// Failure -2147217864 when another user changed the same fields or deleted the row. After a
  /// failure the edits remain and can be corrected or cancelled.
  void Update();
  void CancelUpdate();
  [[nodiscard]] bool IsEditing() const;
  [[nodiscard]] bool IsAdding() const;  ///< a new row waits for Update

  /// Deletes the current row. The position moves to the next one.
  void Delete();

  /// Runs the statement again, with the same parameters; filter and sort are kept.
  void Requery();

  /// Separates the recordset from the connection: from now on it is used and changed in memory.
  void Disconnect();
  [[nodiscard]] bool IsConnected() const;
  [[nodiscard]] Connection GetConnection() const;

  /// Writes the changes made since Disconnect through `connection` in one transaction; when one is
  /// refused, none is written and all remain in memory.
  void UpdateBatch(Connection& connection);

  /// "FIELD op value" joined by AND: op is =, <>, <, <=, >, >= or Like; value a number, 'text' or
  /// #date#. The empty text removes the filter. Throws Failure 3001 for other texts.
  void SetFilter(const std::string& criteria);

  /// "FIELD [ASC|DESC], ..."; the empty text restores the statement's order.
  void SetSort(const std::string& order);
  [[nodiscard]] const std::string& Sort() const;

  /// Moves to the first row from the current one on (`skip` rows later) that meets the criteria; to
  /// the end when there is none.
  void Find(const std::string& criteria, std::size_t skip = 0);

  [[nodiscard]] Recordset Clone() const;

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
