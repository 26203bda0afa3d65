#include "platform/text/Strings.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

TEST(Strings, ChangesCaseOfLatinLetters) {
  const std::pair<const char*, const char*> pairs[] = {
      {"abcz{@[", "ABCZ{@["}, {"ăâîșțşţ", "ĂÂÎȘȚŞŢ"}, {"éöÿőžñ", "ÉÖŸŐŽÑ"}, {"ľ÷", "Ľ÷"}};
  for (const auto& [lower, upper] : pairs) {
    EXPECT_EQ(upper, UCase(lower));
    EXPECT_EQ(lower, LCase(upper));
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
  const std::vector<std::pair<const char*, const char*>> matching = {{"Masina mea", "masina*"},
                                                                     {"Masina", "MASINA%"},
                                                                     {"abcabd", "*abd"},
                                                                     {"abc", "a?c"},
                                                                     {"aăc", "a_c"},
                                                                     {"", ""},
                                                                     {"", "*"},
                                                                     {"aXbXc", "a*x*c"},
                                                                     {"xăy", "*?y"}};
  for (const auto& [text, pattern] : matching) EXPECT_TRUE(LikeNoCase(text, pattern)) << pattern;
  const std::vector<std::pair<std::string, const char*>> others = {
      {"Masina", "asina*"}, {"ac", "a?c"}, {"a", ""},
      {"aXb", "a*x*c"},     {"ă", "??"},   {std::string(5000, 'a'), "*a*a*a*a*a*a*b"}};
  for (const auto& [text, pattern] : others) EXPECT_FALSE(LikeNoCase(text, pattern)) << pattern;
}

}  // namespace
}  // namespace tevra
