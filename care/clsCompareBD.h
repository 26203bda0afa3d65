// Brings the structure of a company file to that of the template.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/data/Catalogue.h"
#include "platform/system/Progress.h"

namespace tevra {

/// Compares two company files and changes the second one where it lacks something: tables, fields,
/// keys, indexes and saved queries are added, fields are widened and get the template's type with
/// their values converted. Nothing is removed, a field is never narrowed and never moved. The
/// caller's transaction makes it all or nothing.
class clsCompareBD {
 public:
  clsCompareBD(Connection source, Connection target);

  /// The whole comparison. `progress` counts tables. Throws Failure for what should not happen, and
  /// GivenUp.
  void ComparaBazeDate(const Progress& progress = {});

  /// What was changed, in words.
  const std::vector<std::string>& Changes() const { return changes_; }
  /// What stays as it was, because values do not convert or repeat, in the standard message's form.
  const std::vector<std::string>& Left() const { return left_; }

 private:
  void CompareTables(const TableDef& source);
  void AddField(const std::string& table, const FieldDef& source);
  void NumberRows(const std::string& table, const FieldDef& source);
  FieldDef CompareFields(const std::string& table, const FieldDef& source, const FieldDef& target);
  void ModifyFields(const std::string& table, const std::vector<FieldDef>& fields);
  bool ModifyField(const std::string& table, const FieldDef& field);
  void CompareKey(const TableDef& source, const std::string& table);
  void CompareIndex(const std::string& table, const IndexDef& source);
  void ObjectExport(const TableDef& source);
  void ExportQuery(const QueryDef& source);
  bool Try(const char* routine, const std::string& what, const std::function<void()>& change);
  void Leave(const char* routine, const std::string& what, const Failure& failure);

  Connection target_;
  Catalogue sourceCatalogue_;
  Catalogue catalogue_;  // of the target
  std::vector<QueryDef> queries_;
  std::vector<std::string> changes_;
  std::vector<std::string> left_;
};

}  // namespace tevra
