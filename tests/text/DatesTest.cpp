#include "platform/text/Dates.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

TEST(Dates, ReadsRomanianForms) {
  const std::vector<std::pair<const char*, std::string>> cases = {
      {"31.12.2006", "2006-12-31 00:00:00"},
      {"01/07/2005", "2005-07-01 00:00:00"},
      {"1-7-2005", "2005-07-01 00:00:00"},
      {" 29.2.04 ", "2004-02-29 00:00:00"},
      {"1.1.29", "2029-01-01 00:00:00"},
      {"1.1.30", "1930-01-01 00:00:00"},
      {"2006-12-31", "2006-12-31 00:00:00"},
      {"2006/1/5 9:20", "2006-01-05 09:20:00"},
      {"31.12.2006 10:20:30", "2006-12-31 10:20:30"},
      {"31.12.2006  23:59 ", "2006-12-31 23:59:00"}};
  for (const auto& [text, iso] : cases) {
    EXPECT_TRUE(IsDate(text)) << text;
    EXPECT_EQ(iso, CDate(text).Iso()) << text;
  }
}

TEST(Dates, RefusesWhatIsNoDate) {
  for (const auto& text : Parts(
           "| |31.12|31.02.2006|29.02.2005|12.31.2006|31.12/2006|31.12.206|31.12.0099|31.12.20066|"
           "031.12.2006|31..2006|31.12.|2006.12.31|2006-13-01|2006-12-31T10:20|31.12.2006 24:00|"
           "31.12.2006 10|31.12.2006 10:2|31.12.2006x|31.12.200610:20|31 12 2006|38353|maine|"
           "-1.1.2006|31.12.2006 10:20:30:40")) {
    EXPECT_FALSE(IsDate(text)) << text;
    EXPECT_EQ(13, FailureOf([&] { CDate(text); })) << text;
  }
  EXPECT_EQ("Type mismatch: 31.02.2006", DescriptionOf([] { CDate("31.02.2006"); }));
  EXPECT_EQ("Type mismatch: " + std::string(57, 'x') + "...",
            DescriptionOf([] { CDate(std::string(61, 'x')); }));
}

TEST(Dates, Writes) {
  const DateTime moment(2006, 7, 5, 9, 3, 8);
  const std::vector<std::pair<const char*, std::string>> cases = {
      {"Short Date", "05.07.2006"},
      {"dd.MM.yyyy", "05.07.2006"},
      {"d/MM/yyyy", "5.07.2006"},
      {"d/m/yy", "5.7.06"},
      {"mm", "07"},
      {"h:m, m", "9:3, 7"},
      {"hh-mm", "09-07"},
      {"nn:mm", "03:07"},
      {"", ""},
      {"yyyy-mm-dd hh:mm:ss", "2006-07-05 09:03:08"}};
  for (const auto& [mask, text] : cases) EXPECT_EQ(text, Format(moment, mask)) << mask;
  EXPECT_EQ("05.07.2006 09:03:08", CStr(moment));
  EXPECT_EQ("05.07.2006", CStr(moment.Midnight()));
  EXPECT_EQ("05.07.2006", ShortDate(moment));
}

}  // namespace
}  // namespace tevra
