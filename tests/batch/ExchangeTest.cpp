// The exchange between companies from the command line.
#include "app/batch/Batch.h"
#include "exchange/PendingExport.h"
#include "platform/system/Clock.h"
#include "session/Module1.h"
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

TEST_F(ExchangeTest, ImportsTheFileOfABranch) {
  ASSERT_EQ(RunAsAdmin({"export", "01.01.2006", "31.12.2006"}).code, kDone);
  const std::string own =
      (Directory() / "Export" / "01" / "Export31.12.2006 - 14.05.09.xml").string();
  ExpectRefused({"import", own},
                "Sucursala cu codul 01 este sociatatea pe care lucrati acum, nu puteti face "
                "import\n");
  std::string text = Content(own);
  text.replace(text.find(">01<"), 4, ">S1<");
  const std::string file = File("sucursala.xml", text);
  const std::string printed =
      "Sucursala S1, 01.01.2006 - 31.12.2006\n\n"
      "Fel  Cod in fisier  Denumire  Cod aici\n"
      "---  -------------  --------  --------\n\n"
      "1 linie noua, 0 linii inlocuite; debit 10,00, credit 0,00\n"
      "Atentie: Suma debitelor difera de suma creditelor.\n";
  const Result dry = RunAsAdmin({"import", file, "--dry-run"});
  EXPECT_EQ(dry.out, printed + "Nu s-a scris nimic (--dry-run).\n") << dry.err;
  EXPECT_EQ(company_.Rows("SELECT NDI FROM Kv_Linii"), "1 \n");
  const Result result = RunAsAdmin({"import", file});
  const std::string backup =
      (Directory() / "Salv_Tevra" / "Import_Kelnar01_31.12.2006_14.05.09.mdb").string();
  EXPECT_EQ(result.out, printed + "Salvarea dinainte: " + backup + "\nImport cu succes\n")
      << result.err;
  EXPECT_EQ(Connection("Data Source=" + backup + ";Mode=Read;PWD=" + kFilePassword)
                .QueryValue("SELECT COUNT(*) FROM Kv_Linii")
                .AsLong(),
            1);
  EXPECT_EQ(company_.Rows("SELECT NDI, CodIE FROM Kv_Linii"), "1 E \n2 I \n");

  ExpectRefused({"import", File("taiat.xml", text.substr(0, 900))},
                "Fisierul XML nu poate fi incarcat\ntaiat.xml, linia ");
  ExpectRefused({"import", "nu-exista.xml"}, "Fisierul XML nu poate fi incarcat\nFile not found");
  text.replace(text.find("DEBIT='10'"), 10, "DEBIT='1,0'");
  ExpectRefused({"import", File("virgula.xml", text)}, "Eroare 13 - virgula.xml, linia ");
  std::filesystem::remove_all(Directory() / "Salv_Tevra");
  File("Salv_Tevra", "in calea directorului");
  ExpectRefused({"import", file}, "Eroare 70 - Salvarea dinaintea lucrarii nu a reusit");
  std::filesystem::remove(Directory() / "Salv_Tevra");
  company_.Open().Execute("ALTER TABLE tmp_Ter ADD COLUMN X TEXT(5)");
  ExpectRefused({"import", file},
                "Versiunile dintre bazele de date de Export si Import sunt diferite, nu am putut "
                "importa: Kv_Ter");
}

}  // namespace

}  // namespace tevra::batch::test
