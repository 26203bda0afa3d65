// The plan of an asset over the years of its life, checked by hand.
#include <gtest/gtest.h>

#include "engine/DepreciationPlan.h"
#include "platform/text/Numbers.h"
#include "tests/text/Expect.h"

namespace tevra::test {
namespace {

// 1,000 lei (200 in currency) in five years from 01.02.2004.
PlanParameters Asset(char method = 'L') {
  PlanParameters asset;
  asset.TIP_AM = method;
  asset.DATA_IN_AM = DateTime(2004, 2, 1);
  asset.DATA_SF = DateTime(2009, 2, 1);
  asset.VAL_CUMP = 1000;
  asset.VAL_CUMP_VAL = 200;
  asset.VALCHELEI = asset.VALCHEVAL = asset.VAL_BLOCATA = asset.VAL_BLOCATA_VAL = 0;
  asset.COTA_ANUALA = 0.2;
  asset.DRFANI = 5;
  return asset;
}

std::string Text(int year, const PlanAmounts& amounts) {
  std::string text = std::to_string(year) + ":";
  for (const double amount :
       {amounts.toDepreciate, amounts.depreciation, amounts.cumulated, amounts.remaining}) {
    text += " " + CStr(amount);
  }
  return text + "\n";
}
std::string Lei(const PlanParameters& asset) {
  std::string text;
  for (const PlanYear& year : DepreciationPlan(asset)) text += Text(year.year, year.lei);
  return text;
}
std::string Currency(const PlanParameters& asset) {
  std::string text;
  for (const PlanYear& year : DepreciationPlan(asset)) {
    text += year.currency ? Text(year.year, *year.currency) : "-\n";
  }
  return text;
}

TEST(DepreciationPlan, LinearByCalendarYears) {
  EXPECT_EQ(Lei(Asset()),
            "2004: 1000 183 183 817\n"
            "2005: 817 200 383 617\n"
            "2006: 617 200 583 417\n"
            "2007: 417 200 783 217\n"
            "2008: 217 200 983 17\n"
            "2009: 17 17 1000 0\n");
  EXPECT_EQ(Currency(Asset()),
            "2004: 200 37 37 163\n"
            "2005: 163 40 77 123\n"
            "2006: 123 40 117 83\n"
            "2007: 83 40 157 43\n"
            "2008: 43 40 197 3\n"
            "2009: 3 3 200 0\n");
}

// From 1 January the sixth year has no month, and nothing is left for it.
TEST(DepreciationPlan, EndsWhenAllIsDepreciated) {
  PlanParameters asset = Asset();
  asset.DATA_IN_AM = DateTime(2004, 1, 1);
  asset.DATA_SF = DateTime(2009, 1, 1);
  EXPECT_EQ(DepreciationPlan(asset).size(), 5u);
  EXPECT_EQ(DepreciationPlan(asset).back().lei, (PlanAmounts{200, 200, 1000, 0}));
  // A value that is no whole number is never reached: the last year comes, with nothing in it.
  asset.VAL_CUMP = 1000.25;
  EXPECT_EQ(DepreciationPlan(asset).size(), 6u);
  EXPECT_EQ(DepreciationPlan(asset).front().lei, (PlanAmounts{1000, 200, 200, 800}));
  EXPECT_EQ(DepreciationPlan(asset).back().lei, (PlanAmounts{0, 0, 1000, 0}));
  asset = Asset();
  asset.VAL_CUMP = asset.VAL_CUMP_VAL = 0;
  EXPECT_TRUE(DepreciationPlan(asset).empty());
  asset.VAL_CUMP_VAL = 200;  // the lei wait for the currency
  EXPECT_EQ(DepreciationPlan(asset).size(), 6u);
}

TEST(DepreciationPlan, HalvesGoToTheEvenOne) {
  PlanParameters asset = Asset();
  asset.DATA_IN_AM = DateTime(2004, 1, 1);
  asset.VAL_CUMP = 25;  // 2.5 a year, and 2.5 more each year
  asset.COTA_ANUALA = 0.1;
  asset.DRFANI = 2;
  asset.DATA_SF = DateTime(2006, 1, 1);
  asset.VAL_CUMP_VAL.reset();
  EXPECT_EQ(Lei(asset),
            "2004: 25 2 2 23\n"
            "2005: 23 2 4 21\n"
            "2006: 21 21 25 0\n");
  EXPECT_EQ(Currency(asset), "-\n-\n-\n");
}

TEST(DepreciationPlan, DirectExpenseReducesTheValueOfEveryMethod) {
  for (const char method : {'L', 'A', 'N', 'M'}) {
    PlanParameters asset = Asset(method);
    asset.COEF = 0.5;
    asset.VALCHELEI = 200;
    asset.VALCHEVAL = 40;
    const std::vector<PlanYear> plan = DepreciationPlan(asset);
    EXPECT_EQ(plan.front().lei.toDepreciate, 800);
    EXPECT_EQ(plan.front().currency->toDepreciate, 160);
    EXPECT_EQ(plan.back().lei.cumulated, 800);
  }
}

// The first twelve months take half: 11 of them in 2004, one in 2005.
TEST(DepreciationPlan, AcceleratedOverTwoCalendarYears) {
  PlanParameters asset = Asset('A');
  asset.COEF = 0.5;
  asset.COTA_ANUALA = 0.25;
  EXPECT_EQ(Lei(asset),
            "2004: 1000 458 458 542\n"
            "2005: 542 156 614 386\n"
            "2006: 386 125 739 261\n"
            "2007: 261 125 864 136\n"
            "2008: 136 125 989 11\n"
            "2009: 11 11 1000 0\n");
  // One year of life: the second calendar year is the last and keeps its own formula.
  asset.DRFANI = 1;
  asset.DATA_SF = DateTime(2005, 2, 1);
  EXPECT_EQ(Lei(asset), "2004: 1000 458 458 542\n2005: 542 542 1000 0\n");
}

TEST(DepreciationPlan, DegressiveOnWhatRemainsThenInEqualParts) {
  PlanParameters asset = Asset('N');
  asset.COEF = 0.3;
  asset.COTA_ANUALA = 1.0 / 3;
  asset.AD2 = 2;
  const std::string expected =
      "2004: 1000 275 275 725\n"  // 1000 x 0.3 x 11/12
      "2005: 725 218 492 507\n"   // 725 x 0.3; 217.5 + 275 = 492.5
      "2006: 507 164 656 343\n"   // D = 507 x 0.3 / 12 = 13, V = 494: 494/3 x 11/12 + 13
      "2007: 343 165 821 178\n"   // 494/3
      "2008: 178 165 986 13\n"
      "2009: 13 13 1000 0\n";
  EXPECT_EQ(Lei(asset), expected);
  asset.TIP_AM = 'M';
  EXPECT_EQ(Lei(asset), expected);
  // What the switch year takes of the first phase is rounded before the rest is divided: from
  // 1 October D = 647 x 0.3 x 9/12 = 146, V = 501, 501/3 x 3/12 + 146 = 187.75.
  asset.DATA_IN_AM = DateTime(2004, 10, 1);
  asset.DATA_SF = DateTime(2009, 10, 1);
  EXPECT_EQ(Lei(asset),
            "2004: 1000 75 75 925\n"
            "2005: 925 278 352 647\n"
            "2006: 647 188 540 459\n"
            "2007: 459 167 707 292\n"
            "2008: 292 167 874 125\n"
            "2009: 125 125 999 0\n");
  // Past a switch that never was, nothing is taken until the last year.
  asset.DATA_IN_AM = DateTime(2004, 2, 1);
  asset.DATA_SF = DateTime(2009, 2, 1);
  asset.AD2.reset();
  EXPECT_EQ(Lei(asset),
            "2004: 1000 275 275 725\n"
            "2005: 725 0 275 725\n"
            "2006: 725 0 275 725\n"
            "2007: 725 0 275 725\n"
            "2008: 725 0 275 725\n"
            "2009: 725 725 1000 0\n");
}

TEST(DepreciationPlan, BlockedFromTheDateAndTheValueOfItsBlocking) {
  PlanParameters asset = Asset();
  asset.BLOCATA = true;
  asset.DATA_BLOCARE = DateTime(2006, 7, 1);
  asset.VAL_BLOCATA = 600;
  asset.VAL_BLOCATA_VAL = 90;
  asset.VALCHELEI = 200;
  asset.DRBANI = 2;
  asset.COTA_ANUALA = 0.5;
  asset.DATA_SF = DateTime(2008, 7, 1);
  EXPECT_EQ(Lei(asset),
            "2006: 600 150 150 450\n"
            "2007: 450 300 450 150\n"
            "2008: 150 150 600 0\n");
  EXPECT_EQ(DepreciationPlan(asset).back().currency, (PlanAmounts{23, 23, 90, 0}));
  // Two and a half years end with the calendar year of the end.
  asset.DRBANI = 2.5;
  asset.DATA_SF = DateTime(2009, 1, 1);
  EXPECT_EQ(DepreciationPlan(asset).size(), 4u);
  asset.DATA_BLOCARE.reset();
  asset.DRBANI = 0;
  EXPECT_EQ(Lei(asset), "1899: 600 600 600 0\n");
  asset.DRBANI.reset();
  EXPECT_EQ(DepreciationPlan(asset).size(), 1u);
}

TEST(DepreciationPlan, WhatIsMissingIsNamed) {
  const auto refusal = [](auto change) {
    PlanParameters asset = Asset();
    change(asset);
    return RefusalOf([&] { static_cast<void>(DepreciationPlan(asset)); }).text;
  };
  const std::string null = "Invalid use of Null: ";
  EXPECT_EQ(refusal([](PlanParameters& a) { a.VAL_CUMP.reset(); }), null + "VAL_CUMP");
  EXPECT_EQ(refusal([](PlanParameters& a) { a.VALCHELEI.reset(); }), null + "VALCHELEI");
  EXPECT_EQ(refusal([](PlanParameters& a) { a.VALCHEVAL.reset(); }), null + "VALCHEVAL");
  EXPECT_EQ(refusal([](PlanParameters& a) { a.COTA_ANUALA.reset(); }), null + "COTA_ANUALA");
  EXPECT_EQ(refusal([](PlanParameters& a) { a.DRFANI.reset(); }), null + "DRFANI");
  EXPECT_EQ(refusal([](PlanParameters& a) { a.VAL_BLOCATA.reset(); }), null + "VAL_BLOCATA");
  EXPECT_EQ(refusal([](PlanParameters& a) { a.VAL_BLOCATA_VAL.reset(); }),
            null + "VAL_BLOCATA_VAL");
  EXPECT_EQ(refusal([](PlanParameters& a) { a.DATA_IN_AM.reset(); }), null + "DATA_IN_AM");
  EXPECT_EQ(refusal([](PlanParameters& a) { a.DATA_SF.reset(); }), null + "DATA_SF");
  EXPECT_EQ(refusal([](PlanParameters& a) {
              a.COTA_ANUALA = 0;
              a.DRFANI = 1e9;
            }),
            "Overflow: AN");
}

}  // namespace
}  // namespace tevra::test
