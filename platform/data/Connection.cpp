#include "platform/data/Connection.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include <sqlite3.h>

#include "platform/data/Catalogue.h"
#include "platform/data/CompanyFile.h"
#include "platform/data/Database.h"
#include "platform/data/EngineHandle.h"
#include "platform/data/FilePassword.h"
#include "platform/dialect/Functions.h"
#include "platform/dialect/Rewriter.h"
#include "platform/system/Paths.h"
#include "platform/text/Strings.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

// Only with the side file can one program read while another writes. If another tool has the file
// open without it, the switch fails; work is still possible, but programs wait for each
// other.
void PreferSideFile(detail::Database& database, int lockTimeout) {
  sqlite3_busy_timeout(database.db, 0);
  try {
    database.Run("PRAGMA journal_mode=WAL");
  } catch (const Failure&) {
    const int code = sqlite3_errcode(database.db) & 0xff;
    if (code != SQLITE_BUSY && code != SQLITE_LOCKED) throw;
  }
  sqlite3_busy_timeout(database.db, lockTimeout);
}

void Configure(detail::Database& database, const ConnectionString& parts) {
  sqlite3_db_config(database.db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(database.db, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  dialect::RegisterFunctions(database.db, &database.pending);
  if (database.readOnly) {
    database.Run("SELECT 1 FROM sqlite_master LIMIT 1");
    return;
  }
  if (parts.exclusive) {
    database.Run("PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE; COMMIT");
  } else {
    PreferSideFile(database, parts.lockTimeout);
  }
  database.Run("PRAGMA synchronous=FULL");
}

}  // namespace

ConnectionString ConnectionString::Parse(const std::string& text) {
  ConnectionString parts;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(';', start), text.size());
    const std::string piece = text.substr(start, end - start);
    const std::size_t equals = piece.find('=');
    if (equals != std::string::npos) {
      const std::string key = UCase(Trim(piece.substr(0, equals)));
      const std::string value = piece.substr(equals + 1);
      if (key == "DATA SOURCE") parts.dataSource = Trim(value);
      if (key == "JET OLEDB:DATABASE PASSWORD" || key == "PWD") parts.password = value;
      if (key == "LOCK TIMEOUT") {
        std::from_chars(value.data(), value.data() + value.size(), parts.lockTimeout);
      }
      if (key == "MODE") {
        parts.exclusive = UCase(value).find("SHARE EXCLUSIVE") != std::string::npos;
        parts.readOnly = EqualNoCase(Trim(value), "Read");
      }
    }
    start = end + 1;
  }
  return parts;
}

void Connection::Open(const std::string& connectionString) {
  const ConnectionString parts = ConnectionString::Parse(connectionString);
  const fs::path file = paths::Resolve(parts.dataSource);
  CheckCompanyFile(file);
  auto database = std::make_shared<detail::Database>();
  database->path = file.string();
  database->readOnly = parts.readOnly || paths::IsReadOnly(file);
  if (parts.exclusive) RequireSoleUse(file);
  database->db =
      (database->readOnly ? detail::OpenToRead(file, parts.lockTimeout)
                          : detail::OpenToWrite(file, SQLITE_OPEN_READWRITE, parts.lockTimeout))
          .release();
  Configure(*database, parts);
  if (!detail::FilePasswordFits(*database, parts.password)) {
    throw Failure(kDatabaseNotOpened, "Not a valid password.", file.string());
  }
  // Another program replaced the file while this one waited, so the opened file is the old one.
  if (detail::HasBeenReplaced(database->db)) {
    throw detail::EngineFailure(SQLITE_BUSY, {}, file.string(), {});
  }
  if (!database->readOnly) database->guard.emplace(database->db, database->path);
  db_ = std::move(database);
}

void Connection::Close() {
  db_.reset();
}

namespace {

detail::Database& Opened(const std::shared_ptr<detail::Database>& database) {
  if (!database) throw Failure(kObjectRequired, "Object required: the connection is not open");
  return *database;
}

}  // namespace

const std::string& Connection::Path() const {
  return Opened(db_).path;
}

const std::shared_ptr<detail::Database>& detail::DatabaseOf(const Connection& connection) {
  Opened(connection.db_);
  return connection.db_;
}

std::int64_t Connection::Execute(const std::string& sql, const Values& params) {
  detail::Database& database = Opened(db_);
  const auto key = detail::OfStatement(sql, [&] { return dialect::AsPrimaryKeyStatement(sql); });
  if (key) {
    Catalogue(*this).CreatePrimaryKey(key->table, key->fields);
    return 0;
  }
  dialect::Rewritten rewritten;
  detail::Statement statement(database, sql, {}, rewritten);
  statement.Bind(params);
  const auto before = sqlite3_total_changes64(database.db);
  while (statement.Step()) {
  }
  // SQLite's count is not reset by a statement that changes no rows.
  return sqlite3_total_changes64(database.db) == before ? 0 : sqlite3_changes64(database.db);
}

Value Connection::QueryValue(const std::string& sql, const Values& params) {
  detail::Database& database = Opened(db_);
  dialect::Rewritten rewritten;
  detail::Statement statement(database, sql, {}, rewritten);
  statement.Bind(params);
  if (!statement.Step()) return {};
  FieldDef field;
  const char* declared = sqlite3_column_decltype(statement.Get(), 0);
  const bool typed = declared && ParseDeclaredType(declared, field);
  return statement.Column(0, typed ? &field : nullptr);
}

void Connection::BeginTrans() {
  Opened(db_).Begin();
}

void Connection::CommitTrans() {
  Opened(db_).Commit();
}

void Connection::RollbackTrans() {
  Opened(db_).Rollback();
}

int Connection::TransactionDepth() const {
  return Opened(db_).depth;
}

Transaction::Transaction(Connection& connection) : connection_(connection) {
  connection_.BeginTrans();
}

Transaction::~Transaction() {
  if (!open_) return;
  try {
    connection_.RollbackTrans();
  } catch (const Failure&) {
    // SQLite rolls back when the connection closes; a destructor cannot report a failure.
  }
}

void Transaction::Commit() {
  connection_.CommitTrans();
  open_ = false;
}

}  // namespace tevra
