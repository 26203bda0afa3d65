// Files that older builds might have made: the template with values in every field, less what is
// taken away, narrowed and retyped at random.
#include <map>
#include <random>
#include <set>

#include "platform/data/CompanyFile.h"
#include "tests/care/UpgradeTest.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

using Random = std::mt19937;

int One(Random& random, int of) {
  return static_cast<int>(random() % static_cast<unsigned>(of));
}

// Values that every type which can hold them gives back unchanged. A key is the row's number.
Value ValueFor(const FieldDef& field, int row, bool key, Random& random) {
  if (key && field.type == FieldType::DateTime) return DateTime(2006, row, 1);
  if (key && field.type != FieldType::Text) return row;
  if (!key && !field.required && One(random, 4) == 0) return {};
  const auto length = static_cast<std::size_t>(std::max(1, std::min(field.size / 2, 9)));
  switch (field.type) {
    case FieldType::Text:
      return std::string(length, static_cast<char>('a' + row));
    case FieldType::Double:
      return One(random, 2000000) / 64.0 - 9000;
    case FieldType::DateTime:
      return DateTime(2006, 1 + One(random, 12), 1 + One(random, 28), One(random, 24), 30, 59);
    case FieldType::YesNo:
      return Value::YesNo(One(random, 2) == 0);
    default:
      return One(random, 100);
  }
}

bool IsKey(const TableDef& table, const std::string& field) {
  for (const IndexDef& index : table.indexes) {
    if (!index.primary) continue;
    for (const std::string& name : index.fields) {
      if (name == field) return true;
    }
  }
  return false;
}

void Fill(Connection& company, Random& random) {
  Transaction work(company);
  for (const TableDef& table : Catalogue(company).Tables()) {
    if (table.system || table.name == "kv_info") continue;
    company.Execute("DELETE FROM [" + table.name + "]");
    for (int row = 1; row <= 4; ++row) {
      std::string marks;
      Values values;
      for (const FieldDef& field : table.fields) {
        marks += marks.empty() ? "?" : ", ?";
        values.push_back(ValueFor(field, row, IsKey(table, field.name), random));
      }
      company.Execute("INSERT INTO [" + table.name + "] VALUES (" + marks + ")", values);
    }
  }
  work.Commit();
}

// The values of each field of each table, in the order of the rows.
using Content = std::map<std::string, std::string>;

Content ContentOf(Connection company) {
  Content content;
  for (const TableDef& table : Catalogue(company).Tables()) {
    if (table.system) continue;
    for (const FieldDef& field : table.fields) {
      std::string& values = content[table.name + "." + field.name];
      Recordset rows = company.OpenRecordset("SELECT [" + field.name + "] FROM [" + table.name +
                                             "] ORDER BY rowid");
      for (; !rows.Eof(); rows.MoveNext()) {
        const Value value = rows.Get(0);
        values += (value.IsNull() ? "Null" : value.AsText()) + "|";
      }
    }
  }
  return content;
}

// Another type that can hold the values of the field.
FieldDef Older(FieldDef field, Random& random) {
  field.autoNumber = false;
  field.defaultValue.clear();
  if (field.type == FieldType::Text) {
    field.size = std::max(1, field.size / 2);
  } else if (field.type == FieldType::Double || field.type == FieldType::YesNo ||
             One(random, 2) == 0) {
    field.type = FieldType::Text;
    field.size = 40;
  } else {
    field.type = FieldType::Double;
    field.size = 8;
  }
  return field;
}

// Takes away, narrows and retypes at random; returns what is no longer there.
std::set<std::string> MakeOlder(Connection& company, Random& random) {
  std::set<std::string> gone;
  Catalogue catalogue(company);
  Transaction work(company);
  for (const QueryDef& query : catalogue.Queries()) company.Execute("DROP VIEW " + query.name);
  for (const TableDef& table : catalogue.Tables()) {
    if (table.system || table.name == "kv_info") continue;
    const bool dropped = One(random, 9) == 0;
    if (dropped) company.Execute("DROP TABLE [" + table.name + "]");
    std::vector<FieldDef> changed;
    for (const FieldDef& field : table.fields) {
      const bool stays = &field == &table.fields.front() || IsKey(table, field.name);
      const int fate = dropped ? 0 : One(random, 7);
      if (fate == 0 && (dropped || !stays)) gone.insert(table.name + "." + field.name);
      if (fate == 1) changed.push_back(Older(field, random));
    }
    if (dropped) continue;
    for (const IndexDef& index : table.indexes) {
      if (!index.primary) catalogue.DropIndex(table.name, index.name);
      if (index.primary && One(random, 3) == 0) catalogue.DropPrimaryKey(table.name);
    }
    catalogue.AlterFields(table.name, changed);
    for (const FieldDef& field : table.fields) {
      if (gone.contains(table.name + "." + field.name)) {
        catalogue.DropField(table.name, field.name);
      }
    }
  }
  catalogue.CreateTable({.name = "A_FIRMEI",
                         .fields = {{.name = "F", .size = 5, .defaultValue = {}}},
                         .indexes = {}});
  company.Execute("INSERT INTO A_FIRMEI VALUES ('al ei')");
  work.Commit();
  return gone;
}

TEST_F(UpgradeTest, RandomOlderBuildsGetTheTemplatesStructureAndKeepTheirData) {
  const fs::path whole = Folder() / "intreg";
  RequireSoleUse(File());
  fs::copy_file(File(), whole);
  for (unsigned seed = 1; seed <= 5; ++seed) {
    SCOPED_TRACE(seed);
    fs::copy_file(whole, File(), fs::copy_options::overwrite_existing);
    Random random(seed);
    Content before;
    std::set<std::string> gone;
    {
      Connection company = company_.Open();
      Fill(company, random);
      before = ContentOf(company);
      gone = MakeOlder(company, random);
    }
    const UpgradeResult result = Upgrade();
    EXPECT_TRUE(result.left.empty()) << LeftText(result);
    ExpectTemplatesStructure();
    Content after = ContentOf(company_.Open());
    EXPECT_EQ(after["A_FIRMEI.F"], "al ei|");
    for (const auto& [field, values] : before) {
      if (field == "kv_info.VERSIUNE" || gone.contains(field)) continue;
      EXPECT_EQ(after[field], values) << field;
    }
  }
}

}  // namespace
}  // namespace tevra::test
