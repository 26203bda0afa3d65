// Grouped commands over real files: groups, totals, order, and the rows as they were.

#include <cmath>
#include <csignal>
#include <map>
#include <thread>

#include <sys/resource.h>

#include "platform/shape/ShapedRecordset.h"
#include "tests/Hostile.h"
#include "tests/data/DataTest.h"

namespace tevra {
namespace {

class ShapedTest : public DataTest {
 protected:
  void SetUp() override {
    DataTest::SetUp();
    connection_ = Open();
    FieldDef blocked = Field("BLOCATA", FieldType::YesNo, "0");
    Catalogue(connection_)
        .CreateTable(
            {"A",
             false,
             {Field("NR", FieldType::Long), Text("CONT", 50), Text("CONT_NOU", 50),
              Field("VAL", FieldType::Double), Field("DATA", FieldType::DateTime), blocked},
             {}});
  }

  void Add(int number, const Value& account, const Value& value,
           const Value& date = DateTime(2006, 5, 1), bool blocked = false) {
    connection_.Execute("INSERT INTO A VALUES (?, ?, 'nou', ?, ?, ?)",
                        {number, account, value, date, Value::YesNo(blocked)});
  }

  /// Assets 0 to count - 1 as one transaction, the account and the value by their number.
  template <typename Account, typename Amount>
  void AddMany(int count, Account account, Amount value) {
    Transaction transaction(connection_);
    for (int i = 0; i < count; ++i) Add(i, account(i), value(i));
    transaction.Commit();
  }

  static std::string Command(const std::string& statement, const std::string& by = "CONT") {
    return "SHAPE {" + statement + "} AS CH COMPUTE CH, SUM(CH.'VAL') AS TVAL BY '" + by + "'";
  }

  ShapedRecordset Rows(const std::string& statement = "SELECT NR, CONT, VAL FROM A ORDER BY NR",
                       const Values& params = {}) {
    return ShapedRecordset(connection_, Command(statement), params);
  }

  static std::string Show(const Value& value) { return value.IsNull() ? "-" : value.AsText(); }

  /// "key: total (numbers of the rows)" for each group.
  static std::vector<std::string> Shown(const ShapedRecordset& rows) {
    std::vector<std::string> groups;
    const std::size_t number = rows.FieldIndex("nr");
    for (std::size_t g = 0; g < rows.GroupCount(); ++g) {
      const auto group = rows.GroupAt(g);
      std::string shown = Show(group.key) + ": " + Show(group.totals.at(0)) + " (";
      for (std::size_t i = 0; i < group.rows; ++i) {
        shown += (i ? " " : "") + Show(rows.ValueAt(group.first + i, number));
      }
      groups.push_back(shown + ")");
    }
    return groups;
  }

