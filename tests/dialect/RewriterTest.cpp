// What the rewriting promises beside the rows: row ids, sources, refusals, hostile texts.
#include "platform/dialect/Rewriter.h"
#include "tests/dialect/Company.h"
#include "tests/text/Expect.h"

namespace tevra::dialect {
namespace {

std::string Sources(const std::string& sql) {
  std::string all;
  for (const Source& source : Rewrite(sql).sources) {
    all += (all.empty() ? "" : ",") + source.table + "=" + source.alias;
  }
  return all;
}

std::string Nested(std::size_t count, const std::string& open, const std::string& inner,
                   const std::string& close) {
  std::string text = inner;
  std::string closing;
  for (std::size_t i = 0; i < count; ++i) {
    text.insert(0, open);
    closing += close;
  }
  return text + closing;
}

long RefusalOf(const std::string& sql) {
  return tevra::FailureOf([&] { Rewrite(sql); });
}

TEST(Rewriter, TellsTheSourcesOfRowsThatCanBeChanged) {
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"select * from [Kv_Linii]", "Kv_Linii=Kv_Linii"},
      {"select A.*, B.titlu from (D B RIGHT JOIN E A ON B.x = A.x)", "E=A,D=B"},
      {"select * from C RIGHT JOIN (B RIGHT JOIN A ON A.x=B.x) ON C.x=Left(A.x, 2) where 1",
       "A=A,B=B,C=C"},
      {"select * from (a left join b as y on y.c=a.c) inner join d on d.e=a.e", "a=a,b=y,d=d"},
      {"select * from a, b c order by 1", "a=a,b=c"},
      {"select * from (a left outer join b on b.x = a.x) left outer join c on c.y = a.y",
       "a=a,b=b,c=c"},
      {"select * from a right outer join b on b.x = a.x", "b=b,a=a"},
      {"select (select max(x) from b) as m from a", "a=a"},
      {"select max(x) from a", ""},
      {"select round(max(x), 2) as m from a", ""},
      {"select x from a group by x", ""},
      {"select distinct x from a", ""},
      {"select x from a union select x from b", ""},
      {"select * from a, (select x from b) q", ""},
      {"update a set x = 1", ""}};
  for (const auto& [sql, sources] : cases) EXPECT_EQ(Sources(sql), sources) << sql;
}

TEST(Rewriter, AddsRowIdsAndNamesColumns) {
  Company company;
  Options options;
  options.addRowIds = true;
  EXPECT_EQ(
      company.Columns("select B.COD from KV_CC B RIGHT JOIN I_INV A ON B.COD = A.cod_cc", options),
      "COD|__row1|__row2");
  EXPECT_EQ(
      company.Rows(
          "select top 2 nrcrt from KV_CC B RIGHT JOIN I_INV A ON B.COD = A.cod_cc order by nrcrt",
          {}, options),
      (Lines{"1|1|1", "2|2|NULL"}));
  EXPECT_EQ(company.Rows("select count(*) from KV_CC", {}, options), (Lines{"2"}));
  options.columnsForStar = {"COD", "UTILIZABIL"};
  EXPECT_EQ(company.Columns("select top 1 * from kv_cc where COD <> ''", options),
            "COD|UTILIZABIL|__row1");
  EXPECT_EQ(company.Columns("select TITLU from kv_cc", options), "TITLU|__row1");
  EXPECT_EQ(company.Columns("select * from kv_val A, kv_val B", options),
            "COD|TITLU|COD|TITLU|__row1|__row2");
}

TEST(Rewriter, JoinsKeepTheirRowsInWhateverNesting) {
  Company company;
  company.Engine(
      "CREATE TABLE x (i INTEGER); CREATE TABLE y (i INTEGER, j INTEGER); CREATE TABLE z (j "
      "INTEGER);"
      "INSERT INTO x VALUES (1), (2), (3); INSERT INTO y VALUES (1, 10), (2, 20), (9, 90);"
      "INSERT INTO z VALUES (10), (70);");
  const std::vector<std::pair<const char*, Lines>> cases = {
      {"x right join (z right join y on z.j = y.j) on x.i = y.i",
       {"1|10|10", "2|20|NULL", "NULL|90|NULL"}},
      {"(x left join y on x.i = y.i) left join z on y.j = z.j",
       {"1|10|10", "2|20|NULL", "3|NULL|NULL"}},
      {"x inner join y on x.i = y.i right join z on y.j = z.j", {"1|10|10", "NULL|NULL|70"}},
      {"x left join (y inner join z on y.j = z.j) on x.i = y.i",
       {"1|10|10", "2|NULL|NULL", "3|NULL|NULL"}},
      {"x, y left join z on y.j = z.j where x.i = y.i", {"1|10|10", "2|20|NULL"}}};
  for (const auto& [joins, rows] : cases) {
    EXPECT_EQ(company.Rows("select x.i, y.j, z.j from " + std::string(joins) +
                           " order by x.i is null, x.i, y.j"),
              rows)
        << joins;
  }
}

TEST(Rewriter, LeavesWhatItDoesNotKnow) {
  for (const char* sql :
       {"CREATE VIEW v AS SELECT a & b, TRUE FROM [t]", "PRAGMA table_info(\"t\")", "",
        "CREATE TABLE t (a CHECK (a + 1 > 0 OR a = 'x'))", " -- nothing"}) {
    EXPECT_EQ(Rewrite(sql).sql, sql);
  }
  Company company;
  EXPECT_EQ(FailureOf(company, "select nothing from kv_cc"), kStatementError);
  EXPECT_EQ(FailureOf(company, "select [nothing] from kv_cc"), kStatementError);
  EXPECT_EQ(FailureOf(company, "select A from kv_cc where (select B AS A, A AS B)"),
            kStatementError);
  EXPECT_EQ(FailureOf(company, "selekt * from kv_cc"), kStatementError);
  EXPECT_EQ(FailureOf(company, "update kv_cc set , TITLU = 1"), kStatementError);
}

