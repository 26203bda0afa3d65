// Recordsets over long lists: what they show beside the static ones, and what they hold.

#include <random>

#include "tests/data/DataTest.h"

namespace tevra {
namespace {

constexpr int kAssets = 9000;  // more than the pages that are held

class KeysetTest : public AssetsTest {
 protected:
  void SetUp() override {
    AssetsTest::SetUp();
    connection_.Execute("DELETE FROM T_IMO");
    Transaction transaction(connection_);
    const char* places[] = {"A", "B", "C"};
    for (int i = 0; i < kAssets; ++i) {
      connection_.Execute(
          "INSERT INTO T_IMO (COD, DENUMIRE, COD_GR, COD_LOC, VAL) VALUES (?, ?, ?, ?, ?)",
          {std::to_string(i), "Activ " + std::to_string(i * 7919 % 1000), i % 2 ? "2.1" : "3.2",
           i % 5 ? Value(places[i % 3]) : Value(), i * 31 % 977 + 0.25});
    }
    transaction.Commit();
  }

  static constexpr const char* kList =
      "SELECT A.*, L.TITLU, G.DURATA, A.VAL * 2 AS DUBLU FROM T_GR AS G RIGHT JOIN (T_LOC AS L "
      "RIGHT JOIN T_IMO AS A ON L.COD = A.COD_LOC) ON G.COD_GR = A.COD_GR WHERE A.VAL > ? ORDER BY "
      "A.DENUMIRE DESC, A.NRCRT;";

  static void ExpectSameRows(Recordset wanted, Recordset rows) {
    ASSERT_EQ(wanted.RecordCount(), rows.RecordCount());
    ASSERT_EQ(wanted.FieldCount(), rows.FieldCount());
    for (std::size_t row = 0; row < wanted.RecordCount(); ++row) {
      for (std::size_t f = 0; f < wanted.FieldCount(); ++f) {
        ASSERT_EQ(wanted.ValueAt(row, f), rows.ValueAt(row, f))
            << "row " << row << ", " << wanted.Field(f).def.name;
      }
    }
  }
};

TEST_F(KeysetTest, ShowsTheRowsOfAStaticOneHoweverItIsAsked) {
  Recordset wanted = connection_.OpenRecordset(kList, {100.0});
  Recordset rows = connection_.OpenKeyset(kList, {100.0});
  ExpectSameRows(wanted, rows);
  std::mt19937 random(3);
  for (int i = 0; i < 2000; ++i) {
    const std::size_t place = random() % wanted.RecordCount();
    wanted.SetPosition(place);
    rows.SetPosition(place);
    ASSERT_EQ(wanted.Get("NRCRT"), rows.Get("NRCRT"));
    ASSERT_EQ(wanted.Get("TITLU"), rows.Get("TITLU"));
  }
  for (Recordset* each : {&wanted, &rows}) {
    each->SetFilter("TITLU = 'birou' AND VAL < 800");
    each->SetSort("VAL DESC, COD");
    each->Find("DURATA = 4", 100);
  }
  ExpectSameRows(wanted, rows);
  EXPECT_EQ(wanted.Position(), rows.Position());
  rows.Disconnect();
  connection_.Execute("DELETE FROM T_IMO");
  ExpectSameRows(wanted, rows);
}

TEST_F(KeysetTest, AddsUpFieldsWhileItReads) {
  connection_.Execute("UPDATE T_IMO SET VAL = NULL WHERE COD = '5'");
  for (const std::string& statement :
       {std::string(kList), std::string("SELECT COD_LOC, SUM(VAL) AS VAL, COUNT(*) AS DUBLU FROM "
                                        "T_IMO WHERE VAL > ? GROUP BY COD_LOC")}) {
    const Recordset wanted = connection_.OpenRecordset(statement, {100.0});
    double sum = 0;
    for (std::size_t row = 0; row < wanted.RecordCount(); ++row) {
      sum += wanted.ValueAt(row, wanted.FieldIndex("VAL")).AsDouble();
    }
    Recordset rows = connection_.OpenKeyset(statement, {100.0}, {"DUBLU", "val"});
    EXPECT_EQ(rows.Total("VAL"), sum);
    ExpectRefused(kItemNotFound, "COD", [&] { (void)rows.Total("COD"); });
    rows.SetFilter("VAL < 0");
    EXPECT_EQ(rows.Total("VAL"), sum) << "of all rows";
  }
  Recordset rows = connection_.OpenKeyset("SELECT * FROM T_IMO", {}, {"VAL"});
  connection_.Execute("DELETE FROM T_IMO");
  rows.Requery();
  EXPECT_EQ(rows.Total("VAL"), 0);
  ExpectRefused(kItemNotFound, "NIMIC",
                [&] { (void)connection_.OpenKeyset("SELECT * FROM T_IMO", {}, {"NIMIC"}); });
}

TEST_F(KeysetTest, KeepsTheFileFreeForOthers) {
  Recordset rows = connection_.OpenKeyset("SELECT * FROM T_IMO ORDER BY NRCRT");
  rows.MoveLast();
  EXPECT_EQ(Value(std::to_string(kAssets - 1)), rows.Get("COD"));
  // Nobody who reads is in the way of taking in the side file.
  EXPECT_EQ("0", Raw(file_, "PRAGMA wal_checkpoint(TRUNCATE)"));
}

TEST_F(KeysetTest, RowsAreAsTheyAreWhenLookedAt) {
  Recordset rows = connection_.OpenKeyset("SELECT * FROM T_IMO WHERE VAL >= 0 ORDER BY NRCRT");
  const std::size_t named = rows.FieldIndex("DENUMIRE");
  rows.MoveFirst();
  const Value& first = rows.Get("DENUMIRE");
  const Value before = first;
  Raw(file_,
      "UPDATE T_IMO SET DENUMIRE = 'altul'; DELETE FROM T_IMO WHERE COD IN ('5000', '5001'); "
      "INSERT INTO T_IMO (COD) VALUES ('nou')");
  EXPECT_EQ(std::size_t{kAssets}, rows.RecordCount());
  EXPECT_EQ(Value("altul"), rows.ValueAt(4999, named));
  EXPECT_TRUE(rows.ValueAt(5000, named).IsNull());
  for (std::size_t i = 0; i < kAssets; ++i) (void)rows.ValueAt(i, named);  // all pages come and go
  EXPECT_EQ(before, first) << "what was got of the current row is held";

  rows.Set("DENUMIRE", "al meu");
  EXPECT_EQ(kRowChanged, FailureOf([&] { rows.Update(); }));
  rows.CancelUpdate();
  rows.SetPosition(5000);
  EXPECT_EQ(kRowChanged, FailureOf([&] { Save(rows, {{"DENUMIRE", "al meu"}}); }));
  rows.CancelUpdate();
  EXPECT_EQ(kRowChanged, FailureOf([&] { rows.Delete(); }));

  rows.SetSort("DENUMIRE DESC");
  EXPECT_EQ(Value("altul"), rows.Get("DENUMIRE"));
  rows.Find("COD = '8999'");
  EXPECT_EQ(Value("8999"), rows.Get("COD"));
  rows.Requery();
  EXPECT_EQ(std::size_t{kAssets - 1}, rows.RecordCount());
}

TEST_F(KeysetTest, ADeletedRowStaysAwayHoweverTheListIsArranged) {
  Recordset rows = connection_.OpenKeyset("SELECT * FROM T_IMO ORDER BY NRCRT");
  const std::size_t coded = rows.FieldIndex("COD");
  rows.SetPosition(1);
  rows.Delete();
  for (const char* sort : {"", "COD DESC", ""}) {
    if (*sort) rows.SetSort(sort);
    rows.SetSort("");
    ASSERT_EQ(rows.RecordCount(), std::size_t{kAssets - 1});
    EXPECT_EQ(rows.ValueAt(0, coded), Value("0"));
    EXPECT_EQ(rows.ValueAt(1, coded), Value("2"));
    for (std::size_t i = 0; i < rows.RecordCount(); ++i) (void)rows.ValueAt(i, coded);
  }
}

TEST_F(KeysetTest, ADeletedRowLeavesTheOthersInTheirPlaces) {
  Recordset rows = connection_.OpenKeyset("SELECT * FROM T_IMO ORDER BY NRCRT");
  const std::size_t coded = rows.FieldIndex("COD");
  EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { rows.SetBookmark(kAssets + 5); }));
  rows.MovePrevious();
  EXPECT_EQ(rows.Get("COD"), Value(std::to_string(kAssets - 1)));
  rows.SetPosition(1);
  rows.Delete();
  EXPECT_EQ(rows.ValueAt(1, coded), Value("2"));
  EXPECT_EQ(rows.ValueAt(kAssets - 2, coded), Value(std::to_string(kAssets - 1)));
}

