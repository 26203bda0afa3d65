#include "docs/generate/CompanyFileTables.h"

#include <algorithm>
#include <cctype>

#include "platform/text/Failure.h"

namespace tevra {

namespace {

std::string Code(const std::string& text) {
  return "`" + text + "`";
}

class Writer {
 public:
  explicit Writer(const Schema& schema) : schema_(schema) {}

  Blocks Write() const {
    Blocks blocks{{"copies", Copies()}, {"queries", Queries()}};
    for (const TableDef& table : schema_.tables) {
      if (!IsCopy(table)) blocks[table.name] = Table(table);
    }
    return blocks;
  }

 private:
  bool IsCopy(const TableDef& table) const {
    return std::any_of(schema_.copies.begin(), schema_.copies.end(),
                       [&](const CopyDef& copy) { return copy.name == table.name; });
  }

  const std::string& Meaning(const std::string& name) const {
    const auto found = schema_.meanings.find(name);
    if (found == schema_.meanings.end() || found->second.empty())
      throw Failure(kItemNotFound, "no comment says what " + name + " means");
    return found->second;
  }

  std::string Copies() const {
    std::string text = "| Table | Columns of |\n|---|---|\n";
    for (const CopyDef& copy : schema_.copies)
      text += "| " + Code(copy.name) + " | " + Code(copy.original) + " |\n";
    return text;
  }

  std::string Queries() const {
    std::string text = "| View | Rows | Statement |\n|---|---|---|\n";
    for (const QueryDef& query : schema_.queries) {
      text +=
          "| " + Code(query.name) + " | " + Meaning(query.name) + " | " + Code(query.sql) + " |\n";
    }
    return text;
  }

  std::string Table(const TableDef& table) const {
    std::string text = "| Field | Type | Meaning |\n|---|---|---|\n";
    for (const FieldDef& field : table.fields) {
      text += "| " + Code(field.name) + " | " + Type(field) + " | " +
              WithNamesMarked(Meaning(table.name + "." + field.name), table) + " |\n";
    }
    return text + "\n" + KeyAndIndexes(table) + "\n";
  }

  static std::string Type(const FieldDef& field) {
    std::string text = TypeName(field);
    if (field.type != FieldType::YesNo && !field.defaultValue.empty())
      text += ", default " + field.defaultValue;
    return text;
  }

  static std::string TypeName(const FieldDef& field) {
    switch (field.type) {
      case FieldType::YesNo:
        return "Yes/No";
      case FieldType::Byte:
        return "Byte";
      case FieldType::Integer:
        return "Integer";
      case FieldType::Long:
        return "Long";
      case FieldType::Double:
        return "Double";
      case FieldType::DateTime:
        return "Date";
      case FieldType::Text:
        break;
    }
    return "Text(" + std::to_string(field.size) + ")";
  }

  static std::string KeyAndIndexes(const TableDef& table) {
    std::string text = "No key.";
    for (const IndexDef& index : table.indexes) {
      if (index.primary) {
        text = "Key: " + Fields(index) + ".";
      } else {
        text += (index.unique ? " Unique index " : " Index ") + Code(index.name) + ": " +
                Fields(index) + ".";
      }
    }
    return text;
  }

  static std::string Fields(const IndexDef& index) {
    std::string text;
    for (const std::string& field : index.fields) {
      text += (text.empty() ? "" : ", ") + Code(field);
      if (std::count(index.descending.begin(), index.descending.end(), field) > 0)
        text += " descending";
    }
    return text;
  }

  /// Puts names of tables and fields into backticks, as the documents write them.
  std::string WithNamesMarked(const std::string& meaning, const TableDef& table) const {
    const auto inName = [](char c) {
      return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '.';
    };
    std::string text;
    for (auto at = meaning.begin(); at != meaning.end();) {
      const auto end = inName(*at) ? std::find_if_not(at, meaning.end(), inName) : at + 1;
      const std::string word(at, end);
      text += IsName(word, table) ? Code(word) : word;
      at = end;
    }
    return text;
  }

  bool IsName(const std::string& word, const TableDef& table) const {
    if (schema_.meanings.count(word) || schema_.meanings.count(table.name + "." + word))
      return true;
    return std::any_of(schema_.tables.begin(), schema_.tables.end(),
                       [&](const TableDef& other) { return other.name == word; });
  }

  const Schema& schema_;
};

}  // namespace

Blocks CompanyFileTables(const Schema& schema) {
  return Writer(schema).Write();
}

}  // namespace tevra