TEST(Rewriter, TakesCommentsAsBlanks) {
  Company company;
  EXPECT_EQ(company.Rows("select/* all (of them */COD -- & '\n from kv_cc;"), (Lines{"10", "20"}));
  EXPECT_EQ(company.Rows("select '--' & '/*' & \"[\", 5 - - 3"), (Lines{"--/*[|8"}));
}

TEST(Rewriter, ExpandsAliasesThatAreNoColumns) {
  std::vector<std::string> asked;
  const auto columns = [&](const std::string& select) {
    asked.push_back(select);
    return std::vector<std::string>{"a", "Both"};
  };
  const auto aliases = [&](const std::string& sql) { return AliasesToExpand(sql, columns); };
  EXPECT_EQ(aliases("select a as [X y], sum([x Y]) + 1, a as Both, both + 1 from c, d where 1"),
            (Lines{"X y"}));
  EXPECT_EQ(asked, (Lines{"SELECT * FROM c, d", "SELECT * FROM c, d"}));
  EXPECT_EQ(aliases("select 1 as A, (select 2 as Z, z + 1 from c) from (select 3 as U, U from e)"),
            (Lines{"Z", "U"}));
  EXPECT_EQ(aliases("select 2 as P, P * 3"), (Lines{"P"}));
  for (const char* unused : {"select a as X, t.X, X(1), (select X from c) from d", "select a as X",
                             "select a as X from d where X = 1 order by X"}) {
    EXPECT_EQ(aliases(unused), Lines()) << unused;
  }
}

TEST(Rewriter, PutsAnAliasMeaningOnlyWhereItsNameStandsAlone) {
  Options options;
  options.expandAliases = {"A"};
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"select 2 as A, A as C from x", "select 2 AS [A] , (2) AS [C] from x"},
      {"select x.A, 2 as A from x", "select x.A , 2 AS [A] from x"},
      {"select 2 as A, (select A from y) as B from x",
       "select 2 AS [A] , (select A from y) AS [B] from x"},
      {"select A * 3 as A from x", "select A * 3 AS [A] from x"}};
  for (const auto& [sql, expanded] : cases) EXPECT_EQ(Rewrite(sql, options).sql, expanded);
}

TEST(Rewriter, RecognisesThePrimaryKey) {
  const auto key =
      AsPrimaryKeyStatement("CREATE INDEX PrimaryKey ON [Kv_Linii] (NDI, [NR LINIE]) with Primary");
  ASSERT_TRUE(key);
  EXPECT_EQ(key->table, "Kv_Linii");
  EXPECT_EQ(key->fields, (std::vector<std::string>{"NDI", "NR LINIE"}));
  EXPECT_FALSE(AsPrimaryKeyStatement("CREATE INDEX PrimaryKey ON t (a)"));
  EXPECT_FALSE(AsPrimaryKeyStatement("CREATE INDEX PrimaryKey ON t (a) with Disallow Null"));
  EXPECT_FALSE(AsPrimaryKeyStatement("CREATE INDEX other ON t (a) with Primary"));
  EXPECT_FALSE(AsPrimaryKeyStatement("CREATE INDEX PrimaryKey ON t (a,) with Primary"));
}

TEST(Rewriter, RefusesBrokenAndMonstrousStatements) {
  using namespace std::string_literals;
  const std::vector<std::string> broken = {"select 'a",
                                           "select \"a",
                                           "select [a from t",
                                           "select (1",
                                           "select 1)",
                                           "select /* 1",
                                           "delete from kv_cc\0 where 1=0"s,
                                           "select 'a\0b'"s,
                                           "select " + Nested(10000, "(", "1", ")"),
                                           "select " + Nested(10000, "(", "1", ""),
                                           "select 1" + Nested(10000, "", "", "+1-1")};
  for (const std::string& sql : broken)
    EXPECT_EQ(RefusalOf(sql), kStatementError) << sql.substr(0, 40);

  // An alias that stands for two of the next one doubles with every step: too many, or too deep.
  for (const int steps : {12, 40}) {
    std::string list;
    Options options;
    for (int i = 0; i < steps; ++i) {
      list += "a" + std::to_string(i + 1) + "*a" + std::to_string(i + 1) + " AS a" +
              std::to_string(i) + ", ";
      options.expandAliases.push_back("a" + std::to_string(i));
    }
    EXPECT_THROW(Rewrite("select " + list + "1 from t", options), Failure) << steps;
  }
}

TEST(Rewriter, TakesLongStatements) {
  Company company;
  EXPECT_EQ(company.Rows("select 1" + Nested(90, "", "", " + 1")), (Lines{"91"}));
  EXPECT_EQ(company.Rows("select ''" + Nested(90, "", "", " & 1")), (Lines{std::string(90, '1')}));
  EXPECT_EQ(company.Rows("select " + Nested(40, "(", "1", ")")), (Lines{"1"}));
  EXPECT_EQ(RefusalOf("select 'a'" + Nested(20000, "", "", " || 'a'")), 0);
  EXPECT_EQ(RefusalOf("select " + Nested(20000, "- ", "1", "")), 0);
}

}  // namespace
}  // namespace tevra::dialect
