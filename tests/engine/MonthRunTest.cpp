// The monthly run over a real company file: what it writes, what it says, and what a failure
// leaves.
#include <gtest/gtest.h>

#include "engine/Module3.h"
#include "platform/data/FileCheck.h"
#include "platform/data/Recordset.h"
#include "platform/system/Clock.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "tests/KilledWrites.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra::test {
namespace {

using Fields = std::vector<std::pair<std::string, Value>>;

// 12,000 lei in five years from 01.02.2024.
Fields Linear(Fields more = {}) {
  Fields fields{{"COD", "1"},
                {"TIP_AM", "L"},
                {"DATA_ACH", DateTime(2024, 1, 10)},
                {"DATA_IN_AM", DateTime(2024, 2, 1)},
                {"DATA_SF", DateTime(2029, 2, 1)},
                {"VAL_CUMP", 12000.0},
                {"VAL_CUMP_VAL", 2400.0},
                {"COTA_ANUALA", 0.2}};
  fields.insert(fields.end(), more.begin(), more.end());
  return fields;
}

std::string Table(const TestCompany& company) {
  return company.Rows("SELECT * FROM I_IMO ORDER BY NRCRT");
}

Value Field(const TestCompany& company, const std::string& name, int nrcrt = 1) {
  return company.Open().QueryValue("SELECT " + name + " FROM I_IMO WHERE NRCRT = ?", {nrcrt});
}

TEST(MonthRun, WritesEveryFieldOfAnAssetInLife) {
  const TestCompany company;
  company.AddAsset(Linear());
  MessageRecorder messages;
  CalculLunar(DateTime(2024, 6, 15));
  const Fields expected{{"DATA_CALCUL", DateTime(2024, 6, 15)},
                        {"DALUNI", 5},
                        {"COTAL_LUNARA", 0.2 / 12},
                        {"VAL_AMOR_CUMULATA", 1000.0},
                        {"VAL_AMOR_CUMULATA_VAL", 200.0},
                        {"VAL_RAMASA", 11000.0},
                        {"VAL_RAMASA_VAL", 2200.0}};
  for (const auto& [name, value] : expected) EXPECT_EQ(Field(company, name), value) << name;
  company.Open().Execute("DELETE FROM I_IMO");
  CalculLunar(DateTime(2024, 6, 15));
  ASSERT_EQ(messages.shown.size(), 2u);
  for (const std::string count : {"0", "1"}) {
    const MessageRequest& shown = messages.shown[count == "1" ? 0 : 1];
    EXPECT_EQ(shown.prompt,
              "Calculul cheltuielilor lunare s-a efectuat pentru  " + count + " imobilizari");
    EXPECT_EQ(shown.buttons, kInformation);
  }
}

TEST(MonthRun, CountsEveryRowAndTouchesOnlyWhatTheRulesWrite) {
  const TestCompany company;
  const DateTime stored(2020, 5, 5);
  company.AddAsset({{"COD", "fara"},
                    {"TIP_AM", "F"},
                    {"VAL_CUMP", 100.0},
                    {"VAL_CUMP_VAL", 20.0},
                    {"DATA_CALCUL", stored},
                    {"DALUNI", 7}});
  company.AddAsset(
      {{"COD", "alta"}, {"TIP_AM", "X"}, {"VAL_RAMASA", 5.0}, {"DATA_CALCUL", stored}});
  company.AddAsset({{"COD", "plecata"},
                    {"TIP_AM", "L"},
                    {"IESIRE", -1},
                    {"DATA_IESIRE", DateTime(2024, 6, 30)},
                    {"VAL_AMOR_CUMULATA", 9.0},
                    {"VAL_RAMASA", 9.0},
                    {"COTAL_LUNARA", 0.1},
                    {"DALUNI", 3},
                    {"DATA_CALCUL", stored}});
  Connection connection = company.Open();
  EXPECT_EQ(RunMonth(connection, DateTime(2024, 6, 30)), 3);
  const std::vector<Fields> expected{
      {{"DATA_CALCUL", stored}, {"DALUNI", 7}, {"VAL_RAMASA", 100.0}},
      {{"DATA_CALCUL", stored}, {"VAL_RAMASA", 5.0}},
      {{"DATA_CALCUL", stored},
       {"DALUNI", 3},
       {"VAL_RAMASA", 0.0},
       {"VAL_AMOR_CUMULATA", 0.0},
       {"COTAL_LUNARA", 0.0}}};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    for (const auto& [name, value] : expected[i]) {
      EXPECT_EQ(Field(company, name, static_cast<int>(i) + 1), value) << name << " of " << i + 1;
    }
  }
}

