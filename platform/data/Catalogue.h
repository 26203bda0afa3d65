// The structure of a company file: tables, their fields and indexes, saved queries.
#pragma once

#include <string>
#include <vector>

#include "platform/data/Connection.h"
#include "platform/data/FieldType.h"

namespace tevra {

struct IndexDef {
  std::string name;  ///< "PrimaryKey" for the key
  std::vector<std::string> fields;
  bool primary = false;
  bool unique = false;
  std::vector<std::string> descending = {};  ///< those of the fields that run downwards

  bool operator==(const IndexDef&) const = default;
};

struct TableDef {
  std::string name;
  bool system = false;  ///< SQLite's own tables and that of the password
  std::vector<FieldDef> fields;
  std::vector<IndexDef> indexes;  ///< the key first

  [[nodiscard]] const FieldDef* Find(
      const std::string& field) const;  ///< without case; nullptr when not there
};

struct QueryDef {
  std::string name;
  std::string sql;  ///< its SELECT
};

/// Each call reads the catalogue. Each change is written at once, whole or not at all. An unknown
/// table throws Failure 3265 with its name. A table with a field of a foreign type cannot be
/// rewritten: changes of its fields and key throw Failure 13 with the field's name.
class Catalogue {
 public:
  explicit Catalogue(Connection connection) : connection_(std::move(connection)) {}

  [[nodiscard]] std::vector<TableDef> Tables() const;   ///< system tables too, by name
  [[nodiscard]] std::vector<QueryDef> Queries() const;  ///< saved queries, by name
  [[nodiscard]] bool HasTable(const std::string& name) const;
  [[nodiscard]] TableDef Table(const std::string& name) const;

  void CreateTable(const TableDef& table);
  void CreateQuery(const QueryDef& query);
  void CreateIndex(const std::string& table, const IndexDef& index);
  void DropIndex(const std::string& table, const std::string& index);

  /// Makes the fields the table's primary key and required; the rows are kept. Throws Failure
  /// -2147217900 when the table has a key.
  void CreatePrimaryKey(const std::string& table, const std::vector<std::string>& fields);
  /// A self-numbering key loses its numbering. Throws Failure 3265 when there is no key.
  void DropPrimaryKey(const std::string& table);

  void AddField(const std::string& table, const FieldDef& field);
  void DropField(const std::string& table, const std::string& field);
  void RenameField(const std::string& table, const std::string& from, const std::string& to);

  /// Gives the field of the same name the properties of `field` and converts its values. Throws
  /// Failure 13, 6 or -2147217887 when one cannot be converted, and then changes nothing.
  void AlterField(const std::string& table, const FieldDef& field);
  /// The same for several fields in one pass.
  void AlterFields(const std::string& table, const std::vector<FieldDef>& fields);

 private:
  Connection connection_;
};

/// The CREATE TABLE statement of a table, with the checks that enforce its types.
[[nodiscard]] std::string CreateTableSql(const TableDef& table);

}  // namespace tevra
