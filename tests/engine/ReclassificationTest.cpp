// The works that carry a register over to the classification of 2005: what they write, where they
// stop, and what a failure leaves.
#include <algorithm>

#include <gtest/gtest.h>

#include "engine/Module3.h"
#include "engine/Reclassification2005.h"
#include "platform/data/Recordset.h"
#include "session/Session.h"
#include "tests/KilledWrites.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

using Fields = std::vector<std::pair<std::string, Value>>;

const DateTime kLastDay(2004, 12, 31);

class Reclassification : public ::testing::Test {
 protected:
  Reclassification() {
    CurrentSession().connectionString += ";Lock Timeout=100";
    Connection company = company_.Open();
    company.Execute("DELETE FROM I_CLASIFICARE");
    company.Execute(
        "INSERT INTO I_CLASIFICARE (COD_GR, COD_GR_NOU, LIM_INF, DURNOR_NOU) VALUES "
        "('a', '1.1', 4, 8), ('b', NULL, NULL, 1), ('c', '1.3', 0, 0), ('d', '1.4', 2, NULL), "
        "('e', '1.5', 2.5, 1.125)");
  }

  // An asset whose share of life not yet used is 1 - used / whole.
  int Add(const char* code, Value used, Value whole, Fields more = {}) const {
    Fields fields{{"COD_GR", code},           {"DALUNI", used},
                  {"DRFLUNI", whole},         {"DENUMIRE", std::string("Activ ") + code},
                  {"DATA_CALCUL", kLastDay},  {"VAL_RAMASA", 7200.5},
                  {"VAL_RAMASA_VAL", 1800.0}, {"COTAL_LUNARA", 0.5}};
    for (auto& [name, value] : more) {
      const auto same = std::find_if(fields.begin(), fields.end(),
                                     [&name](const auto& field) { return field.first == name; });
      same == fields.end() ? fields.emplace_back(name, value) : * same = {name, value};
    }
    return company_.AddAsset(fields);
  }

  // What the restart writes, a line for each asset.
  std::string Restarted() const {
    return company_.Rows(
        "SELECT NRCRT, VAL_BLOCATA, VAL_BLOCATA_VAL, DATA_BLOCARE, DATA_SF, BLOCATA, DRBANI, "
        "DRBLUNI, COTA_ANUALA, COTAL_LUNARA FROM I_IMO ORDER BY NRCRT");
  }
  std::string Register() const { return company_.Rows("SELECT * FROM I_IMO ORDER BY NRCRT"); }
  std::string Codes() const {
    return company_.Rows("SELECT COD_GR, DURNOR_NOU FROM I_CLASIFICARE ORDER BY COD_GR");
  }
  std::string Said() {
    std::string said;
    for (const MessageRequest& each : messages_.shown) {
      said += each.prompt + "|" + std::to_string(each.buttons) + "|" + each.title + "\n";
    }
    messages_.shown.clear();
    return said;
  }

  TestCompany company_;
  MessageRecorder messages_;
};

constexpr const char* kUntouched = "0 0   False 0 0 0 0,5 \n";

TEST_F(Reclassification, EveryAssetGetsTheNewCodeOfItsOldOne) {
  for (const Value& code : {Value("A"), Value("b"), Value("x"), Value(), Value("c"), Value("a")}) {
    company_.AddAsset({{"COD_GR", code}, {"COD_GR_NOU", "vechi"}});
  }
  int backups = 0;
  Recalcul2005([&] { ++backups; });
  EXPECT_EQ(company_.Rows("SELECT COD_GR_NOU FROM I_IMO ORDER BY NRCRT"),
            "1.1 \n \nvechi \nvechi \n1.3 \n1.1 \n");
  EXPECT_EQ(Said(), "Au fost completate coduri noi de clasificare pentru 4 imobilizari |0|\n");
  EXPECT_EQ(backups, 1);
}

TEST_F(Reclassification, TheLowerLimitBecomesTheNewDuration) {
  int backups = 0;
  PreluareLimInf([&] { ++backups; });
  EXPECT_EQ(Codes(), "a 4 \nb 1 \nc 0 \nd 2 \ne 2,5 \n");
  EXPECT_EQ(Said(),
            "Au fost modificate Duratele normale de functionare pentru 4 imobilizari |0|\n");
  EXPECT_EQ(backups, 1);
}

