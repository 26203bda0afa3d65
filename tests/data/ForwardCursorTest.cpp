// One pass over a table with write-back.

#include <limits>

#include "platform/data/ForwardCursor.h"
#include "tests/data/DataTest.h"

namespace tevra {
namespace {

class ForwardCursorTest : public AssetsTest {
 protected:
  std::string Stored(const std::string& what) {
    return Raw(file_, "SELECT " + what + " FROM T_IMO");
  }
};

TEST_F(ForwardCursorTest, EveryRowIsReadAndWrittenOnce) {
  Transaction transaction(connection_);
  {
    ForwardCursor cursor(connection_, "Select * from t_imo ",
                         {"VAL", "DATA_PF", "IESIRE", "DENUMIRE"},
                         {"VAL", "DATA_PF", "DRF", "COD_LOC"});
    std::string seen;
    while (cursor.Next()) {
      seen += std::string(cursor.Text(3)) +
              (cursor.IsNull(1) ? "-" : std::to_string(cursor.Date(1)->Year())) + " ";
      EXPECT_FALSE(cursor.YesNo(2));
      cursor.SetNumber(0, *cursor.Number(0) + 0.25);
      if (cursor.IsNull(1)) {
        cursor.SetDate(1, DateTime(2007, 1, 31));
      } else {
        cursor.SetNull(1);
      }
      cursor.SetWhole(2, 36);
      cursor.SetNull(3);
      cursor.Write();
    }
    EXPECT_EQ("Strung2005 Birou2006 freza- ", seen);
    EXPECT_FALSE(cursor.Next()) << "it begins anew";
    EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { cursor.Write(); }));
  }
  transaction.Commit();
  EXPECT_EQ("1500.75,200.25,99.5", Stored("group_concat(VAL)"));
  EXPECT_EQ("2007-01-31 00:00:00", Stored("group_concat(DATA_PF)"));
  EXPECT_EQ("36,36,36", Stored("group_concat(DRF)"));
  EXPECT_EQ("0", Stored("count(COD_LOC)"));
}

// Read along the index of COD, a row would come again at the place of its new code.
TEST_F(ForwardCursorTest, AWrittenColumnMayBeIndexed) {
  connection_.Execute("UPDATE T_IMO SET COD = '1' & COD");
  for (const char* sql : {"SELECT * FROM T_IMO", "SELECT * FROM T_IMO WHERE COD > '1';"}) {
    int rows = 0;
    ForwardCursor cursor(connection_, sql, {"COD"}, {"COD"});
    while (cursor.Next() && ++rows < 10) {
      cursor.SetDate(0, DateTime(2006, 1, rows));
      cursor.Write();
    }
    EXPECT_EQ(3, rows) << sql;
  }
}

TEST_F(ForwardCursorTest, AFailureInTheMiddleLeavesAllRows) {
  try {
    Transaction transaction(connection_);
    ForwardCursor cursor(connection_, "SELECT * FROM T_IMO", {"DRF"}, {"DRF"});
    for (int row = 0; cursor.Next(); ++row) {
      cursor.SetWhole(0, row < 2 ? 1 : 40000);
      cursor.Write();
    }
    ADD_FAILURE() << "40000 was taken";
  } catch (const Failure& failure) {
    EXPECT_EQ(kValueNotAccepted, failure.Number());
    EXPECT_NE(std::string::npos, failure.Description().find("DRF"));
  }
  EXPECT_EQ("12,12,12", Stored("group_concat(DRF)"));
}

TEST_F(ForwardCursorTest, WhatIsNoNumberIsNotWritten) {
  ForwardCursor cursor(connection_, "SELECT * FROM T_IMO", {"VAL"}, {"VAL"});
  cursor.Next();
  for (const double value :
       {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(kOverflow, FailureOf([&] { cursor.SetNumber(0, value); }));
  }
}

TEST_F(ForwardCursorTest, OnlyOneTableAndKnownColumnsServe) {
  Catalogue(connection_).CreateQuery({"qryImo", "SELECT * FROM T_IMO"});
  struct Case {
    std::string sql;
    std::vector<std::string> read, write;
  };
  const std::vector<Case> cases = {{"SELECT * FROM T_IMO, T_LOC", {"DENUMIRE"}, {}},
                                   {"SELECT VAL, DRF, COD FROM T_IMO", {"VAL"}, {}},
                                   {"SELECT COUNT(*) FROM T_IMO", {"VAL"}, {}},
                                   {"SELECT * FROM qryImo", {"VAL"}, {}},
                                   {"SELECT * FROM T_IMO", {"NIMIC"}, {}},
                                   {"SELECT * FROM T_IMO", {"VAL"}, {"NIMIC"}},
                                   {"SELECT * FROM T_NIMIC", {"VAL"}, {}},
                                   {"SELECT * FROM T_IMO WHERE 'x", {"VAL"}, {}}};
  for (const auto& [sql, read, write] : cases) {
    EXPECT_EQ(kStatementError, FailureOf([&, &s = sql, &r = read, &w = write] {
                ForwardCursor(connection_, s, r, w);
              }))
        << sql;
  }
  Connection closed;
  EXPECT_EQ(kObjectRequired,
            FailureOf([&] { ForwardCursor(closed, "SELECT * FROM T_IMO", {"VAL"}); }));
}

TEST_F(ForwardCursorTest, ARowDeletedMeanwhileIsTold) {
  ForwardCursor cursor(connection_, "SELECT * FROM T_IMO", {"VAL"}, {"VAL"});
  cursor.Next();
  connection_.Execute("DELETE FROM T_IMO WHERE COD = '100'");
  cursor.SetNumber(0, 1);
  EXPECT_EQ(kRowChanged, FailureOf([&] { cursor.Write(); }));
}

}  // namespace
}  // namespace tevra
