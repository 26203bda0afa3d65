#include "tests/dialect/Company.h"

#include <fstream>
#include <iterator>
#include <memory>

#include "platform/dialect/Functions.h"
#include "tests/text/Expect.h"

namespace tevra::dialect {

namespace {

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

void Bind(sqlite3_stmt* statement, const Parameters& parameters) {
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const int index = static_cast<int>(i) + 1;
    if (const auto* whole = std::get_if<int>(&parameters[i])) {
      sqlite3_bind_int(statement, index, *whole);
    } else if (const auto* number = std::get_if<double>(&parameters[i])) {
      sqlite3_bind_double(statement, index, *number);
    } else {
      sqlite3_bind_text(statement, index, std::get<std::string>(parameters[i]).c_str(), -1,
                        SQLITE_TRANSIENT);
    }
  }
}

std::string Line(sqlite3_stmt* statement) {
  std::string line;
  for (int i = 0; i < sqlite3_column_count(statement); ++i) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
    line += (i > 0 ? "|" : "") + std::string(text ? text : "NULL");
  }
  return line;
}

}  // namespace

Company::Company() {
  sqlite3_open(":memory:", &db_);
  RegisterFunctions(db_, &pending_);
  std::ifstream file(TEVRA_DIALECT_FOLDER "/company.sql");
  Engine({std::istreambuf_iterator<char>(file), {}});
  for (const char* table : {"kv_ter", "kv_pc", "kv_cc", "Kv_Linii"}) {
    std::string sql = Rows("SELECT sql FROM sqlite_master WHERE name = ?", {table}).front();
    Engine(sql.replace(sql.find(table), 3, "tmp_"));
  }
}

Company::~Company() {
  sqlite3_close(db_);
}

Lines Company::Rows(const std::string& sql, const Parameters& parameters, Options options) {
  const Statement statement(Prepare(sql, std::move(options)));
  Bind(statement.get(), parameters);
  Lines rows;
  int code = SQLITE_OK;
  while ((code = sqlite3_step(statement.get())) == SQLITE_ROW)
    rows.push_back(Line(statement.get()));
  if (code != SQLITE_DONE) Fail();
  return rows;
}

std::string Company::Columns(const std::string& sql, Options options) {
  const Statement statement(Prepare(sql, std::move(options)));
  std::string names;
  for (int i = 0; i < sqlite3_column_count(statement.get()); ++i) {
    names += (i > 0 ? "|" : "") + std::string(sqlite3_column_name(statement.get(), i));
  }
  return names;
}

int Company::Run(const std::string& sql, const Parameters& parameters) {
  Rows(sql, parameters);
  return sqlite3_changes(db_);
}

void Company::Engine(const std::string& sql) {
  if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
}

sqlite3_stmt* Company::Prepare(const std::string& sql, Options options) {
  const auto prepared = [&]() {
    sqlite3_stmt* statement = nullptr;
    const std::string text = Rewrite(sql, options).sql;
    sqlite3_prepare_v2(db_, text.c_str(), -1, &statement, nullptr);
    return statement;
  };
  if (sqlite3_stmt* statement = prepared()) return statement;
  options.expandAliases =
      AliasesToExpand(sql, [&](const std::string& select) { return ColumnsOf(select); });
  sqlite3_stmt* statement = options.expandAliases.empty() ? nullptr : prepared();
  if (!statement) Fail();
  return statement;
}

std::vector<std::string> Company::ColumnsOf(const std::string& select) {
  std::vector<std::string> columns;
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(db_, Rewrite(select).sql.c_str(), -1, &statement, nullptr);
  for (int i = 0; i < sqlite3_column_count(statement); ++i) {
    columns.emplace_back(sqlite3_column_name(statement, i));
  }
  sqlite3_finalize(statement);
  return columns;
}

void Company::Fail() {
  if (!pending_) throw Failure(kStatementError, sqlite3_errmsg(db_));
  const Failure failure = *pending_;
  pending_.reset();
  throw failure;
}

long FailureOf(Company& company, const std::string& sql) {
  return tevra::FailureOf([&] { company.Rows(sql); });
}

}  // namespace tevra::dialect
