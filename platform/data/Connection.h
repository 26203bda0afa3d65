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

/// The parts of a connection string that matter: "Data Source", "Mode", the database password.
struct ConnectionString {
  std::string dataSource;
  std::string password;
  bool exclusive = false;  ///< "Share Exclusive" in Mode
  bool readOnly = false;   ///< Mode is "Read"
  int lockTimeout = 5000;  ///< "Lock Timeout": milliseconds to wait for another program

  /// Reads "key=value;key=value"; keys without case, unknown ones ignored.
  static ConnectionString Parse(const std::string& text);
};

/// Copies share the open file; it is closed when the last copy and the last recordset on it are
/// gone.
class Connection {
 public:
  Connection() = default;
  explicit Connection(const std::string& connectionString) { Open(connectionString); }

  /// Opens the file named by the string. It is never created. Throws Failure -2147467259, its text
  /// naming the file, when it is missing, no company database, truncated, of another password
  /// ("Not a valid password.") or in use by one who wants it alone.
  /// A file that is write-protected opens for reading.
  void Open(const std::string& connectionString);
  void Close();
  [[nodiscard]] bool IsOpen() const { return db_ != nullptr; }

  /// The path of the open file, as the machine writes it.
  const std::string& Path() const;

  /// Runs a statement of the program's dialect that returns no rows; "?" are the parameters in
  /// order. Returns the number of rows affected. Throws Failure -2147217900 with the engine's
  /// reason, or the number of the reason where it has one of its own (file locked, disk full, value
  /// refused).
  std::int64_t Execute(const std::string& sql, const Values& params = {});

  /// A static recordset over a statement of the program's dialect; see Recordset.
  Recordset OpenRecordset(const std::string& sql, const Values& params = {});

  /// The same rows, fetched as they are looked at: what is held of each is where to find it. For
  /// lists that may be long. Static after all where no table of the statement tells its rows apart
  /// (groups, unions, subqueries as sources). See Recordset for how it differs from a static one.
  /// `totalled`: fields of numbers that are added up in the same pass, see Recordset::Total.
  Recordset OpenKeyset(const std::string& sql, const Values& params = {},
                       const std::vector<std::string>& totalled = {});

  /// The first field of the first row; Null when there is no row.
  Value QueryValue(const std::string& sql, const Values& params = {});

  /// Transactions nest. The outermost takes the write lock at once, so that what is read in it
  /// stays true until it is committed.
  void BeginTrans();
  void CommitTrans();
  void RollbackTrans();
  int TransactionDepth() const;

  /// Equal when they share the open file.
  friend bool operator==(const Connection& a, const Connection& b) { return a.db_ == b.db_; }

 private:
  friend const std::shared_ptr<detail::Database>& detail::DatabaseOf(const Connection& connection);

  std::shared_ptr<detail::Database> db_;
};

/// A transaction that rolls back unless it was committed.
class Transaction {
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