  Connection connection_;
};

using Lines = std::vector<std::string>;

TEST_F(ShapedTest, GroupsComeByKeyAndTheirRowsInTheOrderOfTheCommand) {
  Add(9, "x", 1.0);
  Add(3, "B", 2.0);
  Add(4, Value(), 4.0);
  Add(5, "", 8.0);
  Add(2, "b", 16.0);
  Add(1, "a", 32.0);
  Add(7, "10", 64.0);
  Add(8, "9", 128.0);
  Add(6, Value(), 256.0);
  const ShapedRecordset rows = Rows();
  EXPECT_EQ((Lines{"-: 260 (4 6)", ": 8 (5)", "10: 64 (7)", "9: 128 (8)", "a: 32 (1)",
                   "b: 18 (2 3)", "x: 1 (9)"}),
            Shown(rows));
  EXPECT_EQ(Value(511.0), rows.GrandTotal(rows.TotalIndex("tval")));
  EXPECT_EQ(9u, rows.RowCount());
  EXPECT_EQ((Lines{"-: 260 (6 4)", ": 8 (5)", "10: 64 (7)", "9: 128 (8)", "a: 32 (1)",
                   "B: 18 (3 2)", "x: 1 (9)"}),
            Shown(Rows("SELECT NR, CONT, VAL FROM A ORDER BY NR DESC")));
}

TEST_F(ShapedTest, TiesComeByTheColumnsOfTheGrouping) {
  for (const int number : {5, 3, 8, 1}) Add(number, "a", 1.0, DateTime(2006, 1, number % 2 + 1));
  EXPECT_EQ(Lines{"a: 4 (1 3 5 8)"}, Shown(Rows("SELECT NR, CONT, SUM(VAL) AS VAL FROM A GROUP BY "
                                                "NR, CONT, DATA")));
  EXPECT_EQ(Lines{"a: 4 (1 3 5 8)"}, Shown(Rows("SELECT CONT, VAL, DATA, NR FROM A GROUP BY CONT, "
                                                "NR, VAL, DATA ORDER BY DATA DESC")));
}

TEST_F(ShapedTest, AKeyIsTheColumnThatTheRowsShow) {
  Add(1, "a", 1.0);
  Add(2, "b", 2.0);
  EXPECT_EQ(Lines{"nou: 3 (1 2)"},
            Shown(Rows("SELECT NR, CONT_NOU AS CONT, VAL FROM A ORDER BY NR")));
  const ShapedRecordset byDate(connection_, Command("SELECT NR, DATA, VAL FROM A", "data"));
  EXPECT_EQ(Value(DateTime(2006, 5, 1)), byDate.GroupAt(0).key);
}

TEST_F(ShapedTest, NoBaniAreLostInTotals) {
  AddMany(
      1000, [](int) { return "tenths"; }, [](int i) { return i % 2 ? 0.1 : 0.2; });
  Add(1, "with", Value());
  Add(2, "with", 0.1);
  Add(3, "with", 0.2);
  Add(4, "without", Value());
  Add(5, "wide", 1e12);
  Add(6, "wide", 0.25);
  Add(7, "wide", -1e12);
  Add(8, "zero", 0.1);
  Add(9, "zero", -0.1);
  const ShapedRecordset rows = Rows("SELECT NR, CONT, VAL FROM A");
  std::map<std::string, Value> totals;
  for (std::size_t g = 0; g < rows.GroupCount(); ++g) {
    totals[rows.GroupAt(g).key.AsText()] = rows.GroupAt(g).totals.at(0);
  }
  EXPECT_EQ(
      (std::map<std::string, Value>{
          {"tenths", 150.0}, {"with", 0.3}, {"without", Value()}, {"wide", 0.25}, {"zero", 0.0}}),
      totals);
  EXPECT_FALSE(std::signbit(totals["zero"].AsDouble()));
  EXPECT_EQ(Value(150.55), rows.GrandTotal(0));
}

// What is left of many groups' binary fractions is not left in the sum of all of them.
TEST_F(ShapedTest, TheGrandTotalIsOfTheRows) {
  AddMany(
      3000, [](int i) { return std::to_string(i); }, [](int) { return 1.0 / 3; });
  EXPECT_EQ(Value(1000.0), Rows().GrandTotal(0));
  EXPECT_EQ(Value(0.3333), Rows().GroupAt(0).totals.at(0));
}

TEST_F(ShapedTest, ValuesKeepTheirTypes) {
  const std::string wide = "ășțîâĂȘȚÎÂășțîâĂȘȚÎÂășțîâĂȘȚÎÂășțîâĂȘȚÎÂășțîâĂȘȚÎÂ";
  Add(1, wide, 1.0, DateTime(2006, 5, 1, 10, 30, 0), true);
  Add(2, "2006-05-01 00:00:00", Value(), Value(), false);
  const ShapedRecordset rows =
      Rows("SELECT *, NR + 1 AS NEXT, MAX(DATA) AS LAST FROM A GROUP BY NR");
  const auto at = [&](std::size_t row, const char* field) {
    return rows.ValueAt(row, rows.FieldIndex(field));
  };
  EXPECT_EQ(Value(wide), at(1, "CONT"));
  EXPECT_EQ(Value(1), at(1, "NR"));
  EXPECT_EQ(Value(1.0), at(1, "VAL"));
  EXPECT_EQ(Value(DateTime(2006, 5, 1, 10, 30, 0)), at(1, "DATA"));
  EXPECT_EQ(at(1, "DATA"), at(1, "LAST"));
  EXPECT_EQ(Value::YesNo(true), at(1, "BLOCATA"));
  EXPECT_EQ(Value(2), at(1, "NEXT"));
  EXPECT_EQ(Value("2006-05-01 00:00:00"), at(0, "CONT")) << "a text stays one";
  EXPECT_TRUE(at(0, "DATA").IsNull());
  EXPECT_EQ(FieldType::YesNo, rows.Fields().at(5).def.type);
}

TEST_F(ShapedTest, ParametersAreBound) {
  for (int day = 1; day <= 5; ++day) Add(day, "a", 1.0, DateTime(2006, 5, day));
  EXPECT_EQ(Lines{"a: 3 (2 3 4)"},
            Shown(Rows("SELECT NR, CONT, VAL FROM A WHERE (DATA >= ?) AND (DATA <= ?) GROUP BY NR, "
                       "CONT, VAL ORDER BY DATA",
                       {DateTime(2006, 5, 2), DateTime(2006, 5, 4)})));
  for (const std::string& text : test::HostileTexts()) {
    EXPECT_EQ(0u, Rows("SELECT NR, CONT, VAL FROM A WHERE CONT = ?", {text}).GroupCount());
  }
  ExpectRefused(kStatementError, "number of parameters",
                [&] { Rows("SELECT NR, CONT, VAL FROM A WHERE CONT = ?"); });
}

TEST_F(ShapedTest, NothingGroupedIsOpenAllTheSame) {
  const ShapedRecordset rows = Rows();
  EXPECT_TRUE(rows.IsOpen());
  EXPECT_EQ(0u, rows.GroupCount() + rows.RowCount());
  EXPECT_TRUE(rows.GrandTotal(0).IsNull());
  EXPECT_EQ(3u, rows.Fields().size());
  EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { rows.GroupAt(0); }));
  EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { rows.ValueAt(0, 0); }));
}

