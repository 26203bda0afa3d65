#include "template/Schema.h"

#include <algorithm>
#include <sstream>

#include "platform/text/Strings.h"

namespace tevra {

namespace {

class SchemaReader {
 public:
  Schema Read(std::istream& in) {
    std::string line;
    for (number_ = 1; std::getline(in, line); ++number_) {
      SplitComment(line);
      if (Trim(line).empty()) continue;
      if (line[0] != ' ') {
        ReadHeading(line);
      } else {
        ReadPart(Trim(line));
      }
    }
    return std::move(schema_);
  }

 private:
  [[noreturn]] void Fail(const std::string& why) const {
    throw Failure(kTypeMismatch, "Line " + std::to_string(number_) + ": " + why);
  }

  void SplitComment(std::string& line) {
    const std::size_t mark = line.starts_with('#') ? 0 : line.find(" #");
    comment_ = mark == std::string::npos ? "" : Trim(line.substr(line.find('#', mark) + 1));
    line.resize(std::min(mark, line.size()));
  }

  static std::string Name(const std::string& written) {
    const std::string name = Trim(written);
    const bool brackets = name.size() > 1 && name.front() == '[' && name.back() == ']';
    return brackets ? name.substr(1, name.size() - 2) : name;
  }

  void ReadHeading(const std::string& line) {
    std::istringstream words(line);
    std::string kind;
    words >> kind;
    std::string rest;
    std::getline(words, rest);
    const std::size_t equals = rest.find('=');
    if (kind == "table") {
      AddTable({Name(rest), false, {}, {}});
      return;
    }
    if (equals == std::string::npos) Fail("\"=\" is missing");
    const std::string name = Name(rest.substr(0, equals));
    const std::string meaning = Trim(rest.substr(equals + 1));
    if (meaning.empty()) Fail("nothing follows \"=\"");
    if (kind == "query") {
      schema_.queries.push_back({name, meaning});
      schema_.meanings[name] = comment_;
    } else if (kind == "like") {
      AddLike(name, Name(meaning));
    } else {
      Fail("unknown word " + kind);
    }
  }

  void AddTable(TableDef table) {
    if (table.name.empty()) Fail("a table needs a name");
    for (const TableDef& other : schema_.tables) {
      if (EqualNoCase(other.name, table.name)) Fail("a second table " + table.name);
    }
    schema_.tables.push_back(std::move(table));
  }

  // The exchange tables receive a file's rows before anything is checked, so they have columns
  // only.
  void AddLike(const std::string& name, const std::string& original) {
    for (const TableDef& table : schema_.tables) {
      if (!EqualNoCase(table.name, original)) continue;
      TableDef copy{name, false, table.fields, {}};
      for (FieldDef& field : copy.fields) {
        field.autoNumber = false;
        if (field.type != FieldType::YesNo) field.required = false;
      }
      schema_.copies.push_back({name, table.name});
      AddTable(std::move(copy));
      return;
    }
    Fail("no table " + original);
  }

  void ReadPart(const std::string& line) {
    if (schema_.tables.empty()) Fail("a field outside a table");
    std::istringstream words(line);
    std::string name;
    words >> name;
    if (name == "index" || name == "unique") {
      ReadIndex(line);
    } else {
      ReadField(name, words);
    }
  }

  void ReadIndex(const std::string& line) {
    const std::size_t open = line.find('(');
    const std::size_t close = line.find(')');
    if (open == std::string::npos || close == std::string::npos || close < open)
      Fail("an index needs ( fields )");
    IndexDef index;
    std::istringstream words(line.substr(0, open));
    std::string word;
    words >> word;
    index.unique = word == "unique";
    if (index.unique) words >> word;
    words >> index.name;
    if (index.name.empty()) Fail("an index needs a name");
    std::istringstream fields(line.substr(open + 1, close - open - 1));
    for (std::string field; std::getline(fields, field, ',');) {
      std::istringstream parts(field);
      std::string name;
      std::string direction;
      parts >> name >> direction;
      if (!schema_.tables.back().Find(name)) Fail("no field " + field);
      if (!direction.empty() && direction != "desc") Fail("unknown word " + direction);
      index.fields.push_back(name);
      if (!direction.empty()) index.descending.push_back(name);
    }
    if (index.fields.empty()) Fail("an index needs ( fields )");
    schema_.tables.back().indexes.push_back(std::move(index));
  }

  void ReadField(const std::string& name, std::istringstream& words) {
    FieldDef field;
    field.name = name;
    if (schema_.tables.back().Find(name)) Fail("a second field " + name);
    std::string type;
    words >> type;
    SetType(field, type);
    for (std::string flag; words >> flag;) {
      if (flag == "key") {
        field.required = true;
        AddToKey(name);
      } else if (flag == "required") {
        field.required = true;
      } else if (flag == "default") {
        if (!(words >> field.defaultValue)) Fail("a default needs a value");
      } else {
        Fail("unknown word " + flag);
      }
    }
    schema_.meanings[schema_.tables.back().name + "." + name] = comment_;
    schema_.tables.back().fields.push_back(std::move(field));
  }

  void SetType(FieldDef& field, const std::string& type) const {
    static const std::pair<const char*, const char*> kTypes[] = {
        {"counter", "INTEGER"}, {"long", "INTEGER"},  {"integer", "SMALLINT"}, {"byte", "TINYINT"},
        {"double", "DOUBLE"},   {"date", "DATETIME"}, {"yesno", "YESNO"},
    };
    std::string declared = UCase(type);  // text(n)
    for (const auto& [word, name] : kTypes) {
      if (type == word) declared = name;
    }
    if (!ParseDeclaredType(declared, field)) Fail("unknown type " + type);
    field.autoNumber = type == "counter";
    if (field.type == FieldType::YesNo) {
      field.required = true;
      field.defaultValue = "0";
    }
  }

  void AddToKey(const std::string& name) {
    auto& indexes = schema_.tables.back().indexes;
    if (indexes.empty() || !indexes.front().primary) {
      indexes.insert(indexes.begin(), IndexDef{"PrimaryKey", {}, true, true});
    }
    indexes.front().fields.push_back(name);
  }

  Schema schema_;
  std::string comment_;  // of the line being read
  int number_ = 0;
};

}  // namespace

Schema ReadSchema(std::istream& in) {
  return SchemaReader().Read(in);
}

}  // namespace tevra
