// The monthly run from the command line and the two lists that read its results.
#include "app/batch/Batch.h"
#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

namespace {

class ReportsTest : public BatchTest {
 protected:
  /// A lathe of 12.000 lei over ten years from January 2006, and others that test the lists.
  void AddAssets() const {
    company_.AddAsset({{"COD", "10"},
                       {"DENUMIRE", "Strung"},
                       {"TIP_AM", "L"},
                       {"CONT", "2131"},
                       {"COD_CC", "z"},
                       {"DATA_ACH", DateTime(2005, 12, 10)},
                       {"DATA_IN_AM", DateTime(2006, 1, 1)},
                       {"DATA_SF", DateTime(2015, 12, 31)},
                       {"VAL_CUMP", 12000.0},
                       {"VAL_CUMP_VAL", 3000.0},
                       {"COTA_ANUALA", 0.1}});
    company_.AddAsset({{"COD", "20"},
                       {"DENUMIRE", "Teren, \"mare\""},
                       {"CONT", "2111"},
                       {"VAL_CUMP", 0.1},
                       {"VAL_RAMASA", 0.1}});
    company_.AddAsset(
        {{"COD", "30"}, {"DENUMIRE", "Mobilă"}, {"VAL_CUMP", 0.2}, {"VALCHELEI", Value()}});
  }
};

TEST_F(ReportsTest, TheRunBringsAssetsUpToTheDate) {
  AddAssets();
  const std::pair<const char*, DateTime> dates[] = {{"31.12.2006", DateTime(2006, 12, 31)},
                                                    {"2007-01-31", DateTime(2007, 1, 31)}};
  for (const auto& [date, calculated] : dates) {
    const Result result = RunAsAdmin({"calculate", date});
    EXPECT_EQ(result.code, kDone) << result.err;
    EXPECT_EQ(result.out, "Calculul cheltuielilor lunare s-a efectuat pentru  3 imobilizari\n");
    EXPECT_EQ(company_.Open().QueryValue("SELECT DATA_CALCUL FROM I_IMO WHERE COD = '10'"),
              Value(calculated));
  }
}

TEST_F(ReportsTest, ADateThatIsNoneIsNamed) {
  for (const char* date : {"31.02.2006", "2006-02-31", "1.2.2006", "01.02.06", "31/12/2006", "azi",
                           "2006-12-31 10:00:00", "00.00.0000", ""}) {
    ExpectRefused({"calculate", date}, "Data \"" + std::string(date) + "\" nu este corecta");
  }
}

TEST_F(ReportsTest, AFailedRunNamesTheAssetAndChangesNone) {
  AddAssets();
  company_.AddAsset({{"COD", "99"},
                     {"TIP_AM", "L"},
                     {"VAL_CUMP", 1e308},
                     {"COTA_ANUALA", 1e308},
                     {"DATA_ACH", DateTime(2005, 1, 1)},
                     {"DATA_IN_AM", DateTime(2005, 1, 1)},
                     {"DATA_SF", DateTime(2015, 1, 1)}});
  ExpectRefused({"calculate", "31.12.2006"}, "Eroare la CALCUL !\nEroare 6 - Overflow");
  ExpectRefused({"calculate", "31.12.2006"}, "COD 99");
}

TEST_F(ReportsTest, TheAssetListEndsInItsSixTotals) {
  AddAssets();
  ASSERT_EQ(RunAsAdmin({"calculate", "31.12.2006"}).code, kDone);
  EXPECT_EQ(RunAsAdmin({"assets", "--csv"}).out,
            "NRCRT,COD,DENUMIRE,TIP_AM,CONT,DATA_IN_AM,DATA_SF,DATA_CALCUL,VAL_CUMP,VAL_CUMP_VAL,"
            "VAL_AMOR_CUMULATA,VAL_AMOR_CUMULATA_VAL,VAL_RAMASA,VAL_RAMASA_VAL\n"
            "1,10,Strung,L,2131,2006-01-01,2015-12-31,2006-12-31,12000,3000,1200,300,10800,2700\n"
            "2,20,\"Teren, \"\"mare\"\"\",,2111,,,,0.1,0,0,0,0.1,0\n"
            "3,30,Mobilă,,,,,,0.2,0,0,0,0,0\n"
            "TOTAL,,,,,,,,12000.3,3000,1200,300,10800.1,2700\n");
  const std::string table = RunAsAdmin({"assets"}).out;
  EXPECT_NE(table.find("Nr. crt.  Nr. inv.  Denumire"), std::string::npos) << table;
  EXPECT_NE(table.find("1  10        Strung         L               2131  01.01.2006"), table.npos);
  const std::string last = table.substr(table.rfind("Total"));
  for (const char* part : {"3 imobilizari", " 12.000,30  ", " 3.000,00  ", " 1.200,00 ", " 300,00 ",
                           " 10.800,10 ", " 2.700,00\n"}) {
    EXPECT_NE(last.find(part), std::string::npos) << part << " in " << last;
  }
}

TEST_F(ReportsTest, AnEmptyRegisterHasTotalsOfNothing) {
  EXPECT_NE(RunAsAdmin({"assets", "--csv"}).out.find("\nTOTAL,,,,,,,,0,0,0,0,0,0\n"),
            std::string::npos);
  EXPECT_NE(RunAsAdmin({"assets"}).out.find("0 imobilizari"), std::string::npos);
  const Result charges = RunAsAdmin({"charges"});
  EXPECT_EQ(charges.out.rfind("Cheltuieli cu amortizarea, fara nici un calcul\n", 0), 0U);
  EXPECT_NE(charges.out.find("Total general"), std::string::npos);
}

class ChargesTest : public BatchTest {
 protected:
  /// Rates as a run has left them: 0,125 and 0,375 round to the even hundredth, each by itself.
  ChargesTest() {
    const DateTime date(2006, 12, 31);
    Add("10", "2131", 0.125, {{"DATA_CALCUL", date}, {"VAL_RAMASA", 100.0}, {"COD_CC", "b"}});
    Add("20", "2111", 0.0, {{"VAL_AMOR_CUMULATA", 7.0}});
    Add("30", "2131", 0.375, {{"COD_CC", "B"}});
    Add("40", Value(), 0.25, {{"VALCHELEI", Value()}});
    Add("50", "", 0.5,
        {{"BLOCATA", Value::YesNo(true)}, {"VAL_BLOCATA", 8.0}, {"VALCHELEI", Value()}});
  }

