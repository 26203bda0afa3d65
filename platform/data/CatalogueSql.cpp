#include "platform/data/CatalogueSql.h"

#include <algorithm>

#include "platform/data/Database.h"
#include "platform/text/Invariant.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace detail {

namespace {

// The checks run for every value that is written, so each is made of comparisons where it can be: a
// call of a function costs several of them. A comparison with a value of another kind tells the
// kind: numbers come before texts, texts before blobs. A Null fails none of them.

std::string RangeCheck(const std::string& name, const char* least, const char* greatest) {
  return " CHECK (" + name + " BETWEEN " + least + " AND " + greatest + " AND " + name +
         " = CAST(" + name + " AS INTEGER))";
}

// SQLite's date arithmetic turns a day that does not exist into another day. The years
// -999 to -1, which the engine writes as it reads them, have no fixed width elsewhere.
std::string MomentCheck(const std::string& name) {
  return " CHECK (" + name + " IS datetime(" + name + ", '+0 days') AND " + name +
         " NOT BETWEEN '-0/' AND '-0:')";
}

std::string CheckSql(const FieldDef& field) {
  const std::string name = Quoted(field.name);
  switch (field.type) {
    case FieldType::YesNo:
      return " CHECK (" + name + " IN (-1, 0))";
    case FieldType::Byte:
      return RangeCheck(name, "0", "255");
    case FieldType::Integer:
      return RangeCheck(name, "-32768", "32767");
    case FieldType::Long:
      return RangeCheck(name, "-2147483648", "2147483647");
    case FieldType::Double:
      return " CHECK (" + name + " < '')";
    case FieldType::DateTime:
      return MomentCheck(name);
    case FieldType::Text:
      return " CHECK (" + name + " < x'' AND length(" + name +
             ") <= " + std::to_string(field.size) +
             (field.allowZeroLength ? "" : " AND " + NotEmptyCheck(field.name)) + ")";
  }
  return {};
}

std::string Names(const std::vector<std::string>& fields) {
  std::string list;
  for (const auto& field : fields) list += (list.empty() ? "" : ", ") + Quoted(field);
  return list;
}

std::string IndexedFields(const IndexDef& index) {
  std::string list;
  for (const auto& field : index.fields) {
    const bool down = std::any_of(index.descending.begin(), index.descending.end(),
                                  [&](const auto& name) { return EqualNoCase(name, field); });
    list += (list.empty() ? "" : ", ") + Quoted(field) + (down ? " DESC" : "");
  }
  return list;
}

bool NumbersItself(const TableDef& table) {
  return std::any_of(table.fields.begin(), table.fields.end(),
                     [](const FieldDef& field) { return field.autoNumber; });
}

// New rows are numbered from where the old table stopped, so that no number is used again, even
// when the table is empty.
void KeepSequence(Database& database, const TableDef& from, const TableDef& to) {
  if (!NumbersItself(from) || !NumbersItself(to)) return;
  Statement erase(database, "DELETE FROM sqlite_sequence WHERE name = ?");
  erase.Bind({to.name});
  erase.Step();
  Statement insert(database,
                   "INSERT INTO sqlite_sequence (name, seq) "
                   "SELECT ?2, seq FROM sqlite_sequence WHERE name = ?1");
  insert.Bind({from.name, to.name});
  insert.Step();
}

bool IsKeyField(const TableDef& table, const FieldDef& field) {
  return std::any_of(table.indexes.begin(), table.indexes.end(), [&](const IndexDef& index) {
    return index.primary &&
           std::any_of(index.fields.begin(), index.fields.end(),
                       [&](const auto& name) { return EqualNoCase(name, field.name); });
  });
}

// A key of one Long is the row id itself; otherwise the row id is kept besides the fields.
bool HasOwnRowId(const TableDef& table) {
  for (const IndexDef& index : table.indexes) {
    if (!index.primary || index.fields.size() != 1) continue;
    const FieldDef* field = table.Find(index.fields.front());
    if (field && field->type == FieldType::Long) return false;
  }
  return !NumbersItself(table);
}

// Row ids are kept, so that an open recordset still refers to the same rows afterwards.
void CopyRows(Database& database, const TableDef& old, const TableDef& changed) {
  std::string marks = "?";
  std::vector<std::string> names;
  for (const auto& field : old.fields) {
    names.push_back(field.name);
    marks += ", ?";
  }
  const std::string from = " FROM " + Quoted(old.name) + " ORDER BY rowid";
  Statement select(database, "SELECT " + Names(names) + ", rowid" + from);
  const bool ownRowId = HasOwnRowId(changed);
  Statement insert(database, "INSERT INTO " + Quoted(changed.name) + " (" + Names(names) +
                                 (ownRowId ? ", rowid" : "") + ") VALUES (" +
                                 (ownRowId ? marks : marks.substr(3)) + ")");
  while (select.Step()) {
    for (std::size_t i = 0; i < names.size(); ++i) {
      const int column = static_cast<int>(i);
      Value value = ConvertToField(select.Column(column, &old.fields[i]), changed.fields[i]);
      // An earlier type of the field may have had it.
      if (value.IsNull() && changed.fields[i].type == FieldType::YesNo) value = Value::YesNo(false);
      if (value.IsNull() && IsKeyField(changed, changed.fields[i])) {
        throw Failure(kValueNotAccepted,
                      "Valoare neacceptata: " + names[i] + ": valoarea este obligatorie");
      }
      insert.Bind(column + 1, value);
    }
    if (ownRowId)
      insert.Bind(static_cast<int>(names.size()) + 1,
                  select.Column(static_cast<int>(names.size())));
    insert.Step();
    insert.Reset();
  }
}

std::int64_t CountOf(Database& database, const TableDef& table) {
  Statement count(database, "SELECT COUNT(*) FROM " + Quoted(table.name));
  count.Step();
  return count.Column(0).Whole();
}

// Indexes and triggers as other tools may have made them, by their statements.
std::vector<std::string> Companions(Database& database, const std::string& table) {
  Statement select(database,
                   "SELECT sql FROM sqlite_master WHERE tbl_name = ? COLLATE NOCASE AND type IN "
                   "('index', 'trigger') AND sql IS NOT NULL ORDER BY rowid");
  select.Bind({table});
  std::vector<std::string> statements;
  while (select.Step()) statements.push_back(select.Column(0).AsText());
  return statements;
}

void RequireOwnTypes(const TableDef& table) {
  for (const FieldDef& field : table.fields) {
    if (!field.foreign) continue;
    throw Failure(kTypeMismatch, "Camp de un tip necunoscut: " + table.name + "." + field.name);
  }
}

// While the old table is missing, saved queries on it must not prevent the renaming of the new one.
class LegacyAlter {
 public:
  explicit LegacyAlter(Database& database) : database_(database) {
    database_.Run("PRAGMA legacy_alter_table=ON");
  }
  ~LegacyAlter() {
    sqlite3_exec(database_.db, "PRAGMA legacy_alter_table=OFF", nullptr, nullptr, nullptr);
  }
  LegacyAlter(const LegacyAlter&) = delete;
  LegacyAlter& operator=(const LegacyAlter&) = delete;

