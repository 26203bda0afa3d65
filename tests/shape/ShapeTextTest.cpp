// The words of grouped commands, well and badly written.

#include <gtest/gtest.h>

#include "platform/shape/ShapeText.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

TEST(ShapeText, IsReadHoweverItIsWritten) {
  const ShapeText shape = ReadShape(
      "\tshape\n{SELECT a, b FROM t}  As CH compute ch, Sum(CH.'a') AS TA, SUM(ch.[b c]) as TB, "
      "SUM(CH.d) AS TD by 'it''s';");
  EXPECT_EQ("SELECT a, b FROM t", shape.statement);
  EXPECT_EQ("CH", shape.child);
  ASSERT_EQ(3u, shape.totals.size());
  EXPECT_EQ("a TA b c TB d TD", shape.totals[0].field + " " + shape.totals[0].name + " " +
                                    shape.totals[1].field + " " + shape.totals[1].name + " " +
                                    shape.totals[2].field + " " + shape.totals[2].name);
  EXPECT_EQ("it's", shape.by);
  EXPECT_TRUE(ReadShape("SHAPE {x} AS c COMPUTE c BY [g]").totals.empty());
}

TEST(ShapeText, ABraceWithinATextClosesNothing) {
  for (const std::string statement :
       {"SELECT '}' AS a, \"}{\" FROM t", "SELECT 'it''s }' FROM [ta}ble]", "SELECT {a} FROM {{t}}",
        "SELECT a -- }' one\nFROM t", "SELECT a /* }'[ */ FROM t", "SELECT a-b/c FROM t"}) {
    EXPECT_EQ(statement, ReadShape("SHAPE {" + statement + "} AS c COMPUTE c BY 'a'").statement);
  }
}

TEST(ShapeText, AnythingElseIsRefusedWithItsWords) {
  const std::string good = "SHAPE {SELECT a FROM t} AS c ";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "SHAPE expected at: the end"},
      {"SELECT a FROM t", "SHAPE expected at: SELECT a FROM t"},
      {"SHAPED {x} AS c COMPUTE c BY a", "{ expected at: D {x}"},
      {"SHAPE SELECT", "{ expected at: SELECT"},
      {"SHAPE {SELECT '} AS c COMPUTE c BY 'a'", "} expected at: the end"},
      {"SHAPE {SELECT {a} AS c COMPUTE c BY 'a'", "} expected at: the end"},
      {"SHAPE { } AS c COMPUTE c BY 'a'", "A statement expected at: }"},
      {"SHAPE {x} COMPUTE c BY 'a'", "AS expected at: COMPUTE c BY 'a'"},
      {good + "COMPTE c BY 'a'", "COMPUTE expected at: COMPTE c BY 'a'"},
      {good + "COMPUTE d BY 'a'", "c expected at: d BY 'a'"},
      {good + "COMPUTE c, AVG(c.'a') AS t BY 'a'", "SUM expected at: AVG(c.'a') AS t BY 'a'"},
      {good + "COMPUTE c, SUM(d.'a') AS t BY 'a'", "A field of c expected at: (d.'a') AS t BY 'a'"},
      {good + "COMPUTE c, SUM(c.'a'+1) AS t BY 'a'", "A field of c expected at: (c.'a'+1)"},
      {good + "COMPUTE c, SUM(c.'a') BY 'a'", "AS expected at: BY 'a'"},
      {good + "COMPUTE c", "BY expected at: the end"},
      {good + "COMPUTE c BY", "A field's name expected at: the end"},
      {good + "COMPUTE c BY 'a', 'b'", "The end expected at: , 'b'"},
      {good + "COMPUTE c BY 'a", "Missing quote in a text"},
  };
  for (const auto& [command, words] : cases) {
    const Refusal refusal = RefusalOf([&] { ReadShape(command); });
    EXPECT_EQ(kStatementError, refusal.number) << command;
    EXPECT_EQ(words, refusal.text.substr(0, words.size())) << command;
    EXPECT_EQ(command, refusal.source);
  }
}

TEST(ShapeText, OrderOfAReport) {
  EXPECT_EQ(
      "SELECT a, b AS k FROM t WHERE x=?1 GROUP BY a, c HAVING a>1 ORDER BY 2 COLLATE NOCASE "
      ", d DESC , C , a",
      InGroupOrder("SELECT a, b AS k FROM t WHERE x=? GROUP BY a, c HAVING a>1 ORDER BY d "
                   "DESC, C;",
                   1));
  EXPECT_EQ("SELECT a FROM t ORDER BY 1 COLLATE NOCASE", InGroupOrder("SELECT a FROM t", 0));
  for (const std::string statement :
       {"SELECT TOP 3 a FROM t ORDER BY a", "SELECT a FROM t LIMIT 3", "DELETE FROM t",
        "SELECT a FROM t UNION SELECT a FROM u", "SELECT a FROM t; DELETE FROM t", ""}) {
    EXPECT_EQ(kStatementError, FailureOf([&] { InGroupOrder(statement, 0); })) << statement;
  }
}

}  // namespace
}  // namespace tevra
