// The structure upgrade over files of older builds.
#include "tests/care/UpgradeTest.h"

#include "care/FieldConversion.h"
#include "care/Restore.h"
#include "platform/data/CompanyFile.h"
#include "session/Version.h"
#include "tests/KilledWrites.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

TEST_F(UpgradeTest, EqualFilesGetTheVersionOnlyAndABackup) {
  Execute("UPDATE kv_info SET VERSIUNE = " + std::to_string(kRevision));
  const std::string before = Dump(File());
  Age();
  const UpgradeResult result = Upgrade();
  EXPECT_TRUE(result.changes.empty() && result.left.empty());
  EXPECT_EQ(Dump(File()), before);
  EXPECT_EQ(Inspect(result.backup).version, 0);
}

TEST_F(UpgradeTest, BringsWhatIsMissingAndConvertsWhatIsThere) {
  {
    Connection old = company_.Open();
    old.Execute("INSERT INTO kv_Ter (COD, NUME) VALUES (7, 'Un furnizor')");
    Catalogue catalogue(old);
    old.Execute("DROP TABLE I_GRADE");
    old.Execute("DROP VIEW qryContLinii");
    catalogue.DropIndex("Kv_Linii", "CONT");
    catalogue.CreateIndex("Kv_Linii", {"CONT", {"CREDIT"}, false, false});
    catalogue.AddField("I_IMO", {.name = "AL_FIRMEI", .size = 30, .defaultValue = {}});
    old.Execute("UPDATE I_IMO SET AL_FIRMEI = 'pastrat'");
    catalogue.DropField("I_IMO", "DENUMIRE");
    catalogue.AlterField("I_IMO", {.name = "VAL_CUMP", .size = 20, .defaultValue = {}});
    catalogue.AlterField("I_IMO", {.name = "NRCRT",
                                   .type = FieldType::Double,
                                   .size = 8,
                                   .required = true,
                                   .defaultValue = {}});
    catalogue.DropPrimaryKey("kv_Ter");
    catalogue.AlterField("kv_Ter", {.name = "COD", .size = 9, .defaultValue = {}});
    catalogue.AlterField("Kv_CC", {.name = "TITLU", .size = 200, .defaultValue = {}});
  }
  EXPECT_EQ(Row("VAL_CUMP", "I_IMO"), "1500,25 \n");
  const UpgradeResult result = Upgrade();
  EXPECT_TRUE(result.left.empty()) << LeftText(result);
  EXPECT_EQ(Row("NRCRT, COD, VAL_CUMP, AL_FIRMEI, DENUMIRE", "I_IMO"), "1 100 1500,25 pastrat  \n");
  EXPECT_EQ(Row("COD, NUME", "kv_Ter"), "7 Un furnizor \n");
  EXPECT_EQ(Row("CONT, DEBIT", "Kv_Linii ORDER BY NRLINIE"), "2131 10,5 \n404  \n");
  EXPECT_EQ(Catalogue(company_.Open()).Table("Kv_CC").Find("TITLU")->size, 200);
  const auto tables = Tables();
  const TableDef* assets = Find(tables, "I_IMO");
  EXPECT_EQ(assets->fields.back().name, "DENUMIRE");
  EXPECT_TRUE(assets->Find("NRCRT")->autoNumber);
  EXPECT_TRUE(Find(tables, "Kv_Linii")->indexes == Find(Template(), "Kv_Linii")->indexes);
  EXPECT_EQ(company_.AddAsset({{"COD", "101"}}), 2);
  EXPECT_FALSE(StructuraDiferita());
}

