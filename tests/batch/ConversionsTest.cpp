// The conversions of 2005 from the command line.
#include "tests/batch/BatchTest.h"

namespace fs = std::filesystem;

namespace tevra::batch::test {
namespace {

using tevra::NamesIn;

class ConversionsTest : public BatchTest {
 protected:
  ConversionsTest() {
    Connection company = company_.Open();
    company.Execute("DELETE FROM kv_val WHERE COD = 'ROL'");
    company.Execute("DELETE FROM I_CLASIFICARE");
    company.Execute(
        "INSERT INTO I_CLASIFICARE (COD_GR, COD_GR_NOU, LIM_INF) VALUES ('a', '1.1', 8)");
  }
  void Add(const char* name, const DateTime& calculated) const {
    company_.AddAsset({{"DENUMIRE", name},
                       {"COD_GR", "a"},
                       {"DATA_ACH", DateTime(2002, 1, 1)},
                       {"VAL_CUMP", 90000.0},
                       {"VAL_RAMASA", 60000.0},
                       {"DALUNI", 30},
                       {"DRFLUNI", 120},
                       {"DATA_CALCUL", calculated}});
  }
  std::string Backup(std::size_t which = 0) const {
    return (Directory() / "Salv_Tevra" / NamesIn(Directory() / "Salv_Tevra").at(which)).string();
  }
  std::string Rows(const char* fields) const {
    return company_.Rows(std::string("SELECT ") + fields + " FROM I_IMO ORDER BY NRCRT");
  }
};

TEST_F(ConversionsTest, RedenominatesOnceAndAsks) {
  Add("Strung", DateTime(2004, 12, 31));
  company_.Open().Execute("UPDATE UTILIZATORI SET TIP = 2");  // the menu is everyone's
  ExpectRefused({"redenominate"}, "vor fi convertite ireversibil in LEI NOI.\nNu s-a efectuat");
  EXPECT_FALSE(fs::exists(Directory() / "Salv_Tevra"));
  File("Salv_Tevra", "in calea directorului");
  ExpectRefused({"redenominate", "--yes"}, "Eroare 70 - ");
  fs::remove(Directory() / "Salv_Tevra");
  const Result result = RunAsAdmin({"redenominate", "--yes"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(result.out, "Salvare cu succes a bazei de date Kelnar01.mdb: " + Backup() +
                            "\nBaza de date a fost convertita in LEI NOI\n");
  EXPECT_EQ(Rows("VAL_CUMP, VAL_RAMASA"), "9 6 \n");
  ExpectRefused({"redenominate", "--yes"}, " Convertirea bazei de date a fost deja facuta.");
}

TEST_F(ConversionsTest, ReclassifiesInThreeWorksEachAfterABackup) {
  Add("Strung", DateTime(2004, 12, 31));
  const Result codes = RunAsAdmin({"reclassify", "codes"});
  EXPECT_EQ(codes.code, 0) << codes.err;
  EXPECT_EQ(codes.out,
            "Salvarea dinainte: " + Backup() +
                "\nAu fost completate coduri noi de clasificare pentru 1 imobilizari \n");
  const Result durations = RunAsAdmin({"reclassify", "durations"});
  EXPECT_EQ(durations.out,
            "Salvarea dinainte: " + Backup(1) +
                "\nAu fost modificate Duratele normale de functionare pentru 1 imobilizari \n");
  const Result restart = RunAsAdmin({"reclassify", "restart"});
  EXPECT_EQ(restart.out, "Salvarea dinainte: " + Backup(2) +
                             "\nAu fost recalculate duratele ramase pentru 1 imobilizari \n");
  EXPECT_EQ(Rows("COD_GR_NOU, DATA_SF, DRBLUNI"), "1.1 01.01.2011 72 \n");
  EXPECT_EQ(RunAsAdmin({"reclassify", "totul"}).code, 2);
  EXPECT_EQ(RunAsAdmin({"reclassify"}).code, 2);
}

TEST_F(ConversionsTest, TheRestartNamesTheAssetThatStopsIt) {
  company_.Open().Execute("UPDATE I_CLASIFICARE SET DURNOR_NOU = 8");
  Add("Freza", DateTime(2005, 1, 31));
  ExpectRefused({"reclassify", "restart"},
                "Pentru a face Recalcul la 01.01.2005, Data de Calcul trebuie sa fie 31.12.2004\n"
                "Imobilizarea: Freza\n");
  EXPECT_FALSE(fs::exists(Directory() / "Salv_Tevra"));
  company_.Open().Execute("UPDATE I_IMO SET DATA_CALCUL = CDate('31.12.2004')");
  Add("Presa", DateTime(2004, 12, 31));
  company_.Open().Execute("UPDATE I_IMO SET DRFLUNI = 0 WHERE DENUMIRE = 'Presa'");
  const Result result = RunAsAdmin({"reclassify", "restart"});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.out, "Salvarea dinainte: " + Backup() + "\n");
  EXPECT_NE(result.err.find("Eroare 11 - Division by zero (Presa)"), std::string::npos)
      << result.err;
  EXPECT_EQ(Rows("DRBLUNI"), "72 \n0 \n");
  company_.Open().Execute("UPDATE I_IMO SET DATA_CALCUL = NULL WHERE DENUMIRE = 'Presa'");
  const Result stopped = RunAsAdmin({"reclassify", "restart"});
  EXPECT_NE(stopped.err.find("\nImobilizarea: Presa\nAu fost recalculate duratele ramase pentru 1 "
                             "imobilizari \n"),
            std::string::npos)
      << stopped.err;
  fs::remove_all(Directory() / "Salv_Tevra");
  File("Salv_Tevra", "in calea directorului");
  for (const char* work : {"codes", "durations", "restart"}) {
    ExpectRefused({"reclassify", work}, "Eroare 70 - Salvarea dinaintea lucrarii nu a reusit");
  }
}

}  // namespace
}  // namespace tevra::batch::test