TEST_F(Reclassification, AssetsAreRestartedOverTheRestOfTheirNewDuration) {
  Add("a", 30, 120, {{"TIP_AM", "A"}, {"COEF", 2.0}});       // 0.75 * 96
  Add("B", 5, 8, {{"IESIRE", -1}, {"BLOCATA", -1}});         // 0.375 * 12 = 4.5
  Add("b", 7, 8, {{"DATA_CALCUL", DateTime(2004, 12, 1)}});  // 0.125 * 12 = 1.5
  Add("e", 3, 4, {{"VAL_RAMASA_VAL", Value()}});             // 0.25 * 14, which 13.5 rounds to
  Add("a", 60, 60);                                          // nothing left
  Add("a", 15, 10);                                          // used for longer than its life
  Add("d", 1, 10);                                           // no new duration
  Add("a", Value(), 10);                                     // no month used
  Add("a", 1, 10, {{"VAL_RAMASA", 0.0}});
  Add("a", 1, 10, {{"VAL_RAMASA", Value()}});
  Add("x", 1, 10);
  int backups = 0;
  Recalcul_DR_2005([&] { ++backups; });
  const std::string begin = " 7200,5 1800 01.01.2005 ";
  const std::string expected =
      "1" + begin + "01.01.2011 True 6 72 0,166666666666667 0,0138888888888889 \n" +  //
      "2" + begin + "01.05.2005 True 0,333333333333333 4 3 0,25 \n" +                 //
      "3" + begin + "01.03.2005 True 0,166666666666667 2 6 0,5 \n" +                  //
      "4 7200,5  01.01.2005 01.05.2005 True 0,333333333333333 4 3 0,25 \n" +          //
      "5" + begin + "01.01.2005 True 0 0 0 0,5 \n" +                                  //
      "6" + begin + "01.01.2001 True -4 -48 0 0,5 \n" +                               //
      "7" + begin + "01.01.2005 True 0 0 0 0,5 \n" +                                  //
      "8" + begin + "01.01.2013 True 8 96 0,125 0,0104166666666667 \n" +              //
      "9 " + kUntouched + "10 " + kUntouched + "11 " + kUntouched;
  EXPECT_EQ(Restarted(), expected);
  EXPECT_EQ(Said(), "Au fost recalculate duratele ramase pentru 8 imobilizari |0|\n");
  EXPECT_EQ(backups, 1);
  EXPECT_EQ(company_.Rows("SELECT TIP_AM, COEF FROM I_IMO WHERE NRCRT = 1"), "A 2 \n");

  Recalcul_DR_2005();
  EXPECT_EQ(Restarted(), expected);
  EXPECT_EQ(messages_.shown.size(), 1U);
}

TEST_F(Reclassification, TheMonthlyRunGoesOnFromTheRestart) {
  Add("a", 30, 120,
      {{"TIP_AM", "L"},
       {"DATA_ACH", DateTime(2002, 6, 1)},
       {"DATA_IN_AM", DateTime(2002, 7, 1)},
       {"VAL_CUMP", 9600.0},
       {"VAL_RAMASA", 7200.0}});
  Recalcul_DR_2005();
  Connection company = company_.Open();
  RunMonth(company, DateTime(2005, 3, 31));
  EXPECT_EQ(company_.Rows("SELECT DALUNI, VAL_AMOR_CUMULATA, VAL_RAMASA FROM I_IMO"),
            "3 300 6900 \n");
  RunMonth(company, DateTime(2011, 1, 31));
  EXPECT_EQ(company_.Rows("SELECT VAL_RAMASA FROM I_IMO"), "0 \n");
}

