// The readable description of the structure: what each line makes, and the line that a mistake
// names.
#include <sstream>

#include "template/Schema.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

Schema Read(const std::string& text) {
  std::istringstream in(text);
  return ReadSchema(in);
}

TEST(Schema, FieldsHaveTheirTypesAndFlags) {
  const Schema schema = Read(
      "# of assets\n"
      "table A_B   # behind a name\n"
      "\n"
      "  NR    counter   key\n"
      "  COD   text(20)\n"
      "  N     long      required default 0\n"
      "  I     integer\n"
      "  B     byte\n"
      "  D     double    default 0\n"
      "  Z     date\n"
      "  Y     yesno\n"
      "  CT    text(4)   default 'RO'\n");
  ASSERT_EQ(schema.tables.size(), 1U);
  EXPECT_EQ(schema.tables[0].name, "A_B");
  const std::vector<FieldDef> expected = {
      {"NR", FieldType::Long, 4, true, true, true, ""},
      {"COD", FieldType::Text, 20, false, true, false, ""},
      {"N", FieldType::Long, 4, true, true, false, "0"},
      {"I", FieldType::Integer, 2, false, true, false, ""},
      {"B", FieldType::Byte, 1, false, true, false, ""},
      {"D", FieldType::Double, 8, false, true, false, "0"},
      {"Z", FieldType::DateTime, 8, false, true, false, ""},
      {"Y", FieldType::YesNo, 1, true, true, false, "0"},
      {"CT", FieldType::Text, 4, false, true, false, "'RO'"},
  };
  EXPECT_EQ(schema.tables[0].fields, expected);
  EXPECT_EQ(schema.tables[0].indexes, (std::vector<IndexDef>{{"PrimaryKey", {"NR"}, true, true}}));
}

TEST(Schema, KeysIndexesCopiesAndQueries) {
  const Schema schema = Read(
      "table [T 1]\n"
      "  A long key\n"
      "  B long key\n"
      "  C yesno\r\n"
      "  index BY_B (B, A)\n"
      "  unique index ONE (C)\n"
      "like tmp_T = [T 1]\n"
      "query q = SELECT A FROM [T 1] WHERE A = 1\n");
  ASSERT_EQ(schema.tables.size(), 2U);
  EXPECT_EQ(schema.tables[0].name, "T 1");
  EXPECT_EQ(schema.tables[0].indexes, (std::vector<IndexDef>{{"PrimaryKey", {"A", "B"}, true, true},
                                                             {"BY_B", {"B", "A"}, false, false},
                                                             {"ONE", {"C"}, false, true}}));
  const TableDef& copy = schema.tables[1];
  EXPECT_EQ(copy.name, "tmp_T");
  EXPECT_TRUE(copy.indexes.empty());
  ASSERT_EQ(copy.fields.size(), 3U);
  EXPECT_FALSE(copy.fields[0].required);
  EXPECT_TRUE(copy.fields[2].required);  // yes/no knows no Null
  ASSERT_EQ(schema.queries.size(), 1U);
  EXPECT_EQ(schema.queries[0].name, "q");
  EXPECT_EQ(schema.queries[0].sql, "SELECT A FROM [T 1] WHERE A = 1");
}

TEST(Schema, MistakesNameTheirLine) {
  const struct {
    const char* text;
    const char* line;
  } cases[] = {
      {"  COD text(20)\n", "Line 1:"},
      {"# c\n\ntable T\n  COD text20\n", "Line 4:"},
      {"table T\n  COD text(x)\n", "Line 2:"},
      {"table T\n  COD text(20)x\n", "Line 2:"},
      {"table T\n  COD text(0)\n", "Line 2:"},
      {"table T\n  COD\n", "Line 2:"},
      {"table T\n  COD long keys\n", "Line 2:"},
      {"table T\n  COD long default\n", "Line 2:"},
      {"table T\n  COD long\n  cod long\n", "Line 3:"},
      {"table T\n  COD long\n  index X COD\n", "Line 3:"},
      {"table T\n  COD long\n  index X (CD)\n\ntable U\n  A long\n", "Line 3:"},
      {"table T\n  COD long\n  index X ()\n", "Line 3:"},
      {"table T\n  COD long\n  index (COD)\n", "Line 3:"},
      {"table T\n  COD long\n  index X )COD(\n", "Line 3:"},
      {"table\n", "Line 1:"},
      {"table T\n  A long\ntable t\n  A long\n", "Line 3:"},
      {"tabel T\n", "Line 1:"},
      {"view T = U\n", "Line 1:"},
      {"like T = U\n", "Line 1:"},
      {"query q\n", "Line 1:"},
      {"query q =\n", "Line 1:"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FailureOf([&] { Read(c.text); }), kTypeMismatch) << c.text;
    EXPECT_EQ(DescriptionOf([&] { Read(c.text); }).rfind(c.line, 0), 0U)
        << c.text << DescriptionOf([&] { Read(c.text); });
  }
}

}  // namespace
}  // namespace tevra
