#include "platform/data/Database.h"

#include <algorithm>

#include "platform/text/Invariant.h"
#include "platform/text/Strings.h"

namespace tevra::detail {

namespace {

// The expression of a refused check begins with its field in double quotes.
std::string RefusedField(const std::string& message) {
  const auto first = message.find('"');
  const auto last = first == std::string::npos ? first : message.find('"', first + 1);
  if (last != std::string::npos) return message.substr(first + 1, last - first - 1);
  const auto colon = message.rfind(": ");
  return colon == std::string::npos ? message : message.substr(colon + 2);
}

Failure ConstraintFailure(int extended, const std::string& message, const std::string& statement) {
  const std::string field = RefusedField(message);
  switch (extended) {
    case SQLITE_CONSTRAINT_NOTNULL:
      return {kValueNotAccepted, "Valoare neacceptata: " + field + ": valoarea este obligatorie",
              statement};
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return {kValueNotAccepted, "Valoare neacceptata: " + field + ": exista deja in tabela",
              statement};
    default:
      return {kValueNotAccepted, "Valoare neacceptata: " + field, statement};
  }
}

// Only for expressions; a field of a table has its type.
bool LooksLikeStoredDate(std::string_view text) {
  return text.size() == 19 && text[4] == '-' && text[7] == '-' && text[10] == ' ' &&
         text[13] == ':';
}

bool BeginsWith(std::string_view sql, std::initializer_list<const char*> words) {
  sql.remove_prefix(std::min(sql.find_first_not_of(" \t\r\n"), sql.size()));
  return std::any_of(words.begin(), words.end(), [&](const char* word) {
    const std::size_t size = std::char_traits<char>::length(word);
    return EqualNoCase(std::string(sql.substr(0, size)), word);
  });
}

bool ChangesSchema(std::string_view sql) {
  return BeginsWith(sql, {"CREATE", "ALTER", "DROP"});
}

// Other words that are not read-only, such as VACUUM, may not stand in a transaction.
bool ChangesContent(sqlite3_stmt* stmt) {
  if (sqlite3_stmt_readonly(stmt)) return false;
  const char* sql = sqlite3_sql(stmt);
  return ChangesSchema(sql) || BeginsWith(sql, {"INSERT", "UPDATE", "DELETE", "REPLACE", "WITH"});
}

}  // namespace

Failure EngineFailure(int code, const std::string& message, const std::string& path,
                      const std::string& statement) {
  switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {kDatabaseNotOpened, "Baza de date este folosita de alt program: " + path, statement};
    case SQLITE_FULL:
      return {kDiskFull, "Disk full: " + path, statement};
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return {kPermissionDenied, "Permission denied: " + path, statement};
    case SQLITE_CANTOPEN:
      return {kDatabaseNotOpened, "Baza de date nu poate fi deschisa: " + path, statement};
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return {kDatabaseNotOpened, "Baza de date este deteriorata: " + path, statement};
    case SQLITE_IOERR:
      // The side file's index could not grow, because the disk is full.
      if (code == SQLITE_IOERR_SHMSIZE) return {kDiskFull, "Disk full: " + path, statement};
      return {kDatabaseNotOpened, "Baza de date nu poate fi citita sau scrisa: " + path, statement};
    case SQLITE_CONSTRAINT:
      return ConstraintFailure(code, message, statement);
    case SQLITE_MISMATCH:
      return {kValueNotAccepted, "Valoare neacceptata: " + message, statement};
    default:
      return {kStatementError, message, statement};
  }
}

void Database::Throw(int code, const std::string& statement) {
  if (pending) {
    const Failure failure(pending->Number(), pending->Description(), statement);
    pending.reset();
    throw failure;
  }
  throw EngineFailure(code, sqlite3_errmsg(db), path, statement);
}

Database::~Database() {
  if (guard) guard->Leave();
  sqlite3_close_v2(db);
}

void Database::Begin() {
  RequireTransaction({});
  if (depth > 0) {
    Run("SAVEPOINT nivel" + std::to_string(depth));
  } else {
    Run("BEGIN IMMEDIATE");
    changesBefore = sqlite3_total_changes64(db);
    schemaChanged = false;
    try {
      if (guard) guard->BeginWork();
    } catch (const Failure&) {
      sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
      throw;
    }
  }
  ++depth;
}

