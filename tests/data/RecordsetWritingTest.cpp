// What recordsets write, and what they leave alone.

#include <functional>
#include <limits>
#include <tuple>

#include "tests/data/DataTest.h"

namespace tevra {
namespace {

class RecordsetWritingTest : public RowsTest {
 protected:
  // A field of the asset with this code, read anew by another user.
  Value Stored(const std::string& field, const std::string& code = "100") {
    return Open().QueryValue("SELECT " + field + " FROM T_IMO WHERE COD = ?", {code});
  }
  Recordset All() { return Rows("SELECT * FROM T_IMO ORDER BY NRCRT"); }
  Recordset List() {
    return Rows(
        "SELECT A.COD, A.DENUMIRE, A.VAL, L.TITLU, G.DURATA, A.NRCRT, A.VAL * 2 AS DUBLU FROM T_GR "
        "AS G RIGHT JOIN "
        "(T_LOC AS L RIGHT JOIN T_IMO AS A ON L.COD = A.COD_LOC) ON G.COD_GR = A.COD_GR ORDER BY "
        "A.NRCRT");
  }
};

TEST_P(RecordsetWritingTest, ATableWithoutAKeyIsWrittenRowByRow) {
  connection_.Execute("INSERT INTO T_LOC VALUES ('A', 'Atelier')");  // twice the same row
  Recordset rows = Rows("SELECT * FROM T_LOC WHERE COD = 'A'");
  rows.MoveLast();
  Save(rows, {{"TITLU", "Magazie"}});
  EXPECT_EQ("Atelier", Raw(file_, "SELECT group_concat(TITLU) FROM T_LOC WHERE rowid = 1"));
  EXPECT_EQ("Magazie", Raw(file_, "SELECT TITLU FROM T_LOC WHERE rowid = 3"));
  rows.Delete();
  EXPECT_TRUE(rows.Eof());
  EXPECT_EQ("2", Raw(file_, "SELECT COUNT(*) FROM T_LOC"));
}

TEST_P(RecordsetWritingTest, ThroughAJoinTheFieldsOwnTableIsWritten) {
  Recordset rows = List();
  EXPECT_EQ(3u, rows.RecordCount());
  EXPECT_EQ(Value("COD"), Value(rows.Field(0).def.name));
  Save(rows, {{"DENUMIRE", "Strung nou"}, {"TITLU", "Hala"}});
  EXPECT_EQ(Value("Strung nou"), Stored("DENUMIRE"));
  EXPECT_EQ("Hala,Birou", Raw(file_, "SELECT group_concat(TITLU) FROM T_LOC"));
  EXPECT_EQ("8,4", Raw(file_, "SELECT group_concat(DURATA) FROM T_GR"));

  rows.MoveLast();  // an asset without a place
  rows.Set("TITLU", "Hala");
  ExpectRefused(kValueNotAccepted, "TITLU", [&] { rows.Update(); });
  rows.CancelUpdate();
  rows.Set("DUBLU", 4);
  ExpectRefused(kValueNotAccepted, "DUBLU", [&] { rows.Update(); });
  rows.Delete();
  EXPECT_EQ("100,101", Raw(file_, "SELECT group_concat(COD) FROM T_IMO"));
  EXPECT_EQ("2", Raw(file_, "SELECT COUNT(*) FROM T_GR"));

  rows = Rows(  // a table that apare de doua ori
      "SELECT a.COD, b.DENUMIRE FROM T_IMO AS a INNER JOIN T_IMO AS b ON a.COD_GR = b.COD_GR");
  rows.Set("DENUMIRE", "x");
  ExpectRefused(kValueNotAccepted, "DENUMIRE", [&] { rows.Update(); });
}

// Two tables take part or none does.
TEST_P(RecordsetWritingTest, AnUpdateOfTwoTablesIsWholeOrNotAtAll) {
  Recordset rows = List();
  Open().Execute("UPDATE T_LOC SET TITLU = 'altul' WHERE COD = 'A'");
  rows.Set("DENUMIRE", "Strung nou");
  rows.Set("TITLU", "Hala");
  EXPECT_EQ(kRowChanged, FailureOf([&] { rows.Update(); }));
  EXPECT_EQ(Value("Strung"), Stored("DENUMIRE"));
  EXPECT_EQ(0, connection_.TransactionDepth());
}

TEST_P(RecordsetWritingTest, OnlyChangedFieldsAreWritten) {
  Recordset rows = All();
  Open().Execute("UPDATE T_IMO SET DENUMIRE = 'Al altuia' WHERE COD = '100'");
  rows.Set("VAL", 7);
  rows.Set("DENUMIRE", "Strung");  // as it was read: no change
  rows.Update();
  EXPECT_EQ("Al altuia 7.0", Raw(file_, "SELECT DENUMIRE || ' ' || VAL FROM T_IMO"));
  rows.SetSort("COD DESC");
  rows.MoveFirst();
  rows.MoveNext();
  rows.Delete();
  EXPECT_EQ(Value("100"), rows.Get("COD")) << "a deletion goes to the next row";
  rows.Delete();
  EXPECT_TRUE(rows.Eof() && !rows.Bof());
  EXPECT_EQ("102", Raw(file_, "SELECT group_concat(COD) FROM T_IMO"));
}

TEST_P(RecordsetWritingTest, AnothersChangeIsNotOverwritten) {
  const std::vector<std::string> theirs = {
      "UPDATE T_IMO SET DENUMIRE = 'Al altuia' WHERE COD = '100'",
      "UPDATE T_IMO SET DENUMIRE = 'STRUNG' WHERE COD = '100'",  // the case alone
      "UPDATE T_IMO SET DENUMIRE = Null WHERE COD = '100'", "DELETE FROM T_IMO WHERE COD = '100'"};
  for (const auto& sql : theirs) {
    SCOPED_TRACE(sql);
    Recordset rows = All();
    Connection other = Open();
    other.Execute(sql);
    const Value after = Stored("DENUMIRE");
    rows.Set("DENUMIRE", "Al meu");
    ExpectRefused(kRowChanged, "T_IMO", [&] { rows.Update(); });
    EXPECT_EQ(after, Stored("DENUMIRE"));
    EXPECT_EQ(Value("Al meu"), rows.Get("DENUMIRE")) << "what was typed is still there";
    other.Execute("UPDATE T_IMO SET DENUMIRE = 'Strung' WHERE COD = '100'");
  }
  Recordset rows = All();
  Open().Execute("DELETE FROM T_IMO");
  EXPECT_EQ(kRowChanged, FailureOf([&] { rows.Delete(); }));
}

TEST_P(RecordsetWritingTest, ARowThatTookTheIdOfADeletedOneIsAnother) {
  const std::pair<const char*, const char*> tables[] = {
      {"T_GR", "DELETE FROM T_GR WHERE COD_GR = '3.2'; INSERT INTO T_GR VALUES ('9.9', 4)"},
      {"T_LOC", "DELETE FROM T_LOC WHERE COD = 'B'; INSERT INTO T_LOC VALUES ('C', 'Birou')"}};
  for (const auto& [table, theirs] : tables) {  // with a key, and without
    SCOPED_TRACE(table);
    Recordset rows = Rows("SELECT * FROM " + std::string(table));
    rows.MoveLast();
    (void)rows.Get(0);
    Raw(file_, theirs);
    EXPECT_EQ(kRowChanged, FailureOf([&] { rows.Delete(); }));
    rows.Set(0, "x");
    EXPECT_EQ(kRowChanged, FailureOf([&] { rows.Update(); }));
    rows.CancelUpdate();
  }
  Recordset rows = Rows("SELECT * FROM T_GR ORDER BY COD_GR");
  rows.MoveLast();
  (void)rows.Get(0);
  Raw(file_, "DELETE FROM T_GR WHERE COD_GR = '9.9'; INSERT INTO T_GR VALUES ('9.8', 4)");
  rows.Set("DURATA", 5);
  EXPECT_EQ(kRowChanged, FailureOf([&] { rows.Update(); }));
  EXPECT_EQ("4", Raw(file_, "SELECT DURATA FROM T_GR WHERE COD_GR = '9.8'"));
}

TEST_P(RecordsetWritingTest, ANewRowShowsItsNumberAndDefaults) {
  Recordset rows = All();
  rows.AddNew();
  EXPECT_TRUE(rows.Get("NRCRT").IsNull());
  rows.Set("COD", "200");
  rows.Set("DATA_PF", "31.12.2006");
  EXPECT_TRUE(rows.IsEditing());
  rows.Update();
  EXPECT_EQ(Value(4), rows.Get("NRCRT"));
  EXPECT_EQ(Value(12), rows.Get("DRF"));
  EXPECT_EQ(Value(0.0), rows.Get("VAL"));
  EXPECT_EQ(Value::YesNo(false), rows.Get("IESIRE"));
  EXPECT_EQ(Value(DateTime(2006, 12, 31)), rows.Get("DATA_PF"));
  Save(rows, {{"DENUMIRE", "Nou"}});
  EXPECT_EQ(Value("Nou"), Stored("DENUMIRE", "200"));

  rows.Delete();
  rows.AddNew();
  rows.Update();  // a row of defaults alone
  EXPECT_EQ(Value(5), rows.Get("NRCRT")) << "the number of a deleted row comes back";
}

TEST_P(RecordsetWritingTest, ARefusedNewRowLeavesNothing) {
  Recordset rows = List();
  rows.AddNew();
  rows.Set("COD", "300");
  rows.Set("TITLU", "x");
  ExpectRefused(kValueNotAccepted, "TITLU", [&] { rows.Update(); });
  Recordset groups = Rows("SELECT * FROM T_GR");
  groups.AddNew();
  groups.Set("DURATA", 3);
  ExpectRefused(kValueNotAccepted, "COD_GR", [&] { groups.Update(); });
  EXPECT_EQ(Value(3), groups.Get("DURATA"));
  Save(groups, {{"COD_GR", "9.9"}});
  EXPECT_EQ(3u, groups.RecordCount());
  EXPECT_EQ("3", Raw(file_, "SELECT COUNT(*) FROM T_IMO"));
}

TEST_P(RecordsetWritingTest, LeavingARowDropsWhatWasNotWritten) {
  Recordset rows = All();
  const std::vector<std::function<void()>> leaving = {
      [&] { rows.MoveNext(); },     [&] { rows.MoveLast(); },    [&] { rows.Find("COD = '102'"); },
      [&] { rows.SetSort("COD"); }, [&] { rows.SetFilter(""); }, [&] { rows.Requery(); },
      [&] { rows.AddNew(); },       [&] { rows.CancelUpdate(); }};
  for (const auto& leave : leaving) {
    rows.MoveFirst();
    rows.Set("DENUMIRE", "nescris");
    EXPECT_EQ(Value("nescris"), rows.Get("DENUMIRE"));
    leave();
    rows.MoveFirst();
    EXPECT_FALSE(rows.IsEditing());
    EXPECT_EQ(Value("Strung"), rows.Get("DENUMIRE"));
  }
  EXPECT_EQ(Value("Strung"), Stored("DENUMIRE"));
  EXPECT_EQ(3u, rows.RecordCount());
}

TEST_P(RecordsetWritingTest, AKeyCanChangeAndTheRowIsStillFound) {
  Recordset rows = All();
  Save(rows, {{"NRCRT", 50}});
  Save(rows, {{"DENUMIRE", "mutat"}});
  EXPECT_EQ(Value("mutat"), Stored("DENUMIRE"));
  rows.MoveNext();
  rows.Set("DRF", 2);  // the row's number by chance, and no key
  rows.Update();
  Save(rows, {{"DRF", 9}});
  EXPECT_EQ(Value(9), Stored("DRF", "101"));
  rows.Set("NRCRT", 50);
  ExpectRefused(kValueNotAccepted, "NRCRT", [&] { rows.Update(); });
}

TEST_P(RecordsetWritingTest, ValuesAreConvertedByTheFieldsType) {
  Recordset rows = All();
  struct Case {
    std::string field;
    Value given;
    Value stored;
  };
  const std::vector<Case> cases = {{"VAL", "1.234,56", 1234.56},
                                   {"VAL", 5, 5.0},
                                   {"DRF", "7", 7},
                                   {"DRF", 2.5, 2},
                                   {"IESIRE", "Da", Value::YesNo(true)},
                                   {"IESIRE", 0, Value::YesNo(false)},
                                   {"DATA_PF", "1/7/2005", DateTime(2005, 7, 1)},
                                   {"DATA_PF", 38354, DateTime(2005, 1, 2)},
                                   {"DENUMIRE", 12.5, "12,5"},
                                   {"DENUMIRE", DateTime(2006, 1, 2), "02.01.2006"},
                                   {"DENUMIRE", "", ""},
                                   {"DENUMIRE", Value(), Value()}};
  for (const auto& [field, given, stored] : cases) {
    Save(rows, {{field, given}});
    EXPECT_EQ(stored, Stored(field)) << field;
    EXPECT_EQ(stored, rows.Get(field)) << field;
  }
  const std::vector<std::tuple<std::string, Value, long>> refused = {
      {"VAL", "0.5", kTypeMismatch},
      {"VAL", "", kTypeMismatch},
      {"VAL", std::numeric_limits<double>::infinity(), kOverflow},
      {"DRF", 32768, kOverflow},
      {"NRCRT", 2147483647.5, kOverflow},
      {"DATA_PF", "31.02.2006", kTypeMismatch},
      {"IESIRE", "poate", kTypeMismatch},
      {"DENUMIRE", std::string(51, 'x'), kValueNotAccepted},
      {"COD", "\xff", kValueNotAccepted},
      {"COD", std::string("a\0b", 3), kValueNotAccepted}};
  for (const auto& [field, value, number] : refused) {
    ExpectRefused(number, field, [&, &name = field, &given = value] { rows.Set(name, given); });
    EXPECT_FALSE(rows.IsEditing());
  }
  rows.Set("IESIRE", Value());
  ExpectRefused(kValueNotAccepted, "IESIRE", [&] { rows.Update(); });
}

TEST_P(RecordsetWritingTest, WhatIsNoTablesRowIsReadOnly) {
  Catalogue(connection_).CreateQuery({"qryImo", "SELECT COD, DENUMIRE FROM T_IMO"});
  const std::vector<std::string> statements = {
      "SELECT COD, DENUMIRE FROM qryImo",
      "SELECT COD, DENUMIRE FROM (SELECT * FROM T_IMO)",
      "SELECT DISTINCT COD, DENUMIRE FROM T_IMO",
      "SELECT COD, MAX(DENUMIRE) AS DENUMIRE FROM T_IMO GROUP BY COD",
      "SELECT COD, DENUMIRE FROM T_IMO UNION SELECT COD, TITLU FROM T_LOC",
      "SELECT qryImo.COD, T_IMO.DENUMIRE FROM T_IMO INNER JOIN qryImo ON qryImo.COD = T_IMO.COD"};
  for (const auto& sql : statements) {
    SCOPED_TRACE(sql);
    Recordset rows = Rows(sql);
    rows.Set("DENUMIRE", "x");
    EXPECT_EQ(kValueNotAccepted, FailureOf([&] { rows.Update(); }));
    EXPECT_EQ(kValueNotAccepted, FailureOf([&] { rows.Delete(); }));
    rows.AddNew();
    EXPECT_EQ(kValueNotAccepted, FailureOf([&] { rows.Update(); }));
  }
  EXPECT_EQ("Birou,Strung,freza", Raw(file_,
                                      "SELECT group_concat(DENUMIRE) FROM (SELECT DENUMIRE FROM "
                                      "T_IMO ORDER BY DENUMIRE COLLATE BINARY)"));
}

TEST_P(RecordsetWritingTest, CutFromTheFileAllIsWrittenAtOnceOrNothing) {
  const auto edit = [&] {
    Recordset rows = All();
    rows.Disconnect();
    Save(rows, {{"DENUMIRE", "schimbat"}});
    Save(rows, {{"DENUMIRE", "schimbat iar"}});
    rows.MoveNext();
    rows.Delete();
    rows.AddNew();
    Save(rows, {{"COD", "200"}});
    rows.AddNew();
    Save(rows, {{"COD", "201"}});
    rows.Delete();
    return rows;
  };
  Recordset rows = edit();
  EXPECT_FALSE(rows.IsConnected());
  EXPECT_EQ("100,101,102", Raw(file_, "SELECT group_concat(COD) FROM T_IMO"));
  Open().Execute("UPDATE T_IMO SET DENUMIRE = 'Al altuia' WHERE COD = '100'");
  Open().Execute("UPDATE T_IMO SET VAL = 8 WHERE COD = '102'");
  EXPECT_EQ(kRowChanged, FailureOf([&] { rows.UpdateBatch(connection_); }));
  EXPECT_EQ("100,101,102", Raw(file_, "SELECT group_concat(COD) FROM T_IMO"));

  rows = edit();
  rows.UpdateBatch(connection_);
  EXPECT_EQ("100,102,200", Raw(file_, "SELECT group_concat(COD) FROM T_IMO"));
  EXPECT_EQ(Value("schimbat iar"), Stored("DENUMIRE"));
  rows.MoveFirst();
  rows.Find("COD = '200'");
  EXPECT_EQ(Value(4), rows.Get("NRCRT"));
  Save(rows, {{"DENUMIRE", "si mai tarziu"}});
  rows.UpdateBatch(connection_);  // what was written once is not written again
  EXPECT_EQ(Value("si mai tarziu"), Stored("DENUMIRE", "200"));
  EXPECT_EQ("3", Raw(file_, "SELECT COUNT(*) FROM T_IMO"));
}

INSTANTIATE_TEST_SUITE_P(BothKinds, RecordsetWritingTest, ::testing::Bool(), KindOf);

}  // namespace
}  // namespace tevra