 private:
  Database& database_;
};

}  // namespace

std::string NotEmptyCheck(const std::string& field) {
  return Quoted(field) + " <> ''";
}

std::string ColumnSql(const FieldDef& field) {
  std::string sql = Quoted(field.name) + " " + DeclaredType(field);
  if (field.type == FieldType::Text) sql += " COLLATE NOCASE";
  if (field.autoNumber) sql += " PRIMARY KEY AUTOINCREMENT";
  if (field.required) sql += " NOT NULL";
  if (!field.defaultValue.empty()) sql += " DEFAULT " + field.defaultValue;
  return sql + CheckSql(field);
}

std::string StoredIndexName(const std::string& table, const std::string& index) {
  return table + "." + index;
}

std::string IndexNameIn(const std::string& table, const std::string& stored) {
  const bool ours = EqualNoCase(Left(stored, Len(table) + 1), table + ".");
  return ours ? Mid(stored, Len(table) + 2) : stored;
}

std::string CreateIndexSql(const std::string& table, const IndexDef& index) {
  return std::string(index.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
         Quoted(StoredIndexName(table, index.name)) + " ON " + Quoted(table) + " (" +
         IndexedFields(index) + ")";
}

void RebuildTable(Connection& connection, const TableDef& old, const TableDef& changed) {
  Database& database = *detail::DatabaseOf(connection);
  RequireOwnTypes(old);
  const LegacyAlter legacy(database);
  Transaction transaction(connection);
  const std::vector<std::string> companions = Companions(database, old.name);
  TableDef temporary = changed;
  temporary.name = "sys_nou_" + old.name;
  database.Run(CreateTableSql(temporary));
  CopyRows(database, old, temporary);
  KeepSequence(database, old, temporary);
  InvariantEqual(CountOf(database, temporary), CountOf(database, old),
                 "tabela refacuta nu are toate randurile");
  database.Run("DROP TABLE " + Quoted(old.name));
  database.Run("ALTER TABLE " + Quoted(temporary.name) + " RENAME TO " + Quoted(old.name));
  for (const std::string& statement : companions) database.Run(statement);
  transaction.Commit();
}

}  // namespace detail

std::string CreateTableSql(const TableDef& table) {
  std::string sql = "CREATE TABLE " + detail::Quoted(table.name) + " (";
  bool numbersItself = false;
  bool first = true;
  for (const auto& field : table.fields) {
    numbersItself |= field.autoNumber;
    FieldDef column = field;
    column.required |= detail::IsKeyField(table, field);
    sql += (first ? "\n  " : ",\n  ") + detail::ColumnSql(column);
    first = false;
  }
  for (const auto& index : table.indexes) {
    if (!index.primary || numbersItself) continue;
    sql += ",\n  CONSTRAINT \"PrimaryKey\" PRIMARY KEY (" + detail::Names(index.fields) + ")";
  }
  return sql + "\n)";
}

}  // namespace tevra
