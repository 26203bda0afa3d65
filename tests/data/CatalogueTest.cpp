// The catalogue: structures read back as they were made, and changed without losing a row.

#include "tests/data/DataTest.h"

namespace tevra {
namespace {

class CatalogueTest : public AssetsTest {
 protected:
  Catalogue Cat() { return Catalogue(connection_); }

  // One field of each type and property.
  static TableDef AllTypes() {
    TableDef table{"T_Toate", false, {}, {}};
    FieldDef notEmpty = Text("CU SPATIU", 3);
    notEmpty.allowZeroLength = false;
    FieldDef required = Text("OBLIGAT", 5);
    required.required = true;
    required.defaultValue = "'LEI'";
    table.fields = {Counter("ID"),
                    notEmpty,
                    required,
                    Field("DA", FieldType::YesNo, "0"),
                    Field("OCTET", FieldType::Byte),
                    Field("SCURT", FieldType::Integer, "-1"),
                    Field("LUNG", FieldType::Long),
                    Field("REAL1", FieldType::Double, "0"),
                    Field("DATA", FieldType::DateTime)};
    table.indexes = {Key({"ID"}),
                     {"dupa_data", {"DATA", "LUNG"}, false, false},
                     {"in_jos", {"LUNG", "DATA", "OCTET"}, false, false, {"LUNG", "OCTET"}},
                     {"unic", {"OCTET"}, false, true}};
    return table;
  }

