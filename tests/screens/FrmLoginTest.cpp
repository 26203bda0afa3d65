// The login, worked as a user does.
#include <QTableView>
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/system/Clock.h"
#include "platform/system/Desktop.h"
#include "platform/system/Settings.h"
#include "session/ApplicationFiles.h"
#include "session/CompanyRegistry.h"
#include "session/Login.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "session/frmLogin.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

class FrmLogin : public ::testing::Test {
 protected:
  FrmLogin() {
    SetSettings(std::make_unique<MemorySettings>());
    SaveDatabasesPath(company_.Directory().string());
    CompanyRegistry::WriteDefault(company_.Directory().string());
    CurrentSession() = {};
    SetProgramDirectory(company_.Directory());
  }
  ~FrmLogin() override {
    SetSettings(nullptr);
    SetProgramDirectory({});
    SetOpenFileHandler({});
  }

  static void LogIn(frmLogin& screen, const std::string& user, const std::string& password) {
    screen.txtUserName->SetText(user);
    screen.txtPassword->SetText(password);
    QTest::mouseClick(screen.cmdOK, Qt::LeftButton);
  }
  std::vector<std::string> Prompts() const {
    std::vector<std::string> prompts;
    for (const MessageRequest& shown : messages_.shown) prompts.push_back(shown.prompt);
    return prompts;
  }
  std::string Registry() const { return Content(company_.Directory() / "Societat.XML"); }

  TestCompany company_;
  MessageRecorder messages_;
};

TEST_F(FrmLogin, AUserLogsIn) {
  Connection file = company_.Open();
  file.Execute("UPDATE kv_par SET CONTFURNIZORI = '401', DATAIN = '2026-01-01 00:00:00'");
  file.Execute("INSERT INTO UTILIZATORI (NUME, PAROLA, TIP) VALUES ('Ana', 'Mere', 2)");
  frmLogin screen;
  screen.show();
  EXPECT_EQ(screen.windowTitle(), "Selectie Societate");
  EXPECT_EQ(screen.Label1->toolTip().toStdString(), CurrentSession().databasesPath);
  EXPECT_EQ(screen.cmdCauta->toolTip(), "Selectati calea de acces la baza de date Kelnar.mdb");
  EXPECT_EQ(screen.txtUserName->toolTip(), "Utilizator implicit, \"Admin\"");
  QTest::keyClicks(screen.txtUserName, "ANA");
  QTest::keyClicks(screen.txtPassword, "mere");
  QTest::keyClick(screen.txtPassword, Qt::Key_Return);
  EXPECT_TRUE(messages_.shown.empty());
  EXPECT_TRUE(screen.LoginSucceeded());
  EXPECT_FALSE(screen.isVisible());
  EXPECT_EQ(CurrentSession().userName, "ANA");
  EXPECT_EQ(CurrentSession().userType, 2);
  EXPECT_EQ(CurrentSession().companyName, "SOCIETATE");
  EXPECT_EQ(CurrentSession().contFurnizori, "401");
  EXPECT_EQ(CurrentSession().dataIn, DateTime(2026, 1, 1));
}

TEST_F(FrmLogin, RefusalsInTheirWords) {
  struct Case {
    const char* user;
    const char* password;
    const char* prompt;
  };
  frmLogin screen;
  screen.show();
  for (const Case& c : {Case{"", "", "Utilizatorul  nu exista !"},
                        Case{"nimeni", "1", "Utilizatorul nimeni nu exista !"},
                        Case{"admin", "", "Parola nu este corecta !"},
                        Case{" admin", "1", "Utilizatorul  admin nu exista !"},
                        Case{"admin", "2", "Parola nu este corecta !"}}) {
    LogIn(screen, c.user, c.password);
    EXPECT_EQ(messages_.shown.back().prompt, c.prompt);
    EXPECT_EQ(messages_.shown.back().buttons, kCritical);
    EXPECT_EQ(screen.txtUserName->Text(), c.user);
  }
  EXPECT_FALSE(screen.LoginSucceeded());
  QTest::mouseClick(screen.cmdCancel, Qt::LeftButton);
  EXPECT_FALSE(screen.LoginSucceeded());
  EXPECT_FALSE(screen.isVisible());
}

