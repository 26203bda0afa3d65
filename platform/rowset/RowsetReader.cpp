#include "platform/rowset/RowsetReader.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <set>

#include "platform/rowset/RowsetFormat.h"

namespace tevra {

using rowset::kRowsetSpace;
using rowset::kRowSpace;
using rowset::kSchemaSpace;
using rowset::kTypeSpace;

namespace {

constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);

std::optional<int> ParseInt(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

bool IsTrue(std::string_view text) {
  return text == "true" || text == "True" || text == "1";
}
bool IsFalse(std::string_view text) {
  return text == "false" || text == "False" || text == "0";
}

}  // namespace

// A column as described by the schema; its attributes may come in any order.
struct RowsetReader::Column {
  std::string attribute;
  std::optional<std::string> defaultText;
  std::optional<int> number;
  std::string type;
  std::string dbType;
  std::string length;
  bool nullable = false;
  bool neverNull = false;
  FieldInfo field;

  void Take(const XmlAttribute& told) {
    if (told.space.empty()) {
      if (told.name == "name") attribute = told.value;
      if (told.name == "default") defaultText = std::string(told.value);
    } else if (told.space == kTypeSpace) {
      if (told.name == "type") type = told.value;
      if (told.name == "maxLength") length = told.value;
    } else if (told.space == kRowsetSpace) {
      TakeOfRowset(told);
    }
  }

