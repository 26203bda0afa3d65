// The registry from the command line: listing companies and making new ones.
#include <sys/wait.h>
#include <unistd.h>

#include "app/batch/Batch.h"
#include "platform/data/CompanyFile.h"
#include "platform/text/Strings.h"
#include "session/CompanyRegistry.h"
#include "session/Module1.h"
#include "session/Version.h"
#include "tests/batch/BatchTest.h"

namespace fs = std::filesystem;

namespace tevra::batch::test {

namespace {

using CompaniesTest = BatchTest;

TEST_F(CompaniesTest, AreThoseOfTheFilesWhereThereIsNoRegistry) {
  company_.Open().Execute("UPDATE kv_info SET DENUMIRE = 'Șantierul Mare'");
  fs::copy_file(company_.File(), Directory() / "KELNARA.MDB");
  File("Kelnar02.mdb", "nu este o societate");
  File("Kelnar001.mdb", "are trei caractere");
  File("Kelnar03.mdb.bak", "nu este un fisier de date");
  const std::string before = Content(company_.File());
  const Result result = Run({"companies"});
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_EQ(result.out,
            "Cod  Denumire        Baza de date\n"
            "---  --------------  ------------\n"
            "01   Șantierul Mare  Kelnar01.mdb\n"
            "02                   Kelnar02.mdb\n"
            "A    Șantierul Mare  KELNARA.MDB\n");
  EXPECT_TRUE(Content(company_.File()) == before);
  EXPECT_EQ(RunAsAdmin({"assets", "--company", "a"}).code, kDone);
  EXPECT_FALSE(CompanyRegistry::Exists(Directory().string())) << "a list writes no registry";
}

TEST_F(CompaniesTest, OfARegistryNeedNoFile) {
  CompanyRegistry::WriteDefault(Directory().string());
  File("Kelnar02.mdb", "");
  EXPECT_EQ(Run({"companies"}).out,
            "Cod  Denumire   Baza de date\n"
            "---  ---------  ------------\n"
            "01   SOCIETATE  Kelnar01.mdb\n");
  ExpectRefused({"assets", "--company", "02"}, "Societatea cu codul 02 nu exista");
}

TEST_F(CompaniesTest, MadeAtTheSameTimeAreAllThere) {
  constexpr int kTogether = 6;
  std::vector<pid_t> children;
  for (int i = 0; i < kTogether; ++i) {
    children.push_back(fork());
    if (children.back() == 0) _exit(Run({"create", "P" + std::to_string(i), "Firma"}).code);
  }
  for (const pid_t child : children) {
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  // The company that lay there already is one more.
  EXPECT_EQ(CompanyRegistry::Load(Directory().string()).Companies().size(), kTogether + 1U);
}

TEST_F(CompaniesTest, ANewOneCanBeWorkedWithAtOnce) {
  const std::string name = "Întreprinderea de construcții și montaj \"Dâmbovița\"";
  const Result created = Run({"create", "a2", "  " + Left(name, 50) + " "});
  ASSERT_EQ(created.code, kDone) << created.err;
  EXPECT_EQ(created.err, "");
  EXPECT_EQ(RunAsAdmin({"calculate", "31.12.2006", "--company", "A2"}).code, kDone);

  Connection connection(CompanyConnectionString(Directory().string(), "KelnarA2.mdb"));
  EXPECT_EQ(connection.QueryValue("SELECT VERSIUNE FROM kv_info").AsLong(), kRevision);
  EXPECT_EQ(connection.QueryValue("SELECT DENUMIRE FROM kv_info").AsText(), Left(name, 35));
  const auto companies = CompanyRegistry::Load(Directory().string()).Companies();
  ASSERT_EQ(companies.size(), 2U) << "the file that lay there already is entered too";
  EXPECT_EQ(companies[0].cod, "01");
  EXPECT_EQ(companies[1], (Company{"A2", Left(name, 50), "KelnarA2.mdb"}));
}

TEST_F(CompaniesTest, ADirectoryWithoutATemplateGetsTheProgramsOwn) {
  const TemporaryFolder empty;
  const std::string directory = empty.Path().string();
  const Result created = RunProgram({"--dir", directory, "create", "7", "Noua"});
  ASSERT_EQ(created.code, kDone) << created.err;
  EXPECT_EQ(NamesIn(directory),
            (std::vector<std::string>{"Kelnar.mdb", "Kelnar7.mdb", "Societat.XML"}));
  CheckCompanyFile(empty.Path() / "Kelnar.mdb");
  const auto companies = CompanyRegistry::Load(directory).Companies();
  ASSERT_EQ(companies.size(), 1U);
  EXPECT_EQ(companies[0].cod, "7");
}

TEST_F(CompaniesTest, AFileInTheWayIsTakenOverOrReplacedAndKept) {
  company_.Open().Execute("UPDATE kv_info SET DENUMIRE = 'Veche SA'");
  for (const char* name : {"Kelnar05.mdb", "kelnar06.MDB"}) {
    fs::copy_file(company_.File(), Directory() / name);
  }
  CompanyRegistry::WriteDefault(Directory().string());
  const std::string before = Content(Directory() / "Kelnar05.mdb");
  EXPECT_EQ(Run({"create", "05", "--take-over"}).out,
            "Societatea 05 - Veche SA a fost preluata din Kelnar05.mdb\n");
  EXPECT_TRUE(Content(Directory() / "Kelnar05.mdb") == before);
  EXPECT_EQ(Run({"create", "06", "Noua SRL", "--replace"}).out,
            "Societatea 06 - Noua SRL a fost creata in Kelnar06.mdb\n");
  EXPECT_EQ(Run({"companies"}).out,
            "Cod  Denumire   Baza de date\n"
            "---  ---------  ------------\n"
            "01   SOCIETATE  Kelnar01.mdb\n"
            "05   Veche SA   Kelnar05.mdb\n"
            "06   Noua SRL   Kelnar06.mdb\n");
  EXPECT_EQ(NamesIn(Directory() / "Salv_Tevra").size(), 1U);
}

TEST_F(CompaniesTest, ALostOrDamagedListIsMadeAnew) {
  const auto create = [&](const char* code) { return Run({"create", code, "Firma"}).code; };
  ASSERT_EQ(create("02") + create("03"), kDone);
  const std::string list = Run({"companies"}).out;
  EXPECT_EQ(Run({"rebuild"}).out, "Lista societatilor: 0 societati adaugate\n");
  fs::remove(Directory() / "Societat.XML");
  EXPECT_EQ(Run({"rebuild"}).out, "Lista societatilor: 3 societati adaugate\n");
  EXPECT_EQ(Run({"companies"}).out, list);
  File("Societat.XML", "<xml>");
  EXPECT_EQ(Run({"companies"}).code, kRefused);
  EXPECT_EQ(Run({"rebuild"}).code, kDone);
  EXPECT_EQ(Run({"companies"}).out, list);
  EXPECT_EQ(NamesIn(Directory() / "Salv_Tevra").size(), 1U);
  const TemporaryFolder empty;
  EXPECT_EQ(RunProgram({"--dir", empty.Path().string(), "rebuild"}).code, kRefused);
  EXPECT_TRUE(NamesIn(empty.Path()).empty());
}

TEST_F(CompaniesTest, WhatIsRefusedLeavesEverythingAsItWas) {
  ASSERT_EQ(Run({"create", "02", "A doua"}).code, kDone);
  File("kelnar05.MDB", "a ramas aici");
  File("Kelnar06.mdb", "");
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{"", "Nume"}, "Va rugam completati codul societatii  !\n"},
      {{"03", "  "}, "Va rugam completati denumirea societatii  !\n"},
      {{"003", "Nume"}, "Codul societatii are una sau doua litere sau cifre !\n"},
      {{"..", "Nume"}, "Codul societatii are una sau doua litere sau cifre !\n"},
      {{"ș", "Nume"}, "Codul societatii are una sau doua litere sau cifre !\n"},
      {{"03", std::string(51, 'x')}, "Denumirea societatii are intre 1 si 50 de caractere !\n"},
      {{"03", "Nume\x01"}, "Denumirea societatii contine caractere nepermise !\n"},
      {{"03", "Nume\xff"}, "Denumirea societatii contine caractere nepermise !\n"},
      {{"02", "Alta"}, "Acest cod de societate exista deja ! Adaugarea nu se poate efectua !\n"},
      {{"05", "Alta"},
       "Baza de date Kelnar05.mdb exista deja in director ! Adaugarea nu se poate efectua !\n"
       "--take-over o preia asa cum este, --replace o inlocuieste si o pastreaza in "
       "Salv_Tevra.\n"},
      {{"--take-over", "05", "Alta"}, "Eroare -2147467259 - Fisierul nu este o baza de date"},
      {{"--take-over", "07"}, "Eroare -2147467259 - Baza de date nu exista"}};
  const std::vector<std::string> files = NamesIn(Directory());
  const std::string registry = Content(Directory() / "Societat.XML");
  for (auto [arguments, text] : cases) {
    arguments.insert(arguments.begin(), "create");
    const Result result = Run(arguments);
    EXPECT_EQ(result.code, kRefused) << text;
    EXPECT_EQ(result.err.substr(0, text.size()), text);
    EXPECT_EQ(NamesIn(Directory()), files) << text;
  }
  EXPECT_EQ(Content(Directory() / "Societat.XML"), registry);
  EXPECT_EQ(Content(Directory() / "kelnar05.MDB"), "a ramas aici");
  EXPECT_EQ(RunProgram({"--dir", "/nu/exista", "create", "02", "Nume"}).err,
            "Directorul \"/nu/exista\" nu exista !\n");
}

}  // namespace

}  // namespace tevra::batch::test
