// The open file of a connection: SQLite's handle, statements, and its errors as failures.
// For the data layer's own sources only.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <sqlite3.h>

#include "platform/data/FieldType.h"
#include "platform/data/FileGuard.h"
#include "platform/data/Value.h"
#include "platform/dialect/Rewriter.h"

namespace tevra {
class Connection;
}

namespace tevra::detail {

struct Database;

/// The statements that used aliases of their own lists, with those aliases. What is a column
/// changes with the schema.
class KnownAliases {
 public:
  std::vector<std::string> Of(Database& database, const std::string& sql) const;
  void Keep(Database& database, const std::string& sql, const std::vector<std::string>& aliases);

 private:
  struct Known {
    int schema = 0;
    std::vector<std::string> aliases;
  };
  static int Version(Database& database);

  std::map<std::string, Known> bySql_;
};

/// The open file of a connection. Throws Failure 424 when it is not open.
const std::shared_ptr<Database>& DatabaseOf(const Connection& connection);

struct Database {
  sqlite3* db = nullptr;
  std::string path;
  bool readOnly = false;
  int depth = 0;                   // of open transactions
  std::optional<Failure> pending;  // set by a function of a statement that failed
  KnownAliases aliases;
  std::optional<FileGuard> guard;  // of a file that is open for writing
  // Of the open transaction; a change of the schema is not among the engine's counted changes.
  std::int64_t changesBefore = 0;
  bool schemaChanged = false;
  std::thread::id thread = std::this_thread::get_id();

  Database() = default;
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database();

  /// Begins a transaction; the outermost takes the write lock. Ends it, the outermost with a check
  /// that the file is still the one that was opened. Takes it back.
  void Begin();
  void Commit();
  void Rollback();

  /// Runs SQL that is not rewritten, without parameters or result.
  void Run(const std::string& sql);

  /// Throws when SQLite has ended the open transaction: after a full disk it rolls everything back,
  /// and the following statements would be written one by one.
  void RequireTransaction(const std::string& statement) const;

  /// Throws in any other thread than the one that opened the file: the engine's handle has no
  /// mutex.
  void RequireItsThread() const;

  /// Throws the failure of SQLite's last error, with `statement` as its source.
  [[noreturn]] void Throw(int code, const std::string& statement);
};

/// The failure of an SQLite error code; also used before there is a Database.
Failure EngineFailure(int code, const std::string& message, const std::string& path,
                      const std::string& statement);

/// Returns the result of `call`; a failure without a source gets the statement.
template <typename Call>
auto OfStatement(const std::string& sql, Call call) {
  try {
    return call();
  } catch (const Failure& failure) {
    if (!failure.Source().empty()) throw;
    throw Failure(failure.Number(), failure.Description(), sql);
  }
}

/// A value read from SQLite, in the type of `field` if that is known.
Value WholeValue(std::int64_t whole, const FieldDef* field);
Value TextValue(std::string_view text, const FieldDef* field);

/// A prepared statement.
class Statement {
 public:
  /// SQL that is not rewritten.
  Statement(Database& database, const std::string& sql);
  /// A statement of the dialect; `rewritten` receives the rewritten one.
  Statement(Database& database, const std::string& sql, dialect::Options options,
            dialect::Rewritten& rewritten);
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  ~Statement() { sqlite3_finalize(stmt_); }

  void Bind(int index, const Value& value);  // from 1
  void Bind(const Values& values);           // all of them; throws when their number differs
  bool Step();                               // true while there is a row
  void Reset() { sqlite3_reset(stmt_); }

  /// A column's value, see WholeValue.
  Value Column(int index, const FieldDef* field = nullptr) const;
  sqlite3_stmt* Get() const { return stmt_; }

 private:
  void Prepare(const std::string& sql);
  bool StepInTransaction();

  Database& database_;
  sqlite3_stmt* stmt_ = nullptr;
  bool needsTransaction_ = false;  // it changes the file
  bool changesSchema_ = false;
  std::string sql_;  // as given, for failures
};

/// Resets a kept statement at the end of its scope, because an unfinished one locks the file.
struct ResetAtEnd {
  Statement& statement;
  ~ResetAtEnd() { statement.Reset(); }
};

/// The column of a table that is the row's own number, a key of one whole number; "" without one.
std::string RowKeyOf(Database& database, const std::string& table);

/// A name in double quotes.
std::string Quoted(std::string_view name);

}  // namespace tevra::detail
