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

TEST(Schema, KeysIndexesCopiesAndQueries) {
  const Schema schema = Read(
      "# of assets\n\n"
      "table [T 1]   # behind a name\n"
      "  A long key\n"
      "  B long key\n"
      "  C yesno\r\n"
      "  index BY_B (B desc, A)\n"
      "  unique index ONE (C)\n"
      "like tmp_T = [T 1]\n"
      "query q = SELECT A FROM [T 1] WHERE A = 1\n");
  ASSERT_EQ(schema.tables.size(), 2U);
  EXPECT_EQ(schema.tables[0].name, "T 1");
  EXPECT_EQ(schema.tables[0].indexes,
            (std::vector<IndexDef>{{"PrimaryKey", {"A", "B"}, true, true},
                                   {"BY_B", {"B", "A"}, false, false, {"B"}},
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
  const std::vector<std::pair<std::string, const char*>> cases = {
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
      {"table T\n  COD long\n  index X (COD down)\n", "Line 3:"},
      {"table T\n  COD long\n  index (COD)\n", "Line 3:"},
      {"table T\n  COD long\n  index X )COD(\n", "Line 3:"},
      {"table\n", "Line 1:"},
      {"table T\n  A long\ntable t\n  A long\n", "Line 3:"},
      {"tabel T\n", "Line 1:"},
      {"view T = U\n", "Line 1:"},
      {"like T = U\n", "Line 1:"},
      {"query q\n", "Line 1:"},
      {"query q =\n", "Line 1:"}};
  for (const auto& [text, line] : cases) {
    const auto read = [&, &given = text] { Read(given); };
    EXPECT_EQ(FailureOf(read), kTypeMismatch) << text;
    EXPECT_EQ(DescriptionOf(read).rfind(line, 0), 0U) << text << DescriptionOf(read);
  }
}

}  // namespace
}  // namespace tevra
