// One pass over the rows of a statement; groups of one row among them.
#include "platform/data/Command.h"
#include "platform/data/RowReader.h"
#include "tests/data/DataTest.h"

namespace tevra {
namespace {

class RowReaderTest : public AssetsTest {
 protected:
  std::string Read(const std::string& sql, const Values& params = {}) {
    std::string all;
    const Recordset columns = connection_.OpenRecordset(sql, params);
    for (RowReader rows(connection_, sql, params); rows.Next();) {
      for (std::size_t i = 0; i < columns.FieldCount(); ++i) {
        all += rows.Get(static_cast<int>(i)).TextOrEmpty() + " ";
      }
      all += "\n";
    }
    return all;
  }

  std::string Plan(const std::string& sql) {
    std::string plan;
    for (Recordset rows = connection_.OpenRecordset("EXPLAIN QUERY PLAN " + sql); !rows.Eof();
         rows.MoveNext()) {
      plan += rows.Get("detail").AsText() + "\n";
    }
    return plan;
  }
};

TEST_F(RowReaderTest, GivesTheRowsOneAfterAnother) {
  RowReader rows(
      connection_,
      "SELECT NRCRT, COD_LOC, VAL, DATA_PF, IESIRE FROM T_IMO WHERE VAL > ? ORDER BY NRCRT",
      {99.0});
  EXPECT_EQ(rows.Column("data_pf"), 3);
  ExpectRefused(kItemNotFound, "NIMIC", [&] { rows.Column("NIMIC"); });
  ASSERT_TRUE(rows.Next());
  EXPECT_EQ(rows.Get(3), Value(DateTime(2005, 7, 1)));
  EXPECT_EQ(rows.Get(4), Value::YesNo(false)) << "by the field's type";
  EXPECT_EQ(rows.Number(2), 1500.5);
  EXPECT_EQ(rows.Text(1), "A");
  connection_.Execute("UPDATE T_LOC SET TITLU = 'x'");  // its own connection writes meanwhile
  ASSERT_TRUE(rows.Next());
  ASSERT_TRUE(rows.Next());
  EXPECT_EQ(rows.Number(3), std::nullopt);
  EXPECT_EQ(rows.Text(1), "");
  EXPECT_FALSE(rows.Next());
  EXPECT_FALSE(rows.Next()) << "it does not begin anew";
  ExpectRefused(kStatementError, "no rows", [&] { RowReader(connection_, "DELETE FROM T_LOC"); });
}

// A prepared command gives each run its own values, also where some stay and where a run is
// refused.
TEST_F(RowReaderTest, ACommandWritesTheValuesOfEachRun) {
  Command insert(connection_,
                 "INSERT INTO T_IMO (COD, DENUMIRE, VAL, DATA_PF) VALUES (?, ?, ?, ?)");
  const DateTime day(2026, 2, 28);
  insert.Execute({"A", "unu", 1.0, day});
  insert.Execute({"A", "doi", -0.0, day});
  insert.Execute({"A", Value(), 0.0, Value()});
  EXPECT_THROW(insert.Execute({"A", "trei", 3.0, "31 februarie"}), Failure);
  EXPECT_THROW(insert.Execute({"A"}), Failure);
  insert.Execute({"B", "trei", 3.0, day});
  EXPECT_EQ(Read("SELECT COD, DENUMIRE, VAL, DATA_PF FROM T_IMO WHERE NRCRT > 3 ORDER BY NRCRT"),
            "A unu 1 28.02.2026 \nA doi 0 28.02.2026 \nA  0  \nB trei 3 28.02.2026 \n");
}

TEST_F(RowReaderTest, GroupsOfOneRowAreReadWithoutSortingThem) {
  connection_.Execute("UPDATE T_IMO SET VAL = NULL WHERE NRCRT = 2");
  connection_.Execute("INSERT INTO T_IMO (COD, DENUMIRE, VAL) VALUES ('100', 'Strung', 1500.5)");
  const std::string list =
      "SELECT NRCRT, DENUMIRE, SUM(VAL) AS S, SUM(DRF) AS D, VAL * 2 AS W, SUM(W) AS T";
  const std::string from = " FROM T_IMO GROUP BY COD, DENUMIRE, NRCRT, VAL";
  EXPECT_EQ(Read(list + from + " ORDER BY NRCRT"), Read(list + from + " HAVING 1 ORDER BY NRCRT"));
  EXPECT_EQ(Read("SELECT NRCRT, SUM(VAL) AS S" + from + " ORDER BY NRCRT"),
            "1 1500,5 \n2  \n3 99,25 \n4 1500,5 \n");
  const std::string joined =
      "SELECT L.TITLU, S.NRCRT, S.S FROM (" + list + from +
      ", COD_LOC ORDER BY NRCRT) S LEFT JOIN T_LOC L ON L.COD = S.NRCRT ORDER BY S.NRCRT";
  EXPECT_EQ(Plan(joined).find("TEMP B-TREE"), std::string::npos) << Plan(joined);
  EXPECT_EQ(Plan(joined).find("MATERIALIZE"), std::string::npos) << Plan(joined);
}

}  // namespace
}  // namespace tevra
