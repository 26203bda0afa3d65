// Recordsets as they are read and walked.

#include "tests/data/DataTest.h"

namespace tevra {
namespace {

class RecordsetTest : public RowsTest {
 protected:
  // The codes of the rows from the first to the last, as "100 101 102".
  static std::string Codes(Recordset rows) {
    std::string codes;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
      codes += (codes.empty() ? "" : " ") + rows.Get("COD").TextOrEmpty();
    }
    return codes;
  }

  Recordset All() { return Rows("SELECT * FROM T_IMO ORDER BY NRCRT"); }
};

TEST_P(RecordsetTest, PositionsAtBothEnds) {
  Recordset rows = All();
  EXPECT_EQ(3u, rows.RecordCount());
  EXPECT_FALSE(rows.Bof() || rows.Eof());
  rows.MovePrevious();
  EXPECT_TRUE(rows.Bof());
  EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { (void)rows.Get("COD"); }));
  EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { rows.MovePrevious(); }));
  rows.MoveNext();
  EXPECT_EQ(Value("100"), rows.Get("COD"));
  rows.MoveLast();
  EXPECT_EQ(Value("102"), rows.Get("COD"));
  rows.MoveNext();
  EXPECT_TRUE(rows.Eof());
  EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { rows.MoveNext(); }));
  EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { rows.Set("COD", "x"); }));
  rows.MovePrevious();
  EXPECT_EQ(Value("102"), rows.Get("COD"));
}

TEST_P(RecordsetTest, AnEmptyOneIsAtBothEnds) {
  Recordset rows = Rows("SELECT * FROM T_IMO WHERE 1 = 0");
  for (int step = 0; step < 3; ++step) {
    EXPECT_TRUE(rows.Bof() && rows.Eof());
    EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { rows.MoveNext(); }));
    EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { rows.MovePrevious(); }));
    EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { rows.Delete(); }));
    rows.AddNew();
    EXPECT_FALSE(rows.Bof() || rows.Eof());
    step % 2 ? rows.CancelUpdate() : rows.MoveFirst();
  }
  rows.AddNew();
  EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { rows.MovePrevious(); }));
  EXPECT_TRUE(rows.Bof() && rows.Eof());
}

TEST_P(RecordsetTest, FieldsKnowTheirTypesAndOrigin) {
  Recordset rows = Rows(
      "SELECT a.COD AS Inventar, IESIRE, DATA_PF, VAL, VAL * 2 AS DUBLU, NRCRT, DRF FROM T_IMO AS "
      "a");
  const FieldInfo& code = rows.Field(rows.FieldIndex("INVENTAR"));
  EXPECT_EQ("T_IMO", code.baseTable);
  EXPECT_EQ("COD", code.baseColumn);
  EXPECT_EQ(20, code.def.size);
  const std::vector<FieldType> types = {FieldType::Text,   FieldType::YesNo, FieldType::DateTime,
                                        FieldType::Double, FieldType::Text,  FieldType::Long,
                                        FieldType::Integer};
  for (std::size_t i = 0; i < types.size(); ++i) {
    EXPECT_EQ(i != 4, rows.Field(i).typed) << i;
    if (rows.Field(i).typed) {
      EXPECT_EQ(types[i], rows.Field(i).def.type) << i;
    }
  }
  EXPECT_EQ(7u, rows.FieldCount());
  EXPECT_EQ(kItemNotFound, FailureOf([&] { (void)rows.Get("NIMIC"); }));
  EXPECT_EQ(kItemNotFound, FailureOf([&] { (void)rows.Get(7); }));
  EXPECT_EQ(kItemNotFound, FailureOf([&] { (void)rows.Get("__row1"); }));
  EXPECT_FALSE(rows.FindField("NIMIC"));
}

TEST_P(RecordsetTest, FilterKeepsTheRowsThatMeetIt) {
  Recordset rows = All();
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"101", "COD = '101'|cod='101'|COD = 101|denumire = 'BIROU'"},
      {"101", "DATA_PF > #2005-12-31#|DATA_PF = '28.02.2006'"},
      {"100 102", "[COD]<>'101'"},
      {"102", "DENUMIRE Like 'F*'|DATA_PF = Null"},
      {"100 101", "DENUMIRE LIKE '%u%'|NRCRT <= 2|COD_LOC <> Null"},
      {"101 102", "VAL >= 99.25 AND VAL < 1500.5"},
      {"100", "VAL > '99,25' and COD_LOC = 'A'|DATA_PF = #01/07/2005#"},
      {"101", "COD_LOC <> 'A'"},
      {"100 101 102", "IESIRE = False|IESIRE = 'False'|"},
      {"", "IESIRE = 'True'|DENUMIRE = 'D''Arc'"}};
  for (const auto& [codes, filters] : cases) {
    for (const auto& criteria : Parts(filters)) {
      rows.SetFilter(criteria);
      EXPECT_EQ(codes, Codes(rows)) << criteria;
    }
  }
}

