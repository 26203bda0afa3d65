// Statements and transactions of a connection.

#include "tests/data/DataTest.h"

namespace tevra {
namespace {

class StatementsTest : public AssetsTest {
 protected:
  int Count() { return Open().QueryValue("SELECT COUNT(*) FROM T_LOC").AsLong(); }
  void Insert(const std::string& code) {
    connection_.Execute("INSERT INTO T_LOC VALUES (?, ?)", {code, "x"});
  }
};

TEST_F(StatementsTest, RowsAffectedAreTold) {
  const std::vector<std::pair<std::string, int>> cases = {
      {"UPDATE T_IMO SET VAL = VAL + 1", 3},
      {"CREATE TABLE T_NOU (A INTEGER)", 0},  // not the count of the statement before
      {"UPDATE T_IMO SET VAL = 0 WHERE COD = 'nu'", 0},
      {"SELECT * FROM T_IMO", 0},
      {"INSERT INTO T_LOC SELECT COD, TITLU FROM T_LOC", 2},
      {"UPDATE T_IMO INNER JOIN T_GR ON T_IMO.COD_GR = T_GR.COD_GR SET T_IMO.DRF = T_GR.DURATA", 3},
      {"DELETE * FROM T_LOC", 4}};
  for (const auto& [sql, rows] : cases) EXPECT_EQ(rows, connection_.Execute(sql)) << sql;
  EXPECT_EQ(4, connection_.QueryValue("SELECT DRF FROM T_IMO WHERE COD = '101'").AsLong());
}

TEST_F(StatementsTest, ParametersAreDataWhateverTheyHold) {
  const std::vector<std::string> hostile = {
      "D'Arc", "'); DROP TABLE T_LOC; --", "a\"b", "?1", "[x]", "%", "Ana\nBarbu", "\\", ""};
  for (const auto& text : hostile) {
    connection_.Execute("UPDATE T_LOC SET TITLU = ? WHERE COD = ?", {text, "A"});
    EXPECT_EQ(Value("A"), connection_.QueryValue("SELECT COD FROM T_LOC WHERE TITLU = ?", {text}))
        << text;
    EXPECT_EQ(Value(text), connection_.QueryValue("SELECT TITLU FROM T_LOC WHERE COD = ?", {"a"}));
  }
  EXPECT_EQ(2, Count());
}

TEST_F(StatementsTest, ValuesComeBackByTheirKind) {
  const DateTime date(2006, 2, 28);
  connection_.Execute("UPDATE T_IMO SET IESIRE = ?, VAL = ?, DATA_PF = ? WHERE NRCRT = ?",
                      {Value::YesNo(true), 3, date, 1});
  const std::vector<std::pair<std::string, Value>> cases = {{"IESIRE", Value::YesNo(true)},
                                                            {"VAL", 3.0},
                                                            {"DATA_PF", date},
                                                            {"NRCRT", 1},
                                                            {"COD", "100"},
                                                            {"VAL / 2", 1.5},
                                                            {"MAX(DATA_PF)", date},
                                                            {"MAX(NRCRT) + 1", 2},
                                                            {"IIF(VAL > 2, DATA_PF, Null)", date}};
  for (const auto& [what, value] : cases) {
    EXPECT_EQ(value, connection_.QueryValue("SELECT " + what + " FROM T_IMO WHERE NRCRT = 1"))
        << what;
  }
  EXPECT_TRUE(connection_.QueryValue("SELECT COD FROM T_IMO WHERE COD = 'nu'").IsNull());
}

TEST_F(StatementsTest, AliasesOfTheListStandForWhatTheyName) {
  const std::string sql =
      "SELECT COD_GR, VAL * 2 AS DUBLU, SUM(DUBLU) AS TOTAL FROM T_IMO GROUP BY COD_GR ORDER BY "
      "COD_GR";
  Recordset rows = connection_.OpenRecordset(sql);
  EXPECT_DOUBLE_EQ(2 * (1500.5 + 99.25), rows.Get("TOTAL").AsDouble());
  rows.MoveNext();
  EXPECT_DOUBLE_EQ(400, rows.Get("TOTAL").AsDouble());
  // A column of that name goes before the alias.
  EXPECT_DOUBLE_EQ(1799.75,
                   connection_.QueryValue("SELECT SUM(VAL), 1 AS VAL FROM T_IMO").AsDouble());
}

TEST_F(StatementsTest, AnAliasGivesWayToAColumnThatComesLater) {
  const std::string sql =
      "SELECT DUBLU + 1 AS MAIMULT, VAL * 2 AS DUBLU FROM T_IMO WHERE COD = '100'";
  for (int i = 0; i < 2; ++i) EXPECT_EQ(3002, connection_.QueryValue(sql).AsDouble());
  Catalogue(connection_).AddField("T_IMO", Field("DUBLU", FieldType::Double, "5"));
  EXPECT_EQ(6, connection_.QueryValue(sql).AsDouble());
  connection_.Execute("UPDATE T_IMO SET DUBLU = 7");
  EXPECT_EQ(8, connection_.QueryValue(sql).AsDouble());
}

TEST_F(StatementsTest, FailuresTellTheReasonAndTheStatement) {
  struct Case {
    std::string sql;
    Values params;
    long number;
    std::string words;
  };
  const std::vector<Case> cases = {
      {"SELECT NIMIC FROM T_IMO", {}, kStatementError, "no such column: NIMIC"},
      {"SELEC 1", {}, kStatementError, "syntax"},
      {"DELETE FROM T_NIMIC", {}, kStatementError, "T_NIMIC"},
      {"SELECT 'deschis", {}, kStatementError, ""},
      {"SELECT \"VAL", {}, kStatementError, ""},
      {"", {}, kStatementError, ""},
      {"DELETE FROM T_LOC; DELETE FROM T_IMO", {}, kStatementError, "More than one"},
      {"DELETE FROM T_LOC WHERE COD = ?", {}, kStatementError, "parameters"},
      {"DELETE FROM T_LOC WHERE COD = ?", {"A", "B"}, kStatementError, "parameters"},
      {"INSERT INTO T_GR VALUES ('2.1', 1)", {}, kValueNotAccepted, "COD_GR"},
      {"INSERT INTO T_GR VALUES (?, 1)", {Value()}, kValueNotAccepted, "COD_GR"},
      {"INSERT INTO T_GR VALUES ('9', 300)", {}, kValueNotAccepted, "DURATA"},
      {"UPDATE T_IMO SET IESIRE = Null", {}, kValueNotAccepted, "IESIRE"},
      {"INSERT INTO T_LOC VALUES (?, '')", {"123456789012"}, kValueNotAccepted, "COD"},
      {"INSERT INTO T_IMO (NRCRT) VALUES ('a')", {}, kValueNotAccepted, ""},
      {"UPDATE T_IMO SET VAL = CDbl('abc')", {}, kTypeMismatch, "abc"},
      {"UPDATE T_IMO SET DATA_PF = CDate('31/02/2006')", {}, kTypeMismatch, "31/02/2006"},
      {"SELECT 1 / 0", {}, kDivisionByZero, ""}};
  for (const auto& [sql, params, number, words] : cases) {
    SCOPED_TRACE(sql);
    const Refusal refusal = RefusalOf([&] { connection_.Execute(sql, params); });
    EXPECT_EQ(number, refusal.number) << refusal.text;
    EXPECT_NE(std::string::npos, refusal.text.find(words)) << refusal.text;
    EXPECT_EQ(sql, refusal.source);
  }
  EXPECT_EQ(2, Count());
  EXPECT_EQ(kStatementError,
            FailureOf([&] { (void)connection_.OpenRecordset("DELETE FROM T_LOC"); }));
  EXPECT_EQ(2, Count());
}

TEST_F(StatementsTest, ATransactionNotCommittedIsTakenBack) {
  {
    Transaction transaction(connection_);
    Insert("C");
    EXPECT_EQ(2, Count()) << "others see it before the commit";
  }
  EXPECT_EQ(2, Count());
  try {
    Transaction transaction(connection_);
    Insert("C");
    connection_.Execute("INSERT INTO T_GR VALUES ('2.1', 1)");
    transaction.Commit();
  } catch (const Failure&) {
  }
  EXPECT_EQ(2, Count());
  EXPECT_EQ(0, connection_.TransactionDepth());
  EXPECT_EQ(kStatementError, FailureOf([&] { connection_.CommitTrans(); }));
  EXPECT_EQ(kStatementError, FailureOf([&] { connection_.RollbackTrans(); }));
}

TEST_F(StatementsTest, TransactionsNest) {
  {
    Transaction outer(connection_);
    Insert("C");
    {
      Transaction inner(connection_);
      Insert("D");
      EXPECT_EQ(2, connection_.TransactionDepth());
    }
    {
      Transaction inner(connection_);
      Insert("E");
      {
        Transaction innermost(connection_);
        Insert("F");
        innermost.Commit();
      }
      inner.Commit();
    }
    EXPECT_EQ(2, Count());
    outer.Commit();
  }
  EXPECT_EQ(Value(5), connection_.QueryValue("SELECT COUNT(*) FROM T_LOC"));
  EXPECT_TRUE(connection_.QueryValue("SELECT COD FROM T_LOC WHERE COD = 'D'").IsNull());
  {
    Transaction outer(connection_);
    Transaction inner(connection_);
    connection_.Execute("DELETE FROM T_LOC");
    inner.Commit();
  }
  EXPECT_EQ(5, Count()) << "the outer one was taken back with all in it";
}

TEST_F(StatementsTest, OnlyOneWritesAtATime) {
  Connection other = Open();
  Transaction transaction(connection_);
  ExpectRefused(kDatabaseNotOpened, "folosita de alt program: " + file_.string(),
                [&] { other.BeginTrans(); });
  ExpectRefused(kDatabaseNotOpened, file_.string(), [&] { other.Execute("DELETE FROM T_LOC"); });
  EXPECT_EQ(0, other.TransactionDepth());
  EXPECT_EQ(3, other.QueryValue("SELECT COUNT(*) FROM T_IMO").AsLong()) << "readers do not wait";
}

// After some failures (a full disk) the engine takes the transaction back by itself. What the
// program still runs in good faith must not be written on its own then.
TEST_F(StatementsTest, ATransactionThatTheEngineTookBackStaysBack) {
  const auto giveUp = [&] {
    connection_.Execute("INSERT OR ROLLBACK INTO T_GR VALUES ('2.1', 1)");
  };
  {
    Transaction outer(connection_);
    Insert("C");
    Transaction inner(connection_);
    EXPECT_EQ(kValueNotAccepted, FailureOf(giveUp));
    EXPECT_EQ(kStatementError, FailureOf([&] { Insert("D"); }));
    EXPECT_EQ(kStatementError, FailureOf([&] { connection_.BeginTrans(); }));
    EXPECT_EQ(kStatementError, FailureOf([&] { inner.Commit(); }));
    EXPECT_EQ(kStatementError, FailureOf([&] { outer.Commit(); }));
  }
  EXPECT_EQ(2, Count());
  EXPECT_EQ(0, connection_.TransactionDepth());
  Insert("E");
  EXPECT_EQ(3, Count());
}

}  // namespace
}  // namespace tevra
