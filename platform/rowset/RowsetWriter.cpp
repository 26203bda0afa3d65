#include "platform/rowset/RowsetWriter.h"

#include "platform/rowset/RowsetFormat.h"
#include "platform/text/FailureText.h"

namespace tevra {

namespace {

// One line for each element, for readers, and so that a failure can name the row's line.
constexpr const char* kLine = "\n";
constexpr const char* kIndentedLine = "\n\t";
constexpr const char* kFieldLine = "\n\t\t";

}  // namespace

RowsetWriter::RowsetWriter(std::ostream& out)
    : owned_(std::make_unique<XmlWriter>(out)), xml_(*owned_) {}

RowsetWriter::RowsetWriter(XmlWriter& xml) : xml_(xml) {}

void RowsetWriter::Begin(std::vector<FieldInfo> fields) {
  fields_ = std::move(fields);
  names_ = rowset::AttributeNames(fields_);
  xml_.StartElement("xml");
  xml_.Attribute("xmlns:s", rowset::kSchemaSpace);
  xml_.Attribute("xmlns:dt", rowset::kTypeSpace);
  xml_.Attribute("xmlns:rs", rowset::kRowsetSpace);
  xml_.Attribute("xmlns:z", rowset::kRowSpace);
  xml_.Raw(kLine);
  xml_.StartElement("s:Schema");
  xml_.Attribute("id", "RowsetSchema");
  xml_.Raw(kIndentedLine);
  xml_.StartElement("s:ElementType");
  xml_.Attribute("name", "row");
  xml_.Attribute("content", "eltOnly");
  xml_.Attribute("rs:updatable", "true");
  for (std::size_t i = 0; i < fields_.size(); ++i) WriteField(i);
  xml_.Raw(kFieldLine);
  xml_.StartElement("s:extends");
  xml_.Attribute("type", "rs:rowbase");
  xml_.EndElement();
  xml_.Raw(kIndentedLine);
  xml_.EndElement();
  xml_.Raw(kLine);
  xml_.EndElement();
  xml_.Raw(kLine);
  xml_.StartElement("rs:data");
  xml_.Raw(kLine);
}

void RowsetWriter::WriteField(std::size_t index) {
  const FieldInfo& field = fields_[index];
  xml_.Raw(kFieldLine);
  xml_.StartElement("s:AttributeType");
  xml_.Attribute("name", names_[index]);
  if (names_[index] != field.def.name) xml_.Attribute("rs:name", field.def.name);
  xml_.Attribute("rs:number", std::to_string(index + 1));
  if (!field.def.required) xml_.Attribute("rs:nullable", "true");
  if (!field.baseTable.empty()) {
    xml_.Attribute("rs:write", "true");
    xml_.Attribute("rs:basetable", field.baseTable);
    xml_.Attribute("rs:basecolumn", field.baseColumn);
  }
  xml_.StartElement("s:datatype");
  for (const auto& [name, value] : rowset::TypeAttributes(field.def.type)) {
    xml_.Attribute(name, value);
  }
  if (field.def.type == FieldType::Text) {
    xml_.Attribute("dt:maxLength", std::to_string(field.def.size));
  }
  if (field.def.required) xml_.Attribute("rs:maybenull", "false");
  xml_.EndElement();
  xml_.EndElement();
}

// A row is written as one piece of markup, because the XML writer's work for single attributes
// would take longer than everything else.
void RowsetWriter::Row(const Values& values) {
  if (values.size() != fields_.size()) throw ValueFailure(kInvalidArgument);
  row_ = "\t<z:row";
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i].IsNull()) continue;
    row_.append(" ").append(names_[i]).append("='");
    rowset::AppendValue(row_, values[i], fields_[i].def);
    row_ += '\'';
  }
  row_ += "/>\n";
  xml_.Raw(row_);
}

void RowsetWriter::End() {
  xml_.EndElement();
  xml_.Raw(kLine);
  xml_.EndElement();
  // Within a document the block is the only child of its element, without a text beside it.
  if (owned_) xml_.Raw(kLine);
  xml_.Flush();
}

}  // namespace tevra