TEST(MonthRun, AnEarlierMonthIsAsIfTheLaterHadNeverBeen) {
  const TestCompany company;
  company.AddAsset(Linear({{"COEF", 0.5}, {"DATA_AMORT", DateTime(2025, 2, 1)}}));
  Connection connection = company.Open();
  connection.Execute("UPDATE I_IMO SET TIP_AM = 'A'");
  RunMonth(connection, DateTime(2024, 8, 31));
  const std::string alone = Table(company);
  RunMonth(connection, DateTime(2025, 8, 31));
  ASSERT_NE(Table(company), alone);
  RunMonth(connection, DateTime(2024, 8, 31));
  EXPECT_EQ(Table(company), alone);
}

TEST(MonthRun, AFailureLeavesEveryRowAndNamesTheAsset) {
  const struct {
    const char* name;
    Fields asset;
    long number;
  } hindrances[] = {
      {"no end of depreciation", {{"DATA_SF", Value()}}, kInvalidUseOfNull},
      {"no value", {{"VAL_CUMP", Value()}}, kInvalidUseOfNull},
      {"left without a date", {{"IESIRE", -1}}, kInvalidUseOfNull},
      {"a result beyond a double", {{"VAL_CUMP", 1e308}, {"COTA_ANUALA", 1e3}}, kOverflow}};
  for (const auto& hindrance : hindrances) {
    SCOPED_TRACE(hindrance.name);
    const TestCompany company;
    company.AddAsset(Linear());
    company.AddAsset(Linear());
    for (const auto& [field, value] : hindrance.asset) {
      company.Open().Execute("UPDATE I_IMO SET " + field + " = ? WHERE NRCRT = 2", {value});
    }
    const std::string before = Table(company);
    MessageRecorder messages;
    CalculLunar(DateTime(2024, 6, 15));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, "Eroare la CALCUL !");
    EXPECT_EQ(messages.shown[0].title, "Salvare");
    EXPECT_EQ(messages.shown[0].buttons, kCritical);
    EXPECT_EQ(Table(company), before);
    Connection connection = company.Open();
    const Refusal refusal = RefusalOf([&] { RunMonth(connection, DateTime(2024, 6, 15)); });
    EXPECT_EQ(refusal.number, hindrance.number);
    EXPECT_EQ(refusal.source, "NRCRT 2, COD 1");
  }
}

TEST(MonthRun, The16BitCounterBoundsTheRegister) {
  const TestCompany company;
  Connection connection = company.Open();
  connection.Execute(
      "INSERT INTO I_IMO (TIP_AM, VAL_CUMP, VAL_CUMP_VAL) WITH RECURSIVE n(x) AS (VALUES (1) UNION "
      "ALL "
      "SELECT x + 1 FROM n WHERE x < 32767) SELECT 'F', 10, 2 FROM n");
  EXPECT_EQ(RunMonth(connection, DateTime(2024, 6, 15)), 32767);
  connection.Execute("UPDATE I_IMO SET VAL_RAMASA = 0");
  connection.Execute("INSERT INTO I_IMO (TIP_AM, VAL_CUMP, VAL_CUMP_VAL) VALUES ('F', 10, 2)");
  EXPECT_THROW(RunMonth(connection, DateTime(2024, 6, 15)), Failure);
  EXPECT_EQ(connection.QueryValue("SELECT MAX(VAL_RAMASA) FROM I_IMO"), Value(0.0));
}

void AddManyInLife(Connection& connection) {
  connection.Execute(
      "INSERT INTO I_IMO (TIP_AM, VAL_CUMP, VAL_CUMP_VAL, COTA_ANUALA, DATA_ACH, DATA_IN_AM, "
      "DATA_SF) "
      "WITH RECURSIVE n(x) AS (VALUES (1) UNION ALL SELECT x + 1 FROM n WHERE x < 5000) "
      "SELECT 'L', 12000, 2400, 0.2, '2020-01-10 00:00:00', '2020-02-01 00:00:00', "
      "'2025-02-01 00:00:00' FROM n");
}

void RunIn(const TestCompany& company, const DateTime& month) {
  Connection own = company.Open();
  RunMonth(own, month);
}

