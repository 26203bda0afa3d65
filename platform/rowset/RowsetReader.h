// Reads rows from rowset XML, one after the other.
#pragma once

#include <istream>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/data/Recordset.h"
#include "platform/rowset/XmlReader.h"

namespace tevra {

/// Reads the element `xml` with its schema and rows. Prefixes, quotes and the order of attributes
/// are free; unknown attributes are ignored. A rowset saved with changes that were not yet written
/// to their table (rows in rs:insert, rs:update, rs:delete) returns the rows with the changes.
///
/// All routines throw, with the file's name and the line, Failure -2147467259 for a document that
/// is damaged or no rowset, and Failure 13 for a value that its field cannot store.
class RowsetReader {
 public:
  /// Reads a whole document; `name` is the file's name in failures.
  RowsetReader(std::istream& in, const std::string& name);

  /// What is done with rows whose changes were not yet written to their table. kRefuse is for
  /// documents of which nothing may be lost: it also refuses a row with a value of no column.
  enum class Changes { kApply, kRefuse };

  /// Reads the block at the current element of `xml`, which must outlive the reader. After Next has
  /// returned false, `xml` is at the block's end.
  explicit RowsetReader(XmlReader& xml, Changes changes = Changes::kApply);

  /// The columns, in the order of their rs:number. A column is required when it has
  /// rs:maybenull='false' and is not nullable.
  const std::vector<FieldInfo>& Fields() const { return fields_; }

  /// The next row in the order of Fields; a missing value is the column's default or Null. False
  /// after the last row: then the whole block or document was read and found correct.
  bool Next(Values& values);

 private:
  enum class Group { None, Insert, Update };
  struct Column;

  void ReadBlock();
  std::vector<Column> ReadSchema();
  void ReadElementType(std::vector<Column>& columns);
  Column ReadColumn();
  void SetType(Column& column);
  void TakeColumns(std::vector<Column> columns);

  bool AtRow() const;
  bool NextInGroup(Values& values);
  void ReadRow(Values& values);
  std::size_t FindColumn(std::string_view name, std::size_t expected);
  Value Parse(std::string_view text, const FieldDef& field) const;
  void Finish();

  std::unique_ptr<XmlReader> owned_;
  XmlReader& xml_;
  int rootDepth_ = 0;
  Changes changes_ = Changes::kApply;
  bool atEnd_ = false;
  Group group_ = Group::None;  // the current element of changed rows

  std::vector<FieldInfo> fields_;
  std::vector<std::string> names_;  // the attribute of each field
  std::unordered_map<std::string, std::size_t> indexOf_;
  Values defaults_;
  Values original_;  // the row before the change; empty until it is read
  std::string key_;
};

}  // namespace tevra
