#include <limits>

#include "platform/text/DateTime.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

TEST(DateTime, KnowsTheCalendar) {
  const struct {
    int year, month, day, hour, minute, second;
    long failure;
  } cases[] = {
      {2004, 2, 29, 0, 0, 0, 0},   {2005, 2, 29, 0, 0, 0, 13}, {2000, 2, 29, 23, 59, 59, 0},
      {1900, 2, 29, 0, 0, 0, 13},  {2006, 4, 31, 0, 0, 0, 13}, {2006, 0, 1, 0, 0, 0, 13},
      {2006, 13, 1, 0, 0, 0, 13},  {2006, 1, 0, 0, 0, 0, 13},  {2006, 1, -255, 0, 0, 0, 13},
      {2006, 257, 1, 0, 0, 0, 13}, {99, 12, 31, 0, 0, 0, 13},  {100, 1, 1, 0, 0, 0, 0},
      {9999, 12, 31, 0, 0, 0, 0},  {10000, 1, 1, 0, 0, 0, 13}, {2006, 1, 1, 24, 0, 0, 13},
      {2006, 1, 1, 0, 60, 0, 13},  {2006, 1, 1, 0, 0, 60, 13}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.year) + "-" + std::to_string(c.month) + "-" +
                 std::to_string(c.day));
    EXPECT_EQ(c.failure,
              FailureOf([&] { DateTime(c.year, c.month, c.day, c.hour, c.minute, c.second); }));
  }
  EXPECT_EQ("Type mismatch: 29.02.2005", DescriptionOf([] { DateTime(2005, 2, 29); }));
}

TEST(DateTime, SerialNumbersAreThoseOfTheEngine) {
  const struct {
    double serial;
    const char* iso;
  } cases[] = {{0, "1899-12-30 00:00:00"},       {1, "1899-12-31 00:00:00"},
               {38353, "2005-01-01 00:00:00"},   {38353.75, "2005-01-01 18:00:00"},
               {60, "1900-02-28 00:00:00"},      {-1.25, "1899-12-29 06:00:00"},
               {-657434, "0100-01-01 00:00:00"}, {-657434.5, "0100-01-01 12:00:00"},
               {2958465, "9999-12-31 00:00:00"}, {36585, "2000-02-29 00:00:00"}};
  for (const auto& c : cases) {
    EXPECT_EQ(c.iso, DateTime::FromSerial(c.serial).Iso());
    EXPECT_EQ(c.serial, DateTime::FromIso(c.iso).value().Serial()) << c.iso;
  }
  EXPECT_EQ("2005-01-02 00:00:00", DateTime::FromSerial(38353.999999).Iso());
  for (const double serial :
       {-657435.0, 2958466.0, 2958465.999999, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(6, FailureOf([&] { DateTime::FromSerial(serial); })) << serial;
  }
}

TEST(DateTime, ReadsOnlyTheIsoForms) {
  for (const char* text : {"2006-12-31 10:20:30", "2006-12-31T10:20:30"}) {
    EXPECT_EQ(DateTime(2006, 12, 31, 10, 20, 30), DateTime::FromIso(text)) << text;
  }
  EXPECT_EQ(DateTime(2004, 2, 29), DateTime::FromIso("2004-02-29"));
  for (const char* text :
       {"", "2006-12-31 ", "2006-12-31 10:20", "2006-2-31", "2005-02-29", "2006/12/31",
        "2006-12-31 24:00:00", "2006-12-31_10:20:30", "20x6-12-31", "2006-12-3 ", "-006-12-31",
        "2006-12-31 10:20:3x", "2006-12-31 10:20:30Z", "0000-00-00 00:00:00"}) {
    EXPECT_FALSE(DateTime::FromIso(text)) << text;
  }
}

TEST(DateTime, EveryDayReadsBackAsItself) {
  DateTime date(1899, 1, 1, 7, 8, 9);
  for (int i = 0; i < 150 * 366; ++i, date = date.AddDays(1)) {
    const DateTime again(date.Year(), date.Month(), date.Day(), 7, 8, 9);
    ASSERT_EQ(date, again) << date.Iso();
    ASSERT_EQ(date, DateTime::FromIso(date.Iso()));
    ASSERT_EQ(date, DateTime::FromSerial(date.Serial())) << date.Iso();
  }
}

TEST(DateTime, MonthsClampToTheLastDay) {
  const struct {
    const char* from;
    int months;
    const char* to;
  } cases[] = {{"2004-01-31", 1, "2004-02-29"},  {"2005-01-31", 1, "2005-02-28"},
               {"2005-03-31", -1, "2005-02-28"}, {"2004-02-29", 12, "2005-02-28"},
               {"2004-02-29", 48, "2008-02-29"}, {"2004-12-01", 1, "2005-01-01"},
               {"2004-01-15", -1, "2003-12-15"}, {"2004-01-15", -25, "2001-12-15"},
               {"0100-02-01", -1, "0100-01-01"}};
  for (const auto& c : cases) {
    EXPECT_EQ(DateTime::FromIso(c.to), DateTime::FromIso(c.from)->AddMonths(c.months)) << c.from;
  }
  EXPECT_EQ(DateTime(2004, 2, 29, 10, 0, 0), DateTime(2004, 1, 31, 10, 0, 0).AddMonths(1));
  const int most = std::numeric_limits<int>::max();
  EXPECT_EQ(6, FailureOf([&] { DateTime(2004, 1, 1).AddMonths(most); }));
  EXPECT_EQ(6, FailureOf([&] { DateTime(100, 1, 1).AddMonths(-1); }));
  EXPECT_EQ(6, FailureOf([&] { DateTime(9999, 12, 31).AddDays(1); }));
  EXPECT_EQ(6, FailureOf([&] { DateTime(2004, 1, 1).AddDays(-most); }));
  EXPECT_EQ("1899-12-29 00:00:00", DateTime(1899, 12, 29, 23, 59, 59).Midnight().Iso());
}

TEST(DateTime, DifLuniCountsMonthBoundaries) {
  const std::vector<std::pair<const char*, int>> cases = {{"2005-02-01", 1},
                                                          {"2005-01-01", 0},
                                                          {"2004-12-31", -1},
                                                          {"2003-12-01", -13},
                                                          {"2045-01-01", 480}};
  for (const auto& [date, months] : cases) {
    EXPECT_EQ(months, DifLuni(DateTime(2005, 1, 31), *DateTime::FromIso(date))) << date;
    EXPECT_EQ(-months, DifLuni(*DateTime::FromIso(date), DateTime(2005, 1, 31))) << date;
  }
}

}  // namespace
}  // namespace tevra
