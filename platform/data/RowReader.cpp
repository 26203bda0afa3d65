#include "platform/data/RowReader.h"

#include <sqlite3.h>

#include "platform/data/Database.h"
#include "platform/data/RecordsetRows.h"
#include "platform/text/Strings.h"

namespace tevra {

struct RowReader::Impl {
  Impl(const Connection& connection, const std::string& sql)
      : database(detail::DatabaseOf(connection)),
        statement(*database, sql, {}, rewritten),
        fields(detail::ReadFields(statement.Get(), 0)) {
    if (fields.empty()) throw Failure(kStatementError, "The statement returns no rows", sql);
  }

  std::shared_ptr<detail::Database> database;
  dialect::Rewritten rewritten;
  detail::Statement statement;
  std::vector<FieldInfo> fields;
  bool ended = false;
};

RowReader::RowReader(const Connection& connection, const std::string& sql, const Values& params)
    : impl_(std::make_unique<Impl>(connection, sql)) {
  impl_->statement.Bind(params);
}

RowReader::~RowReader() = default;

const std::vector<FieldInfo>& RowReader::Fields() const {
  return impl_->fields;
}

int RowReader::Column(const std::string& name) const {
  for (std::size_t i = 0; i < impl_->fields.size(); ++i) {
    if (EqualNoCase(impl_->fields[i].def.name, name)) return static_cast<int>(i);
  }
  throw Failure(kItemNotFound, "Item not found: " + name);
}

bool RowReader::Next() {
  if (impl_->ended) return false;  // SQLite would start again
  impl_->ended = !impl_->statement.Step();
  return !impl_->ended;
}

Value RowReader::Get(int column) const {
  const FieldInfo& field = impl_->fields[static_cast<std::size_t>(column)];
  return impl_->statement.Column(column, field.typed ? &field.def : nullptr);
}

std::optional<double> RowReader::Number(int column) const {
  sqlite3_stmt* row = impl_->statement.Get();
  if (sqlite3_column_type(row, column) == SQLITE_NULL) return std::nullopt;
  return sqlite3_column_double(row, column);
}

std::string_view RowReader::Text(int column) const {
  sqlite3_stmt* row = impl_->statement.Get();
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
  if (!text) return {};
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

}  // namespace tevra
