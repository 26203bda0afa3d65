// One asset brought up to a date, and its plan in the work table, over a real company file.
#include <gtest/gtest.h>

#include "engine/Module3.h"
#include "engine/PlanAmortizare.h"
#include "platform/data/Recordset.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra::test {
namespace {

class OneAsset : public ::testing::Test {
 protected:
  // 12,000 lei in five years from 01.02.2024.
  int Add(const char* cod, std::map<std::string, Value> fields = {}) {
    fields.insert({{"COD", cod},
                   {"DENUMIRE", "Strung"},
                   {"TIP_AM", "L"},
                   {"DATA_ACH", DateTime(2024, 1, 10)},
                   {"DATA_IN_AM", DateTime(2024, 2, 1)},
                   {"DATA_SF", DateTime(2029, 2, 1)},
                   {"DRFANI", 5.0},
                   {"VAL_CUMP", 12000.0},
                   {"VAL_CUMP_VAL", 2400.0},
                   {"COTA_ANUALA", 0.2}});
    return company_.AddAsset({fields.begin(), fields.end()});
  }
  Value Field(const char* name, int nrcrt) {
    return company_.Open().QueryValue(std::string("SELECT ") + name + " FROM I_IMO WHERE NRCRT = ?",
                                      {nrcrt});
  }
  std::string Plan() { return company_.Rows("SELECT * FROM I_PLANAMO"); }

