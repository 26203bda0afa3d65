// The generated tables of the documents: what they say, and which mistakes stop them.
#include <sstream>

#include "docs/generate/CompanyFileTables.h"
#include "docs/generate/RightsTable.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

Blocks TablesOf(const std::string& description) {
  std::istringstream in(description);
  return CompanyFileTables(ReadSchema(in));
}

TEST(WithBlocks, ReplacesWhatStandsBetweenTheMarkers) {
  const std::string document =
      "a\n<!-- begin T 1 -->\nold\n<!-- end T 1 -->\nb\n<!-- begin U -->\n<!-- end U -->\nc\n";
  EXPECT_EQ(WithBlocks(document, {{"T 1", "new\n"}, {"U", "u\n"}}),
            "a\n<!-- begin T 1 -->\nnew\n<!-- end T 1 -->\nb\n<!-- begin U -->\nu\n"
            "<!-- end U -->\nc\n");
}

TEST(WithBlocks, RefusesADocumentWithOtherBlocks) {
  const std::string t = "<!-- begin T -->\n<!-- end T -->\n";
  EXPECT_EQ(DescriptionOf([&] {
              WithBlocks(t, {{"T", ""}, {"U", ""}});
            }),
            "the document lacks the block \"U\"");
  EXPECT_EQ(DescriptionOf([&] { WithBlocks(t, {}); }), "an unknown or repeated block \"T\"");
  EXPECT_EQ(DescriptionOf([&] {
              WithBlocks(t + t, {{"T", ""}});
            }),
            "an unknown or repeated block \"T\"");
  EXPECT_EQ(DescriptionOf([] {
              WithBlocks("<!-- begin T -->\n", {{"T", ""}});
            }),
            "no end of the block \"T\"");
}

TEST(CompanyFileTables, FieldsKeysIndexesCopiesAndQueries) {
  const Blocks blocks = TablesOf(
      "table T\n"
      "  A  counter key        # number\n"
      "  B  text(4) default 'RO'  # country; U.A of A\n"
      "  C  yesno              # of T\n"
      "  index BY_B (B, C desc)\n"
      "  unique index ONE (C)\n"
      "table U\n"
      "  A  date               # day\n"
      "like V = T\n"
      "query q = SELECT A FROM T   # all rows\n");
  EXPECT_EQ(blocks.size(), 4U);
  EXPECT_EQ(blocks.at("T"),
            "| Field | Type | Meaning |\n|---|---|---|\n"
            "| `A` | Long | number |\n"
            "| `B` | Text(4), default 'RO' | country; `U.A` of `A` |\n"
            "| `C` | Yes/No | of `T` |\n\n"
            "Key: `A`. Index `BY_B`: `B`, `C` descending. Unique index `ONE`: `C`.\n");
  EXPECT_EQ(blocks.at("U"),
            "| Field | Type | Meaning |\n|---|---|---|\n| `A` | Date | day |\n\nNo key.\n");
  EXPECT_EQ(blocks.at("copies"), "| Table | Columns of |\n|---|---|\n| `V` | `T` |\n");
  EXPECT_EQ(blocks.at("queries"),
            "| View | Rows | Statement |\n|---|---|---|\n| `q` | all rows | `SELECT A FROM T` |\n");
}

TEST(CompanyFileTables, EveryFieldNeedsItsMeaning) {
  EXPECT_EQ(DescriptionOf([] { TablesOf("table T\n  A long\n"); }),
            "no comment says what T.A means");
  EXPECT_EQ(DescriptionOf([] { TablesOf("query q = SELECT 1\n"); }),
            "no comment says what q means");
}

TEST(RightsTable, RowsOfItemsAndOfWholeMenus) {
  using enum MenuAction;
  const std::string table =
      RightsTable({{"Soc",
                    "&Societati",
                    {{"Soc_Conf", "Con&figurare ", kScreen},
                     {"x", "", kSeparator},
                     {"y", "Fara", kNone},
                     {"Utilizatori", "&Utilizatori", kScreen},
                     {"mnuFileExit", "&Iesire", kFrame}}},
                   {"mnuIntretinere", "&Intretinere", {{"a", "A", kScreen}, {"b", "B", kScreen}}},
                   {"gol", "Gol", {{"c", "C", kNone}}}});
  EXPECT_EQ(table,
            "<table>\n<tr><th>Meniu</th><th>Tip 0</th><th>Tip 1</th><th>Tip 2</th></tr>\n"
            "<tr><td>Societati - Configurare</td><td>da</td><td>da</td><td>-</td></tr>\n"
            "<tr><td>Societati - Utilizatori</td><td>da</td><td>-</td><td>-</td></tr>\n"
            "<tr><td>Societati - Iesire</td><td>da</td><td>da</td><td>da</td></tr>\n"
            "<tr><td>Intretinere: tot meniul</td><td>da</td><td>da</td><td>-</td></tr>\n"
            "</table>\n");
}

}  // namespace
}  // namespace tevra
