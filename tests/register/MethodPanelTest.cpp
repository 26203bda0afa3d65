// The card's derivations over tables of cases.
#include <gtest/gtest.h>

#include "register/MethodPanel.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

Coefficients Usual() {
  return {1.5, 2.0, 2.5};
}

std::string Text(const std::optional<double>& number) {
  return number ? Value(*number).AsText() : "-";
}

// "real rate coef", "=" for a real duration that takes over the normal one, "-" for a box that
// stays; "!" for a duration that the method refuses.
std::string Text(bool fits, const Derived& derived) {
  if (!fits) return "!";
  return (derived.realIsNormal ? "=" : Text(derived.real)) + " " + Text(derived.rate) + " " +
         Text(derived.coef);
}

struct Case {
  Method method;
  double years;
  const char* expected;
};

TEST(MethodPanel, PickingAMethodDerivesItsParameters) {
  const Case cases[] = {
      {kAccelerated, 5, "= 0,25 0,5"},
      {kAccelerated, 0, "= 0 0,5"},
      {kAccelerated, 1.5, "= 2 0,5"},
      {kWithoutWear, 5, "= 0,333333333333333 0,3"},  // 3.33 years are 3
      {kWithoutWear, 3, "= 0,5 0,5"},
      {kWithoutWear, 1.5, "= 1 1"},
      {kWithoutWear, 0.5, "= 0 3"},  // no whole linear year
      {kWithoutWear, 6, "!"},
      {kWithoutWear, -1, "- 0 0"},
      {kWithWear, 4.99, "!"},
      {kWithWear, 5, "3 0,5 0,4"},                 // 2.5 is even 2
      {kWithWear, 7, "3 0,25 0,285714285714286"},  // 3.5 is even 4
      {kWithWear, 8, "4 0,25 0,25"},
      {kWithWear, 10, "5 0,2 0,2"},
      {kWithWear, 12, "7 0,2 0,208333333333333"},  // above 10 years another coefficient
      {kWithWear, 0, "= 0 0"},
      {kNoDepreciation, 9, "- 0 -"},
  };
  for (const Case& c : cases) {
    Derived derived;
    const bool fits = PickMethod(c.method, c.years, false, {}, Usual, derived);
    EXPECT_EQ(Text(fits, derived), c.expected) << char(c.method) << " " << c.years;
  }
  Derived linear;
  PickLinear(8, linear);
  EXPECT_EQ(Text(true, linear), "= 0,125 -");
  for (const double none : {-2.0, 0.0}) {
    PickLinear(none, linear);
    EXPECT_EQ(Text(true, linear), "= 0 -");
  }
  Derived missing;
  PickLinear({}, missing);
  EXPECT_EQ(Text(true, missing), "= - -");
}

TEST(MethodPanel, ABlockedAcceleratedAssetGoesByTheYearsLeft) {
  const std::pair<std::optional<double>, const char*> cases[] = {
      {std::nullopt, "= 0 0,5"}, {5.0, "= 0,25 0,5"}, {0.0, "= - 0,5"}, {-3.0, "= - 0,5"}};
  for (const auto& [left, expected] : cases) {
    Derived derived;
    EXPECT_TRUE(PickMethod(kAccelerated, 9, true, left, Usual, derived));
    EXPECT_EQ(Text(true, derived), expected);
  }
}

TEST(MethodPanel, ATypedDurationDerivesDifferentlyWithoutWear) {
  const Case cases[] = {
      {kLinear, 8, "8 0,125 -"},     {kAccelerated, 5, "5 0,25 -"}, {kWithoutWear, 5, "5 0,2 30"},
      {kWithoutWear, 5.5, "!"},      {kWithWear, 8, "4 0,25 0,25"}, {kWithWear, 4, "!"},
      {kNoDepreciation, 8, "8 0 -"}, {kNoMethod, 8, "- - -"},       {kWithWear, 0, "0 0 0"},
      {kLinear, -1, "0 0 0"},
  };
  for (const Case& c : cases) {
    Derived derived;
    const bool fits = LeaveDuration(c.method, c.years, Usual, derived);
    EXPECT_EQ(Text(fits, derived), c.expected) << char(c.method) << " " << c.years;
  }
}

