#include "platform/data/ForwardCursor.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <sqlite3.h>

#include "platform/data/Database.h"
#include "platform/dialect/Rewriter.h"
#include "platform/dialect/Tokenizer.h"
#include "platform/text/Invariant.h"

namespace tevra {

namespace {

// Rows are read in the order of their ids. Along an index on a written column, a row would be read
// again at the place of its new value.
std::string InRowOrder(const std::string& sql) {
  dialect::Nodes nodes = detail::OfStatement(sql, [&] { return dialect::ReadTree(sql); });
  if (!nodes.empty() && dialect::IsSymbol(nodes.back(), ";")) nodes.pop_back();
  const bool hasOrder = std::any_of(nodes.begin(), nodes.end(), [](const dialect::Node& node) {
    return dialect::Is(node, "ORDER") || dialect::Is(node, "LIMIT");
  });
  return hasOrder ? sql : dialect::Render(nodes) + " ORDER BY rowid";
}

}  // namespace

struct ForwardCursor::Impl {
  std::shared_ptr<detail::Database> database;
  std::string ordered;
  dialect::Rewritten rewritten;
  detail::Statement select;
  std::unique_ptr<detail::Statement> update;
  int rowIdColumn;
  int rowIdParameter;
  bool inRowOrder;
  std::int64_t rowId = 0;  // of the current row
  bool hadRow = false;
  bool onRow = false;
  bool ended = false;
  std::string sql;
  // A bound text must live until the row is written, so each written column has a buffer.
  std::vector<std::array<char, 20>> dates;

  static dialect::Options Selection(const std::vector<std::string>& read) {
    dialect::Options options;
    options.addRowIds = true;
    options.columnsForStar = read;
    return options;
  }

  Impl(Connection& connection, const std::string& statement, const std::vector<std::string>& read,
       const std::vector<std::string>& write)
      : database(detail::DatabaseOf(connection)),
        ordered(InRowOrder(statement)),
        select(*database, ordered, Selection(read), rewritten),
        rowIdColumn(sqlite3_column_count(select.Get()) - 1),
        rowIdParameter(static_cast<int>(write.size()) + 1),
        inRowOrder(ordered != statement),
        sql(statement),
        dates(write.size()) {
    // A saved query has no row ids.
    if (rewritten.sources.size() != 1 || !sqlite3_column_origin_name(select.Get(), rowIdColumn)) {
      throw Failure(kStatementError, "A forward cursor reads one table", statement);
    }
    if (!read.empty() && rowIdColumn != static_cast<int>(read.size())) {
      throw Failure(kStatementError, "A forward cursor names its columns itself", statement);
    }
    if (write.empty()) return;
    std::string words = "UPDATE " + detail::Quoted(rewritten.sources[0].table) + " SET ";
    for (std::size_t i = 0; i < write.size(); ++i) {
      words += (i ? ", " : "") + detail::Quoted(write[i]) + " = ?" + std::to_string(i + 1);
    }
    words += " WHERE rowid = ?" + std::to_string(rowIdParameter);
    update = std::make_unique<detail::Statement>(*database, words);
  }

  // A row that a write moved ahead would be calculated twice.
  void TakeRowId() {
    const std::int64_t id = sqlite3_column_int64(select.Get(), rowIdColumn);
    Invariant(!inRowOrder || !hadRow || id > rowId, "un rand al tabelei se citeste de doua ori");
    rowId = id;
    hadRow = true;
  }

  int Parameter(int column) const {
    Invariant(update && column >= 0 && column + 1 < rowIdParameter,
              "coloana nu este dintre cele de scris");
    return column + 1;
  }
};

ForwardCursor::ForwardCursor(Connection& connection, const std::string& sql,
                             const std::vector<std::string>& read,
                             const std::vector<std::string>& write, const Values& params)
    : impl_(std::make_unique<Impl>(connection, sql, read, write)) {
  impl_->select.Bind(params);
}

ForwardCursor::~ForwardCursor() = default;

bool ForwardCursor::Next() {
  Impl& impl = *impl_;
  if (impl.ended) return false;  // SQLite would start again
  impl.onRow = false;
  impl.onRow = impl.select.Step();
  impl.ended = !impl.onRow;
  if (impl.onRow) impl.TakeRowId();
  return impl.onRow;
}

bool ForwardCursor::IsNull(int column) const {
  return sqlite3_column_type(impl_->select.Get(), column) == SQLITE_NULL;
}

std::optional<double> ForwardCursor::Number(int column) const {
  if (IsNull(column)) return std::nullopt;
  return sqlite3_column_double(impl_->select.Get(), column);
}

std::optional<DateTime> ForwardCursor::Date(int column) const {
  if (IsNull(column)) return std::nullopt;
  const auto date = DateTime::FromIso(Text(column));
  if (!date) {
    throw Failure(kTypeMismatch, "Type mismatch: " + std::string(Text(column)), impl_->sql);
  }
  return date;
}

bool ForwardCursor::YesNo(int column) const {
  return sqlite3_column_int(impl_->select.Get(), column) != 0;
}

std::string_view ForwardCursor::Text(int column) const {
  const auto* text =
      reinterpret_cast<const char*>(sqlite3_column_text(impl_->select.Get(), column));
  if (!text) return {};
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(impl_->select.Get(), column))};
}

void ForwardCursor::SetNull(int column) {
  const int parameter = impl_->Parameter(column);
  sqlite3_bind_null(impl_->update->Get(), parameter);
}

void ForwardCursor::SetNumber(int column, double value) {
  if (!std::isfinite(value)) throw Failure(kOverflow, "Overflow", impl_->sql);
  const int parameter = impl_->Parameter(column);
  sqlite3_bind_double(impl_->update->Get(), parameter, value);
}

void ForwardCursor::SetWhole(int column, std::int64_t value) {
  const int parameter = impl_->Parameter(column);
  sqlite3_bind_int64(impl_->update->Get(), parameter, value);
}

void ForwardCursor::SetDate(int column, const DateTime& date) {
  const int parameter = impl_->Parameter(column);
  auto& buffer = impl_->dates[static_cast<std::size_t>(column)];
  date.IsoTo(buffer.data());
  sqlite3_bind_text(impl_->update->Get(), parameter, buffer.data(), 19, SQLITE_STATIC);
}

void ForwardCursor::Set(int column, const std::optional<double>& value) {
  value ? SetNumber(column, *value) : SetNull(column);
}

void ForwardCursor::Set(int column, const std::optional<std::int32_t>& value) {
  value ? SetWhole(column, *value) : SetNull(column);
}

void ForwardCursor::Set(int column, const std::optional<DateTime>& value) {
  value ? SetDate(column, *value) : SetNull(column);
}

void ForwardCursor::Write() {
  Impl& impl = *impl_;
  if (!impl.onRow) throw Failure(kNoCurrentRecord, "No current record", impl.sql);
  sqlite3_bind_int64(impl.update->Get(), impl.rowIdParameter, impl.rowId);
  impl.update->Step();
  impl.update->Reset();
  if (sqlite3_changes(impl.database->db) != 1) {
    throw Failure(kRowChanged, "Inregistrarea a fost modificata sau stearsa de alt utilizator",
                  impl.sql);
  }
}

}  // namespace tevra
