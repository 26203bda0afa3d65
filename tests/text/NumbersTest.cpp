#include <cmath>
#include <fstream>
#include <limits>

#include "platform/text/Numbers.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Numbers, RoundsTiesToEven) {
  const struct {
    int decimals;
    std::vector<std::pair<double, double>> values;
  } cases[] = {{0, {{2.5, 2}, {3.5, 4}, {-2.5, -2}, {0.5, 0}, {1.5, 2}, {2.4999999, 2}}},
               {0, {{99999999999.5, 1e11}}},
               {2, {{0.125, 0.12}, {0.375, 0.38}, {-0.125, -0.12}, {1.005, 1}}},
               {2, {{1234.565, 1234.56}, {-kInfinity, -kInfinity}}},
               {15, {{1e300, 1e300}}}};
  for (const auto& c : cases) {
    for (const auto& [value, rounded] : c.values) {
      EXPECT_EQ(rounded, RoundTo(value, c.decimals)) << value;
      EXPECT_EQ(c.decimals == 0 ? rounded : Round0(value), Round0(value)) << value;
    }
  }
  EXPECT_FALSE(std::signbit(Round0(-0.4)));
  EXPECT_FALSE(std::signbit(RoundTo(-0.001, 2)));
  for (const int decimals : {-1, 16}) {
    EXPECT_EQ(5, FailureOf([&] { RoundTo(1, decimals); }));
  }
}

TEST(Numbers, ReadsRomanianForm) {
  const std::vector<std::pair<const char*, double>> cases = {{"0", 0},
                                                             {"+5", 5},
                                                             {" 5 ", 5},
                                                             {",5", 0.5},
                                                             {"5,", 5},
                                                             {"007", 7},
                                                             {"0,1", 0.1},
                                                             {"1e3", 1000},
                                                             {"1e-400", 0},
                                                             {"0,125", 0.125},
                                                             {"1,5E-2", 0.015},
                                                             {"-1,5e+2", -150},
                                                             {"1234,56", 1234.56},
                                                             {"1.234,56", 1234.56}};
  for (const auto& [text, value] : cases) {
    EXPECT_TRUE(IsNumeric(text)) << text;
    EXPECT_EQ(value, CDbl(text)) << text;
  }
  EXPECT_EQ(-1234567, CDbl("-1.234.567"));
  EXPECT_EQ(999999999999.99, CDbl("999.999.999.999,99"));
}

TEST(Numbers, RefusesWhatIsNoNumber) {
  for (const char* text :
       {"",      " ",      "0.5",    "1.23",  "1.2345", "12.34.567", "1234.567", ".500",
        "0.125", "1.234.", "1..234", "1,5,5", "1.2,5",  "1.23,5",    "1,234.5",  "-",
        ",",     "e5",     "1e",     "1e+",   "1 234",  "- 5",       "5-",       "--5",
        "abc",   "5 lei",  "0x10",   "inf",   "nan",    "1\n"}) {
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
  for (const double value : {2147483647.5, -2147483649.0, std::nan("")}) {
    EXPECT_EQ(6, FailureOf([&] { CLng(value); })) << value;
  }
  EXPECT_EQ(6, FailureOf([] { CInt(32767.5); }));
  EXPECT_EQ(6, FailureOf([] { CByte(255.5); }));
  EXPECT_EQ("Overflow: -1", DescriptionOf([] { CByte(-1); }));
}

TEST(Numbers, WritesTheShortestText) {
  const std::vector<std::pair<double, std::string>> cases = {
      {0, "0"},           {-0.0, "0"},        {1e20, "1E+20"},
      {1e15, "1E+15"},    {1234.5, "1234,5"}, {-0.25, "-0,25"},
      {0.0001, "0,0001"}, {0.1 + 0.2, "0,3"}, {1.5e-7, "1,5E-07"},
      {1e-100, "1E-100"}};
  for (const auto& [value, text] : cases) {
    EXPECT_EQ(text, CStr(value));
    EXPECT_TRUE(IsNumeric(CStr(value))) << text;
  }
  EXPECT_EQ("0,333333333333333", CStr(1.0 / 3));
  EXPECT_EQ("123456789012345", CStr(123456789012345.0));
  EXPECT_EQ("123456789012,34", CStr(123456789012.34));
  EXPECT_EQ("-9223372036854775808", CStr(std::numeric_limits<std::int64_t>::min()));
  EXPECT_EQ(" 120", Str(120));
  EXPECT_EQ(" 0", Str(-0.0));
  EXPECT_EQ("-0.5", Str(-0.5));
}

TEST(Numbers, ValReadsAsFarAsItCan) {
  const std::vector<std::pair<const char*, double>> cases = {
      {"", 0},   {"abc", 0}, {" 12 luni", 12}, {"-1.5e2x", -150}, {"1,5", 1}, {".5", 0.5},
      {"5e", 5}, {"+7", 7},  {"-", 0},         {"inf", 0},        {"5.", 5},  {"1e+2", 100}};
  for (const auto& [text, value] : cases) EXPECT_EQ(value, Val(text)) << text;
  EXPECT_EQ(6, FailureOf([] { Val("1e999"); }));
}

TEST(Numbers, Formats) {
  std::ifstream file(TEVRA_NUMBER_FORMATS);
  int rows = 0;
  for (std::string line; std::getline(file, line);) {
    if (line[0] == '#') continue;
    const auto cells = Parts(line);
    EXPECT_EQ(cells.at(2), Format(std::stod(cells[0]), cells[1])) << line;
    ++rows;
  }
  EXPECT_GT(rows, 50);
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