TEST_F(FrmLogin, AnotherStructureAsksAndNoLeavesItAlone) {
  Connection file = company_.Open();
  file.Execute("UPDATE kv_info SET VERSIUNE = 99");
  messages_.answers = {kNo};
  frmLogin screen;
  screen.show();
  LogIn(screen, "admin", "1");
  EXPECT_TRUE(screen.LoginSucceeded());
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_EQ(messages_.shown[0].prompt,
            "Structura bazei de date Kelnar01.mdb trebuie actualizata !\n Doriti sa efectuati "
            "actualizarea acum ?");
  EXPECT_EQ(messages_.shown[0].buttons, 36);
  EXPECT_EQ(messages_.shown[0].title, "Actualizare baza de date");
  EXPECT_EQ(file.QueryValue("SELECT VERSIUNE FROM kv_info"), Value(99));
}

TEST_F(FrmLogin, TheKeyLeftOfOneAsksAtAnEqualVersionToo) {
  SetVersiune("Kelnar01.mdb");
  frmLogin screen;
  screen.show();
  LogIn(screen, "admin", "1");
  EXPECT_TRUE(messages_.shown.empty());
  messages_.answers = {kNo};
  frmLogin again;
  again.show();
  QTest::keyClick(again.txtUserName, Qt::Key_QuoteLeft);
  LogIn(again, "admin", "1");
  EXPECT_EQ(messages_.shown.size(), 1u);
  EXPECT_TRUE(again.LoginSucceeded());
}

TEST_F(FrmLogin, ACompanyThatCannotBeOpenedKeepsTheWindow) {
  std::filesystem::remove(company_.File());
  WriteFile(company_.File(), "nu este o baza de date");
  frmLogin screen;
  screen.show();
  messages_.shown.clear();
  LogIn(screen, "admin", "1");
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_NE(
      messages_.shown[0].prompt.find(" in procedura ExistaUtilizator din Form frmLogin Linia: "),
      std::string::npos);
  EXPECT_FALSE(screen.LoginSucceeded());
  EXPECT_TRUE(screen.isVisible());
}

TEST_F(FrmLogin, ADamagedRegistryIsToldAndStays) {
  const std::string kTold = " : Eroare in deschidere Societat.dbf ! Linia: ";
  for (const std::string& content :
       {Registry().substr(0, Registry().size() / 2), std::string("<html/>"), std::string()}) {
    WriteFile(company_.Directory() / "Societat.XML", content);
    messages_.shown.clear();
    messages_.answers = {kOk, kNo};
    frmLogin screen;
    screen.show();
    ASSERT_EQ(messages_.shown.size(), 2u);
    EXPECT_NE(messages_.shown[0].prompt.find(kTold), std::string::npos);
    EXPECT_EQ(messages_.shown[0].buttons, kCritical);
    const long question = messages_.shown[1].buttons;
    EXPECT_EQ(ButtonsOf(question).at(DefaultButton(question)).answer, kNo);
    LogIn(screen, "admin", "1");
    EXPECT_EQ(messages_.shown.back().prompt, "Va rugam selectati o societate !");
    EXPECT_EQ(Registry(), content);
  }
}