TEST_P(RecordsetTest, WhatCannotBeReadLeavesTheRowsAsTheyStand) {
  Recordset rows = All();
  rows.SetFilter("NRCRT > 1");
  rows.MoveLast();
  const std::vector<std::pair<std::string, long>> cases = {
      {"NIMIC = 1", kItemNotFound}, {"COD", kBadCriteria},
      {"COD = ", kBadCriteria},     {"COD = 'x", kBadCriteria},
      {"COD ! 5", kBadCriteria},    {"COD = 1 OR COD = 2", kBadCriteria},
      {"COD = 1,5", kBadCriteria},  {"VAL = inf", kBadCriteria},
      {"VAL = nan", kBadCriteria},  {"DATA_PF = #31/02/2006#", kBadCriteria},
      {"= 5", kBadCriteria},        {"COD = 'a' AND", kBadCriteria},
      {"[COD = 5", kBadCriteria},   {"VAL = 'abc'", kTypeMismatch}};
  for (const auto& [criteria, number] : cases) {
    EXPECT_EQ(number, FailureOf([&, &text = criteria] { rows.SetFilter(text); })) << criteria;
    if (number == kBadCriteria) {
      EXPECT_EQ(number, FailureOf([&, &text = criteria] { rows.Find(text); }));
    }
    EXPECT_EQ(2u, rows.RecordCount()) << criteria;
    EXPECT_EQ(Value("102"), rows.Get("COD")) << criteria;
  }
  for (const char* order : {"COD DESC,", "COD UP", ", COD"}) {
    EXPECT_EQ(kBadCriteria, FailureOf([&] { rows.SetSort(order); })) << order;
  }
  EXPECT_EQ(kItemNotFound, FailureOf([&] { rows.SetSort("COD, NIMIC"); }));
  EXPECT_EQ("101 102", Codes(rows));
}

TEST_P(RecordsetTest, SortOrdersAsTheFileDoes) {
  Recordset rows = All();
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"DENUMIRE", "101 102 100"},  // Birou, freza, Strung: without case
      {"VAL", "102 101 100"},
      {"[COD_GR] desc, [VAL]", "101 102 100"},
      {"COD_GR ASC, DENUMIRE ASC", "102 100 101"},
      {"DATA_PF", "102 100 101"},  // Null first
      {"COD_GR", "100 102 101"},   // rows alike keep the statement's order
      {"", "100 101 102"}};
  for (const auto& [order, codes] : cases) {
    rows.SetSort(order);
    EXPECT_EQ(codes, Codes(rows)) << order;
  }
}

TEST_P(RecordsetTest, FindGoesOnFromTheCurrentRow) {
  Recordset rows = All();
  rows.Find("COD_GR = '2.1'");
  EXPECT_EQ(Value("100"), rows.Get("COD"));
  rows.Find("COD_GR = '2.1'", 1);
  EXPECT_EQ(Value("102"), rows.Get("COD"));
  rows.Find("COD_GR = '3.2'");
  EXPECT_TRUE(rows.Eof());
  rows.MoveFirst();
  rows.MovePrevious();
  rows.Find("COD_GR = '3.2'");
  EXPECT_EQ(Value("101"), rows.Get("COD"));
}

TEST_P(RecordsetTest, ACloneHasAPlaceOfItsOwnOnTheSameRows) {
  Recordset rows = All();
  Recordset clone = rows.Clone();
  clone.Find("COD = '102'");
  EXPECT_EQ(Value("100"), rows.Get("COD"));
  rows.SetSort("DENUMIRE");
  rows.SetBookmark(clone.Bookmark());
  EXPECT_EQ(Value("102"), rows.Get("COD"));
  rows.SetFilter("COD = '100'");
  EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { rows.SetBookmark(clone.Bookmark()); }));
  rows.SetFilter("");
  rows.SetSort("");
  rows.SetBookmark(clone.Bookmark());

  rows.Set("DENUMIRE", "Raboteza");
  EXPECT_EQ(Value("freza"), clone.Get("DENUMIRE")) << "not written yet";
  rows.Update();
  EXPECT_EQ(Value("Raboteza"), clone.Get("DENUMIRE"));
  clone.AddNew();
  Save(clone, {{"COD", "103"}});
  EXPECT_EQ("100 101 102 103", Codes(rows));

  rows.MoveFirst();
  clone.MoveFirst();
  rows.Delete();
  EXPECT_EQ(Value("101"), clone.Get("COD"));
  EXPECT_EQ(3u, clone.RecordCount());
  connection_.Execute("DELETE FROM T_IMO");
  rows.Requery();
  EXPECT_TRUE(clone.Eof());
  EXPECT_EQ(kNoCurrentRecord, FailureOf([&] { (void)clone.Get("COD"); }));
}

TEST_P(RecordsetTest, RequeryKeepsFilterSortAndParameters) {
  Recordset rows = Rows("SELECT * FROM T_IMO WHERE VAL > ?", {50});
  rows.SetFilter("COD_GR = '2.1'");
  rows.SetSort("COD DESC");
  connection_.Execute(
      "INSERT INTO T_IMO (COD, COD_GR, VAL) VALUES ('109', '2.1', 51), ('110', '2.1', 49)");
  EXPECT_EQ("102 100", Codes(rows)) << "rows stand as they were when it was opened";
  rows.Requery();
  EXPECT_EQ("109 102 100", Codes(rows));
}

TEST_P(RecordsetTest, AFailedRequeryLeavesTheRows) {
  Recordset rows = Rows("SELECT * FROM T_LOC");
  Catalogue(connection_).RenameField("T_LOC", "TITLU", "NUME");
  connection_.Execute("DROP TABLE T_LOC");
  EXPECT_EQ(kStatementError, FailureOf([&] { rows.Requery(); }));
  EXPECT_EQ(2u, rows.RecordCount());
  EXPECT_EQ(Value("Atelier"), rows.Get("TITLU"));
}

INSTANTIATE_TEST_SUITE_P(BothKinds, RecordsetTest, ::testing::Bool(), KindOf);

}  // namespace
}  // namespace tevra
