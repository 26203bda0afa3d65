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
  if (field.def.type != FieldType::Long) return false;
  Statement select(
      *target.Handle(),
      "SELECT count(*) = 1 AND max(name) = ?2 COLLATE NOCASE AND max(type) = 'INTEGER' "
      "FROM pragma_table_info(?1) WHERE pk > 0");
  select.Bind({field.baseTable, field.baseColumn});
  return select.Step() && select.Column(0).AsBool();
}

std::string TextOf(const char* text) {
  return text ? text : "";
}

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

std::vector<Row> ReadRows(Statement& select, const std::vector<FieldInfo>& fields,
                          std::size_t width) {
  std::vector<Row> rows;
  while (select.Step()) {
    Row row;
    row.values.reserve(width);
    for (std::size_t i = 0; i < width; ++i) {
      const bool typed = i < fields.size() && fields[i].typed;
      row.values.push_back(select.Column(static_cast<int>(i), typed ? &fields[i].def : nullptr));
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace

void RowStore::Load() {
  if (!connection.IsOpen()) throw Failure(kObjectRequired, "Object required: no connection");
  Database& database = *connection.Handle();
  auto tables = OfStatement(sql, [&] { return dialect::Rewrite(sql).sources; });
  if (!AllAreTables(database, tables)) tables.clear();
  dialect::Options options;
  options.addRowIds = !tables.empty();
  dialect::Rewritten rewritten;
  Statement select(database, sql, options, rewritten);
  if (sqlite3_column_count(select.Get()) == 0) {
    throw Failure(kStatementError, "The statement returns no rows", sql);
  }
  select.Bind(params);
  auto columns = ReadFields(select.Get(), tables.size());
  auto read = ReadRows(select, columns, columns.size() + tables.size());
  sources = std::move(tables);
  fields = std::move(columns);
  rows = std::move(read);
  ++loads;
}

// A table that apare de doua ori in a statement leaves open which of its rows is meant.
std::size_t RowStore::SourceOf(std::size_t field) const {
  const auto isIts = [&](const dialect::Source& source) {
    return EqualNoCase(source.table, fields[field].baseTable);
  };
  if (std::count_if(sources.begin(), sources.end(), isIts) == 1) {
    return static_cast<std::size_t>(std::find_if(sources.begin(), sources.end(), isIts) -
                                    sources.begin());
  }
  throw Failure(kValueNotAccepted, "Valoare neacceptata: " + fields[field].def.name +
                                       ": campul nu poate fi modificat aici");
}

// The table may have numbered the row and filled defaults: what is shown is what was stored.
void RowStore::Reread(Connection& target, Row& row, std::size_t source) {
  std::string list;
  std::vector<std::size_t> wanted;
  for (std::size_t f = 0; f < fields.size(); ++f) {
    if (!EqualNoCase(fields[f].baseTable, sources[source].table)) continue;
    list += (wanted.empty() ? "" : ", ") + Quoted(fields[f].baseColumn);
    wanted.push_back(f);
  }
  if (wanted.empty()) return;
  Statement select(*target.Handle(), "SELECT " + list + " FROM " + Quoted(sources[source].table) +
                                         " WHERE rowid = ?");
  select.Bind({row.values[fields.size() + source]});
  if (!select.Step()) ThrowRowChanged(sources[source].table);
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const FieldInfo& info = fields[wanted[i]];
    row.values[wanted[i]] = select.Column(static_cast<int>(i), info.typed ? &info.def : nullptr);
  }
}

void RowStore::InsertInto(Connection& target, Row& row, const Edits& edits) {
  if (sources.empty())
    throw Failure(kValueNotAccepted, "Valoare neacceptata: aici nu se pot adauga inregistrari");
  const std::size_t source = edits.empty() ? 0 : SourceOf(edits.begin()->first);
  std::string names;
  std::string marks;
  Values values;
  for (const auto& [field, value] : edits) {
    if (SourceOf(field) != source) {
      throw Failure(kValueNotAccepted, "Valoare neacceptata: " + fields[field].def.name +
                                           ": o inregistrare noua apartine unei singure tabele");
    }
    names += (values.empty() ? "" : ", ") + Quoted(fields[field].baseColumn);
    marks += values.empty() ? "?" : ", ?";
    values.push_back(value);
  }
  Database& database = *target.Handle();
  const std::string table = Quoted(sources[source].table);
  Transaction transaction(target);
  Statement insert(database, values.empty() ? "INSERT INTO " + table + " DEFAULT VALUES"
                                            : "INSERT INTO " + table + " (" + names + ") VALUES (" +
                                                  marks + ")");
  insert.Bind(values);
  insert.Step();
  row.values.resize(fields.size() + sources.size());
  row.values[fields.size() + source] = std::int64_t{sqlite3_last_insert_rowid(database.db)};
  Reread(target, row, source);
  transaction.Commit();
}

// One statement a table; what the user saw in the changed fields must still be there.
void RowStore::UpdateIn(Connection& target, Row& row, const Values& before, const Edits& edits) {
  std::map<std::size_t, std::vector<std::size_t>> bySource;
  for (const auto& [field, value] : edits) {
    if (!(before[field] == value)) bySource[SourceOf(field)].push_back(field);
  }
  if (bySource.empty()) return;
  Transaction transaction(target);
  for (const auto& [source, changed] : bySource) {
    const std::string& table = sources[source].table;
    const Value& rowId = before[fields.size() + source];
    if (rowId.IsNull()) {
      throw Failure(kValueNotAccepted, "Valoare neacceptata: " + fields[changed.front()].def.name +
                                           ": there is no row of " + table + " here");
    }
    std::string words = "UPDATE " + Quoted(table) + " SET ";
    std::string unchanged = " WHERE rowid = ?";
    Values values;
    Values conditions{rowId};
    for (const std::size_t field : changed) {
      const std::string column = Quoted(fields[field].baseColumn);
      words += (values.empty() ? "" : ", ") + column + " = ?";
      unchanged += " AND " + column + " IS ? COLLATE BINARY";
      values.push_back(edits.at(field));
      conditions.push_back(before[field]);
    }
    values.insert(values.end(), conditions.begin(), conditions.end());
    Statement update(*target.Handle(), words + unchanged);
    update.Bind(values);
    update.Step();
    if (sqlite3_changes(target.Handle()->db) != 1) ThrowRowChanged(table);
  }
  transaction.Commit();
  for (const auto& [field, value] : edits) {
    row.values[field] = value;
    if (!(before[field] == value)) FollowRowId(target, row, before, field);
  }
}

void RowStore::FollowRowId(Connection& target, Row& row, const Values& before,
                           std::size_t field) const {
  const std::size_t hidden = fields.size() + SourceOf(field);
  if (before[field] == before[hidden] && IsRowId(target, fields[field])) {
    row.values[hidden] = row.values[field];
  }
}

void RowStore::DeleteFrom(Connection& target, const Row& row) {
  if (sources.empty()) {
    throw Failure(kValueNotAccepted, "Valoare neacceptata: aici nu se pot sterge inregistrari");
  }
  Statement erase(*target.Handle(), "DELETE FROM " + Quoted(sources[0].table) + " WHERE rowid = ?");
  erase.Bind({row.values[fields.size()]});
  erase.Step();
  if (sqlite3_changes(target.Handle()->db) != 1) ThrowRowChanged(sources[0].table);
}

std::size_t RowStore::Add(const Edits& edits) {
  Row row;
  row.values.resize(fields.size() + sources.size());
  if (connection.IsOpen()) {
    InsertInto(connection, row, edits);
  } else {
    for (const auto& [field, value] : edits) row.values[field] = value;
    row.state = RowState::Added;
  }
  rows.push_back(std::move(row));
  ++changes;
  return rows.size() - 1;
}

void RowStore::Change(std::size_t index, const Edits& edits) {
  Row& row = rows[index];
  if (connection.IsOpen()) {
    const Values before = row.values;
    UpdateIn(connection, row, before, edits);
    return;
  }
  if (row.state == RowState::Stored) {
    row.before = std::make_unique<Values>(row.values);
    row.state = RowState::Changed;
  }
  for (const auto& [field, value] : edits) row.values[field] = value;
}

void RowStore::Remove(std::size_t index) {
  Row& row = rows[index];
  if (connection.IsOpen()) {
    DeleteFrom(connection, row);
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
    if (row.state == RowState::Deleted) DeleteFrom(target, row);
    if (row.state == RowState::Deleted || row.state == RowState::Gone) copy.state = RowState::Gone;
    Edits edits;
    for (std::size_t f = 0; f < fields.size(); ++f) {
      const bool changed = row.state == RowState::Added     ? !row.values[f].IsNull()
                           : row.state == RowState::Changed ? !(row.values[f] == (*row.before)[f])
                                                            : false;
      if (changed) edits[f] = row.values[f];
    }
    if (row.state == RowState::Added) InsertInto(target, copy, edits);
    if (row.state == RowState::Changed) UpdateIn(target, copy, *row.before, edits);
    written.push_back(std::move(copy));
  }
  transaction.Commit();
  rows = std::move(written);
}

}  // namespace tevra::detail
