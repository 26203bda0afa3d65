#include <cmath>
#include <limits>

#include "platform/text/Numbers.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Numbers, RoundsTiesToEven) {
  const struct {
    double value;
    int decimals;
    double rounded;
  } cases[] = {
      {2.5, 0, 2},
      {3.5, 0, 4},
      {-2.5, 0, -2},
      {0.5, 0, 0},
      {1.5, 0, 2},
      {2.4999999, 0, 2},
      {0.125, 2, 0.12},
      {0.375, 2, 0.38},
      {-0.125, 2, -0.12},
      {1234.565, 2, 1234.56},
      {1.005, 2, 1.0},
      {1e300, 15, 1e300},
      {99999999999.5, 0, 1e11},
      {-kInfinity, 2, -kInfinity},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.rounded, RoundTo(c.value, c.decimals)) << c.value;
    if (c.decimals == 0) {
      EXPECT_EQ(c.rounded, Round0(c.value)) << c.value;
    }
  }
  EXPECT_FALSE(std::signbit(Round0(-0.4)));
  EXPECT_FALSE(std::signbit(RoundTo(-0.001, 2)));
  EXPECT_EQ(5, FailureOf([] { RoundTo(1, -1); }));
  EXPECT_EQ(5, FailureOf([] { RoundTo(1, 16); }));
}

TEST(Numbers, ReadsRomanianForm) {
  const struct {
    const char* text;
    double value;
  } cases[] = {
      {"0", 0},
      {"1.234,56", 1234.56},
      {"1234,56", 1234.56},
      {"-1.234.567", -1234567},
      {"+5", 5},
      {" 5 ", 5},
      {",5", 0.5},
      {"5,", 5},
      {"0,125", 0.125},
      {"1e3", 1000},
      {"1,5E-2", 0.015},
      {"-1,5e+2", -150},
      {"007", 7},
      {"0,1", 0.1},
      {"1e-400", 0},
      {"999.999.999.999,99", 999999999999.99},
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(IsNumeric(c.text)) << c.text;
    EXPECT_EQ(c.value, CDbl(c.text)) << c.text;
  }
}

