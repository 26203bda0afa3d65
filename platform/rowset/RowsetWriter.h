// Writes rows as rowset XML, one after the other.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "platform/data/Recordset.h"
#include "platform/rowset/XmlWriter.h"

namespace tevra {

/// Writes the element `xml` with its schema and rows: Begin, Row for each row, End. It holds one
/// row in memory.
class RowsetWriter {
 public:
  explicit RowsetWriter(std::ostream& out);
  /// Writes the block at the current place of `xml`, which must outlive the writer.
  explicit RowsetWriter(XmlWriter& xml);

  /// Writes the schema. Types and sizes are those of the fields; a field that is not required is
  /// nullable, a field with a base table is writable.
  void Begin(std::vector<FieldInfo> fields);

  /// Writes a row; `values` in the order of the fields, each converted by its field's type. Throws
  /// a Failure with the field's name for a value that does not fit, and Failure 61 for a full disk.
  void Row(const Values& values);

  /// Closes the block and flushes it to the stream. Throws Failure 61.
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