  void Add(const char* code, const Value& account, double rate,
           std::vector<std::pair<std::string, Value>> fields) const {
    fields.insert(fields.end(), {{"COD", code},
                                 {"CONT", account},
                                 {"COTAL_LUNARA", rate},
                                 {"VAL_CUMP", 1.0},
                                 {"DENUMIRE", "N"}});
    company_.AddAsset(fields);
  }
};

TEST_F(ChargesTest, AddUpWhatIsPosted) {
  EXPECT_EQ(RunAsAdmin({"charges", "--csv"}).out,
            "CONT,NRCRT,COD,DENUMIRE,AMORTIZARE_LUNARA,VAL_AMOR_CUMULATA,VAL_RAMASA\n"
            ",4,40,N,,0,0\n"
            ",5,50,N,4,0,0\n"
            "2111,2,20,N,0,7,0\n"
            "2131,1,10,N,0.12,0,100\n"
            "2131,3,30,N,0.38,0,0\n"
            ",TOTAL,,,4,0,0\n"
            "2111,TOTAL,,,0,7,0\n"
            "2131,TOTAL,,,0.5,0,100\n"
            ",TOTAL GENERAL,,,4.5,7,100\n");
}

TEST_F(ChargesTest, NumbersOfCsvArePlainDecimals) {
  Add("60", "2131", 0.0, {{"VAL_AMOR_CUMULATA", 0.0000001}, {"VAL_RAMASA", 300000.0}});
  const std::string list = RunAsAdmin({"charges", "--csv"}).out;
  EXPECT_NE(list.find("2131,6,60,N,0,0.0000001,300000\n"), std::string::npos) << list;
  EXPECT_NE(list.find("2131,TOTAL,,,0.5,0,300100\n"), std::string::npos) << list;
}

TEST_F(ChargesTest, GroupByAnyOfFourFieldsWithoutCase) {
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"centre", "COD_CC,NRCRT"},
      {"centre", "b,TOTAL,,,0.5,0,100\n,TOTAL GENERAL"},
      {"class", "COD_GR_NOU,"},
      {"location", "COD_LOC,"}};
  for (const auto& [by, part] : cases) {
    const std::string list = RunAsAdmin({"charges", "--by", by, "--csv"}).out;
    EXPECT_NE(list.find(part), std::string::npos) << list;
  }
}

TEST_F(ChargesTest, TellTheMonthOfMostAssets) {
  for (const char* code : {"70", "80"}) {
    Add(code, "2131", 0.0, {{"DATA_CALCUL", DateTime(2006, 11, 30)}});
  }
  EXPECT_EQ(RunAsAdmin({"charges"})
                .out.rfind("Cheltuieli cu amortizarea, ultimul calcul la 30.11.2006\n"
                           "Atentie: 1 imobilizare este calculata pentru alta luna !\n\nNr. crt.",
                           0),
            0U);
}

TEST_F(ChargesTest, AreLaidOutInGroups) {
  const Result result = RunAsAdmin({"charges"});
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_EQ(
      result.out,
      "Cheltuieli cu amortizarea, ultimul calcul la 31.12.2006\n"
      "\n"
      "Nr. crt.  Nr. inv.  Denumire       Amortizare cumulata  Valoare ramasa  Amortizare lunara\n"
      "--------  --------  -------------  -------------------  --------------  -----------------\n"
      "Cont:\n"
      "       4  40        N                             0,00            0,00\n"
      "       5  50        N                             0,00            0,00               4,00\n"
      "                    Total                         0,00            0,00               4,00\n"
      "--------  --------  -------------  -------------------  --------------  -----------------\n"
      "Cont: 2111\n"
      "       2  20        N                             7,00            0,00               0,00\n"
      "                    Total 2111                    7,00            0,00               0,00\n"
      "--------  --------  -------------  -------------------  --------------  -----------------\n"
      "Cont: 2131\n"
      "       1  10        N                             0,00          100,00               0,12\n"
      "       3  30        N                             0,00            0,00               0,38\n"
      "                    Total 2131                    0,00          100,00               0,50\n"
      "--------  --------  -------------  -------------------  --------------  -----------------\n"
      "                    Total general                 7,00          100,00               "
      "4,50\n");
}

}  // namespace

}  // namespace tevra::batch::test
