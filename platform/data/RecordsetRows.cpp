#include "platform/data/RecordsetRows.h"

#include <algorithm>

#include <sqlite3.h>

#include "platform/data/Database.h"
#include "platform/text/Invariant.h"
#include "platform/text/Strings.h"

namespace tevra::detail {

namespace {

// Row ids exist for tables; a saved query or a subquery has none.
bool AllAreTables(Database& database, const std::vector<dialect::Source>& sources) {
  Statement select(database,
                   "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE");
  return std::all_of(sources.begin(), sources.end(), [&](const dialect::Source& source) {
    select.Reset();
    select.Bind({source.table});
    return select.Step();
  });
}

std::string TextOf(const char* text) {
  return text ? text : "";
}

RowTable ReadRows(Statement& select, const std::vector<FieldInfo>& fields, std::size_t width) {
  RowTable rows;
  while (select.Step()) {
    Values values;
    values.reserve(width);
    for (std::size_t i = 0; i < width; ++i) {
      const bool typed = i < fields.size() && fields[i].typed;
      values.push_back(select.Column(static_cast<int>(i), typed ? &fields[i].def : nullptr));
    }
    Row row;
    row.values = std::make_shared<const Values>(std::move(values));
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<std::size_t> FieldsNamed(const std::vector<std::string>& names,
                                     const std::vector<FieldInfo>& fields) {
  std::vector<std::size_t> found;
  for (const std::string& name : names) {
    const auto field = std::find_if(fields.begin(), fields.end(), [&](const FieldInfo& info) {
      return EqualNoCase(info.def.name, name);
    });
    if (field == fields.end()) throw Failure(kItemNotFound, "Item not found: " + name);
    found.push_back(static_cast<std::size_t>(field - fields.begin()));
  }
  return found;
}

std::vector<MoneySum> SumsOf(const RowTable& rows, const std::vector<std::size_t>& fields) {
  std::vector<MoneySum> sums(fields.size());
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (std::size_t i = 0; i < fields.size(); ++i) sums[i].Add((*rows[row].values)[fields[i]]);
  }
  return sums;
}

constexpr std::size_t kPagesHeld = 64;

}  // namespace

std::vector<FieldInfo> ReadFields(sqlite3_stmt* stmt, std::size_t hidden) {
  const int count = sqlite3_column_count(stmt) - static_cast<int>(hidden);
  std::vector<FieldInfo> fields;
  for (int i = 0; i < count; ++i) {
    FieldInfo info;
    info.def.name = TextOf(sqlite3_column_name(stmt, i));
    info.baseTable = TextOf(sqlite3_column_table_name(stmt, i));
    info.baseColumn = TextOf(sqlite3_column_origin_name(stmt, i));
    info.typed = ParseDeclaredType(TextOf(sqlite3_column_decltype(stmt, i)), info.def);
    fields.push_back(std::move(info));
  }
  return fields;
}

void RowStore::Load() {
  if (!connection.IsOpen()) throw Failure(kObjectRequired, "Object required: no connection");
  Database& database = *detail::DatabaseOf(connection);
  auto tables = OfStatement(sql, [&] { return dialect::Rewrite(sql).sources; });
  if (!AllAreTables(database, tables)) tables.clear();
  dialect::Options options;
  options.addRowIds = !tables.empty();
  dialect::Rewritten rewritten;
  Statement select(database, sql, options, rewritten);
  if (sqlite3_column_count(select.Get()) == 0) {
    throw Failure(kStatementError, "The statement returns no rows", sql);
  }
  auto columns = ReadFields(select.Get(), tables.size());
  std::unique_ptr<Keyset> keyset;
  if (byPages) {
    keyset = Keyset::Open(detail::DatabaseOf(connection), rewritten.sql, params, columns, tables,
                          FieldsNamed(totalled, columns));
  }
  RowTable read(keyset ? keyset->RowCount() : 0);
  if (!keyset) {
    select.Bind(params);
    read = ReadRows(select, columns, columns.size() + tables.size());
  }
  const std::vector<MoneySum> sums =
      keyset ? keyset->Totals() : SumsOf(read, FieldsNamed(totalled, columns));
  sources_ = std::move(tables);
  fields = std::move(columns);
  rows = std::move(read);
  keyset_ = std::move(keyset);
  totals.clear();
  for (const MoneySum& sum : sums) totals.push_back(sum.Total());
  pages_.clear();
  ++loads;
}

RowValues RowStore::ValuesOf(std::size_t row) {
  if (!rows[row].values) {
    if (pages_.size() == kPagesHeld) {
      rows.LetGo(pages_.front());
      pages_.pop_front();
    }
    FetchPage(row / Keyset::kPageRows);
  }
  return rows[row].values;
}

// The numbers of a page's rows that are not loaded.
std::vector<std::size_t> RowStore::MissingOf(std::size_t page) const {
  const std::size_t first = page * Keyset::kPageRows;
  std::vector<std::size_t> missing;
  for (std::size_t i = first; i < std::min(first + Keyset::kPageRows, rows.size()); ++i) {
    if (!rows[i].values) missing.push_back(i);
  }
  return missing;
}

void RowStore::FetchPage(std::size_t page) {
  Invariant(keyset_ != nullptr, "un rand al listei nu are valori");
  const std::vector<std::size_t> missing = MissingOf(page);
  std::vector<Values> fetched = keyset_->Fetch(missing);
  InvariantEqual(static_cast<std::int64_t>(fetched.size()),
                 static_cast<std::int64_t>(missing.size()), "randuri citite ale unei pagini");
  for (std::size_t i = 0; i < missing.size(); ++i) {
    rows.At(missing[i]).values = std::make_shared<const Values>(std::move(fetched[i]));
  }
  pages_.push_back(page);
}

void RowStore::Disconnect() {
  for (std::size_t page = 0; keyset_ && page * Keyset::kPageRows < rows.size(); ++page) {
    FetchPage(page);
  }
  keyset_.reset();
  connection.Close();
}

std::size_t RowStore::Add(const Edits& edits) {
  Values values(fields.size() + sources_.size());
  Row row;
  if (connection.IsOpen()) {
    values = InsertInto(connection, edits);
    if (keyset_) keyset_->Append(values);
    row.kept = true;
  } else {
    for (const auto& [field, value] : edits) values[field] = value;
    row.state = RowState::Added;
  }
  row.values = std::make_shared<const Values>(std::move(values));
  rows.push_back(std::move(row));
  ++changes;
  return rows.size() - 1;
}

void RowStore::Change(std::size_t index, const Values& seen, const Edits& edits) {
  Values values = seen;
  if (connection.IsOpen()) {
    values = UpdateIn(connection, seen, edits);
    if (keyset_) keyset_->Follow(index, values);
    rows.At(index).kept = true;
  } else {
    Row& row = rows.At(index);
    if (row.state == RowState::Stored) {
      row.before = row.values;
      row.state = RowState::Changed;
    }
    for (const auto& [field, value] : edits) values[field] = value;
  }
  rows.At(index).values = std::make_shared<const Values>(std::move(values));
  ++writes;
}

void RowStore::Remove(std::size_t index) {
  if (connection.IsOpen()) {
    DeleteFrom(connection, *ValuesOf(index));
    rows.At(index).state = RowState::Gone;
  } else {
    Row& row = rows.At(index);
    row.state = row.state == RowState::Added ? RowState::Gone : RowState::Deleted;
  }
  ++changes;
}

void RowStore::WriteBatch(Connection& target) {
  Transaction transaction(target);
  RowTable written;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Row& row = rows[i];
    Row copy;
    copy.values = row.values;
    copy.kept = row.kept;
    if (row.state == RowState::Deleted) DeleteFrom(target, *row.values);
    if (row.Removed()) copy.state = RowState::Gone;
    if (row.state == RowState::Added || row.state == RowState::Changed) {
      Edits edits;
      for (std::size_t f = 0; f < fields.size(); ++f) {
        const Value& now = (*row.values)[f];
        const bool changed = row.before ? !(now == (*row.before)[f]) : !now.IsNull();
        if (changed) edits[f] = now;
      }
      copy.values = std::make_shared<const Values>(row.before ? UpdateIn(target, *row.before, edits)
                                                              : InsertInto(target, edits));
    }
    written.push_back(std::move(copy));
  }
  transaction.Commit();
  rows = std::move(written);
  ++writes;
}

FieldReader::FieldReader(RowStore& store, const std::vector<std::size_t>& fields) : store_(store) {
  if (!store.keyset_ || fields.empty()) return;
  columnOf_.resize(store.fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) columnOf_[fields[i]] = i;
  scanned_ = store.keyset_->Scan(fields);
  InvariantEqual(static_cast<std::int64_t>(scanned_.size()),
                 static_cast<std::int64_t>(store.rows.size()), "randuri parcurse ale listei");
}

const Value& FieldReader::At(std::size_t row, std::size_t field) const {
  if (scanned_.empty()) return (*store_.rows[row].values)[field];
  return store_.rows[row].kept ? (*store_.rows[row].values)[field]
                               : scanned_[row][columnOf_[field]];
}

}  // namespace tevra::detail
