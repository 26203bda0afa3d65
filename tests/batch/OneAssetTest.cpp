// Postings, one asset to a date and its plan from the command line.
#include "app/batch/Batch.h"
#include "session/CompanySettings.h"
#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

namespace {

class OneAssetTest : public BatchTest {
 protected:
  OneAssetTest() {
    company_.AddAsset({{"COD", "10"},
                       {"DENUMIRE", "Strung"},
                       {"TIP_AM", "L"},
                       {"CONT", "2131"},
                       {"DATA_ACH", DateTime(2005, 12, 10)},
                       {"DATA_IN_AM", DateTime(2006, 1, 1)},
                       {"DATA_SF", DateTime(2008, 1, 1)},
                       {"VAL_CUMP", 12000.0},
                       {"VAL_CUMP_VAL", 3000.0},
                       {"DRFANI", 2.0},
                       {"COTA_ANUALA", 0.5}});
  }
  Value Lines(const char* what) const {
    return company_.Open().QueryValue(std::string("SELECT ") + what + " FROM Kv_Linii");
  }
};

TEST_F(OneAssetTest, AMonthIsPostedBehindItsRun) {
  Result result = RunAsAdmin({"calculate", "31.01.2006", "--post"});
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_EQ(result.out,
            "Calculul cheltuielilor lunare s-a efectuat pentru  1 imobilizari\n"
            "Note contabile IMO01: 1 nota, 500,00 lei\n");
  EXPECT_EQ(Lines("SUM(CREDIT)").AsDouble(), 500.0);
  EXPECT_EQ(Lines("MAX(UTILIZATOR)"), Value("admin"));

  company_.Open().Execute("UPDATE I_CONTURIIM SET CONT_CHELT = NULL");
  result = RunAsAdmin({"calculate", "15.01.2006", "--post"});
  EXPECT_EQ(result.code, kRefused);
  EXPECT_NE(result.out.find("s-a efectuat"), std::string::npos);
  EXPECT_EQ(result.err,
            "Luna a fost calculata, dar notele contabile nu au fost scrise !\n"
            "Eroare -2147221494 - Trebuie sa precizati: Cont (NRCRT 1)\n");
  EXPECT_EQ(Lines("MAX(DATAINR)").AsText(), "31.01.2006");
}

TEST_F(OneAssetTest, NotesOfAnotherYearAreDeletedOnlyWithYes) {
  const std::vector<std::string> post{"calculate", "31.01.2007", "--post"};
  RunAsAdmin({"calculate", "31.01.2006", "--post"});
  ExpectRefused(post, "- anul 2006: o nota, 500,00 lei\nScrierea notelor lunii le sterge. ");
  ExpectRefused(post, "Doriti sa continuati?\nNu s-a efectuat nimic ! Pentru raspunsul Da");

  Result result = RunAsAdmin({"calculate", "31.01.2007", "--post", "--yes"});
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_NE(result.err.find("Raspuns: Da (--yes)"), std::string::npos) << result.err;
  EXPECT_EQ(Lines("MIN(DATAINR)").AsText(), "31.01.2007");
  result = RunAsAdmin(post);
  EXPECT_EQ(result.code, kDone) << "its own notes are no question: " << result.err;

  Connection company = company_.Open();
  SetOn(company, CompanySetting::kDocumentWithYear, true);
  result = RunAsAdmin({"calculate", "31.01.2006", "--post"});
  EXPECT_NE(result.out.find("Note contabile IMO01/2006: 1 nota"), std::string::npos) << result.err;
  EXPECT_EQ(Lines("COUNT(DISTINCT DOC)").AsLong(), 2);
}

TEST_F(OneAssetTest, ARunThatFailedPostsNothing) {
  company_.Open().Execute("UPDATE I_IMO SET DATA_SF = NULL, COTAL_LUNARA = 0.1");
  ExpectRefused({"calculate", "31.01.2006", "--post"}, "Eroare la CALCUL !");
  EXPECT_EQ(Lines("COUNT(*)").AsLong(), 0);
}

TEST_F(OneAssetTest, IsBroughtUpToADateAndShown) {
  const Result result = RunAsAdmin({"asset", "10", "15.06.2006"});
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_NE(result.out.find("Cota lunara                      0,0416666666666667\n"),
            std::string::npos)
      << result.out;
  EXPECT_EQ(RunAsAdmin({"asset", "10", "15.06.2006", "--csv"}).out,
            "NRCRT,COD,DENUMIRE,TIP_AM,BLOCATA,DATA_CALCUL,DALUNI,COTAL_LUNARA,VAL_AMOR_CUMULATA,"
            "VAL_RAMASA,VAL_AMOR_CUMULATA_VAL,VAL_RAMASA_VAL\n"
            "1,10,Strung,L,False,2006-06-15,6,0.041666666666666664,3000,9000,750,2250\n");
  ExpectRefused({"asset", "11", "15.06.2006"},
                "Imobilizarea cu numarul de inventar 11 nu exista !");
  ExpectRefused({"asset", "10", "azi"}, "Data \"azi\" nu este corecta");
  company_.Open().Execute("UPDATE I_IMO SET DATA_SF = NULL");
  ExpectRefused({"asset", "10", "15.06.2006"}, "Invalid use of Null: DATA_SF (NRCRT 1, COD 10)");
}

TEST_F(OneAssetTest, ItsPlanIsMadeAndShown) {
  EXPECT_EQ(RunAsAdmin({"plan", "1", "--csv"}).out,
            "AN,VALAMO,AMO_AN,VALAMOCUM,VALRAMASA,VALAMO_VAL,AMO_AN_VAL,VALAMOCUM_VAL,"
            "VALRAMASA_VAL\n"
            "2006,12000,6000,6000,6000,3000,1500,1500,1500\n"
            "2007,6000,6000,12000,0,1500,1500,3000,0\n");
  company_.Open().Execute("UPDATE I_IMO SET VAL_CUMP = 600000");
  EXPECT_NE(RunAsAdmin({"plan", "1", "--csv"}).out.find("\n2006,600000,300000,300000,300000,3000,"),
            std::string::npos);
  EXPECT_EQ(RunAsAdmin({"plan", "1"}).out.substr(0, 30), "Plan de Amortizare: 1 - Strung");
  for (const char* none : {"2", "x", "1,5,2", "99999999999999999999"}) {
    ExpectRefused({"plan", none}, std::string("Imobilizarea cu numarul curent ") + none);
  }
  company_.Open().Execute("UPDATE I_IMO SET TIP_AM = 'F'");
  ExpectRefused({"plan", "1"}, "Aceasta imobilizare este fara amortizare");
  company_.Open().Execute("UPDATE I_IMO SET TIP_AM = 'L', IESIRE = -1");
  ExpectRefused({"plan", "1"}, "Aceasta imobilizare  a fost vanduta / casata !");
  company_.Open().Execute("UPDATE I_IMO SET IESIRE = 0, DRFANI = NULL");
  ExpectRefused({"plan", "1"}, "Invalid use of Null: DRFANI");
}

}  // namespace

}  // namespace tevra::batch::test