TEST(Numbers, RefusesWhatIsNoNumber) {
  for (const char* text : {"",     " ",     "0.5",    "1.23",   "1.2345", "12.34.567", "1234.567",
                           ".500", "0.125", "1.234.", "1..234", "1,5,5",  "1,234.5",   "-",
                           ",",    "e5",    "1e",     "1e+",    "1 234",  "- 5",       "5-",
                           "--5",  "abc",   "5 lei",  "0x10",   "inf",    "nan",       "1\n"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
    EXPECT_EQ(13, FailureOf([&] { CDbl(text); })) << text;
  }
  EXPECT_EQ("Type mismatch: 0.5", DescriptionOf([] { CDbl("0.5"); }));
  for (const std::string& text : {std::string("-1e999"), std::string(400, '9')}) {
    EXPECT_FALSE(IsNumeric(text));
    EXPECT_EQ(6, FailureOf([&] { CDbl(text); }));
  }
}

TEST(Numbers, WholeNumbersKeepTheirRange) {
  EXPECT_EQ(2, CLng(2.5));
  EXPECT_EQ(4, CInt(3.5));
  EXPECT_EQ(2147483647, CLng(2147483647.4));
  EXPECT_EQ(std::numeric_limits<std::int32_t>::min(), CLng(-2147483648.5));
  EXPECT_EQ(32767, CInt(32767.4));
  EXPECT_EQ(-32768, CInt(-32768.5));
  EXPECT_EQ(255, CByte(255.4));
  EXPECT_EQ(0, CByte(-0.5));
  EXPECT_EQ(6, FailureOf([] { CLng(2147483647.5); }));
  EXPECT_EQ(6, FailureOf([] { CLng(-2147483649.0); }));
  EXPECT_EQ(6, FailureOf([] { CLng(std::nan("")); }));
  EXPECT_EQ(6, FailureOf([] { CInt(32767.5); }));
  EXPECT_EQ(6, FailureOf([] { CByte(255.5); }));
  EXPECT_EQ("Overflow: -1", DescriptionOf([] { CByte(-1); }));
}

TEST(Numbers, WritesTheShortestText) {
  const struct {
    double value;
    const char* text;
  } cases[] = {
      {0, "0"},
      {-0.0, "0"},
      {1234.5, "1234,5"},
      {-0.25, "-0,25"},
      {0.1 + 0.2, "0,3"},
      {1e20, "1E+20"},
      {1e15, "1E+15"},
      {123456789012345, "123456789012345"},
      {1.5e-7, "1,5E-07"},
      {0.0001, "0,0001"},
      {1.0 / 3, "0,333333333333333"},
      {1e-100, "1E-100"},
      {123456789012.34, "123456789012,34"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.text, CStr(c.value));
    EXPECT_TRUE(IsNumeric(CStr(c.value))) << c.text;
  }
  EXPECT_EQ("-9223372036854775808", CStr(std::numeric_limits<std::int64_t>::min()));
  EXPECT_EQ(" 120", Str(120));
  EXPECT_EQ(" 0", Str(-0.0));
  EXPECT_EQ("-0.5", Str(-0.5));
}

TEST(Numbers, ValReadsAsFarAsItCan) {
  const struct {
    const char* text;
    double value;
  } cases[] = {{"", 0},    {"abc", 0},  {" 12 luni", 12}, {"-1.5e2x", -150},
               {"1,5", 1}, {".5", 0.5}, {"5e", 5},        {"+7", 7},
               {"-", 0},   {"inf", 0},  {"5.", 5},        {"1e+2", 100}};
  for (const auto& c : cases) EXPECT_EQ(c.value, Val(c.text)) << c.text;
  EXPECT_EQ(6, FailureOf([] { Val("1e999"); }));
}

TEST(Numbers, Formats) {
  const struct {
    double value;
    const char* format;
    const char* text;
  } cases[] = {
      {1234.5, "Standard", "1.234,50"},
      {1234.5, "standard", "1.234,50"},
      {0, "Standard", "0,00"},
      {-0.001, "Standard", "0,00"},
      {-1234567.891, "Standard", "-1.234.567,89"},
      {999.995, "Standard", "1.000,00"},
      {1.005, "Standard", "1,01"},
      {-2.675, "Standard", "-2,68"},
      {0.005, "Standard", "0,01"},
      {0.0049, "Standard", "0,00"},
      {999999999999.99, "Standard", "999.999.999.999,99"},
      {1234567890123.45, "Standard", "1.234.567.890.123,45"},
      {70368744177663.99, "Standard", "70.368.744.177.663,99"},
      {1e22, "Standard", "10.000.000.000.000.000.000.000,00"},
      {1234.5, "Fixed", "1234,50"},
      {0.125, "Percent", "12,50%"},
      {0, "Percent", "0,00%"},
      {0.285, "0%", "29%"},
      {1.1, "0%", "110%"},
      {1234.5, "General Number", "1234,5"},
      {1234.5, "", "1234,5"},
      {0, "###,###", ""},
      {0.4, "###,###", ""},
      {-0.4, "###,###", ""},
      {0.5, "###,###", "1"},
      {-1234567, "###,###", "-1.234.567"},
      {12, "###,###", "12"},
      {100, "###,###", "100"},
      {0, "#.##0", "0"},
      {-0.4, "#.##0", "0"},
      {1234.5, "#.##0", "1.235"},
      {-1234567, "#.##0", "-1.234.567"},
      {1234.5, "#.##0,00", "1.234,50"},
      {0.0833333, "#.##0,000", "0,083"},
      {12, "#.##0 lei", "12 lei"},
      {1234.5, "#,##0.00", "1.234,50"},
      {1234.5, "#,##0", "1.235"},
      {7, "00", "07"},
      {123, "00", "123"},
      {2.5, "0", "3"},
      {-2.5, "0", "-3"},
      {0.5, "0.00", "0,50"},
      {1234, "0.00", "1234,00"},
      {0, "###", ""},
      {60, "###", "60"},
      {0.5, "#.##", ",5"},
      {5, "0.##", "5"},
      {5.25, "0.0##", "5,25"},
      {5, "000,000", "000.005"},
      {3, "\"luna 0\" 0\\0", "luna 0 30"},
      {-3, "nr 0", "-nr 3"},
      {5, "text", "text"},
      {9.995e-7, "0.00", "0,00"},
      {99.5, "0", "100"},
      {0.95, "0.0", "1,0"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.text, Format(c.value, c.format)) << c.value << " as " << c.format;
  }
}

TEST(Numbers, MoneyIsShownToTheCent) {
  for (long long cents = 1; cents < 7036874417766400LL; cents = cents * 3 + 1) {
    std::string text = std::to_string(cents % 100);
    text.insert(0, text.size() == 1 ? ",0" : ",");
    EXPECT_EQ(std::to_string(cents / 100) + text,
              Format(static_cast<double>(cents) / 100, "Fixed"));
    EXPECT_EQ(static_cast<double>(cents) / 100,
              CDbl(Format(static_cast<double>(cents) / 100, "Standard")));
  }
}

}  // namespace
}  // namespace tevra
