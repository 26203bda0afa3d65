#include "platform/data/RowSpool.h"

#include <deque>

#include <sqlite3.h>

#include "platform/data/Database.h"
#include "platform/data/EngineHandle.h"
#include "platform/data/PackedRow.h"
#include "platform/data/RecordsetRows.h"
#include "platform/text/Invariant.h"

namespace tevra {

namespace {

constexpr std::size_t kPageRows = 64;
constexpr std::size_t kPagesHeld = 8;

std::vector<FieldInfo> FieldsOf(const detail::Statement& select, const std::string& sql) {
  auto fields = detail::ReadFields(select.Get(), 0);
  if (fields.empty()) throw Failure(kStatementError, "The statement returns no rows", sql);
  return fields;
}

// A file without a name is a temporary file of SQLite, which is on disk and deleted with the
// handle. It needs no journal, because nobody else reads it and nothing of it must survive a
// failure. Only what exceeds half a megabyte of cache is written.
void OpenTemporary(detail::Database& database) {
  database.path = "fisierele temporare";
  database.db = detail::OpenToWrite({}, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, 0).release();
  database.Run(
      "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA cache_size=-512; BEGIN; "
      "CREATE TABLE pages (number INTEGER PRIMARY KEY, rows BLOB)");
}

}  // namespace

std::vector<FieldInfo> StatementFields(const Connection& connection, const std::string& sql) {
  dialect::Rewritten rewritten;
  const detail::Statement select(*detail::DatabaseOf(connection), sql, {}, rewritten);
  return FieldsOf(select, sql);
}

struct RowSpool::Impl {
  struct Page {
    std::size_t number;
    std::vector<Values> rows;
  };

  explicit Impl(std::vector<FieldInfo> of) : fields(std::move(of)) {
    OpenTemporary(database);
    insert = std::make_unique<detail::Statement>(database, "INSERT INTO pages VALUES (?, ?)");
    select =
        std::make_unique<detail::Statement>(database, "SELECT rows FROM pages WHERE number = ?");
  }

  // Called after a row was packed into `filling`.
  void CountRow() {
    ++count;
    if (count % kPageRows != 0) return;
    const detail::ResetAtEnd atEnd{*insert};
    sqlite3_bind_int64(insert->Get(), 1, static_cast<sqlite3_int64>(count / kPageRows - 1));
    sqlite3_bind_blob64(insert->Get(), 2, filling.data(), filling.size(), SQLITE_STATIC);
    insert->Step();
    filling.clear();
  }

  const Page& PageOf(std::size_t row) {
    const std::size_t number = row / kPageRows;
    for (const Page& page : pages) {
      if (page.number == number && row % kPageRows < page.rows.size()) return page;
    }
    Page read = number == count / kPageRows ? Unpacked(number, filling) : Read(number);
    if (pages.size() == kPagesHeld) pages.pop_front();
    pages.push_back(std::move(read));
    return pages.back();
  }

  Page Read(std::size_t number) {
    const detail::ResetAtEnd atEnd{*select};
    select->Bind({static_cast<std::int64_t>(number)});
    if (!select->Step()) throw Failure(kInternalError, "Internal error: a page of rows is missing");
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(select->Get(), 0));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(select->Get(), 0));
    Page page = Unpacked(number, {bytes, size});
    InvariantEqual(static_cast<std::int64_t>(page.rows.size()), kPageRows,
                   "o pagina de randuri nu este plina");
    return page;
  }

  Page Unpacked(std::size_t number, std::string_view bytes) const {
    Page page{number, {}};
    while (!bytes.empty()) page.rows.push_back(detail::UnpackRow(fields, bytes));
    return page;
  }

  std::vector<FieldInfo> fields;
  detail::Database database;
  std::unique_ptr<detail::Statement> insert;
  std::unique_ptr<detail::Statement> select;
  std::size_t count = 0;
  std::string filling;     // the rows of the page that is not full
  std::deque<Page> pages;  // recently used, the oldest first
};

RowSpool::RowSpool(std::vector<FieldInfo> fields)
    : impl_(std::make_unique<Impl>(std::move(fields))) {}
RowSpool::~RowSpool() = default;
RowSpool::RowSpool(RowSpool&&) noexcept = default;

RowSpool::RowSpool(const Connection& connection, const std::string& sql, const Values& params,
                   const std::function<void(const ValueOf&)>& taken) {
  detail::Database& source = *detail::DatabaseOf(connection);
  dialect::Rewritten rewritten;
  detail::Statement rows(source, sql, {}, rewritten);
  rows.Bind(params);
  impl_ = std::make_unique<Impl>(FieldsOf(rows, sql));
  const auto& fields = impl_->fields;
  const ValueOf valueOf = [&](std::size_t field) {
    return rows.Column(static_cast<int>(field), fields[field].typed ? &fields[field].def : nullptr);
  };
  while (rows.Step()) {
    detail::PackRow(rows.Get(), impl_->filling);
    impl_->CountRow();
    taken(valueOf);
  }
}

void RowSpool::Append(const Values& values) {
  InvariantEqual(static_cast<std::int64_t>(values.size()),
                 static_cast<std::int64_t>(impl_->fields.size()), "campurile unui rand pastrat");
  detail::PackRow(values, impl_->filling);
  impl_->CountRow();
}

std::size_t RowSpool::RowCount() const {
  return impl_->count;
}

const std::vector<FieldInfo>& RowSpool::Fields() const {
  return impl_->fields;
}

Value RowSpool::At(std::size_t row, std::size_t field) const {
  if (row >= impl_->count) throw Failure(kNoCurrentRecord, "No current record");
  if (field >= impl_->fields.size()) {
    throw Failure(kItemNotFound, "Item not found: " + std::to_string(field));
  }
  return impl_->PageOf(row).rows.at(row % kPageRows).at(field);
}

}  // namespace tevra