  void TakeOfRowset(const XmlAttribute& told) {
    if (told.name == "name") field.def.name = told.value;
    if (told.name == "number") number = ParseInt(told.value);
    if (told.name == "nullable") nullable = IsTrue(told.value);
    if (told.name == "maybenull") neverNull = IsFalse(told.value);
    if (told.name == "basetable") field.baseTable = told.value;
    if (told.name == "basecolumn") field.baseColumn = told.value;
    if (told.name == "dbtype") dbType = told.value;
  }
};

RowsetReader::RowsetReader(std::istream& in, const std::string& name)
    : owned_(std::make_unique<XmlReader>(in, name)), xml_(*owned_) {
  ReadBlock();
}

RowsetReader::RowsetReader(XmlReader& xml, Changes changes) : xml_(xml), changes_(changes) {
  ReadBlock();
}

void RowsetReader::ReadBlock() {
  rootDepth_ = xml_.Depth();
  if (!xml_.Is("", "xml")) {
    xml_.Fail(kNotReadable, "nu este un rowset: elementul este " + std::string(xml_.Name()));
  }
  bool hasSchema = false;
  while (xml_.NextChild(rootDepth_)) {
    if (xml_.Is(kSchemaSpace, "Schema")) {
      if (hasSchema) xml_.Fail(kNotReadable, "nu este un rowset: a doua schema");
      hasSchema = true;
      TakeColumns(ReadSchema());
    } else if (xml_.Is(kRowsetSpace, "data")) {
      if (!hasSchema) xml_.Fail(kNotReadable, "nu este un rowset: randuri fara schema");
      return;
    }
  }
  xml_.Fail(kNotReadable,
            hasSchema ? "nu este un rowset: fara randuri" : "nu este un rowset: fara schema");
}

std::vector<RowsetReader::Column> RowsetReader::ReadSchema() {
  std::vector<Column> columns;
  const int depth = xml_.Depth();
  while (xml_.NextChild(depth)) {
    if (xml_.Is(kSchemaSpace, "ElementType")) ReadElementType(columns);
    if (xml_.Is(kSchemaSpace, "AttributeType")) columns.push_back(ReadColumn());
  }
  return columns;
}

void RowsetReader::ReadElementType(std::vector<Column>& columns) {
  const int depth = xml_.Depth();
  while (xml_.NextChild(depth)) {
    if (xml_.Is(kSchemaSpace, "AttributeType")) columns.push_back(ReadColumn());
    if (xml_.Is(kSchemaSpace, "ElementType")) {
      xml_.Fail(kNotReadable, "randuri in randuri nu se accepta");
    }
  }
}

RowsetReader::Column RowsetReader::ReadColumn() {
  Column column;
  XmlAttribute told;
  while (xml_.NextAttribute(told)) column.Take(told);
  if (column.attribute.empty()) xml_.Fail(kNotReadable, "nu este un rowset: o coloana fara nume");
  const std::string attribute = column.attribute;
  const std::string name = column.field.def.name;
  const int depth = xml_.Depth();
  while (xml_.NextChild(depth)) {
    if (!xml_.Is(kSchemaSpace, "datatype")) continue;
    while (xml_.NextAttribute(told)) column.Take(told);
  }
  column.attribute = attribute;
  column.field.def.name = name.empty() ? attribute : name;
  SetType(column);
  return column;
}

void RowsetReader::SetType(Column& column) {
  FieldDef& field = column.field.def;
  field.type = rowset::TypeOf(column.type, column.dbType);
  field.size = SizeOf(field.type);
  field.required = column.neverNull && !column.nullable;
  column.field.typed = true;
  if (field.type != FieldType::Text) return;
  field.size = rowset::kUnboundedText;
  // The length of other types counts bytes, not characters in the file.
  if (column.length.empty() || (column.type != "string" && column.type != "char")) return;
  const auto length = ParseInt(column.length);
  if (!length) xml_.Fail(kNotReadable, "nu este un rowset: lungimea " + column.length);
  if (*length > 0) field.size = std::min(*length, rowset::kUnboundedText);
}

void RowsetReader::TakeColumns(std::vector<Column> columns) {
  if (columns.empty()) xml_.Fail(kNotReadable, "nu este un rowset: fara coloane");
  std::set<int> numbers;
  for (const Column& column : columns) numbers.insert(column.number.value_or(0));
  if (numbers.size() == columns.size()) {
    std::sort(columns.begin(), columns.end(), [](const Column& a, const Column& b) {
      return a.number.value_or(0) < b.number.value_or(0);
    });
  }
  for (Column& column : columns) {
    if (!indexOf_.emplace(column.attribute, fields_.size()).second) {
      xml_.Fail(kNotReadable,
                "nu este un rowset: coloana " + column.attribute + " apare de doua ori");
    }
    defaults_.push_back(column.defaultText ? Parse(*column.defaultText, column.field.def)
                                           : Value());
    names_.push_back(std::move(column.attribute));
    fields_.push_back(std::move(column.field));
  }
}

bool RowsetReader::AtRow() const {
  return xml_.Is(kRowSpace, "row");
}

bool RowsetReader::Next(Values& values) {
  while (!atEnd_) {
    if (group_ != Group::None) {
      if (NextInGroup(values)) return true;
      group_ = Group::None;
    }
    if (!xml_.NextChild(rootDepth_ + 1)) {
      Finish();
    } else if (AtRow()) {
      values = defaults_;
      ReadRow(values);
      return true;
    } else if (changes_ == Changes::kRefuse) {
      xml_.Fail(kNotReadable, "rs:" + std::string(xml_.Name()) + " nu se poate prelua");
    } else if (xml_.Is(kRowsetSpace, "insert")) {
      group_ = Group::Insert;
    } else if (xml_.Is(kRowsetSpace, "update")) {
      group_ = Group::Update;
      original_.clear();
    } else if (!xml_.Is(kRowsetSpace, "delete")) {
      xml_.Fail(kNotReadable, "nu este un rowset: " + std::string(xml_.Name()) + " intre randuri");
    }
  }
  return false;
}

// A changed row has only the fields that changed; the others come from the original before it.
bool RowsetReader::NextInGroup(Values& values) {
  const int depth = rootDepth_ + 2;
  while (xml_.NextChild(depth)) {
    const bool isOriginal =
        group_ == Group::Update && xml_.Is(kRowsetSpace, "original") && xml_.NextChild(depth + 1);
    if (!AtRow()) {
      xml_.Fail(kNotReadable,
                "nu este un rowset: " + std::string(xml_.Name()) + " intre randurile modificate");
    }
    if (isOriginal) {
      original_ = defaults_;
      ReadRow(original_);
      continue;
    }
    if (group_ == Group::Update && original_.empty()) {
      xml_.Fail(kNotReadable, "nu este un rowset: un rand modificat fara originalul lui");
    }
    values = group_ == Group::Update ? original_ : defaults_;
    ReadRow(values);
    return true;
  }
  return false;
}

void RowsetReader::ReadRow(Values& values) {
  std::size_t expected = 0;
  XmlAttribute told;
  while (xml_.NextAttribute(told)) {
    if (told.space == kRowsetSpace && told.name == "forcenull") {
      for (std::size_t i = 0; i < names_.size(); ++i) {
        const std::string list = " " + std::string(told.value) + " ";
        if (list.find(" " + names_[i] + " ") != list.npos) values[i] = Value();
      }
    }
    if (!told.space.empty()) continue;
    const std::size_t column = FindColumn(told.name, expected);
    if (column == kNoColumn) {
      if (changes_ == Changes::kApply) continue;
      xml_.Fail(kNotReadable, "schema nu are coloana " + std::string(told.name));
    }
    values[column] = Parse(told.value, fields_[column].def);
    expected = column + 1;
  }
  if (xml_.NextChild(xml_.Depth())) {
    xml_.Fail(kNotReadable, "nu este un rowset: " + std::string(xml_.Name()) + " intr-un rand");
  }
}

// Rows usually have their values in the order of the schema, so the next column is tried first.
std::size_t RowsetReader::FindColumn(std::string_view name, std::size_t expected) {
  if (expected < names_.size() && names_[expected] == name) return expected;
  key_ = name;
  const auto found = indexOf_.find(key_);
  return found == indexOf_.end() ? kNoColumn : found->second;
}

Value RowsetReader::Parse(std::string_view text, const FieldDef& field) const {
  try {
    return rowset::ParseValue(text, field);
  } catch (const Failure& failure) {
    xml_.Fail(failure.Number(), failure.Description());
  }
}

void RowsetReader::Finish() {
  while (xml_.NextChild(rootDepth_)) {
    if (xml_.Is(kRowsetSpace, "data"))
      xml_.Fail(kNotReadable, "nu este un rowset: randuri de doua ori");
  }
  if (owned_) xml_.Finish();
  atEnd_ = true;
}

}  // namespace tevra