  TestCompany company_;
  MessageRecorder messages_;
};

// As a disposal needs it: as if it had not left, and without what went to expenses at once.
TEST_F(OneAsset, IsCalculatedAsIfItHadNotLeft) {
  const int left = Add("1", {{"IESIRE", Value::YesNo(true)},
                             {"DATA_IESIRE", DateTime(2024, 3, 31)},
                             {"VALCHELEI", 2400.0}});
  const int second = Add("1");
  CalculImobilizare(DateTime(2024, 6, 15), "1");
  EXPECT_EQ(Field("VAL_AMOR_CUMULATA", left), Value(1000.0));
  EXPECT_EQ(Field("VAL_RAMASA", left), Value(11000.0));
  EXPECT_EQ(Field("VAL_AMOR_CUMULATA_VAL", left), Value(200.0));
  EXPECT_EQ(Field("COTAL_LUNARA", left), Value(0.2 / 12));
  EXPECT_EQ(Field("DALUNI", left), Value(5));
  EXPECT_EQ(Field("DATA_CALCUL", left), Value(DateTime(2024, 6, 15)));
  EXPECT_TRUE(Field("DATA_CALCUL", second).IsNull());
  CalculImobilizare(DateTime(2024, 2, 29), "1");
  EXPECT_EQ(Field("VAL_AMOR_CUMULATA", left), Value(200.0));
  CalculImobilizare(DateTime(2029, 2, 2), "1");
  EXPECT_EQ(Field("VAL_AMOR_CUMULATA", left), Value(12000.0));
  EXPECT_EQ(Field("VAL_RAMASA", left), Value(0.0));
  EXPECT_EQ(Field("COTAL_LUNARA", left), Value(0.0));
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(OneAsset, AnUnknownOneChangesNothingAndAFailureLeavesIt) {
  const int asset = Add("O'1", {{"DATA_SF", Value()}});
  CalculImobilizare(DateTime(2024, 6, 15), "' OR '1' = '1");
  EXPECT_TRUE(Field("DATA_CALCUL", asset).IsNull());
  const Refusal refusal = RefusalOf([&] { CalculImobilizare(DateTime(2024, 6, 15), "O'1"); });
  EXPECT_EQ(refusal.number, kInvalidUseOfNull);
  EXPECT_EQ(refusal.source, "NRCRT 1, COD O'1");
  EXPECT_TRUE(Field("DATA_CALCUL", asset).IsNull());
  // Nothing is left locked behind it.
  company_.Open().Execute("UPDATE I_IMO SET DATA_SF = '2029-02-01 00:00:00'");
  CalculImobilizare(DateTime(2024, 6, 15), "O'1");
  EXPECT_EQ(Field("VAL_RAMASA", asset), Value(11000.0));
}

TEST_F(OneAsset, ItsPlanReplacesTheOneBefore) {
  const int first = Add("1");
  const int second = Add("2", {{"VAL_CUMP_VAL", Value()},
                               {"DATA_IN_AM", DateTime(2024, 1, 1)},
                               {"DATA_SF", DateTime(2026, 1, 1)},
                               {"COTA_ANUALA", 0.5},
                               {"DRFANI", 2.0}});
  PlanAmortizare(std::to_string(first));
  Connection connection = company_.Open();
  EXPECT_EQ(connection.QueryValue("SELECT COUNT(*) FROM I_PLANAMO WHERE ID = 1").AsLong(), 6);
  EXPECT_EQ(MakePlan(connection, " 2 "), 2);
  EXPECT_EQ(Plan(),
            "2 Strung 2024 12000  6000  6000  6000  \n"
            "2 Strung 2025 6000  6000  12000  0  \n");
  EXPECT_EQ(Field("VAL_AMOR_CUMULATA", second), Value(0.0));
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(OneAsset, ItsPlanReadsPhasesExpensesAndBlocking) {
  Add("1", {{"TIP_AM", "N"},
            {"DATA_IN_AM", DateTime(2004, 2, 1)},
            {"DATA_SF", DateTime(2009, 2, 1)},
            {"VAL_CUMP", 1200.0},
            {"VALCHELEI", 200.0},
            {"VAL_CUMP_VAL", 240.0},
            {"VALCHEVAL", 40.0},
            {"COTA_ANUALA", 1.0 / 3},
            {"COEF", 0.3},
            {"AD2", 2.0}});
  Add("2", {{"BLOCATA", Value::YesNo(true)},
            {"DATA_BLOCARE", DateTime(2006, 7, 1)},
            {"DATA_SF", DateTime(2008, 7, 1)},
            {"VAL_BLOCATA", 600.0},
            {"VAL_BLOCATA_VAL", 90.0},
            {"COTA_ANUALA", 0.5},
            {"DRBANI", 2.0}});
  const auto plan = [this](const char* number) {
    PlanAmortizare(number);
    return company_.Rows("SELECT AN, VALAMO, AMO_AN, VALAMOCUM, VALRAMASA FROM I_PLANAMO");
  };
  EXPECT_EQ(plan("1"),
            "2004 1000 275 275 725 \n"
            "2005 725 218 492 507 \n"
            "2006 507 164 656 343 \n"
            "2007 343 165 821 178 \n"
            "2008 178 165 986 13 \n"
            "2009 13 13 1000 0 \n");
  EXPECT_EQ(company_.Rows("SELECT VALAMO_VAL FROM I_PLANAMO WHERE AN = 2004"), "200 \n");
  EXPECT_EQ(plan("2"),
            "2006 600 150 150 450 \n"
            "2007 450 300 450 150 \n"
            "2008 150 150 600 0 \n");
  EXPECT_EQ(company_.Rows("SELECT VALRAMASA_VAL FROM I_PLANAMO WHERE AN = 2006"), "68 \n");
}

TEST_F(OneAsset, APlanThatFailsLeavesTheOneBefore) {
  Add("1");
  Add("2", {{"VALCHELEI", Value()}});
  PlanAmortizare("1");
  const std::string before = Plan();
  ASSERT_FALSE(before.empty());
  for (const char* wrong : {"2", "99", "x", ""}) {
    PlanAmortizare(wrong);
    EXPECT_EQ(Plan(), before) << wrong;
  }
  ASSERT_EQ(messages_.shown.size(), 4u);
  EXPECT_EQ(messages_.shown[0].prompt, "Eroare la salvare !");
  EXPECT_EQ(messages_.shown[0].title, "Salvare plan amortizare");
  EXPECT_EQ(messages_.shown[0].buttons, kCritical);
  Connection connection = company_.Open();
  EXPECT_EQ(FailureOf([&] { MakePlan(connection, "99"); }), kNoCurrentRecord);

  CurrentSession().connectionString += ";Lock Timeout=50";
  connection.BeginTrans();
  PlanAmortizare("1");
  connection.RollbackTrans();
  EXPECT_EQ(messages_.shown.size(), 5u);
  EXPECT_EQ(Plan(), before);
}

TEST_F(OneAsset, LeftOrNotDepreciatedItHasNoPlan) {
  EXPECT_STREQ(PlanRefusal(Value::YesNo(true), "F"),
               "Aceasta imobilizare  a fost vanduta / casata !");
  EXPECT_STREQ(PlanRefusal(Value::YesNo(false), "F"), "Aceasta imobilizare este fara amortizare");
  EXPECT_EQ(PlanRefusal(Value(), Value()), nullptr);
  EXPECT_EQ(PlanRefusal(Value::YesNo(false), "L"), nullptr);
}

}  // namespace
}  // namespace tevra::test
