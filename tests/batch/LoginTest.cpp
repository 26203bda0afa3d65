// The login of the command line: the window's checks in the window's words.
#include "app/batch/Batch.h"
#include "session/Session.h"
#include "session/Version.h"
#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

namespace {

using LoginTest = BatchTest;

TEST_F(LoginTest, AsksForThePasswordWhereNoFileGivesIt) {
  const Result result = Run({"--user", "ADMIN", "assets"}, "1\n");
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_EQ(result.err, "Parola: ");
  EXPECT_NE(result.out, "");
}

TEST_F(LoginTest, ThePasswordIsTheFirstLineOfItsFile) {
  company_.Open().Execute(
      "INSERT INTO UTILIZATORI (NUME, PAROLA, TIP) VALUES ('Ion', ' p''1 ', 2)");
  for (const char* content : {" p'1 ", " p'1 \n", " p'1 \r\nalt rand\n"}) {
    const std::string file = File("alta", content);
    const Result result = Run({"--user", "Ion", "--password-file", file, "assets"});
    EXPECT_EQ(result.code, kDone) << content << result.err;
  }
  EXPECT_EQ(CurrentSession().userType, 2);
}

TEST_F(LoginTest, LeavesTheSessionAsTheWindowDoes) {
  company_.Open().Execute("UPDATE kv_par SET CONTFURNIZORI = '404.1', CODDeviza = 'USD'");
  ASSERT_EQ(RunAsAdmin({"assets"}).code, kDone);
  const Session& session = CurrentSession();
  EXPECT_EQ(session.userName, "admin");
  EXPECT_EQ(session.selectedDatabase, "Kelnar01.mdb");
  EXPECT_EQ(session.contFurnizori, "404.1");
  EXPECT_EQ(session.codDeviza, "USD");
}

TEST_F(LoginTest, RefusesInTheWordsOfTheWindow) {
  const std::string parola = (Directory() / "parola").string();
  const std::string wrong = File("gresita", "2\n");
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{"--user", "Maria", "--password-file", parola}, "Utilizatorul Maria nu exista !\n"},
      {{"--user", "x' or '1'='1", "--password-file", parola},
       "Utilizatorul x' or '1'='1 nu exista !\n"},
      {{"--user", "admin", "--password-file", wrong}, "Parola nu este corecta !\n"},
      {{"--user", "admin", "--password-file", "/nu/exista"},
       "Fisierul \"/nu/exista\" nu exista !\n"},
      {{"--user", "admin", "--password-file", Directory().string()},
       "Fisierul \"" + Directory().string() + "\" nu poate fi citit !\n"},
      {{"--user", "admin", "--company", "07"},
       "Societatea cu codul 07 nu exista in " + Directory().string() + " !\n"},
      {{"--user", "admin", "--company", "../01"},
       "Societatea cu codul ../01 nu exista in " + Directory().string() + " !\n"},
      {{"--user", "admin", "--dir", "/nu/exista"}, "Directorul \"/nu/exista\" nu exista !\n"}};
  const std::string before = Content(company_.File());
  for (auto [arguments, message] : cases) {
    arguments.insert(arguments.end(), {"calculate", "31.12.2006"});
    const Result result = Run(arguments);
    EXPECT_EQ(result.code, kRefused) << message;
    EXPECT_EQ(result.err, message);
    EXPECT_EQ(result.out, "");
  }
  EXPECT_TRUE(Content(company_.File()) == before);
}

TEST_F(LoginTest, RefusesACompanyOfAnotherStructure) {
  for (const Value& version : {Value(kRevision + 1), Value()}) {
    company_.Open().Execute("UPDATE kv_info SET VERSIUNE = ?", {version});
    ExpectRefused({"calculate", "31.12.2006"},
                  "Structura bazei de date Kelnar01.mdb trebuie actualizata !\n");
  }
}

}  // namespace

}  // namespace tevra::batch::test
