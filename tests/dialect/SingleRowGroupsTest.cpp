// Which GROUP BY goes because its groups are single rows, and which stays.
#include <gtest/gtest.h>

#include "platform/dialect/Rewriter.h"
#include "platform/dialect/SingleRowGroups.h"

namespace tevra::dialect {
namespace {

std::string Rewritten(const std::string& sql) {
  Options options;
  options.rowKeyOf = [](const std::string& table) { return table == "T" ? "NR" : ""; };
  return Rewrite(sql, options).sql;
}

TEST(SingleRowGroups, GoWhereTheRowNumberIsAmongTheKeys) {
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"SELECT A, SUM(B) AS S FROM T GROUP BY A, NR", "SELECT A, ((B) + 0) AS S FROM T"},
      {"SELECT NR FROM T AS X WHERE A > 1 GROUP BY A, x.[nr] ORDER BY NR",
       "SELECT NR FROM T AS X WHERE A > 1 ORDER BY NR"},
      {"SELECT IIF(SUM(A) > 1, 2, SUM(B)) AS S FROM T GROUP BY NR",
       "SELECT IIF(((A) + 0) > 1, 2, ((B) + 0)) COLLATE NOCASE AS S FROM T"},
      {"SELECT (SELECT SUM(C) * MAX(C) FROM U) AS M, SUM(B) AS S FROM T GROUP BY NR",
       "SELECT (SELECT SUM(C) * MAX(C) FROM U) AS M, ((B) + 0) AS S FROM T"},
      {"SELECT * FROM (SELECT SUM(B) AS S FROM T GROUP BY NR) Q ORDER BY S",
       "SELECT * FROM (SELECT ((B) + 0) AS S FROM T) Q ORDER BY S"},
      {"SELECT A FROM T GROUP BY NR UNION SELECT A FROM T GROUP BY NR",
       "SELECT A FROM T UNION SELECT A FROM T"}};
  for (const auto& [sql, expected] : cases) EXPECT_EQ(Rewritten(sql), expected) << sql;
}

TEST(SingleRowGroups, StayWhereverTheyMayMeanMore) {
  for (const char* sql :
       {"SELECT A, SUM(B) AS S FROM T GROUP BY A", "SELECT A, SUM(B) AS S FROM U GROUP BY NR",
        "SELECT SUM(B) AS S FROM T GROUP BY NR % 2", "SELECT SUM(B) AS S FROM T GROUP BY Y.NR",
        "SELECT SUM(B) AS S FROM T, U GROUP BY NR",
        "SELECT SUM(B) AS S FROM T INNER JOIN U ON U.C = T.NR GROUP BY T.NR",
        "SELECT SUM(B) AS S FROM (SELECT * FROM T) AS T GROUP BY NR",
        "SELECT COUNT(B) AS S FROM T GROUP BY NR", "SELECT MAX(SUM(B)) AS S FROM T GROUP BY NR",
        "SELECT SUM(DISTINCT B) AS S FROM T GROUP BY NR", "SELECT SUM(B) FROM T GROUP BY NR",
        "SELECT SUM(B) OVER (ORDER BY B) AS S FROM T GROUP BY NR",
        "SELECT SUM(B) AS S FROM T GROUP BY T.A * T.NR",
        "SELECT SUM(B) AS S FROM T GROUP BY NR HAVING SUM(B) > 1",
        "SELECT SUM(B) AS S FROM T GROUP BY NR, A HAVING A > 1",
        "SELECT SUM(B) AS S FROM T GROUP BY NR, A LIMIT 1",
        "SELECT SUM(B) AS S FROM T GROUP BY NR ORDER BY SUM(B)",
        "SELECT SUM(B) AS S FROM T GROUP BY NR LIMIT 1", "SELECT DISTINCT A FROM T GROUP BY NR"}) {
    EXPECT_EQ(Rewritten(sql), sql);
  }
}

}  // namespace
}  // namespace tevra::dialect