TEST_F(Reclassification, AnAssetThatIsNotReadyStopsTheRestartAndTheOnesBeforeItStay) {
  constexpr const char* kDate =
      "Pentru a face Recalcul la 01.01.2005, Data de Calcul trebuie sa fie 31.12.2004|0|\n";
  constexpr const char* kFails =
      "Eroare 11 - Division by zero in procedura Recalcul_DR_2005 din Modulul Module2 Linia: 2|16|"
      "\n";
  const struct {
    const char* code;
    Fields more;
    const char* says;
  } stops[] = {
      {"a", {{"DATA_CALCUL", DateTime(2004, 11, 30)}}, kDate},
      {"a", {{"DATA_CALCUL", DateTime(2005, 12, 31)}}, kDate},
      {"a", {{"DATA_CALCUL", DateTime(2004, 2, 12)}}, kDate},
      {"a", {{"DATA_CALCUL", Value()}}, kDate},
      {"c", {}, "Va rog stabiliti durata noua de amortizare.|0|\n"},
      {"a", {{"DRFLUNI", 0}}, kFails},
      {"d", {{"DRFLUNI", Value()}, {"DALUNI", 0}}, kFails},
  };
  for (const auto& stop : stops) {
    SCOPED_TRACE(stop.says);
    company_.Open().Execute("DELETE FROM I_IMO");
    const int ready = Add("a", 5, 10);
    const int stopping = Add(stop.code, 5, 10, stop.more);
    Add("a", 5, 10);
    int backups = 0;
    Recalcul_DR_2005([&] { ++backups; });
    EXPECT_EQ(Said(), stop.says);
    EXPECT_EQ(backups, 1);
    EXPECT_EQ(company_.Rows("SELECT DRBLUNI FROM I_IMO ORDER BY NRCRT"), "48 \n0 \n0 \n");

    company_.Open().Execute("DELETE FROM I_IMO WHERE NRCRT = ?", {ready});
    const std::string before = Register();
    Connection company = company_.Open();
    if (stop.says == std::string(kFails)) {
      const Refusal refusal = RefusalOf([&] { RestartAt2005(company); });
      EXPECT_EQ(refusal.number, kDivisionByZero);
      EXPECT_EQ(refusal.source, std::string("Activ ") + stop.code);
    } else {
      const Restart restart = RestartAt2005(company, [] { ADD_FAILURE() << "nothing is written"; });
      EXPECT_EQ(restart.assets, 0);
      EXPECT_EQ(restart.asset, std::string("Activ ") + stop.code);
    }
    EXPECT_EQ(Register(), before) << stopping;
  }
}

TEST_F(Reclassification, NothingToRestartSaysNothing) {
  Add("x", 1, 10);
  Recalcul_DR_2005([] { ADD_FAILURE() << "nothing is written"; });
  EXPECT_EQ(Said(), "");
}

TEST_F(Reclassification, AFailureChangesNothingAndIsShown) {
  Add("a", 5, 10);
  const std::string before = Register() + Codes();
  const BeforeWriting full = [] { throw Failure(kDiskFull, "Disk full"); };
  Recalcul2005(full);
  Recalcul_DR_2005(full);
  EXPECT_EQ(FailureOf([&] { PreluareLimInf(full); }), kDiskFull);
  EXPECT_EQ(Said(),
            "Eroare 61 - Disk full in procedura Recalcul2005 din Module Module2 Linia: 1|16|\n"
            "Eroare 61 - Disk full in procedura Recalcul_DR_2005 din Modulul Module2 Linia: 2|16|"
            "\n");
  const auto refused = [&](const char* why) {
    Recalcul2005();
    Recalcul_DR_2005();
    EXPECT_NE(FailureOf([] { PreluareLimInf(); }), 0) << why;
    EXPECT_EQ(messages_.shown.size(), 2U) << why;
    EXPECT_NE(messages_.shown[0].prompt.find(" in procedura Recalcul2005 din Module Module2"),
              std::string::npos)
        << messages_.shown[0].prompt;
    EXPECT_NE(messages_.shown[1].prompt.find(" in procedura Recalcul_DR_2005 din Modulul Module2"),
              std::string::npos)
        << messages_.shown[1].prompt;
    messages_.shown.clear();
    EXPECT_EQ(Register() + Codes(), before) << why;
  };
  {
    Connection other = company_.Open();
    const Transaction busy(other);
    refused("another program writes");
  }
  fs::permissions(company_.File(), fs::perms::owner_read);
  refused("the file is write-protected");
  EXPECT_EQ(FailureOf([&] {
              Connection company(CurrentSession().connectionString);
              RestartAt2005(company);
            }),
            kPermissionDenied);
}

TEST_F(Reclassification, AKilledOneLeavesTheOldOrTheNewState) {
  for (int i = 0; i < 300; ++i) Add("a", i, 400);
  const std::string content = Content(company_.File());
  WriteCounter counter;
  for (const auto& work : {+[] { Recalcul2005(); }, +[] { Recalcul_DR_2005(); }}) {
    const auto restore = [&] {
      for (const char* side : {"-wal", "-shm"}) fs::remove(company_.File().string() + side);
      WriteFile(company_.File(), content);
    };
    restore();
    const std::string before = Register();
    const int writes = counter.WritesOf(work);
    const std::string after = Register();
    ASSERT_NE(after, before);
    ASSERT_GT(writes, 10);
    for (int killed = 1; killed <= writes; killed += 1 + writes / 20) {
      restore();
      EXPECT_TRUE(counter.KilledIn(killed, work)) << killed;
      const std::string found = Register();
      EXPECT_TRUE(found == before || found == after) << killed;
      work();
      EXPECT_EQ(Register(), after) << killed;
    }
  }
}

}  // namespace
}  // namespace tevra::test