TEST(MonthRun, AKilledProcessLeavesAllOfBeforeOrAllOfAfter) {
  const TestCompany company;
  Connection connection = company.Open();
  AddManyInLife(connection);
  connection.Close();
  WriteCounter counter;
  const int writes = counter.WritesOf([&] { RunIn(company, DateTime(2020, 2, 29)); });
  ASSERT_GT(writes, 100);

  constexpr int kKills = 40;
  int killed = 0;
  int before = 0;
  int after = 0;
  for (int kill = 1; kill <= kKills; ++kill) {
    const DateTime month = MonthEnd(DateTime(2020, 2, 1).AddMonths(kill));
    const int at = writes * kill / kKills;
    killed += counter.KilledIn(at, [&] { RunIn(company, month); }) ? 1 : 0;
    Recordset states =
        company.Open().OpenRecordset("SELECT DISTINCT DATA_CALCUL, DALUNI, VAL_RAMASA FROM I_IMO");
    ASSERT_EQ(states.RecordCount(), 1u) << "killed in write " << at;
    ++(states.Get(0).AsDateTime() == month ? after : before);
    EXPECT_EQ(company.Open().QueryValue("PRAGMA integrity_check"), Value("ok"));
  }
  // The kills fell into the run and behind its commit alike.
  EXPECT_GT(killed, kKills * 3 / 4);
  EXPECT_GT(before, 0);
  EXPECT_GT(after, 0);
}

TEST(CalculLunar, TellsDamageBehindItsMessage) {
  const TestCompany company;
  company.AddAsset({{"COD", "1"}, {"TIP_AM", "F"}});
  MessageRecorder messages;
  SetBeforeMonth([](Connection& file) {
    file.Execute("UPDATE I_IMO SET COD = '2'");
    throw DamagedFile("deteriorata");
  });
  CalculLunar(DateTime(2024, 6, 30));
  SetBeforeMonth([](Connection&) { throw Failure(kPermissionDenied, "altceva"); });
  CalculLunar(DateTime(2024, 6, 30));
  SetBeforeMonth({});
  ASSERT_EQ(messages.shown.size(), 3U);
  EXPECT_EQ(messages.shown[0].prompt, kMonthFailedText);
  EXPECT_EQ(messages.shown[1].prompt, "deteriorata");
  EXPECT_EQ(messages.shown[2].prompt, kMonthFailedText);
  EXPECT_EQ(company.Rows("SELECT COD FROM I_IMO"), "1 \n");
}

TEST(IsValidCalcul, ComparesTheMonthOfTheLastCalculationAlone) {
  const TestCompany company;
  EXPECT_FALSE(IsValidCalcul(DateTime(2024, 6, 1)));
  company.AddAsset({{"DATA_CALCUL", DateTime(2024, 6, 15)}});
  company.AddAsset({{"DATA_CALCUL", DateTime(2024, 5, 31)}});
  EXPECT_TRUE(IsValidCalcul(DateTime(2024, 6, 1)));
  EXPECT_TRUE(IsValidCalcul(DateTime(1999, 6, 30)));
  EXPECT_FALSE(IsValidCalcul(DateTime(2024, 5, 31)));
  CurrentSession().connectionString = CompanyConnectionString("/nowhere", "Kelnar01.mdb");
  EXPECT_FALSE(IsValidCalcul(DateTime(2024, 6, 1)));
}

TEST(DurataNormala, TakesTheCatalogueOfTheDay) {
  const TestCompany company;
  company.Open().Execute("DELETE FROM I_CLASIFICARE");
  company.Open().Execute(
      "INSERT INTO I_CLASIFICARE (COD_GR, DEN_GR, DURNOR, COD_GR_NOU, DURNOR_NOU) "
      "VALUES ('1.1', 'Hala', 50, '1.1', 40), ('N2', 'Noua', NULL, '2', NULL)");
  const struct {
    DateTime today;
    const char* code;
    double years;
  } rows[] = {{DateTime(2004, 12, 31), "1.1", 50},
              {DateTime(2005, 1, 1), "1.1", 50},
              {DateTime(2005, 1, 2), "1.1", 40},
              {DateTime(2026, 1, 1), "2", 0},
              {DateTime(2026, 1, 1), "9'9", 0}};
  for (const auto& row : rows) {
    clock::Set(row.today);
    EXPECT_EQ(DurataNormala(row.code), row.years) << row.code << " on " << row.today.Iso();
  }
  clock::Reset();
}

TEST(Months, BeginAndEnd) {
  EXPECT_EQ(MonthBegin(DateTime(2024, 2, 15)), DateTime(2024, 2, 1));
  EXPECT_EQ(MonthEnd(DateTime(2024, 2, 1)), DateTime(2024, 2, 29));
  EXPECT_EQ(MonthEnd(DateTime(2023, 12, 31)), DateTime(2023, 12, 31));
}

}  // namespace
}  // namespace tevra::test