TEST_F(KeysetTest, WhatWasWrittenHereStaysInTheList) {
  Recordset rows = connection_.OpenKeyset("SELECT * FROM T_IMO WHERE VAL > 100 ORDER BY NRCRT");
  const std::string code = rows.Get("COD").AsText();
  const std::size_t coded = rows.FieldIndex("COD");
  Save(rows, {{"VAL", 1.0}, {"NRCRT", 77777}});
  rows.AddNew();
  Save(rows, {{"COD", "nou"}, {"VAL", 2.0}});
  const std::size_t last = rows.Position();
  for (std::size_t i = 0; i < last; ++i) (void)rows.ValueAt(i, coded);
  EXPECT_EQ(Value("nou"), rows.Get("COD"));
  rows.SetPosition(0);
  EXPECT_EQ(Value(code), rows.Get("COD"));
  Save(rows, {{"DENUMIRE", "mutat"}});
  EXPECT_EQ("mutat", Raw(file_, "SELECT DENUMIRE FROM T_IMO WHERE NRCRT = 77777"));
  rows.Delete();
  EXPECT_EQ("0", Raw(file_, "SELECT count(*) FROM T_IMO WHERE NRCRT = 77777"));
}

TEST_F(KeysetTest, RowsThatATableDoesNotTellApartAreReadAtOnce) {
  // Every place stands beside every asset of it, and the other way round: neither alone is the row.
  const std::string pairs = "SELECT A.COD_GR, B.COD FROM T_GR AS A, T_LOC AS B ORDER BY 1, 2";
  ExpectSameRows(connection_.OpenRecordset(pairs), connection_.OpenKeyset(pairs));
  // The assets repeat the place; the place is found by the asset.
  const std::string places =
      "SELECT L.TITLU, A.COD FROM T_LOC AS L INNER JOIN T_IMO AS A ON A.COD_LOC = L.COD ORDER BY "
      "A.NRCRT";
  ExpectSameRows(connection_.OpenRecordset(places), connection_.OpenKeyset(places));
  const std::string groups = "SELECT COD_LOC, Sum(VAL) AS S FROM T_IMO GROUP BY COD_LOC ORDER BY 1";
  ExpectSameRows(connection_.OpenRecordset(groups), connection_.OpenKeyset(groups));
}

}  // namespace
}  // namespace tevra