void Database::Commit() {
  if (depth == 0) throw Failure(kStatementError, "No transaction is open");
  if (depth > 1) {
    Run("RELEASE nivel" + std::to_string(depth - 1));
    --depth;
  } else {
    RequireTransaction({});
    const bool changed = schemaChanged || sqlite3_total_changes64(db) != changesBefore;
    if (guard) guard->EndWork(changed);
    Run("COMMIT");
    depth = 0;
    if (guard) guard->RequireSameAfterCommit();
  }
}

void Database::Rollback() {
  if (depth == 0) throw Failure(kStatementError, "No transaction is open");
  --depth;
  // After a full disk the engine has rolled everything back by itself.
  if (sqlite3_get_autocommit(db)) return;
  const std::string level = "nivel" + std::to_string(depth);
  Run(depth == 0 ? "ROLLBACK" : "ROLLBACK TO " + level + "; RELEASE " + level);
}

void Database::RequireTransaction(const std::string& statement) const {
  if (depth > 0 && sqlite3_get_autocommit(db)) {
    throw Failure(kStatementError, "The transaction was taken back after a failure", statement);
  }
}

void Database::RequireItsThread() const {
  Invariant(thread == std::this_thread::get_id(),
            "conexiunea este folosita din alt fir de executie");
}

void Database::Run(const std::string& sql) {
  RequireItsThread();
  if (const int code = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
      code != SQLITE_OK) {
    Throw(sqlite3_extended_errcode(db), sql);
  }
  schemaChanged |= ChangesSchema(sql);
}

int KnownAliases::Version(Database& database) {
  Statement version(database, "PRAGMA schema_version");
  return version.Step() ? static_cast<int>(version.Column(0).AsLong()) : 0;
}

std::vector<std::string> KnownAliases::Of(Database& database, const std::string& sql) const {
  const auto found = bySql_.find(sql);
  if (found == bySql_.end() || found->second.schema != Version(database)) return {};
  return found->second.aliases;
}

void KnownAliases::Keep(Database& database, const std::string& sql,
                        const std::vector<std::string>& aliases) {
  bySql_[sql] = {Version(database), aliases};
}

Value WholeValue(std::int64_t whole, const FieldDef* field) {
  if (field && field->type == FieldType::YesNo) return Value::YesNo(whole != 0);
  if (field && field->type == FieldType::Double) return static_cast<double>(whole);
  return whole;
}

Value TextValue(std::string_view text, const FieldDef* field) {
  const bool date = field ? field->type == FieldType::DateTime : LooksLikeStoredDate(text);
  if (date) {
    if (const auto moment = DateTime::FromIso(text)) return *moment;
  }
  return std::string(text);
}

std::string Quoted(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) {
    quoted += c;
    if (c == '"') quoted += c;
  }
  return quoted + '"';
}

std::string RowKeyOf(Database& database, const std::string& table) {
  Statement select(database,
                   "SELECT CASE WHEN count(*) = 1 AND max(type) = 'INTEGER' THEN max(name) END "
                   "FROM pragma_table_info(?) WHERE pk > 0");
  select.Bind({table});
  return select.Step() ? select.Column(0).TextOrEmpty() : std::string();
}

Statement::Statement(Database& database, const std::string& sql) : database_(database), sql_(sql) {
  Prepare(sql);
}

namespace {

std::vector<std::string> ColumnsOf(Database& database, const std::string& select) {
  std::vector<std::string> columns;
  try {
    dialect::Rewritten rewritten;
    const Statement probe(database, select, {}, rewritten);
    for (int i = 0; i < sqlite3_column_count(probe.Get()); ++i) {
      columns.emplace_back(sqlite3_column_name(probe.Get(), i));
    }
  } catch (const Failure&) {
    columns.clear();  // the statement's own failure is the one to tell
  }
  return columns;
}

}  // namespace

// A name that is an alias of the same list is a column first. Whether it is one matters only where
// the engine refuses the statement: it knows no aliases there.
Statement::Statement(Database& database, const std::string& sql, dialect::Options options,
                     dialect::Rewritten& rewritten)
    : database_(database), sql_(sql) {
  options.rowKeyOf = [&database](const std::string& table) { return RowKeyOf(database, table); };
  const auto prepare = [&] {
    rewritten = OfStatement(sql, [&] { return dialect::Rewrite(sql, options); });
    Prepare(rewritten.sql);
  };
  options.expandAliases = database.aliases.Of(database, sql);
  try {
    prepare();
    return;
  } catch (const Failure& failure) {
    if (failure.Number() != kStatementError || !options.expandAliases.empty()) throw;
    const auto columns = [&](const std::string& select) { return ColumnsOf(database, select); };
    options.expandAliases = dialect::AliasesToExpand(sql, columns);
    if (options.expandAliases.empty()) throw;
  }
  prepare();
  database.aliases.Keep(database, sql, options.expandAliases);
}

