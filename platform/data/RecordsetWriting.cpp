// The statements with which a recordset writes its rows into the tables that they come from.
#include <algorithm>

#include <sqlite3.h>

#include "platform/data/Database.h"
#include "platform/data/RecordsetRows.h"
#include "platform/text/Strings.h"

namespace tevra::detail {

namespace {

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

}  // namespace

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

}  // namespace tevra::detail
