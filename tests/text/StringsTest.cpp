#include "platform/text/Strings.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

TEST(Strings, ChangesCaseOfLatinLetters) {
  const struct {
    const char* lower;
    const char* upper;
  } pairs[] = {{"abcz{@[", "ABCZ{@["}, {"ăâîșțşţ", "ĂÂÎȘȚŞŢ"}, {"éöÿőžñ", "ÉÖŸŐŽÑ"}, {"ľ÷", "Ľ÷"}};
  for (const auto& pair : pairs) {
    EXPECT_EQ(pair.upper, UCase(pair.lower));
    EXPECT_EQ(pair.lower, LCase(pair.upper));
  }
  EXPECT_EQ("ß×Д€\xff", UCase("ß×Д€\xff"));
  EXPECT_EQ("ß×Д€\xc5", LCase("ß×Д€\xc5"));
}

TEST(Strings, CountsCharacters) {
  const std::string text = "ță€\xff𝄞z";
  EXPECT_EQ(6u, Len(text));
  EXPECT_EQ("ță", Left(text, 2));
  EXPECT_EQ(text, Left(text, 99));
  EXPECT_EQ("𝄞z", Right(text, 2));
  EXPECT_EQ(text, Right(text, 99));
  EXPECT_EQ("", Right(text, 0));
  EXPECT_EQ("ă€", Mid(text, 2, 2));
  EXPECT_EQ("z", Mid(text, 6));
  EXPECT_EQ("", Mid(text, 7));
  EXPECT_EQ(5, FailureOf([&] { Mid(text, 0); }));
  EXPECT_EQ("a  b", Trim("  a  b "));
  EXPECT_EQ("", Trim("   "));
}

TEST(Strings, ComparesAsTheCompanyFileDoes) {
  EXPECT_TRUE(EqualNoCase("Kelnar01.MDB", "KELNAR01.mdb"));
  EXPECT_FALSE(EqualNoCase("ș", "Ș"));
  EXPECT_FALSE(EqualNoCase("a", "aa"));
  const char* ascending[] = {"", "_", "A", "aa", "B", "z", "é"};
  for (std::size_t i = 0; i < std::size(ascending); ++i) {
    for (std::size_t j = 0; j < std::size(ascending); ++j) {
      EXPECT_EQ(i < j ? -1 : i > j, CompareNoCase(ascending[i], ascending[j]))
          << ascending[i] << " " << ascending[j];
    }
  }
  EXPECT_EQ(0, CompareNoCase("ABC[", "abc["));
}

TEST(Strings, TellsWellFormedText) {
  for (const char* text : {"", "Țîșnit", "€", "\xf4\x8f\xbf\xbf"}) {
    EXPECT_TRUE(IsValidUtf8(text)) << text;
  }
  for (const std::string& text :
       {std::string("a\0b", 3), std::string("\xc0\x80"), std::string("\xed\xa0\x80"),
        std::string("\xf4\x90\x80\x80"), std::string("\xe2\x82"), std::string("\x80"),
        std::string("\xf0\x80\x80\x80"), std::string("\xe0\x9f\xbf"), std::string("\xfe")}) {
    EXPECT_FALSE(IsValidUtf8(text));
  }
}

TEST(Strings, MatchesPatterns) {
  const struct {
    const char* text;
    const char* pattern;
    bool matches;
  } cases[] = {
      {"Masina de scris", "masina*", true},
      {"Masina", "MASINA%", true},
      {"Masina", "asina*", false},
      {"abcabd", "*abd", true},
      {"abc", "a?c", true},
      {"aăc", "a_c", true},
      {"ac", "a?c", false},
      {"", "", true},
      {"", "*", true},
      {"a", "", false},
      {"aXbXc", "a*x*c", true},
      {"aXb", "a*x*c", false},
      {"ă", "??", false},
      {"xăy", "*?y", true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.matches, LikeNoCase(c.text, c.pattern)) << c.text << " like " << c.pattern;
  }
  EXPECT_FALSE(LikeNoCase(std::string(5000, 'a'), "*a*a*a*a*a*a*b"));
}

}  // namespace
}  // namespace tevra
