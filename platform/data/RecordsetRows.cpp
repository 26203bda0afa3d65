#include "platform/data/RecordsetRows.h"

#include <algorithm>

#include <sqlite3.h>

#include "platform/data/Database.h"
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

[[noreturn]] void ThrowRowChanged(const std::string& table) {
  throw Failure(kRowChanged,
                "Inregistrarea a fost modificata sau stearsa de alt utilizator: " + table);
}

// A key of one whole number is the row id itself and moves with it.
bool IsRowId(Connection& target, const FieldInfo& field) {
  return field.def.type == FieldType::Long &&
         EqualNoCase(RowKeyOf(*detail::DatabaseOf(target), field.baseTable), field.baseColumn);
}

// " WHERE rowid = ? AND field IS ? ..." with the values for it.
struct RowCondition {
  explicit RowCondition(const Value& rowId) : values{rowId} {}

  std::string words = " WHERE rowid = ?";
  Values values;

  void Add(const std::string& column, const Value& seen) {
    words += " AND " + Quoted(column) + " IS ? COLLATE BINARY";
    values.push_back(seen);
  }
};

std::string TextOf(const char* text) {
  return text ? text : "";
}

std::vector<Row> ReadRows(Statement& select, const std::vector<FieldInfo>& fields,
                          std::size_t width) {
  std::vector<Row> rows;
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

std::vector<MoneySum> SumsOf(const std::vector<Row>& rows, const std::vector<std::size_t>& fields) {
  std::vector<MoneySum> sums(fields.size());
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < fields.size(); ++i) sums[i].Add((*row.values)[fields[i]]);
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
  std::vector<Row> read(keyset ? keyset->RowCount() : 0);
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
      LetGo(pages_.front());
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
  const std::vector<std::size_t> missing = MissingOf(page);
  std::vector<Values> fetched = keyset_->Fetch(missing);
  for (std::size_t i = 0; i < missing.size(); ++i) {
    rows[missing[i]].values = std::make_shared<const Values>(std::move(fetched[i]));
  }
  pages_.push_back(page);
}

void RowStore::LetGo(std::size_t page) {
  const std::size_t first = page * Keyset::kPageRows;
  for (std::size_t i = first; i < std::min(first + Keyset::kPageRows, rows.size()); ++i) {
    if (!rows[i].kept) rows[i].values.reset();
  }
}

void RowStore::Disconnect() {
  for (std::size_t page = 0; keyset_ && page * Keyset::kPageRows < rows.size(); ++page) {
    FetchPage(page);
  }
  keyset_.reset();
  connection.Close();
}

// When a table occurs twice in a statement, it is unclear which of its rows is meant.
std::size_t RowStore::SourceOf(std::size_t field) const {
  const auto isIts = [&](const dialect::Source& source) {
    return EqualNoCase(source.table, fields[field].baseTable);
  };
  if (std::count_if(sources_.begin(), sources_.end(), isIts) == 1) {
    return static_cast<std::size_t>(std::find_if(sources_.begin(), sources_.end(), isIts) -
                                    sources_.begin());
  }
  throw Failure(kValueNotAccepted, "Valoare neacceptata: " + fields[field].def.name +
                                       ": campul nu poate fi modificat aici");
}

// The table may have numbered the row and set defaults, so the stored row is read back.
void RowStore::Reread(Connection& target, Values& values, std::size_t source) {
  std::string list;
  const std::vector<std::size_t> wanted = FieldsOf(source);
  for (const std::size_t f : wanted)
    list += (list.empty() ? "" : ", ") + Quoted(fields[f].baseColumn);
  if (wanted.empty()) return;
  Statement select(
      *detail::DatabaseOf(target),
      "SELECT " + list + " FROM " + Quoted(sources_[source].table) + " WHERE rowid = ?");
  select.Bind({values[fields.size() + source]});
  if (!select.Step()) ThrowRowChanged(sources_[source].table);
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const FieldInfo& info = fields[wanted[i]];
    values[wanted[i]] = select.Column(static_cast<int>(i), info.typed ? &info.def : nullptr);
  }
}

Values RowStore::InsertInto(Connection& target, const Edits& edits) {
  if (sources_.empty())
    throw Failure(kValueNotAccepted, "Valoare neacceptata: aici nu se pot adauga inregistrari");
  const std::size_t source = edits.empty() ? 0 : SourceOf(edits.begin()->first);
  std::string names;
  std::string marks;
  Values bound;
  for (const auto& [field, value] : edits) {
    if (SourceOf(field) != source) {
      throw Failure(kValueNotAccepted, "Valoare neacceptata: " + fields[field].def.name +
                                           ": o inregistrare noua apartine unei singure tabele");
    }
    names += (bound.empty() ? "" : ", ") + Quoted(fields[field].baseColumn);
    marks += bound.empty() ? "?" : ", ?";
    bound.push_back(value);
  }
  Database& database = *detail::DatabaseOf(target);
  const std::string table = Quoted(sources_[source].table);
  Transaction transaction(target);
  Statement insert(
      database, bound.empty() ? "INSERT INTO " + table + " DEFAULT VALUES"
                              : "INSERT INTO " + table + " (" + names + ") VALUES (" + marks + ")");
  insert.Bind(bound);
  insert.Step();
  Values values(fields.size() + sources_.size());
  values[fields.size() + source] = std::int64_t{sqlite3_last_insert_rowid(database.db)};
  Reread(target, values, source);
  transaction.Commit();
  return values;
}