TEST(MethodPanel, BlockingDerivesOverTheYearsLeft) {
  const Case cases[] = {
      {kLinear, 4, "- 0,25 -"},        {kLinear, 0, "- 0 -"},
      {kAccelerated, 5, "- 0,25 0,5"}, {kAccelerated, -1, "- 0 0,5"},
      {kWithWear, 8, "- 0,25 0,25"},   {kWithWear, 4, "!"},
      {kWithWear, 0, "- 0 0"},         {kWithoutWear, 5, "- 0,333333333333333 0,3"},
      {kWithoutWear, 6, "!"},          {kNoDepreciation, 4, "- 0 -"},
      {kNoMethod, 4, "- - -"},
  };
  for (const Case& c : cases) {
    Derived derived;
    const bool fits = Block(c.method, c.years, Usual, derived);
    EXPECT_EQ(Text(fits, derived), c.expected) << char(c.method) << " " << c.years;
  }
  const TimeLeft left = TimeLeftAt(DateTime(2026, 3, 15), DateTime(2027, 10, 1));
  EXPECT_EQ(left.years, 2);
  EXPECT_EQ(left.months, 7);
  EXPECT_EQ(TimeLeftAt(DateTime(2027, 3, 1), DateTime(2026, 2, 1)).months, -1);
}

TEST(MethodPanel, WhatCannotBeDerivedFailsBehindWhatCould) {
  Derived derived;
  EXPECT_EQ(FailureOf([&] { PickMethod(kAccelerated, 1, false, {}, Usual, derived); }),
            kDivisionByZero);
  EXPECT_TRUE(derived.realIsNormal);
  EXPECT_FALSE(derived.rate);
  const auto with = [](const Value& coefficient) {
    return [coefficient] { return Coefficients{coefficient, coefficient, coefficient}; };
  };
  EXPECT_EQ(FailureOf([&] { PickMethod(kWithWear, 8, false, {}, with(0.0), derived); }),
            kDivisionByZero);
  EXPECT_EQ(FailureOf([&] { PickMethod(kWithWear, 8, false, {}, with(Value()), derived); }),
            kInvalidUseOfNull);
  EXPECT_EQ(FailureOf([&] { LeaveDuration(kWithWear, 8, with(100.0), derived); }), kDivisionByZero)
      << "no linear year";
  EXPECT_EQ(FailureOf([&] { Block(kWithWear, 1e9, with(1.0), derived); }), kOverflow);
  EXPECT_EQ(FailureOf([&] { Block(kAccelerated, 1, Usual, derived); }), kDivisionByZero);
  EXPECT_EQ(FailureOf([] { TimeLeftAt(DateTime(100, 1, 1), DateTime(9999, 1, 1)); }), kOverflow);
  // The coefficients are not even asked for where nothing needs them.
  const auto never = []() -> Coefficients { throw Failure(kNoCurrentRecord, "gol"); };
  EXPECT_TRUE(PickMethod(kWithWear, 0, false, {}, never, derived));
  EXPECT_FALSE(PickMethod(kWithWear, 4, false, {}, never, derived));
  EXPECT_EQ(FailureOf([&] { PickMethod(kWithoutWear, 4, false, {}, never, derived); }),
            kNoCurrentRecord);
}

TEST(MethodPanel, TheCoefficientsAreThoseOfTheFirstRow) {
  test::TestCompany company;
  Connection connection = company.Open();
  connection.Execute("DELETE * FROM I_COEFAD");
  EXPECT_EQ(FailureOf([&] { ReadCoefficients(connection); }), kNoCurrentRecord);
  connection.Execute("INSERT INTO I_COEFAD (coef1, coef2, coef3) VALUES (1.25, NULL, 3)");
  connection.Execute("INSERT INTO I_COEFAD (coef1, coef2, coef3) VALUES (9, 9, 9)");
  const Coefficients read = ReadCoefficients(connection);
  EXPECT_EQ(read.WithoutWear(), 1.25);
  EXPECT_EQ(read.WithWear(11), 3);
  EXPECT_EQ(FailureOf([&] { read.WithWear(10); }), kInvalidUseOfNull);
}

TEST(MethodPanel, ValuesAndDates) {
  EXPECT_EQ(ValueInCurrency(1000, 4.9731), 201.082);
  EXPECT_EQ(ValueInCurrency(1000, 0), 0);
  EXPECT_EQ(DirectExpense(1234.56), 246.91);
  EXPECT_EQ(FirstOfNextMonth(DateTime(2026, 1, 31)), DateTime(2026, 2, 1));
  EXPECT_EQ(FirstOfNextMonth(DateTime(2026, 12, 5)), DateTime(2027, 1, 1));
  EXPECT_EQ(EndOfLife(DateTime(2026, 2, 1), 4), DateTime(2030, 2, 1));
  EXPECT_EQ(EndOfLife(DateTime(2026, 2, 1), 2.5), DateTime(2028, 8, 1));
  EXPECT_EQ(InYearOfEnd(DateTime(2024, 2, 29), DateTime(2026, 1, 1), 5), DateTime(2031, 2, 28));
  EXPECT_EQ(OutOfRangeText(kWithWear, "4"),
            "Nu se calculeaza amortizare degresiva cu uzura pentru 4 ani!");
  EXPECT_EQ(OutOfRangeText(kWithoutWear, "6"),
            "Nu se calculeaza amortizare degresiva fara uzura pentru 6 ani!");
}

}  // namespace
}  // namespace tevra
