// Rows written as rowset XML, one after the other.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "platform/data/Recordset.h"
#include "platform/rowset/XmlWriter.h"

namespace tevra {

/// Writes the element `xml` with its schema and rows: Begin, Row for each row, End. What it holds
/// in memory is one row.
class RowsetWriter {
 public:
  explicit RowsetWriter(std::ostream& out);
  /// Writes the block at the place which `xml`, that must outlive it, has reached.
  explicit RowsetWriter(XmlWriter& xml);

  /// Writes the schema. Types and sizes are taken from the fields as they are; a field that is not
  /// required is nullable, a field with a base table can be written.
  void Begin(std::vector<FieldInfo> fields);

  /// Writes a row; `values` in the order of the fields, each converted by its field's type. Throws
  /// a Failure with the field's name for a value that does not fit, and Failure 61 for a full disk.
  void Row(const Values& values);

  /// Closes the block and hands it to the stream. Throws Failure 61.
  void End();

 private:
  void WriteField(std::size_t index);

  std::unique_ptr<XmlWriter> owned_;
  XmlWriter& xml_;
  std::vector<FieldInfo> fields_;
  std::vector<std::string> names_;
  std::string row_;
};

}  // namespace tevra