TEST_F(FrmLogin, ALostListIsMadeFromTheDatabasesWhenAsked) {
  const auto directory = company_.Directory();
  std::filesystem::copy_file(company_.File(), directory / "Kelnar02.mdb");
  for (const auto& [database, name] :
       {std::pair("Kelnar01.mdb", "Prima SA"), std::pair("Kelnar02.mdb", "Moara SRL")}) {
    Connection(CompanyConnectionString(directory.string(), database))
        .Execute("UPDATE kv_info SET DENUMIRE = ?", {name});
  }
  std::string empty = Registry();
  const std::size_t row = empty.find("\t<z:row");
  empty.erase(row, empty.find('\n', row) + 1 - row);
  const auto damage = [&](const std::string& content) {
    std::filesystem::remove(directory / "Societat.XML");
    if (!content.empty()) WriteFile(directory / "Societat.XML", content);
  };
  // Damaged, without companies, and gone: then the default one lists company 01 alone.
  for (const auto& [content, answers] : std::vector<std::pair<std::string, std::vector<long>>>{
           {"<xml>", {kOk, kYes}}, {empty, {kYes}}, {"", {kYes}}}) {
    damage(content);
    messages_.shown.clear();
    messages_.answers = answers;
    frmLogin screen;
    screen.show();
    EXPECT_EQ(messages_.shown.size(), answers.size()) << content;
    EXPECT_EQ(screen.TDBGrid1->View()->model()->rowCount(), 2) << content;
    const auto companies = CompanyRegistry::Load(directory.string()).Companies();
    ASSERT_EQ(companies.size(), 2u) << content;
    EXPECT_EQ(companies[0].denumire, "Prima SA");
    EXPECT_EQ(companies[1], (Company{"02", "Moara SRL", "Kelnar02.mdb"}));
    LogIn(screen, "admin", "1");
    EXPECT_TRUE(screen.LoginSucceeded());
  }
  EXPECT_EQ(NamesIn(directory / "Salv_Tevra").size(), 1u);
  // A list that somebody keeps is not asked about, whatever it leaves out.
  damage("");
  CompanyRegistry::WriteDefault(directory.string());
  messages_.shown.clear();
  frmLogin screen;
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(FrmLogin, TheRowChosenIsTheCompanyOpened) {
  CompanyRegistry registry = CompanyRegistry::Load(company_.Directory().string());
  for (int i = 2; i <= 99; ++i) {
    const std::string code = (i < 10 ? "0" : "") + std::to_string(i);
    registry.Add({code, "Firma " + code, "Kelnar" + code + ".mdb"});
  }
  registry.Save();
  frmLogin screen;
  screen.show();
  EXPECT_EQ(screen.TDBGrid1->View()->model()->rowCount(), 99);
  EXPECT_EQ(CurrentSession().selectedDatabase, "Kelnar01.mdb");
  QTest::keyClick(screen.TDBGrid1->View(), Qt::Key_Down);
  EXPECT_EQ(CurrentSession().selectedDatabase, "Kelnar02.mdb");
  EXPECT_EQ(CurrentSession().selectedCompany, "Firma 02");
}

TEST_F(FrmLogin, AnotherDirectoryIsChosenByItsTemplateOrDatabase) {
  TemporaryFolder other;
  std::filesystem::copy_file(company_.Directory() / "Kelnar.mdb", other.Path() / "Kelnar.mdb");
  frmLogin screen;
  screen.show();
  std::optional<std::string> chosen;
  OpenFileRequest asked;
  SetOpenFileHandler([&](const OpenFileRequest& request) {
    asked = request;
    return chosen;
  });
  const std::string before = GetDatabasesPath();
  QTest::mouseClick(screen.cmdCauta, Qt::LeftButton);
  EXPECT_EQ(asked.title, "Select Database");
  EXPECT_EQ(asked.filter, "KELNAR.MDB|*MDB");
  EXPECT_EQ(asked.directory, company_.Directory().string());
  EXPECT_TRUE(messages_.shown.empty());
  // The current row's database counts; that of company 01 by itself does not.
  chosen = (other.Path() / "Altceva.mdb").string();
  QTest::mouseClick(screen.cmdCauta, Qt::LeftButton);
  EXPECT_EQ(Prompts(), std::vector<std::string>{"Eroare selectare BD!"});
  EXPECT_EQ(GetDatabasesPath(), before);
  chosen = (other.Path() / "Kelnar.mdb").string();
  QTest::mouseClick(screen.cmdCauta, Qt::LeftButton);
  EXPECT_EQ(messages_.shown.size(), 1u);
  EXPECT_NE(GetDatabasesPath(), before);
  EXPECT_EQ(NamesIn(other.Path()),
            (std::vector<std::string>{"Kelnar.mdb", "Kelnar01.mdb", "Societat.XML"}));
  LogIn(screen, "admin", "1");
  EXPECT_TRUE(screen.LoginSucceeded());
}

TEST_F(FrmLogin, TheFirstStartMakesCompanyOneFromTheTemplate) {
  TemporaryFolder program;
  SetSettings(std::make_unique<MemorySettings>());
  SetProgramDirectory(program.Path());
  // An empty user's folder, or the machine's own would be found.
  qputenv("XDG_DATA_HOME", (program.Path() / "date").c_str());
  {
    frmLogin screen;
    screen.show();
    EXPECT_TRUE(messages_.shown.empty());
    EXPECT_EQ(screen.Label1->text(), "");
    LogIn(screen, "admin", "1");
    EXPECT_EQ(messages_.shown.back().prompt, "Va rugam selectati o societate !");
  }
  std::filesystem::copy_file(company_.Directory() / "Kelnar.mdb", program.Path() / "Kelnar.mdb");
  messages_.shown.clear();
  frmLogin screen;
  screen.show();
  LogIn(screen, "admin", "1");
  EXPECT_TRUE(messages_.shown.empty());
  EXPECT_TRUE(screen.LoginSucceeded());
  EXPECT_TRUE(std::filesystem::exists(program.Path() / "Kelnar01.mdb"));
  EXPECT_TRUE(std::filesystem::exists(program.Path() / "Societat.XML"));
  qunsetenv("XDG_DATA_HOME");
}

}  // namespace
}  // namespace tevra::test
