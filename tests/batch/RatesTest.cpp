// Rates of currencies from the command line.
#include "app/batch/Batch.h"
#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

namespace {

constexpr const char* kFile =
    "<DataSet xmlns=\"https://www.bnr.ro/xsd\"><Body><Cube date=\"2026-01-09\">"
    "<Rate currency=\"EUR\">5.0903</Rate><Rate currency=\"HUF\" multiplier=\"100\">1.5023</Rate>"
    "<Rate currency=\"QQQ\">1</Rate></Cube></Body></DataSet>";

TEST_F(BatchTest, RatesAreTakenFromAFileAndLookedUp) {
  company_.Open().Execute("DELETE FROM kv_val2");
  const std::string file = File("bnr.xml", kFile);
  EXPECT_EQ(RunAsAdmin({"rates", file}).out,
            "2 cursuri noi, 0 modificate, 0 neschimbate, 1 sarit (valute care nu sunt in lista: "
            "QQQ)\n");
  EXPECT_EQ(RunAsAdmin({"rates", file}).out.substr(0, 42),
            "0 cursuri noi, 0 modificate, 2 neschimbate");
  EXPECT_EQ(RunAsAdmin({"rates", "--at", "11.01.2026", "eur"}).out, "EUR 09.01.2026 5,0903\n");
  EXPECT_EQ(RunAsAdmin({"rates", "HUF", "--at", "2026-01-09"}).out, "HUF 09.01.2026 0,015023\n");
}

TEST_F(BatchTest, RatesThatCannotBeReadOrFoundAreRefused) {
  const std::string page = File("bnr.xml", "<html><body>Curs</body></html>");
  ExpectRefused({"rates", page},
                "Fisierul bnr.xml, linia 1: nu este un fisier de cursuri al Bancii Nationale ! "
                "Niciun curs nu a fost preluat.");
  ExpectRefused({"rates", page + ".nu"}, "File not found");
  ExpectRefused({"rates", "--at", "01.01.1990", "EUR"},
                "Nu exista curs EUR pentru 01.01.1990 sau dinainte !");
  ExpectRefused({"rates", "--at", "31.02.2026", "EUR"}, "31.02.2026");
  EXPECT_EQ(RunAsAdmin({"rates"}).code, kUsage);
  EXPECT_EQ(RunAsAdmin({"rates", "--at", "09.01.2026"}).code, kUsage);
}

}  // namespace

}  // namespace tevra::batch::test