std::vector<std::size_t> RowStore::FieldsOf(std::size_t source) const {
  std::vector<std::size_t> found;
  for (std::size_t f = 0; f < fields.size(); ++f) {
    if (EqualNoCase(fields[f].baseTable, sources_[source].table)) found.push_back(f);
  }
  return found;
}

// The fields of the table's key; none when the list lacks one of them. They identify the row that
// the user saw, because the row id of a deleted row may be used again.
std::vector<std::size_t> RowStore::KeyOf(Connection& target, std::size_t source) const {
  Statement select(*detail::DatabaseOf(target),
                   "SELECT name FROM pragma_table_info(?) WHERE pk > 0");
  select.Bind({sources_[source].table});
  const std::vector<std::size_t> candidates = FieldsOf(source);
  std::vector<std::size_t> key;
  while (select.Step()) {
    const std::string name = select.Column(0).AsText();
    const auto found = std::find_if(candidates.begin(), candidates.end(), [&](std::size_t f) {
      return EqualNoCase(fields[f].baseColumn, name);
    });
    if (found == candidates.end()) return {};
    key.push_back(*found);
  }
  return key;
}

// One statement for each table; the changed fields must still have the values that the user saw.
Values RowStore::UpdateIn(Connection& target, const Values& before, const Edits& edits) {
  std::map<std::size_t, std::vector<std::size_t>> bySource;
  for (const auto& [field, value] : edits) {
    if (!(before[field] == value)) bySource[SourceOf(field)].push_back(field);
  }
  Values values = before;
  if (bySource.empty()) return values;
  Transaction transaction(target);
  for (const auto& [source, changed] : bySource) {
    const std::string& table = sources_[source].table;
    const Value& rowId = before[fields.size() + source];
    if (rowId.IsNull()) {
      throw Failure(kValueNotAccepted, "Valoare neacceptata: " + fields[changed.front()].def.name +
                                           ": there is no row of " + table + " here");
    }
    std::string words = "UPDATE " + Quoted(table) + " SET ";
    Values bound;
    RowCondition unchanged(rowId);
    for (const std::size_t field : changed) {
      words += (bound.empty() ? "" : ", ") + Quoted(fields[field].baseColumn) + " = ?";
      bound.push_back(edits.at(field));
      unchanged.Add(fields[field].baseColumn, before[field]);
    }
    for (const std::size_t field : KeyOf(target, source)) {
      unchanged.Add(fields[field].baseColumn, before[field]);
    }
    bound.insert(bound.end(), unchanged.values.begin(), unchanged.values.end());
    Statement update(*detail::DatabaseOf(target), words + unchanged.words);
    update.Bind(bound);
    update.Step();
    if (sqlite3_changes(detail::DatabaseOf(target)->db) != 1) ThrowRowChanged(table);
  }
  transaction.Commit();
  for (const auto& [field, value] : edits) {
    values[field] = value;
    if (!(before[field] == value)) FollowRowId(target, values, before, field);
  }
  return values;
}

void RowStore::FollowRowId(Connection& target, Values& values, const Values& before,
                           std::size_t field) const {
  const std::size_t hidden = fields.size() + SourceOf(field);
  if (before[field] == before[hidden] && IsRowId(target, fields[field])) {
    values[hidden] = values[field];
  }
}

void RowStore::DeleteFrom(Connection& target, const Values& values) {
  if (sources_.empty()) {
    throw Failure(kValueNotAccepted, "Valoare neacceptata: aici nu se pot sterge inregistrari");
  }
  std::vector<std::size_t> identity = KeyOf(target, 0);
  if (identity.empty()) identity = FieldsOf(0);
  RowCondition unchanged(values[fields.size()]);
  for (const std::size_t field : identity) unchanged.Add(fields[field].baseColumn, values[field]);
  Statement erase(*detail::DatabaseOf(target),
                  "DELETE FROM " + Quoted(sources_[0].table) + unchanged.words);
  erase.Bind(unchanged.values);
  erase.Step();
  if (sqlite3_changes(detail::DatabaseOf(target)->db) != 1) ThrowRowChanged(sources_[0].table);
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
    rows[index].kept = true;
  } else {
    if (rows[index].state == RowState::Stored) {
      rows[index].before = rows[index].values;
      rows[index].state = RowState::Changed;
    }
    for (const auto& [field, value] : edits) values[field] = value;
  }
  rows[index].values = std::make_shared<const Values>(std::move(values));
  ++writes;
}

void RowStore::Remove(std::size_t index) {
  Row& row = rows[index];
  if (connection.IsOpen()) {
    DeleteFrom(connection, *ValuesOf(index));
    row.state = RowState::Gone;
  } else {
    row.state = row.state == RowState::Added ? RowState::Gone : RowState::Deleted;
  }
  ++changes;
}

void RowStore::WriteBatch(Connection& target) {
  Transaction transaction(target);
  std::vector<Row> written;
  written.reserve(rows.size());
  for (const Row& row : rows) {
    Row copy;
    copy.values = row.values;
    copy.kept = row.kept;
    if (row.state == RowState::Deleted) DeleteFrom(target, *row.values);
    if (row.state == RowState::Deleted || row.state == RowState::Gone) copy.state = RowState::Gone;
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
}

const Value& FieldReader::At(std::size_t row, std::size_t field) const {
  if (scanned_.empty()) return (*store_.rows[row].values)[field];
  return store_.rows[row].kept ? (*store_.rows[row].values)[field]
                               : scanned_[row][columnOf_[field]];
}

}  // namespace tevra::detail