void Statement::Prepare(const std::string& sql) {
  database_.RequireItsThread();
  if (database_.guard) database_.guard->RequireSame();
  const char* tail = nullptr;
  const int code = sqlite3_prepare_v2(database_.db, sql.c_str(), static_cast<int>(sql.size()) + 1,
                                      &stmt_, &tail);
  if (code != SQLITE_OK) database_.Throw(sqlite3_extended_errcode(database_.db), sql_);
  if (!stmt_) throw Failure(kStatementError, "Empty statement", sql_);
  if (tail && !Trim(tail).empty() && Trim(tail) != ";") {
    sqlite3_finalize(stmt_);
    stmt_ = nullptr;
    throw Failure(kStatementError, "More than one statement", sql_);
  }
  needsTransaction_ = database_.guard && ChangesContent(stmt_);
  changesSchema_ = needsTransaction_ && ChangesSchema(sql);
}

void Statement::Bind(int index, const Value& value) {
  int code = SQLITE_OK;
  switch (value.GetKind()) {
    case Value::Kind::Null:
      code = sqlite3_bind_null(stmt_, index);
      break;
    case Value::Kind::Double:
      code = sqlite3_bind_double(stmt_, index, value.AsDouble());
      break;
    case Value::Kind::Whole:
      code = sqlite3_bind_int64(stmt_, index, value.Whole());
      break;
    case Value::Kind::YesNo:
      code = sqlite3_bind_int64(stmt_, index, value.AsBool() ? -1 : 0);
      break;
    case Value::Kind::Text:
      code = sqlite3_bind_text64(stmt_, index, value.Text().data(), value.Text().size(),
                                 SQLITE_TRANSIENT, SQLITE_UTF8);
      break;
    case Value::Kind::DateTime: {
      const std::string iso = value.AsDateTime().Iso();
      code =
          sqlite3_bind_text64(stmt_, index, iso.data(), iso.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
      break;
    }
  }
  if (code != SQLITE_OK) database_.Throw(code, sql_);
}

void Statement::Bind(const Values& values) {
  if (sqlite3_bind_parameter_count(stmt_) != static_cast<int>(values.size())) {
    throw Failure(kStatementError, "The statement has another number of parameters", sql_);
  }
  for (std::size_t i = 0; i < values.size(); ++i) Bind(static_cast<int>(i) + 1, values[i]);
}

// A change outside a transaction is one of its own, so that its commit is checked and marked too.
bool Statement::StepInTransaction() {
  try {
    database_.Begin();
    try {
      const bool row = Step();
      database_.Commit();
      return row;
    } catch (const Failure&) {
      if (database_.depth > 0) database_.Rollback();
      throw;
    }
  } catch (const Failure& failure) {
    throw Failure(failure.Number(), failure.Description(), sql_);
  }
}

bool Statement::Step() {
  database_.RequireItsThread();
  database_.RequireTransaction(sql_);
  if (needsTransaction_ && database_.depth == 0) return StepInTransaction();
  if (changesSchema_) database_.schemaChanged = true;
  const int code = sqlite3_step(stmt_);
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  const int extended = sqlite3_extended_errcode(database_.db);
  sqlite3_reset(stmt_);
  database_.Throw(extended, sql_);
}

Value Statement::Column(int index, const FieldDef* field) const {
  switch (sqlite3_column_type(stmt_, index)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return WholeValue(sqlite3_column_int64(stmt_, index), field);
    case SQLITE_FLOAT:
      return sqlite3_column_double(stmt_, index);
    default: {
      const auto* text = static_cast<const char*>(sqlite3_column_blob(stmt_, index));
      const auto size = static_cast<std::size_t>(sqlite3_column_bytes(stmt_, index));
      return TextValue(text ? std::string_view(text, size) : std::string_view(), field);
    }
  }
}

}  // namespace tevra::detail