  std::string Rows(const std::string& what, const std::string& table) {
    return Raw(file_, "SELECT group_concat(" + what + ", '|') FROM (SELECT * FROM " + table +
                          " ORDER BY rowid)");
  }
};

void ExpectEqual(const TableDef& expected, const TableDef& actual) {
  EXPECT_EQ(expected.name, actual.name);
  ASSERT_EQ(expected.fields.size(), actual.fields.size());
  for (std::size_t i = 0; i < expected.fields.size(); ++i) {
    EXPECT_TRUE(expected.fields[i] == actual.fields[i]) << expected.fields[i].name;
  }
  EXPECT_TRUE(expected.indexes == actual.indexes);
}

TEST_F(CatalogueTest, AStructureReadsBackAsItWasMade) {
  const TableDef made = AllTypes();
  Cat().CreateTable(made);
  ExpectEqual(made, Cat().Table("T_TOATE"));
  EXPECT_TRUE(Cat().HasTable("t_toate"));
  EXPECT_FALSE(Cat().HasTable("T_Nimic"));
  ExpectRefused(kItemNotFound, "T_Nimic", [&] { (void)Cat().Table("T_Nimic"); });

  TableDef keyed{"T_Cheie", false, {Text("A", 2), Field("B", FieldType::Byte)}, {Key({"B", "A"})}};
  Cat().CreateTable(keyed);
  for (auto& field : keyed.fields) field.required = true;  // keys are
  ExpectEqual(keyed, Cat().Table("T_Cheie"));

  std::string names;
  for (const TableDef& table : Cat().Tables()) names += table.name + (table.system ? "* " : " ");
  EXPECT_EQ("sqlite_sequence* T_Cheie T_GR T_IMO T_LOC T_Toate ", names);
}

TEST_F(CatalogueTest, FieldsComeGoAndChangeTheirNames) {
  Cat().CreateQuery({"qryCoduri", "SELECT COD, DENUMIRE FROM T_IMO"});
  FieldDef added = Text("NOTA", 10);
  added.allowZeroLength = false;
  added.defaultValue = "'-'";
  Cat().AddField("t_imo", added);
  Cat().RenameField("t_imo", "nota", "OBS");
  added.name = "OBS";
  EXPECT_TRUE(added == Cat().Table("T_IMO").fields.back());
  EXPECT_EQ("-|-|-", Rows("OBS", "T_IMO"));
  Cat().RenameField("T_IMO", "DENUMIRE", "NUME");
  EXPECT_EQ(3u, connection_.OpenRecordset("SELECT COD FROM qryCoduri").RecordCount());
  Cat().DropField("T_IMO", "obs");
  EXPECT_EQ(nullptr, Cat().Table("T_IMO").Find("OBS"));

  const TableDef before = Cat().Table("T_IMO");
  FieldDef mandatory = Text("X", 5);
  mandatory.required = true;
  EXPECT_NE(0, FailureOf([&] { Cat().AddField("T_IMO", mandatory); }))
      << "three rows would lack it";
  EXPECT_NE(0, FailureOf([&] { Cat().AddField("T_IMO", Text("COD", 5)); }));
  EXPECT_NE(0, FailureOf([&] { Cat().DropField("T_IMO", "COD"); })) << "an index holds it";
  ExpectRefused(kItemNotFound, "T_IMO.NIMIC", [&] { Cat().DropField("T_IMO", "NIMIC"); });
  ExpectRefused(kItemNotFound, "T_IMO.NIMIC", [&] { Cat().RenameField("T_IMO", "NIMIC", "X"); });
  ExpectRefused(kItemNotFound, "T_IMO.NIMIC", [&] { Cat().AlterField("T_IMO", Text("NIMIC", 5)); });
  ExpectRefused(kItemNotFound, "NIMIC", [&] {
    Cat().CreateIndex("T_IMO", {"x", {"NIMIC"}, false, false});
  });
  ExpectRefused(kItemNotFound, "T_NU", [&] { Cat().AddField("T_NU", added); });
  ExpectEqual(before, Cat().Table("T_IMO"));
}

TEST_F(CatalogueTest, AFieldsTypeChangesWithItsValues) {
  Cat().CreateQuery({"qryValori", "SELECT COD, VAL FROM T_IMO"});
  Cat().AlterField("T_IMO", Text("val", 20));
  EXPECT_EQ("1500,5|200|99,25", Rows("VAL", "T_IMO"));
  Cat().AlterField("T_IMO", Field("VAL", FieldType::Double, "5"));
  EXPECT_EQ("1500.5|200.0|99.25", Rows("VAL", "T_IMO"));
  Cat().AlterField("T_IMO", Field("COD", FieldType::Long));
  EXPECT_EQ("100|101|102", Rows("COD", "T_IMO"));
  EXPECT_EQ(FieldType::Long, Cat().Table("T_IMO").Find("COD")->type);
  Cat().AlterField("T_IMO", Text("DENUMIRE", 60));
  Cat().AlterField("T_IMO", Field("DATA_PF", FieldType::Double));
  EXPECT_EQ("38534.0|38776.0", Rows("DATA_PF", "T_IMO"));

  const TableDef table = Cat().Table("T_IMO");
  EXPECT_EQ("VAL", table.fields[5].name) << "its place and the way it is written stay";
  EXPECT_EQ("5", table.fields[5].defaultValue);
  ASSERT_EQ(2u, table.indexes.size());
  EXPECT_EQ("COD", table.indexes[1].name);
  EXPECT_EQ(3u, connection_.OpenRecordset("SELECT COD, VAL FROM qryValori").RecordCount());
  EXPECT_EQ("ok", Raw(file_, "PRAGMA integrity_check"));
}

TEST_F(CatalogueTest, WhatDoesNotConvertLeavesTheTable) {
  const TableDef before = Cat().Table("T_IMO");
  const std::string rows = Rows("COD || DENUMIRE || VAL || NRCRT", "T_IMO");
  FieldDef required = Text("COD_LOC", 11);
  required.required = true;
  const std::vector<std::pair<FieldDef, long>> cases = {
      {Field("DENUMIRE", FieldType::Double), kTypeMismatch},
      {Field("DENUMIRE", FieldType::DateTime), kTypeMismatch},
      {Text("DENUMIRE", 5), kValueNotAccepted},
      {Field("VAL", FieldType::Byte), kOverflow},
      {required, kValueNotAccepted}};
  for (const auto& [field, number] : cases) {
    ExpectRefused(number, field.name, [&, &given = field] { Cat().AlterField("T_IMO", given); });
    ExpectEqual(before, Cat().Table("T_IMO"));
    EXPECT_EQ(rows, Rows("COD || DENUMIRE || VAL || NRCRT", "T_IMO"));
  }
  EXPECT_FALSE(Cat().HasTable("sys_nou_T_IMO"));
}

TEST_F(CatalogueTest, ThePrimaryKeyIsDroppedAndMade) {
  Cat().CreateTable(
      {"T_Par", false, {Text("A", 3), Field("B", FieldType::Integer), Text("C", 9)}, {}});
  connection_.Execute(
      "INSERT INTO T_Par VALUES ('x', 1, 'unu'), ('y', 1, 'doi'), ('z', 2, 'trei')");
  connection_.Execute("DELETE FROM T_Par WHERE A = 'x'");
  Recordset open = connection_.OpenRecordset("SELECT * FROM T_Par WHERE C = 'trei'");

  connection_.Execute("CREATE INDEX PrimaryKey ON T_Par (A,B) with Primary");
  EXPECT_TRUE(Key({"A", "B"}) == Cat().Table("T_Par").indexes.at(0));
  EXPECT_TRUE(Cat().Table("T_Par").Find("B")->required);
  EXPECT_EQ("doi|trei", Rows("C", "T_Par"));
  ExpectRefused(kValueNotAccepted, "T_Par.A",
                [&] { connection_.Execute("INSERT INTO T_Par VALUES ('Y', 1, '')"); });
  ExpectRefused(kStatementError, "T_Par", [&] { Cat().CreatePrimaryKey("T_Par", {"B"}); });

  // A recordset left open still speaks of the same row.
  Save(open, {{"C", "iar trei"}});
  EXPECT_EQ("doi|iar trei", Rows("C", "T_Par"));

  Cat().DropIndex("T_Par", "primarykey");
  EXPECT_TRUE(Cat().Table("T_Par").indexes.empty());
  ExpectRefused(kItemNotFound, "PrimaryKey", [&] { Cat().DropPrimaryKey("T_Par"); });
  connection_.Execute("INSERT INTO T_Par VALUES ('Y', 1, 'alt')");
  EXPECT_EQ(kValueNotAccepted, FailureOf([&] { Cat().CreatePrimaryKey("T_Par", {"A", "B"}); }));
  ExpectRefused(kItemNotFound, "NIMIC", [&] { Cat().CreatePrimaryKey("T_Par", {"NIMIC"}); });
  EXPECT_EQ("doi|iar trei|alt", Rows("C", "T_Par"));

  // A key of whole numbers would be numbered by the engine where it is Null.
  Cat().CreateTable({"T_N", false, {Field("N", FieldType::Long)}, {}});
  connection_.Execute("INSERT INTO T_N VALUES (1), (Null)");
  ExpectRefused(kValueNotAccepted, "N", [&] { Cat().CreatePrimaryKey("T_N", {"N"}); });
  EXPECT_EQ("1", Rows("N", "T_N"));
}

TEST_F(CatalogueTest, NumbersAreNotGivenTwiceAfterAChange) {
  connection_.Execute("DELETE FROM T_IMO WHERE NRCRT = 3");
  Cat().AlterField("T_IMO", Text("DENUMIRE", 60));
  connection_.Execute("INSERT INTO T_IMO (COD) VALUES ('103')");
  EXPECT_EQ("1|2|4", Rows("NRCRT", "T_IMO"));
  connection_.Execute("DELETE FROM T_IMO");
  Cat().AlterField("T_IMO", Text("DENUMIRE", 70));  // no row left to count from
  connection_.Execute("INSERT INTO T_IMO (COD) VALUES ('104')");
  EXPECT_EQ("5", Rows("NRCRT", "T_IMO"));
  EXPECT_TRUE(Cat().Table("T_IMO").Find("NRCRT")->autoNumber);
}

TEST_F(CatalogueTest, ChangesStandWithinATransaction) {
  const TableDef before = Cat().Table("T_IMO");
  {
    Transaction transaction(connection_);
    Cat().AlterField("T_IMO", Field("COD", FieldType::Long));
    Cat().DropPrimaryKey("T_IMO");
    Cat().CreateTable(AllTypes());
  }
  ExpectEqual(before, Cat().Table("T_IMO"));
  EXPECT_FALSE(Cat().HasTable("T_Toate"));
  TableDef wrong = AllTypes();
  wrong.indexes.push_back({"gresit", {"NIMIC"}, false, false});
  EXPECT_NE(0, FailureOf([&] { Cat().CreateTable(wrong); }));
  EXPECT_FALSE(Cat().HasTable("T_Toate")) << "a table without one of its indexes";
}

TEST_F(CatalogueTest, QueriesAreReadBack) {
  const QueryDef query{"qryVechi", "SELECT COD AS INVENTAR FROM T_IMO WHERE VAL > 100"};
  Cat().CreateQuery(query);
  ASSERT_EQ(1u, Cat().Queries().size());
  EXPECT_EQ(query.name, Cat().Queries()[0].name);
  EXPECT_EQ(query.sql, Cat().Queries()[0].sql);
  EXPECT_EQ(kStatementError, FailureOf([&] {
              Cat().CreateQuery({"q2", "SELECT 1; DROP TABLE T_IMO"});
            }));
  EXPECT_TRUE(Cat().HasTable("T_IMO"));
  EXPECT_FALSE(Cat().HasTable("qryVechi"));
}

}  // namespace
}  // namespace tevra
