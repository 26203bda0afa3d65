// What the dialect's functions and operators give, one expression at a time.
#include <set>

#include "tests/dialect/Company.h"

namespace tevra::dialect {
namespace {

struct Case {
  const char* expression;
  const char* result;
};

class Expressions : public ::testing::Test {
 protected:
  void Check(const std::vector<Case>& cases) {
    for (const auto& [expression, result] : cases) {
      SCOPED_TRACE(expression);
      EXPECT_EQ(company_.Rows("SELECT " + std::string(expression)), (Lines{result}));
    }
  }

  Company company_;
};

TEST_F(Expressions, JoinedTexts) {
  Check({{"'a' & NULL & 'b'", "ab"},
         {"NULL & NULL", ""},
         {"'x' & 1.50", "x1,5"},
         {"'x' & 19.0 & 'y'", "x19y"},
         {"1 + 2 & 3 * 4", "312"},
         {"'z' & CDate('1/7/2005')", "z01.07.2005"},
         {"'a' & -1 & TRUE", "a-1-1"},
         {"('a' & 'b') = 'AB'", "1"},
         {"'\" & ' & \"it's \"\"so\"\"\"", "\" & it's \"so\""}});
}

TEST_F(Expressions, SumsAndQuotients) {
  Check({{"1 + 2", "3"},
         {"1.5 + 2", "3.5"},
         {"'1.234,5' + 1", "1235.5"},
         {"'abc' + 1", "NULL"},
         {"'1.5' + 1", "NULL"},
         {"'a' + 'b'", "ab"},
         {"'1' + '2'", "12"},
         {"1 + NULL", "NULL"},
         {"10 - 3 - 2 + 1", "6"},
         {"10 - (3 - 2) + '1'", "10.0"},
         {"- 2 + -3 - -4", "-1"},
         {"2 + 3 * 4 - 6 / 4", "12.5"},
         {"5/2", "2.5"},
         {"8 / 2 / 2 * 3", "6.0"},
         {"1e+1 + .5", "10.5"},
         {"9223372036854775807 + 1", "9.22337203685478e+18"},
         {"CDate('31.12.2004') + 1", "2005-01-01 00:00:00"},
         {"CDate('01.01.2005') - 0.5", "2004-12-31 12:00:00"},
         {"CDate('01.03.2004') - CDate('28.02.2004')", "2.0"},
         {"CASE WHEN 1 THEN 2 END", "2"}});
  EXPECT_EQ(FailureOf(company_, "SELECT 1 / 0"), kDivisionByZero);
}

TEST_F(Expressions, Conversions) {
  Check({{"CLng('38353')", "38353"},
         {"CLng(' 5 ')", "5"},
         {"CLng(2.5)", "2"},
         {"CLng('3,5')", "4"},
         {"CLng(CDate('01/01/2005'))", "38353"},
         {"CDbl('1.234,56')", "1234.56"},
         {"CDbl(CDate('01.01.2005 12:00'))", "38353.5"},
         {"CInt(-3.5)", "-4"},
         {"CStr(2.0)", "2"},
         {"CStr(0.5)", "0,5"},
         {"CStr(CDate('1.7.2005 10:20:30'))", "01.07.2005 10:20:30"},
         {"CDate('2005-07-01')", "2005-07-01 00:00:00"},
         {"CDate(38353)", "2005-01-01 00:00:00"},
         {"Val('12.5 lei')", "12.5"},
         {"CLng(NULL)", "NULL"},
         {"Year(CDate('1.7.2005')) & '/' & Month('01.07.2005') & '/' & Day(38534)", "2005/7/1"}});
  const std::vector<std::pair<const char*, long>> failures = {
      {"CLng('abc')", kTypeMismatch},
      {"CLng('')", kTypeMismatch},
      {"CDbl('0.5')", kTypeMismatch},
      {"CDate('31.02.2006')", kTypeMismatch},
      {"CLng(3000000000)", kOverflow},
      {"CInt('40.000')", kOverflow},
      {"Left('a', -1)", 5},
      {"Round(1, 16)", 5},
      {"plus()", kStatementError}};
  for (const auto& [expression, number] : failures) {
    EXPECT_EQ(FailureOf(company_, "SELECT " + std::string(expression)), number) << expression;
  }
}

TEST_F(Expressions, RoundingsGoToTheEvenNumber) {
  Check({{"Round(2.5)", "2.0"},
         {"Round(3.5, 0)", "4.0"},
         {"Round(-0.125, 2)", "-0.12"},
         {"Round(7)", "7.0"},
         {"Round('1,5')", "2.0"},
         {"Round(NULL, 2)", "NULL"},
         {"Int(-1.5)", "-2.0"},
         {"Fix(-1.5)", "-1.0"},
         {"Int(7)", "7"}});
}

TEST_F(Expressions, Texts) {
  Check({{"UCase('șah 1')", "ȘAH 1"},
         {"LCase('ABC')", "abc"},
         {"Left('ăbc', 2) & Right('xyz', 1) & Mid('abcd', 2, 2) & Mid('abcd', 4)", "ăbzbcd"},
         {"Len('ăb')", "2"},
         {"Len(12.5)", "4"},
         {"Trim('  a ') & '!'", "a!"},
         {"Left(NULL, 2)", "NULL"},
         {"IIf(TRUE, 'da', 1/0)", "da"},
         {"IIf(NULL, 1, 2)", "2"}});
}

TEST_F(Expressions, ComparisonsOfTextsAndNumbers) {
  Check({{"Left('10', 2) > 9", "1"},
         {"3 <= Left('28', 1)", "0"},
         {"Left('x', 1) >= 3", "NULL"},
         {"CLng('5') = '5'", "1"},
         {"'5,5' = CDbl('5,5')", "1"},
         {"Len('abc') in ('3', '4')", "1"},
         {"Mid('a12', 2) in (11, 12)", "1"},
         {"Mid('a12', 2) not in (11, -12)", "1"},
         {"Left('12', 2) between 3 and 100", "1"},
         {"Len('abc') between '1' and '2'", "0"},
         {"UCase('d') = 'd'", "1"},
         {"UCase('d') in ('x', 'd')", "1"},
         {"(Left('10', 2)) > 9", "1"},
         {"Left('10', 2) > '9'", "0"},
         {"NOT Left('4', 1) = 4 OR FALSE", "0"}});
}

TEST_F(Expressions, NamesBehindATableAreNoWordsOfTheDialect) {
  company_.Engine("CREATE TABLE w ([True] INTEGER, [Left] INTEGER); INSERT INTO w VALUES (7, 8)");
  EXPECT_EQ(company_.Rows("select w.True, w.Left + 1, [True] from w where FALSE=0"),
            (Lines{"7|9|7"}));
}

TEST_F(Expressions, OrderAndGroupsAreWithoutCase) {
  EXPECT_EQ(
      company_.Rows(
          "select Left(NUME, 1) as L from kv_ter where NUME is not null order by Left(NUME, 1)"),
      (Lines{"A", "b", "G"}));
  EXPECT_EQ(
      company_.Rows("select count(*) from Kv_Linii group by UCase(DOC) & '' order by count(*)"),
      (Lines{"1", "1", "3"}));
}

}  // namespace
}  // namespace tevra::dialect
