// The exchange between companies from the command line.
#include "app/batch/Batch.h"
#include "exchange/PendingExport.h"
#include "platform/system/Clock.h"
#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

namespace {

class ExchangeTest : public BatchTest {
 protected:
  ExchangeTest() {
    clock::Set(DateTime(2006, 12, 31, 14, 5, 9));
    company_.Open().Execute(
        "INSERT INTO Kv_Linii (NDI, NRLINIE, DATAINR, CONT, DEBIT, CREDIT) VALUES "
        "(1, 1, CDate('30.06.2006'), '6811', 10, 0)");
  }
  ~ExchangeTest() override { clock::Reset(); }
};

TEST_F(ExchangeTest, ExportsAPeriodAndAsksBeforeItDoesSoAgain) {
  const std::filesystem::path folder = Directory() / "Export" / "01";
  const Result result = RunAsAdmin({"export", "01.01.2006", "2006-12-31"});
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_NE(result.out.find("\nLinii              1\n"), std::string::npos) << result.out;
  EXPECT_NE(result.out.find("\nExport cu succes: " +
                            (folder / "Export31.12.2006 - 14.05.09.xml").string() + "\n"),
            std::string::npos);
  ExpectRefused({"export", "01.01.2006", "31.12.2006"},
                "Ati mai facut export in intervalul: 01.01.2006 - 31.12.2006\n");
  ExpectRefused({"export", "1.1.2006", "31.12.2006"}, "1.1.2006");
  ExpectRefused({"export", "01.01.2006", "31.11.2006", "--again"}, "31.11.2006");
  EXPECT_EQ(NamesIn(folder).size(), 1U);
  for (const char* option : {"--again", "--yes"}) {
    std::filesystem::remove_all(folder);
    EXPECT_EQ(RunAsAdmin({"export", "01.01.2006", "31.12.2006", option}).code, kDone) << option;
    EXPECT_EQ(NamesIn(folder).size(), 1U);
  }
  // What a crash left behind goes at the next login.
  WriteFile(folder / "Export01.01.2006 - 00.00.00.xml.tmp", "half");
  EXPECT_EQ(RunAsAdmin({"assets"}).code, kDone);
  EXPECT_EQ(NamesIn(folder).size(), 1U);
}

}  // namespace

}  // namespace tevra::batch::test
