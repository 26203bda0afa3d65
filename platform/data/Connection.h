// A connection to a company file, opened by a connection string; statements, transactions.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/data/Value.h"

namespace tevra {

class Connection;
class Recordset;
namespace detail {
struct Database;  // the open file, shared by the connection and the recordsets that it left open
const std::shared_ptr<Database>& DatabaseOf(const Connection& connection);
}  // namespace detail

/// The used parts of a connection string: "Data Source", "Mode", the database password.
struct ConnectionString {
  std::string dataSource;
  std::string password;
  bool exclusive = false;  ///< "Share Exclusive" in Mode
  bool readOnly = false;   ///< Mode is "Read"
  int lockTimeout = 5000;  ///< "Lock Timeout": milliseconds to wait for another program

  /// Reads "key=value;key=value"; keys without case, unknown ones ignored.
  [[nodiscard]] static ConnectionString Parse(const std::string& text);
};

/// Copies share the open file, which is closed with the last copy and the last recordset on
/// it.
class Connection {
 public:
  Connection() = default;
  explicit Connection(const std::string& connectionString) { Open(connectionString); }

  /// Opens the file named by the string and never creates it. Throws Failure -2147467259 with the
  /// file's name when it is missing, no company database, truncated, has another password ("Not a
  /// valid password.") or is used exclusively by another program.
  /// A write-protected file is opened for reading.
  void Open(const std::string& connectionString);
  void Close();
  [[nodiscard]] bool IsOpen() const { return db_ != nullptr; }

  /// The path of the open file, in the machine's form.
  [[nodiscard]] const std::string& Path() const;

  /// Runs a statement of the program's dialect that returns no rows, with the parameters for its
  /// "?" in order. Returns the number of rows affected. Throws Failure -2147217900 with SQLite's
  /// message, or the reason's own number where it has one (file locked, disk full, value refused).
  std::int64_t Execute(const std::string& sql, const Values& params = {});

  /// A static recordset over a statement of the program's dialect; see Recordset.
  [[nodiscard]] Recordset OpenRecordset(const std::string& sql, const Values& params = {});

  /// The same rows, read when they are looked at; only their row ids are held in memory. For lists
  /// that may be long. The recordset is static when no table of the statement identifies its rows
  /// (groups, unions, subqueries as sources). See Recordset for the differences.
  /// `totalled`: fields of numbers that are added up in the same pass, see Recordset::Total.
  [[nodiscard]] Recordset OpenKeyset(const std::string& sql, const Values& params = {},
                                     const std::vector<std::string>& totalled = {});

  /// The first field of the first row; Null when there is no row.
  [[nodiscard]] Value QueryValue(const std::string& sql, const Values& params = {});

  /// Transactions nest. The outermost one takes the write lock at once, so that what is read in it
  /// cannot change until the commit.
  void BeginTrans();
  void CommitTrans();
  void RollbackTrans();
  [[nodiscard]] int TransactionDepth() const;

  /// Equal when they share the open file.
  friend bool operator==(const Connection& a, const Connection& b) { return a.db_ == b.db_; }

 private:
  friend const std::shared_ptr<detail::Database>& detail::DatabaseOf(const Connection& connection);

  std::shared_ptr<detail::Database> db_;
};

/// A transaction that rolls back unless it was committed.
class [[nodiscard]] Transaction {
 public:
  explicit Transaction(Connection& connection);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void Commit();

 private:
  Connection connection_;
  bool open_ = true;
};

}  // namespace tevra
