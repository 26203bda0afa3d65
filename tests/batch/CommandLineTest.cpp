// Exit codes 0 and 2: what is asked of the command line itself.
#include <fstream>
#include <sstream>

#include "app/batch/Batch.h"
#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

namespace {

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(CommandLine, RefusesWhatCannotBeMeant) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{}, "Lipseste comanda !"},
      {{"sterge"}, "Comanda necunoscuta: sterge !"},
      {{"--color", "assets"}, "Argument necunoscut: --color !"},
      {{"assets", "--user", "admin", "--color"}, "Argument necunoscut: --color !"},
      {{"companies", "01"}, "Argument necunoscut: 01 !"},
      {{"create", "02"}, "Lipseste argumentul DENUMIRE !"},
      {{"load", "a.csv", "--user", "admin"}, "Lipseste argumentul TABELA !"},
      {{"calculate", "--user", "admin"}, "Lipseste argumentul DATA !"},
      {{"charges", "--user", "admin", "--by", "color"}, "Grupare necunoscuta: color"},
      {{"assets", "--user"}, "Lipseste valoarea optiunii --user !"},
      {{"assets"}, "Lipseste optiunea --user !"}};
  for (const auto& [arguments, text] : cases) {
    const Result result = RunProgram(arguments);
    EXPECT_EQ(result.code, kUsage) << text;
    EXPECT_EQ(result.out, "") << text;
    EXPECT_TRUE(Contains(result.err, text)) << text << " but " << result.err;
  }
}

TEST(CommandLine, HelpIsAResultEverywhere) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{"--help"}, "--password-file"},         {{"companies", "--help"}, "companies"},
      {{"create", "--help"}, "DENUMIRE"},      {{"load", "-h"}, "TABELA"},
      {{"calculate", "--help"}, "ZZ.LL.AAAA"}, {{"assets", "--help"}, "--csv"},
      {{"charges", "--help"}, "--by"},         {{"report", "--help"}, "--no-detail "}};
  for (const auto& [arguments, text] : cases) {
    const Result result = RunProgram(arguments);
    EXPECT_EQ(result.code, kDone) << text << result.err;
    EXPECT_TRUE(Contains(result.out, "Folosire: tevra-batch")) << result.out;
    EXPECT_TRUE(Contains(result.out, text)) << result.out;
  }
}

TEST(CommandLine, TellsItsVersion) {
  const Result result = RunProgram({"--version"});
  EXPECT_EQ(result.code, kDone);
  EXPECT_EQ(result.out, "tevra-batch 1.0 (structura bazei de date: 2)\n");
}

using CommandLineTest = BatchTest;

TEST_F(CommandLineTest, AResultThatCannotBeWrittenIsARefusal) {
  const std::string directory = Directory().string();
  const std::vector<const char*> argv{"tevra-batch", "--dir", directory.c_str(), "companies"};
  std::istringstream in;
  std::ostringstream err;
  std::ofstream full("/dev/full");
  EXPECT_EQ(RunBatch(static_cast<int>(argv.size()), argv.data(), in, full, err, nullptr), kRefused);
  EXPECT_EQ(err.str(), "Rezultatul nu poate fi scris !\n");
}

}  // namespace

}  // namespace tevra::batch::test