TEST_F(UpgradeTest, AFieldWhoseValuesDoNotConvertStaysWhole) {
  {
    Connection old = company_.Open();
    Catalogue catalogue(old);
    catalogue.AlterField("I_IMO", {.name = "VAL_CUMP", .size = 20, .defaultValue = {}});
    catalogue.AlterField(
        "I_IMO", {.name = "DNFANI", .type = FieldType::Double, .size = 8, .defaultValue = {}});
    catalogue.AlterField("I_IMO", {.name = "DENUMIRE", .size = 10, .defaultValue = {}});
    old.Execute("UPDATE I_IMO SET VAL_CUMP = 'o mie', DNFANI = 2.5");
    catalogue.DropPrimaryKey("Kv_CC");
    old.Execute("INSERT INTO Kv_CC (COD, TITLU) VALUES ('A', '1'), ('A', '2')");
  }
  const UpgradeResult result = Upgrade();
  EXPECT_EQ(Row("VAL_CUMP, DNFANI", "I_IMO"), "o mie 2,5 \n");
  EXPECT_EQ(Row("COD, TITLU", "Kv_CC"), "A 1 \nA 2 \n");
  const auto tables = Tables();
  EXPECT_EQ(Find(tables, "I_IMO")->Find("VAL_CUMP")->type, FieldType::Text);
  EXPECT_EQ(Find(tables, "I_IMO")->Find("DENUMIRE")->size, 50);
  for (const TableDef& table : tables) {
    for (const FieldDef& field : table.fields) EXPECT_EQ(field.name.find("-1"), std::string::npos);
  }
  const std::string text = LeftText(result);
  for (const char* part :
       {"I_IMO.VAL_CUMP: Type mismatch: o mie in procedura ModifyField din Class Module "
        "clsCompareBD Linia: ",
        "I_IMO.DNFANI: ", "Kv_CC: ", " in procedura pCreatePK din Class Module clsCompareBD"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
  }
  EXPECT_EQ(result.left.size(), 3U) << text;
  EXPECT_FALSE(StructuraDiferita());
}

TEST_F(UpgradeTest, AKeyThatTheRowsRefuseIsReportedAndItsFieldsAreBrought) {
  {
    Connection old = company_.Open();
    Catalogue catalogue(old);
    catalogue.DropPrimaryKey("Kv_CC");
    catalogue.DropField("Kv_CC", "COD");
    old.Execute("INSERT INTO Kv_CC (TITLU) VALUES ('fara cod')");
    catalogue.DropPrimaryKey("KV_JUR");
    catalogue.AlterField("KV_JUR", {.name = "COD", .size = 2, .defaultValue = {}});
    old.Execute("INSERT INTO KV_JUR (TITLU) VALUES ('fara cod')");
    catalogue.DropPrimaryKey("I_LOCALIZARE");
    old.Execute("DELETE FROM I_LOCALIZARE");
    catalogue.CreatePrimaryKey("I_LOCALIZARE", {"TITLU"});
  }
  const UpgradeResult result = Upgrade();
  const std::string text = LeftText(result);
  for (const std::string& change : result.changes) {
    EXPECT_EQ(change.find("I_LOCALIZARE.TITLU"), std::string::npos) << change;
  }
  for (const char* part : {"Kv_CC", "KV_JUR.COD: valoarea este obligatorie",
                           "KV_JUR: ", "I_LOCALIZARE: tabela are alta cheie"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
  }
  const auto tables = Tables();
  EXPECT_EQ(Row("COD, TITLU", "Kv_CC"), " fara cod \n");
  EXPECT_EQ(Find(tables, "KV_JUR")->Find("COD")->size, 3);
  EXPECT_EQ(Find(tables, "I_LOCALIZARE")->indexes.front().fields.front(), "TITLU");
  EXPECT_FALSE(StructuraDiferita());
}

TEST(FieldConversion, IsRefusedWhereSomethingWouldBeLost) {
  const auto to = [](FieldType type, int size = 5) {
    return FieldDef{.name = "F", .type = type, .size = size, .defaultValue = {}};
  };
  EXPECT_TRUE(Converts("1.234,5", to(FieldType::Double)));
  EXPECT_FALSE(Converts("2,5", to(FieldType::Long)));
  EXPECT_FALSE(Converts(2.5, to(FieldType::Long)));
  EXPECT_FALSE(Converts(70000, to(FieldType::Integer)));
  EXPECT_TRUE(Converts(DateTime(2026, 7, 9, 8, 5, 59), to(FieldType::Double)));
  EXPECT_FALSE(Converts(DateTime(2026, 7, 9, 8, 5, 59), to(FieldType::Long)));
  EXPECT_FALSE(Converts("31.02.2026", to(FieldType::DateTime)));
  EXPECT_TRUE(Converts("-1", to(FieldType::YesNo)));
  EXPECT_FALSE(Converts(5, to(FieldType::YesNo)));
  EXPECT_FALSE(Converts("123456", to(FieldType::Text)));
  EXPECT_TRUE(Converts(0.1, to(FieldType::Text)));
  EXPECT_TRUE(Converts(Value(), to(FieldType::Long)));
}

TEST_F(UpgradeTest, ADryRunAndAnOpenFileChangeNothing) {
  Execute("DROP TABLE I_GRADE");
  const std::string before = Dump(File());
  const UpgradeResult result = UpgradeStructure(SessionCompany(), true);
  EXPECT_EQ(result.changes, std::vector<std::string>{"tabela noua: I_GRADE"});
  {
    const Connection user = company_.Open();
    EXPECT_EQ(FailureOf([&] { Upgrade(); }), kPermissionDenied);
  }
  EXPECT_THROW(UpgradeStructure(SessionCompany(), false, [](int, int) { return false; }), GivenUp);
  EXPECT_EQ(Dump(File()), before);
}

TEST_F(UpgradeTest, AKilledOneLeavesTheOldOrTheNewStructure) {
  {
    Connection old = company_.Open();
    Catalogue(old).AlterField("I_IMO", {.name = "VAL_CUMP", .size = 20, .defaultValue = {}});
    old.Execute("DROP TABLE I_GRADE");
  }
  RequireSoleUse(File());
  const fs::path old = Folder() / "vechi";
  fs::copy_file(File(), old);
  const std::string before = Dump(File());
  WriteCounter counter;
  const auto work = [&] { Upgrade(); };
  const int writes = counter.WritesOf(work);
  ASSERT_GT(writes, 50);
  const std::string after = Dump(File());
  for (int killed = 1; killed <= writes; killed += 1 + writes / 100) {
    RemoveCompanyFile(File());
    fs::copy_file(old, File());
    EXPECT_TRUE(counter.KilledIn(killed, work)) << killed;
    company_.Open().Close();
    const std::string now = Dump(File());
    EXPECT_TRUE(now == before || now == after) << killed;
    EXPECT_EQ(StructuraDiferita(), now == before) << killed;
  }
  work();
  EXPECT_EQ(Dump(File()), after);
}

}  // namespace
}  // namespace tevra::test
