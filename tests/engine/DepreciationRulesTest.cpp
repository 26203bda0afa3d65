#include <algorithm>
#include <cmath>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "engine/DepreciationRules.h"
#include "platform/text/Failure.h"

namespace tevra {
namespace {

// States: a active, b active and blocked, B the same with a Null BLOCATA, x exit pending, y exit
// pending and blocked, s alone, t alone and blocked.
const std::string kFree = "axs", kBlocked = "bByt", kAll = kFree + kBlocked;

DateTime Day(const std::string& iso) {
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

TEST(DepreciationRules, MethodsStatesAndBoundaryDates) {
  std::ifstream file(TEVRA_EXPECTED_DEPRECIATION);
  int rows = 0;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream row(line);
    std::string methods, states, date;
    int months = 0;
    double annualRate = 0, amor = 0, amorVal = 0, ramasa = 0, ramasaVal = 0, lei = 0, currency = 0;
    row >> methods >> states >> date >> months >> annualRate >> amor >> amorVal >> ramasa;
    ASSERT_TRUE(row >> ramasaVal >> lei >> currency) << line;
    ++rows;
    CalculatedFields expected{Day(date), months, annualRate / 12, amor, amorVal, ramasa,
                              ramasaVal, lei,    currency};
    if (methods == "F") expected.DATA_CALCUL = kStored.DATA_CALCUL;
    for (const char method : methods) {
      for (const char state : states) {
        CalculatedFields fields = kStored;
        Calculate(state, AssetIn(state, method), Day(date), fields);
        EXPECT_EQ(Text(fields), Text(expected)) << method << state << ' ' << date;
      }
    }
  }
  EXPECT_EQ(rows, 40);
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

using A = AssetParameters;
struct NullableField {
  const char* name;
  std::variant<std::optional<DateTime> A::*, std::optional<double> A::*> field;
};
const NullableField kNullable[] = {{"DATA_ACH", &A::DATA_ACH},
                                   {"DATA_IN_AM", &A::DATA_IN_AM},
                                   {"DATA_AMORT", &A::DATA_AMORT},
                                   {"DATA_SF", &A::DATA_SF},
                                   {"DATA_BLOCARE", &A::DATA_BLOCARE},
                                   {"VAL_CUMP", &A::VAL_CUMP},
                                   {"VAL_CUMP_VAL", &A::VAL_CUMP_VAL},
                                   {"VAL_BLOCATA", &A::VAL_BLOCATA},
                                   {"VAL_BLOCATA_VAL", &A::VAL_BLOCATA_VAL},
                                   {"COTA_ANUALA", &A::COTA_ANUALA},
                                   {"COEF", &A::COEF}};

TEST(DepreciationRules, NullFailsOnlyWhereTheFieldIsNeeded) {
  struct Case {
    const char *methods, *states, *date;
    std::string needed;  // between blanks
  };
  const std::vector<Case> cases = {
      {"LANM", "axs", "2004-01-09", " DATA_SF DATA_IN_AM DATA_ACH "},
      {"LANM", "axs", "2004-02-04", " DATA_SF DATA_IN_AM DATA_ACH VAL_CUMP "},
      {"LANM", "bByt", "2004-07-09", " DATA_SF DATA_BLOCARE DATA_ACH VAL_CUMP "},
      {"L", "axs", "2004-02-05", " DATA_SF DATA_IN_AM COTA_ANUALA VAL_CUMP "},
      {"L", "bByt", "2004-07-10", " DATA_SF DATA_BLOCARE COTA_ANUALA VAL_BLOCATA "},
      {"ANM", "axs", "2004-02-05", " DATA_SF DATA_IN_AM DATA_AMORT COEF VAL_CUMP "},
      {"ANM", "axs", "2005-04-15", " DATA_SF DATA_IN_AM DATA_AMORT COEF COTA_ANUALA VAL_CUMP "},
      {"ANM", "bByt", "2005-04-15",
       " DATA_SF DATA_BLOCARE DATA_AMORT COEF COTA_ANUALA VAL_BLOCATA "},
      {"LANM", "axs", "2008-02-06", " DATA_SF DATA_IN_AM VAL_CUMP "},
      {"LANM", "bByt", "2008-02-06", " DATA_SF DATA_BLOCARE VAL_BLOCATA "},
      {"F", "axs", "2005-04-15", " VAL_CUMP "},
      {"F", "bByt", "2005-04-15", " VAL_BLOCATA "}};
  const auto check = [](const Case& c, char method, char state, const NullableField& field) {
    AssetParameters asset = AssetIn(state, method);
    std::visit([&](auto member) { (asset.*member).reset(); }, field.field);
    std::string name = field.name, description;
    FailureOf(state, asset, Day(c.date), &description);
    const bool needed = c.needed.find(" " + name + " ") != std::string::npos;
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
  asset.DATA_IN_AM = Day("9000-01-01");  // ended long before it began
  asset.DATA_SF = Day("0100-01-01");
  EXPECT_EQ(FailureOf('s', asset, Day("0101-01-01")), kOverflow);
}

// "-0" would look like a mistake in a list.
TEST(DepreciationRules, AZeroHasNoSign) {
  AssetParameters asset = AssetIn('a', 'L');
  asset.COTA_ANUALA = -0.0;
  asset.VAL_CUMP = -0.0;
  CalculatedFields fields = kStored;
  Calculate('a', asset, Day("2004-07-31"), fields);
  EXPECT_FALSE(std::signbit(*fields.COTAL_LUNARA));
  EXPECT_FALSE(std::signbit(*fields.VAL_AMOR_CUMULATA));
}

// An asset without a value in currency keeps none; its lei are calculated all the same.
TEST(DepreciationRules, WithoutAValueInCurrencyTheLeiAreCalculated) {
  for (const char* date : {"2004-02-04", "2004-07-31", "2005-04-15", "2008-02-06"}) {
    for (const char method : {'L', 'A', 'N', 'M', 'F'}) {
      SCOPED_TRACE(std::string(date) + method);
      AssetParameters asset = AssetIn('a', method);
      CalculatedFields whole = kStored, leiOnly = kStored;
      Calculate('a', asset, Day(date), whole);
      asset.VAL_CUMP_VAL.reset();
      Calculate('a', asset, Day(date), leiOnly);
      EXPECT_EQ(leiOnly.VAL_AMOR_CUMULATA, whole.VAL_AMOR_CUMULATA);
      EXPECT_EQ(leiOnly.VAL_RAMASA, whole.VAL_RAMASA);
      EXPECT_EQ(leiOnly.COTAL_LUNARA, whole.COTAL_LUNARA);
      // What the rules set to 0 whatever the base is 0; the rest is unknown.
      const bool zero = whole.VAL_RAMASA_VAL == 0.0;
      EXPECT_EQ(leiOnly.VAL_RAMASA_VAL.has_value(), zero);
    }
  }
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