TEST_F(ShapedTest, WhatIsNotThereIsRefused) {
  Add(1, "a", 1.0);
  const ShapedRecordset rows = Rows();
  EXPECT_EQ(kItemNotFound, FailureOf([&] { rows.FieldIndex("X"); }));
  EXPECT_EQ(kItemNotFound, FailureOf([&] { rows.TotalIndex("VAL"); }));
  EXPECT_EQ(kItemNotFound, FailureOf([&] { rows.ValueAt(0, 3); }));
  EXPECT_EQ(kItemNotFound, FailureOf([&] { rows.GrandTotal(1); }));
  EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { rows.ValueAt(1, 0); }));
  EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { rows.GroupAt(1); }));
  EXPECT_EQ(kObjectRequired, FailureOf([] { ShapedRecordset().GroupCount(); }));
  EXPECT_EQ(kObjectRequired, FailureOf([] { ShapedRecordset(Connection(), Command("SELECT 1")); }));

  const std::vector<std::pair<std::string, long>> cases = {
      {"SELECT NR, VAL FROM A", kItemNotFound},        // no key
      {"SELECT NR, CONT FROM A", kItemNotFound},       // nothing to add
      {"SELECT NR, CONT, X FROM A", kStatementError},  // no such column
      {"DELETE FROM A", kStatementError},              // no rows
      {"SELECT CONT, VAL FROM A LIMIT 1", kStatementError},
      {"SELECT CONT, CONT AS VAL FROM A", kTypeMismatch},  // "a" is no amount
      {"SELECT CONT, CLng(CONT) AS VAL FROM A", kTypeMismatch}};
  for (const auto& [statement, number] : cases) {
    const Refusal refusal = RefusalOf([&, text = statement] { Rows(text); });
    EXPECT_EQ(number, refusal.number) << statement << ": " << refusal.text;
    EXPECT_EQ(Command(statement), refusal.source);
  }
  EXPECT_EQ("1", Raw(file_, "SELECT count(*) FROM A"));
}

