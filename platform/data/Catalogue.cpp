#include "platform/data/Catalogue.h"

#include <algorithm>

#include "platform/data/CatalogueSql.h"
#include "platform/data/Database.h"
#include "platform/text/Strings.h"

namespace tevra {

using detail::Quoted;
using detail::Statement;

namespace {

constexpr const char* kPrimaryKey = "PrimaryKey";

bool IsSystem(const std::string& table) {
  return EqualNoCase(Left(table, 7), "sqlite_") || EqualNoCase(Left(table, 4), "sys_");
}

std::string SchemaSql(detail::Database& database, const std::string& table) {
  Statement select(database, "SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ?");
  select.Bind({table});
  return select.Step() ? select.Column(0).TextOrEmpty() : std::string();
}

void ReadFields(detail::Database& database, TableDef& table) {
  const std::string sql = SchemaSql(database, table.name);
  const bool numbersItself = UCase(sql).find("AUTOINCREMENT") != std::string::npos;
  Statement select(database,
                   "SELECT name, type, \"notnull\", dflt_value, pk FROM pragma_table_info(?)");
  select.Bind({table.name});
  std::vector<std::pair<int, std::string>> key;
  while (select.Step()) {
    FieldDef field;
    field.name = select.Column(0).AsText();
    field.foreign = !ParseDeclaredType(select.Column(1).TextOrEmpty(), field);
    const int keyPart = select.Column(4).AsLong();
    field.required = select.Column(2).AsBool();
    field.autoNumber = numbersItself && keyPart > 0;
    field.defaultValue = select.Column(3).TextOrEmpty();
    field.allowZeroLength = sql.find(detail::NotEmptyCheck(field.name)) == std::string::npos;
    if (keyPart > 0) key.emplace_back(keyPart, field.name);
    table.fields.push_back(std::move(field));
  }
  if (key.empty()) return;
  std::sort(key.begin(), key.end());
  IndexDef index{kPrimaryKey, {}, true, true};
  for (auto& [part, name] : key) index.fields.push_back(std::move(name));
  table.indexes.push_back(std::move(index));
}

void ReadIndexes(detail::Database& database, TableDef& table) {
  // "c": created by CREATE INDEX; the key has been read already.
  Statement list(
      database,
      "SELECT name, \"unique\" FROM pragma_index_list(?) WHERE origin = 'c' ORDER BY name");
  list.Bind({table.name});
  while (list.Step()) {
    const std::string stored = list.Column(0).AsText();
    IndexDef index{detail::IndexNameIn(table.name, stored), {}, false, list.Column(1).AsBool()};
    Statement columns(
        database, "SELECT name, \"desc\" FROM pragma_index_xinfo(?) WHERE key = 1 ORDER BY seqno");
    columns.Bind({stored});
    while (columns.Step()) {
      index.fields.push_back(columns.Column(0).TextOrEmpty());
      if (columns.Column(1).AsBool()) index.descending.push_back(index.fields.back());
    }
    table.indexes.push_back(std::move(index));
  }
}

TableDef ReadTable(detail::Database& database, const std::string& name) {
  TableDef table;
  table.name = name;
  table.system = IsSystem(name);
  ReadFields(database, table);
  ReadIndexes(database, table);
  return table;
}

const FieldDef& FieldOf(const TableDef& table, const std::string& name) {
  if (const FieldDef* field = table.Find(name)) return *field;
  throw Failure(kItemNotFound, "Item not found: " + table.name + "." + name);
}

bool HasPrimaryKey(const TableDef& table) {
  return std::any_of(table.indexes.begin(), table.indexes.end(),
                     [](const IndexDef& index) { return index.primary; });
}

}  // namespace

const FieldDef* TableDef::Find(const std::string& field) const {
  for (const auto& candidate : fields) {
    if (EqualNoCase(candidate.name, field)) return &candidate;
  }
  return nullptr;
}

std::vector<TableDef> Catalogue::Tables() const {
  detail::Database& database = *detail::DatabaseOf(connection_);
  std::vector<TableDef> tables;
  Statement select(
      database, "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name COLLATE NOCASE");
  while (select.Step()) tables.push_back(ReadTable(database, select.Column(0).AsText()));
  return tables;
}

std::vector<QueryDef> Catalogue::Queries() const {
  std::vector<QueryDef> queries;
  Statement select(
      *detail::DatabaseOf(connection_),
      "SELECT name, sql FROM sqlite_master WHERE type = 'view' ORDER BY name COLLATE NOCASE");
  while (select.Step()) {
    const std::string sql = select.Column(1).AsText();
    const auto as = UCase(sql).find(" AS ");
    queries.push_back(
        {select.Column(0).AsText(), as == std::string::npos ? sql : sql.substr(as + 4)});
  }
  return queries;
}

bool Catalogue::HasTable(const std::string& name) const {
  Statement select(*detail::DatabaseOf(connection_),
                   "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE");
  select.Bind({name});
  return select.Step();
}

TableDef Catalogue::Table(const std::string& name) const {
  detail::Database& database = *detail::DatabaseOf(connection_);
  Statement select(
      database, "SELECT name FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE");
  select.Bind({name});
  if (!select.Step()) throw Failure(kItemNotFound, "Item not found: " + name);
  return ReadTable(database, select.Column(0).AsText());
}

void Catalogue::CreateTable(const TableDef& table) {
  Transaction transaction(connection_);
  Statement(*detail::DatabaseOf(connection_), CreateTableSql(table)).Step();
  for (const auto& index : table.indexes) {
    if (!index.primary) CreateIndex(table.name, index);
  }
  transaction.Commit();
}

void Catalogue::CreateQuery(const QueryDef& query) {
  Statement(*detail::DatabaseOf(connection_),
            "CREATE VIEW " + Quoted(query.name) + " AS " + query.sql)
      .Step();
}

void Catalogue::CreateIndex(const std::string& table, const IndexDef& index) {
  if (index.primary) return CreatePrimaryKey(table, index.fields);
  const TableDef indexed = Table(table);
  for (const auto& field : index.fields) FieldOf(indexed, field);
  for (const auto& field : index.descending) FieldOf(indexed, field);
  Statement(*detail::DatabaseOf(connection_), detail::CreateIndexSql(indexed.name, index)).Step();
}

void Catalogue::DropIndex(const std::string& table, const std::string& index) {
  if (EqualNoCase(index, kPrimaryKey)) return DropPrimaryKey(table);
  Statement(*detail::DatabaseOf(connection_),
            "DROP INDEX " + Quoted(detail::StoredIndexName(Table(table).name, index)))
      .Step();
}

void Catalogue::CreatePrimaryKey(const std::string& table, const std::vector<std::string>& fields) {
  const TableDef old = Table(table);
  if (HasPrimaryKey(old))
    throw Failure(kStatementError, "There is a primary key already: " + old.name);
  TableDef changed = old;
  IndexDef key{kPrimaryKey, {}, true, true};
  for (const auto& name : fields) key.fields.push_back(FieldOf(changed, name).name);
  changed.indexes.insert(changed.indexes.begin(), std::move(key));
  detail::RebuildTable(connection_, old, changed);
}

void Catalogue::DropPrimaryKey(const std::string& table) {
  const TableDef old = Table(table);
  if (!HasPrimaryKey(old))
    throw Failure(kItemNotFound, "Item not found: " + old.name + "." + kPrimaryKey);
  TableDef changed = old;
  std::erase_if(changed.indexes, [](const IndexDef& index) { return index.primary; });
  for (auto& field : changed.fields) field.autoNumber = false;
  detail::RebuildTable(connection_, old, changed);
}

void Catalogue::AddField(const std::string& table, const FieldDef& field) {
  Statement(*detail::DatabaseOf(connection_),
            "ALTER TABLE " + Quoted(Table(table).name) + " ADD COLUMN " + detail::ColumnSql(field))
      .Step();
}

void Catalogue::DropField(const std::string& table, const std::string& field) {
  const TableDef old = Table(table);
  Statement(*detail::DatabaseOf(connection_),
            "ALTER TABLE " + Quoted(old.name) + " DROP COLUMN " + Quoted(FieldOf(old, field).name))
      .Step();
}

void Catalogue::RenameField(const std::string& table, const std::string& from,
                            const std::string& to) {
  const TableDef old = Table(table);
  Statement(*detail::DatabaseOf(connection_),
            "ALTER TABLE " + Quoted(old.name) + " RENAME COLUMN " +
                Quoted(FieldOf(old, from).name) + " TO " + Quoted(to))
      .Step();
}

void Catalogue::AlterField(const std::string& table, const FieldDef& field) {
  AlterFields(table, {field});
}

void Catalogue::AlterFields(const std::string& table, const std::vector<FieldDef>& fields) {
  const TableDef old = Table(table);
  TableDef changed = old;
  for (const FieldDef& field : fields) {
    const auto at = static_cast<std::size_t>(&FieldOf(old, field.name) - old.fields.data());
    changed.fields[at] = field;
    changed.fields[at].name = old.fields[at].name;
  }
  detail::RebuildTable(connection_, old, changed);
}

}  // namespace tevra
