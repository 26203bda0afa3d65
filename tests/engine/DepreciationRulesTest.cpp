#include <algorithm>
#include <cmath>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "engine/DepreciationRules.h"
#include "platform/text/Failure.h"

namespace tevra {
namespace {

// States: a active, b active and blocked, B the same with a Null BLOCATA, x exit pending, y exit
// pending and blocked, s alone, t alone and blocked.
const std::string kFree = "axs", kBlocked = "bByt", kAll = kFree + kBlocked;

DateTime Day(const char* iso) {
  return *DateTime::FromIso(iso);
}

AssetParameters AssetIn(char state, char method) {
  const bool dated = state == 'x' || state == 'y';  // long gone where nobody may look at it
  AssetParameters asset{method, kBlocked.find(state) != std::string::npos,
                        std::string("xyst").find(state) != std::string::npos,
                        // exit, purchase, start, switch, end, blocking
                        Day(dated ? "2009-05-20" : "2003-01-01"), Day("2004-01-10"),
                        Day("2004-02-05"), Day("2005-04-15"), Day("2008-02-05"), Day("2004-07-10"),
                        // values and rates
                        4800, 2400, 2400, 1440, 0.25, 0.4};
  if (state == 'B') asset.BLOCATA.reset();
  return asset;
}

const CalculatedFields kStored{Day("2003-12-31"), 7, 0.5, 111, 112, 113, 114, 480, 240};

void Calculate(char state, const AssetParameters& asset, const DateTime& date,
               CalculatedFields& fields) {
  const bool alone = state == 's' || state == 't';
  (alone ? CalculateSingle : CalculateForMonth)(asset, date, fields);
}

std::string Text(const CalculatedFields& fields) {
  std::ostringstream text;
  text.precision(17);
  text << (fields.DATA_CALCUL ? fields.DATA_CALCUL->Iso().substr(0, 10) : "Null");
  text << " luni " << fields.DALUNI.value_or(-999);
  for (const auto& value :
       {fields.COTAL_LUNARA, fields.VAL_AMOR_CUMULATA, fields.VAL_AMOR_CUMULATA_VAL,
        fields.VAL_RAMASA, fields.VAL_RAMASA_VAL, fields.VALCHELEI, fields.VALCHEVAL}) {
    value ? text << " | " << *value : text << " | Null";
  }
  return text.str();
}

long FailureOf(char state, const AssetParameters& asset, const DateTime& date,
               std::string* description = nullptr) {
  CalculatedFields fields = kStored;
  try {
    Calculate(state, asset, date, fields);
  } catch (const Failure& failure) {
    EXPECT_EQ(fields, kStored) << "a failure must leave the values";
    if (description) *description = failure.Description();
    return failure.Number();
  }
  return 0;
}

struct Row {
  std::string methods, states;
  const char* date;
  int months;
  double annualRate;  // COTAL_LUNARA is a twelfth of it
  double amor, amorVal, ramasa, ramasaVal;
  double cheLei = 480, cheVal = 240;
};

// A month of "L": 4800 * 0.25 / 12 = 100 (currency 50); less 480 (240): 90 (45); blocked 50 (30).
// First phase, a month: 4800 * 0.4 / 12 = 160 (80); blocked 80 (48).
// Second phase, a month: 4800 * 0.4 * 0.25 / 12 = 40 (20); blocked 20 (12).
const std::vector<Row> kRows = {
    // the day before the purchase, the purchase, the day before the start
    {"LANM", kAll, "2004-01-09", 0, 0, 0, 0, 0, 0},
    {"L", "a", "2004-01-10", 0, 0, 0, 0, 4320, 2160},
    {"L", "xsbByt", "2004-01-10", 0, 0, 0, 0, 4800, 2400},
    {"ANM", kAll, "2004-01-10", 0, 0, 0, 0, 4800, 2400},
    {"L", "a", "2004-02-04", 0, 0, 0, 0, 4320, 2160},
    {"L", "xsbByt", "2004-02-04", 0, 0, 0, 0, 4800, 2400},
    {"ANM", kAll, "2004-02-04", 0, 0, 0, 0, 4800, 2400},
    // the start and the end of its month
    {"L", "a", "2004-02-05", 1, 0.25, 90, 45, 4230, 2115},
    {"L", "xs", "2004-02-05", 1, 0.25, 100, 50, 4700, 2350},
    {"A", "a", "2004-02-05", 1, 0.4, 160, 80, 4640, 2320, 0, 0},
    {"A", "xs", "2004-02-05", 1, 0.4, 160, 80, 4640, 2320},
    {"NM", kFree, "2004-02-29", 1, 0.4, 160, 80, 4640, 2320},
    // about the blocking: unblocked assets are in their sixth month
    {"L", "a", "2004-07-09", 6, 0.25, 540, 270, 3780, 1890},
    {"LANM", kBlocked, "2004-07-09", 0, 0, 0, 0, 4800, 2400},
    {"L", kBlocked, "2004-07-10", 1, 0.25, 50, 30, 2350, 1410},
    {"ANM", kBlocked, "2004-07-10", 1, 0.4, 80, 48, 2320, 1392},
    {"L", kBlocked, "2004-12-31", 6, 0.25, 300, 180, 2100, 1260},
    // the month before DATA_AMORT, the day before it, itself, the last day of its month
    {"A", "a", "2005-03-31", 14, 0.4, 2240, 1120, 2560, 1280, 0, 0},
    {"A", "a", "2005-04-14", 13, 0.25, 1960, 980, 2840, 1420, 1920, 960},  // 1920 + 40 * 1
    {"A", "xs", "2005-04-14", 15, 0.4, 2400, 1200, 2400, 1200},
    {"NM", kFree, "2005-04-14", 15, 0.4, 2400, 1200, 2400, 1200},
    {"ANM", kBlocked, "2005-04-14", 10, 0.4, 800, 480, 1600, 960},
    {"A", "xs", "2005-04-15", 13, 0.25, 1960, 980, 2840, 1420},
    {"A", kBlocked, "2005-04-15", 13, 0.25, 980, 588, 1420, 852},   // 960 + 20 * 1
    {"NM", "as", "2005-04-15", 15, 0.25, 2280, 1140, 2520, 1260},   // 160 * 14 + 40 * 1
    {"NM", "x", "2005-04-15", 13, 0.25, 2440, 1220, 2360, 1180},    // 160 * 15 + 40 * 1
    {"NM", kBlocked, "2005-04-30", 10, 0.25, 740, 444, 1660, 996},  // 80 * 9 + 20 * 1
    {"A", "a", "2005-12-31", 21, 0.25, 2280, 1140, 2520, 1260, 1920, 960},
    {"NM", "as", "2005-12-31", 23, 0.25, 2600, 1300, 2200, 1100},   // 160 * 14 + 40 * 9
    {"NM", "x", "2005-12-31", 21, 0.25, 2760, 1380, 2040, 1020},    // 160 * 15 + 40 * 9
    {"NM", kBlocked, "2005-12-31", 18, 0.25, 900, 540, 1500, 900},  // 80 * 9 + 20 * 9
    // DATA_SF: still in life, a month over; then ended
    {"L", "a", "2008-02-05", 49, 0.25, 4410, 2205, -90, -45},
    {"L", "xs", "2008-02-04", 49, 0.25, 4900, 2450, -100, -50},
    {"L", kBlocked, "2008-02-05", 44, 0.25, 2200, 1320, 200, 120},
    {"L", "a", "2008-02-06", 48, 0, 4320, 2160, 0, 0},
    {"L", "xs", "2008-02-06", 48, 0, 4800, 2400, 0, 0},
    {"ANM", kFree, "2008-02-06", 48, 0, 4800, 2400, 0, 0},
    {"LANM", kBlocked, "2008-02-06", 43, 0, 2400, 1440, 0, 0},
    // no depreciation: neither dates nor the deduction play a part
    {"F", kFree, "2004-01-09", 7, 0, 0, 0, 4800, 2400},
    {"F", kBlocked, "2008-02-06", 7, 0, 0, 0, 2400, 1440},
};

TEST(DepreciationRules, MethodsStatesAndBoundaryDates) {
  for (const Row& row : kRows) {
    for (const char method : row.methods) {
      for (const char state : row.states) {
        const CalculatedFields expected{method == 'F' ? kStored.DATA_CALCUL : Day(row.date),
                                        row.months,
                                        row.annualRate / 12,
                                        row.amor,
                                        row.amorVal,
                                        row.ramasa,
                                        row.ramasaVal,
                                        row.cheLei,
                                        row.cheVal};
        CalculatedFields fields = kStored;
        Calculate(state, AssetIn(state, method), Day(row.date), fields);
        EXPECT_EQ(Text(fields), Text(expected)) << method << state << ' ' << row.date;
      }
    }
  }
}

TEST(DepreciationRules, GoneAssetsAndUnknownMethods) {
  CalculatedFields gone = kStored;
  gone.COTAL_LUNARA = gone.VAL_AMOR_CUMULATA = gone.VAL_AMOR_CUMULATA_VAL = 0.0;
  gone.VAL_RAMASA = gone.VAL_RAMASA_VAL = 0.0;
  for (const char method : {'L', 'A', 'N', 'M', 'F', 'l', 'Z', MethodCode(""), MethodCode("LL")}) {
    const bool known = std::string("LANMF").find(method) != std::string::npos;
    for (const char state : kAll) {
      CalculatedFields fields = kStored;
      Calculate(state, AssetIn(state, method), Day("2009-05-19"), fields);
      EXPECT_EQ(fields != kStored, known) << method << state;
      if (state != 'x' && state != 'y') continue;
      for (const char* date : {"2009-05-20", "2009-05-21"}) {
        fields = kStored;
        Calculate(state, AssetIn(state, method), Day(date), fields);
        EXPECT_EQ(Text(fields), Text(gone)) << method << state << date;
      }
      AssetParameters undated = AssetIn(state, method);
      undated.DATA_IESIRE.reset();
      EXPECT_EQ(FailureOf(state, undated, Day("2009-05-19")), kInvalidUseOfNull);
    }
  }
  EXPECT_EQ(MethodCode("L"), 'L');
}

// Start 01.02.2004, monthly rate 3 / 12 = 0.25, one month: halves go to the even number, and lei
// and currency each look at their own deduction.
TEST(DepreciationRules, DeductionAndHalvesEachForItself) {
  struct Amount {
    double value;
    std::optional<double> expense;
    double month, remaining, whole;
  };
  const std::vector<Amount> amounts = {
      {10, std::nullopt, 2, 8, 10},  // 2.5
      {10, 0, 2, 8, 10},
      {10, 4, 2, 4, 6},                // 1.5
      {14, std::nullopt, 4, 10, 14},   // 3.5
      {10.5, std::nullopt, 3, 8, 10},  // 2.625, 7.5; 10.5
      {9.5, 0, 2, 8, 10},              // 2.375, 7.5; 9.5
      {4, 6, 0, -2, -2},               // -0.5 is 0, never -0
  };
  AssetParameters asset = AssetIn('a', 'L');
  asset.DATA_IN_AM = Day("2004-02-01");
  asset.COTA_ANUALA = 3;
  for (const Amount& lei : amounts) {
    for (const Amount& currency : amounts) {
      asset.VAL_CUMP = lei.value;
      asset.VAL_CUMP_VAL = currency.value;
      const auto check = [&](const char* date, int months, double rate, double amor, double amorVal,
                             double ramasa, double ramasaVal) {
        CalculatedFields fields = kStored;
        fields.VALCHELEI = lei.expense;
        fields.VALCHEVAL = currency.expense;
        const CalculatedFields expected{Day(date), months,      rate,
                                        amor,      amorVal,     ramasa,
                                        ramasaVal, lei.expense, currency.expense};
        CalculateForMonth(asset, Day(date), fields);
        EXPECT_EQ(Text(fields), Text(expected)) << lei.value << ' ' << currency.value;
      };
      check("2004-01-31", 0, 0, 0, 0, lei.whole, currency.whole);
      check("2004-02-01", 1, 0.25, lei.month, currency.month, lei.remaining, currency.remaining);
      check("2008-02-06", 48, 0, lei.whole, currency.whole, 0, 0);
    }
  }
}

// Exactly on paper these are 899.5, 102.5 and 5820.5. In doubles the prescribed order of the
// operations decides the last leu; other orders and fused operations give the neighbour.
TEST(DepreciationRules, OrderOfOperationsDecidesTheLastLeu) {
  struct Case {
    char method;
    double value, rate, coef;
    const char *amort, *date;
    double amor;
  };
  for (const Case& c : {Case{'L', 1028, 0.5, 0, "2005-02-01", "2005-10-01", 899},
                        Case{'A', 164, 0.25, 0.4, "2005-02-01", "2007-04-01", 102},
                        Case{'N', 16630, 1.0 / 15, 0.35, "2005-01-01", "2006-03-01", 5821}}) {
    AssetParameters asset = AssetIn('s', c.method);
    asset.VAL_CUMP = asset.VAL_CUMP_VAL = c.value;
    asset.COTA_ANUALA = c.rate;
    asset.COEF = c.coef;
    asset.DATA_AMORT = Day(c.amort);
    CalculatedFields fields;
    CalculateSingle(asset, Day(c.date), fields);
    EXPECT_EQ(fields.VAL_AMOR_CUMULATA, c.amor) << c.method;
    EXPECT_EQ(fields.VAL_AMOR_CUMULATA_VAL, c.amor) << c.method;
  }
}

struct NullableField {
  const char* name;
  void (*clear)(AssetParameters&);
};
const std::vector<NullableField> kNullable = {
    {"DATA_ACH", [](AssetParameters& a) { a.DATA_ACH.reset(); }},
    {"DATA_IN_AM", [](AssetParameters& a) { a.DATA_IN_AM.reset(); }},
    {"DATA_AMORT", [](AssetParameters& a) { a.DATA_AMORT.reset(); }},
    {"DATA_SF", [](AssetParameters& a) { a.DATA_SF.reset(); }},
    {"DATA_BLOCARE", [](AssetParameters& a) { a.DATA_BLOCARE.reset(); }},
    {"VAL_CUMP", [](AssetParameters& a) { a.VAL_CUMP.reset(); }},
    {"VAL_CUMP_VAL", [](AssetParameters& a) { a.VAL_CUMP_VAL.reset(); }},
    {"VAL_BLOCATA", [](AssetParameters& a) { a.VAL_BLOCATA.reset(); }},
    {"VAL_BLOCATA_VAL", [](AssetParameters& a) { a.VAL_BLOCATA_VAL.reset(); }},
    {"COTA_ANUALA", [](AssetParameters& a) { a.COTA_ANUALA.reset(); }},
    {"COEF", [](AssetParameters& a) { a.COEF.reset(); }},
};

TEST(DepreciationRules, NullFailsOnlyWhereTheFieldIsNeeded) {
  struct Case {
    const char *methods, *states, *date;
    std::vector<std::string> needed;
  };
  const std::vector<Case> cases = {
      {"LANM", "axs", "2004-01-09", {"DATA_SF", "DATA_IN_AM", "DATA_ACH"}},
      {"LANM", "axs", "2004-02-04", {"DATA_SF", "DATA_IN_AM", "DATA_ACH", "VAL_CUMP"}},
      {"LANM", "bByt", "2004-07-09", {"DATA_SF", "DATA_BLOCARE", "DATA_ACH", "VAL_CUMP"}},
      {"L", "axs", "2004-02-05", {"DATA_SF", "DATA_IN_AM", "COTA_ANUALA", "VAL_CUMP"}},
      {"L", "bByt", "2004-07-10", {"DATA_SF", "DATA_BLOCARE", "COTA_ANUALA", "VAL_BLOCATA"}},
      {"ANM", "axs", "2004-02-05", {"DATA_SF", "DATA_IN_AM", "DATA_AMORT", "COEF", "VAL_CUMP"}},
      {"ANM",
       "axs",
       "2005-04-15",
       {"DATA_SF", "DATA_IN_AM", "DATA_AMORT", "COEF", "COTA_ANUALA", "VAL_CUMP"}},
      {"ANM",
       "bByt",
       "2005-04-15",
       {"DATA_SF", "DATA_BLOCARE", "DATA_AMORT", "COEF", "COTA_ANUALA", "VAL_BLOCATA"}},
      {"LANM", "axs", "2008-02-06", {"DATA_SF", "DATA_IN_AM", "VAL_CUMP"}},
      {"LANM", "bByt", "2008-02-06", {"DATA_SF", "DATA_BLOCARE", "VAL_BLOCATA"}},
      {"F", "axs", "2005-04-15", {"VAL_CUMP"}},
      {"F", "bByt", "2005-04-15", {"VAL_BLOCATA"}}};
  const auto check = [](const Case& c, char method, char state, const NullableField& field) {
    AssetParameters asset = AssetIn(state, method);
    field.clear(asset);
    std::string name = field.name, description;
    FailureOf(state, asset, Day(c.date), &description);
    // A currency value is needed wherever its lei are.
    const std::string lei = name.ends_with("_VAL") ? name.substr(0, name.size() - 4) : name;
    const bool needed = std::find(c.needed.begin(), c.needed.end(), lei) != c.needed.end();
    EXPECT_EQ(description, needed ? "Invalid use of Null: " + name : "")
        << method << state << c.date;
  };
  for (const Case& c : cases) {
    for (const char method : std::string_view(c.methods)) {
      for (const char state : std::string_view(c.states)) {
        for (const NullableField& field : kNullable) check(c, method, state, field);
      }
    }
  }
}

TEST(DepreciationRules, Overflow) {
  AssetParameters asset = AssetIn('a', 'L');
  asset.VAL_CUMP_VAL = 1e308;
  asset.COTA_ANUALA = 24;  // two a month
  std::string description;
  EXPECT_EQ(FailureOf('a', asset, Day("2004-02-05"), &description), kOverflow);
  EXPECT_EQ(description, "Overflow: VAL_AMOR_CUMULATA_VAL");

  // From January 100 the month 32,767 is July 2830; the count of a single asset ends there.
  struct Case {
    char method;
    const char *amort, *last, *over;
  };
  for (const Case& c : {Case{'L', "9999-01-01", "2830-07-31", "2830-08-01"},
                        Case{'N', "9999-01-01", "2830-07-31", "2830-08-01"},
                        Case{'A', "0100-01-01", "2829-07-31", "2829-08-01"},     // n2 + 12
                        Case{'N', "0101-01-01", "2830-07-31", "2830-08-01"}}) {  // n2 + n1
    asset = AssetIn('s', c.method);
    asset.DATA_IN_AM = Day("0100-01-01");
    asset.DATA_AMORT = Day(c.amort);
    asset.DATA_SF = Day("9999-01-01");
    CalculatedFields fields = kStored;
    CalculateSingle(asset, Day(c.last), fields);
    EXPECT_EQ(fields.DALUNI, 32767) << c.method;
    EXPECT_EQ(FailureOf('s', asset, Day(c.over), &description), kOverflow) << c.method;
    EXPECT_EQ(description, "Overflow: DALUNI");
    asset.IESIRE = false;
    CalculateForMonth(asset, Day(c.over), fields);
    EXPECT_EQ(fields.DALUNI, 32768) << c.method;
  }
  asset.DATA_SF = Day("2830-08-31");  // ended after 32,767 months
  EXPECT_EQ(FailureOf('s', asset, Day("2831-01-01")), 0);
  asset.DATA_SF = Day("2830-09-01");
  EXPECT_EQ(FailureOf('s', asset, Day("2831-01-01")), kOverflow);
}

TEST(DepreciationRules, MonthCharge) {
  CalculatedFields fields = kStored;  // rate 0.5, expense 480
  AssetParameters asset = AssetIn('a', 'L');
  EXPECT_EQ(MonthCharge(asset, fields), 2160);  // (4800 - 480) * 0.5
  asset.BLOCATA.reset();                        // Null is not -1
  EXPECT_EQ(MonthCharge(asset, fields), 2160);
  fields.VALCHELEI.reset();
  EXPECT_EQ(MonthCharge(asset, fields), std::nullopt);
  asset.BLOCATA = true;
  EXPECT_EQ(MonthCharge(asset, fields), 1200);
  fields.COTAL_LUNARA = -0.0;
  EXPECT_FALSE(std::signbit(MonthCharge(asset, fields).value()));
  fields.COTAL_LUNARA.reset();
  EXPECT_EQ(MonthCharge(asset, fields), std::nullopt);

  fields = kStored;  // accelerated: the charge falls in the month of DATA_AMORT
  CalculateForMonth(AssetIn('a', 'A'), Day("2005-03-31"), fields);
  EXPECT_DOUBLE_EQ(MonthCharge(AssetIn('a', 'A'), fields).value(), 160);
  CalculateForMonth(AssetIn('a', 'A'), Day("2005-04-01"), fields);
  EXPECT_DOUBLE_EQ(MonthCharge(AssetIn('a', 'A'), fields).value(), 60);  // 2880 * 0.25 / 12
}

TEST(DepreciationRules, OnlyTheLastDateCountsAndMEqualsN) {
  for (const char state : kAll) {
    for (int day = 0; day < 1700; day += 9) {
      const DateTime date = Day("2003-12-31").AddDays(day);
      std::string degressive;
      for (const char method : {'L', 'A', 'N', 'M', 'F'}) {
        const AssetParameters asset = AssetIn(state, method);
        CalculatedFields alone = kStored, afterLater = kStored;
        Calculate(state, asset, date, alone);
        Calculate(state, asset, date.AddDays(200), afterLater);
        Calculate(state, asset, date, afterLater);
        // Outside its life an active "A" keeps whatever an earlier run left there.
        const bool keeps = method == 'A' && (date < *asset.DATA_IN_AM || date > *asset.DATA_SF);
        if (keeps) afterLater.VALCHELEI = 480, afterLater.VALCHEVAL = 240;
        ASSERT_EQ(Text(alone), Text(afterLater)) << method << state << date.Iso();
        if (method == 'N') degressive = Text(alone);
        if (method == 'M') {
          ASSERT_EQ(degressive, Text(alone)) << state << date.Iso();
        }
      }
    }
  }
}

}  // namespace
}  // namespace tevra