TEST_F(ShapedTest, RowsStayAsTheyWere) {
  constexpr int kMany = 3000;  // more than the pages that are held
  AddMany(
      kMany, [](int i) { return std::to_string(i % 700); }, [](int i) { return i; });
  ShapedRecordset rows = Rows();
  const ShapedRecordset same = Rows();
  const Lines before = Shown(rows);
  EXPECT_EQ(700u, before.size());
  // Nobody who reads is in the way of taking in the side file, nor of one who wants it alone.
  EXPECT_EQ("0", Raw(file_,
                     "DELETE FROM A WHERE NR < 2000; UPDATE A SET CONT = 'z', VAL = 1;"
                     "PRAGMA wal_checkpoint(TRUNCATE)"));
  EXPECT_EQ(before, Shown(rows));
  EXPECT_EQ(Lines{"z: 1000"}, Lines{Shown(Rows()).at(0).substr(0, 7)});
  connection_.Close();
  EXPECT_NO_THROW(Open("Mode=Share Exclusive"));
  const ShapedRecordset copy = rows;
  rows.Close();
  EXPECT_FALSE(rows.IsOpen());
  EXPECT_EQ(before, Shown(copy));
  EXPECT_EQ(before, Shown(same));
}

TEST_F(ShapedTest, OpensWithinATransactionAndOnAFileThatIsOnlyRead) {
  connection_.BeginTrans();
  Add(1, "a", 1.0);
  const ShapedRecordset rows = Rows();
  connection_.RollbackTrans();
  EXPECT_EQ(Lines{"a: 1 (1)"}, Shown(rows));
  Add(2, "b", 2.0);
  connection_ = Open("Mode=Read");
  EXPECT_EQ(Lines{"b: 2 (2)"}, Shown(Rows()));
}

TEST_F(ShapedTest, TemporaryFilesWithoutRoomFailTheOpening) {
  AddMany(
      3000, [](int i) { return std::to_string(i % 70); }, [](int i) { return i; });
  const std::string wide = "SELECT NR, CONT, VAL, '" + std::string(300, 'x') + "' AS W FROM A";
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit tight{200000, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &tight);
  const Refusal refusal = RefusalOf([&] { Rows(wide); });
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(kDatabaseNotOpened, refusal.number);
  EXPECT_NE(std::string::npos, refusal.text.find("fisierele temporare")) << refusal.text;
  EXPECT_EQ(Command(wide), refusal.source);
  EXPECT_EQ(70u, Rows(wide).GroupCount());
}

TEST_F(ShapedTest, ReadsOnWhileAnotherWrites) {
  AddMany(
      500, [](int) { return "a"; }, [](int) { return 1.0; });
  // The other one moves an amount from asset to asset: the total is the same at all times.
  std::thread writer([this] {
    Connection other = Open("Lock Timeout=5000");
    for (int i = 0; i < 100; ++i) {
      Transaction transaction(other);
      other.Execute("UPDATE A SET VAL = VAL - 1 WHERE NR = ?", {i});
      other.Execute("UPDATE A SET VAL = VAL + 1 WHERE NR = ?", {i + 100});
      transaction.Commit();
    }
  });
  for (int i = 0; i < 30; ++i) EXPECT_EQ(Value(500.0), Rows().GrandTotal(0));
  writer.join();
}

}  // namespace
}  // namespace tevra
