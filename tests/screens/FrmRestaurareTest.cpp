// The menu of maintenance: the restore screen by keys, and the work that an open list stops.
#include <QtTest>
#include <filesystem>

#include "care/Backup.h"
#include "care/CareMenu.h"
#include "care/Upgrade.h"
#include "care/frmRestaurare.h"
#include "platform/system/Clock.h"
#include "platform/system/Desktop.h"
#include "platform/system/Settings.h"
#include "session/Login.h"
#include "session/frmLogin.h"
#include "tests/care/CareTest.h"
#include "tests/screens/Screens.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

class RestoreScreen : public CareTest {
 protected:
  RestoreScreen() {
    clock::Set(DateTime(2026, 7, 9, 8, 5, 59));
    CurrentSession().databasesPath = Folder().string() + "\\";
  }
  ~RestoreScreen() override {
    SetOpenFileHandler({});
    clock::Reset();
  }
  fs::path MakeBackup() {
    fs::path made = BackUp(SessionCompany(), MakeBackupFolder());
    Execute("UPDATE I_IMO SET COD = '200'");
    return made;
  }
  void Show() {
    screen_ = std::make_unique<frmRestaurare>();
    Activate(*screen_);
  }
  void Press(QPushButton* button) {
    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
  }
  std::string Said(std::size_t message) const {
    return message < messages_.shown.size() ? messages_.shown[message].prompt : "(nothing)";
  }

  std::unique_ptr<frmRestaurare> screen_;
  MessageRecorder messages_;
};

TEST_F(RestoreScreen, ChoosesABackupShowsItAndRestoresIt) {
  const fs::path backup = MakeBackup();
  Show();
  EXPECT_EQ(screen_->windowTitle(), "Restaurare baza de date ...");
  EXPECT_EQ(screen_->txtDirector->Text(), Folder().string() + "\\SALV_Tevra\\");
  OpenFileRequest asked;
  SetOpenFileHandler([&](const OpenFileRequest& request) {
    asked = request;
    return backup.string();
  });
  Press(screen_->cmdGetSourceSpec1);
  EXPECT_EQ(asked.filter, "[Baza de date].mdb|*Kelnar01*.mdb");
  EXPECT_EQ(asked.directory, (Folder() / "Salv_Tevra").string());
  EXPECT_EQ(screen_->txtSourceSpec1->Text(), backup.string());
  EXPECT_EQ(screen_->txtDirector->Text(), backup.parent_path().string());
  EXPECT_TRUE(screen_->lblContinut->text().startsWith("Firma Veche SRL, cod fiscal RO 12\n"));
  EXPECT_FALSE(screen_->lblProgressMsg->isVisible());
  Execute("UPDATE kv_par SET CONTFURNIZORI = '4041'");
  QTest::keyClick(screen_->cmdOK, Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(Said(0), "Restaurare cu succes a bazei de date");
  EXPECT_FALSE(screen_->isVisible());
  EXPECT_EQ(Codes(), "100 \n");
  EXPECT_EQ(CurrentSession().contFurnizori, "404");
}

TEST_F(RestoreScreen, WithoutBackupsMakesTheirFolder) {
  Show();
  std::string start;
  SetOpenFileHandler([&](const OpenFileRequest& request) -> std::optional<std::string> {
    start = request.directory;
    return std::nullopt;
  });
  Press(screen_->cmdGetSourceSpec1);
  EXPECT_EQ(Said(0), "Nu exista directorul cu salvarile!");
  EXPECT_EQ(messages_.shown[0].buttons, kExclamation);
  EXPECT_TRUE(fs::is_directory(Folder() / "Salv_Tevra"));
  EXPECT_EQ(start, Folder().string());
  EXPECT_EQ(screen_->txtSourceSpec1->Text(), "");
  for (const char* written : {"", "nimic.mdb", "/nu/exista.mdb"}) {
    messages_.shown.clear();
    screen_->txtSourceSpec1->setText(written);
    Press(screen_->cmdOK);
    EXPECT_EQ(Said(0), "Fisierul: " + std::string(written) + " nu exista!");
    EXPECT_EQ(messages_.shown[0].buttons, kExclamation);
  }
  EXPECT_TRUE(screen_->isVisible());
}

TEST_F(RestoreScreen, AsksBeforeAnotherCompanysFileAndTellsFailures) {
  const fs::path backup = MakeBackup();
  Execute("UPDATE kv_info SET DENUMIRE = 'Alta', CODFISCAL = '99'");
  Show();
  screen_->txtSourceSpec1->setText(QString::fromStdString(backup.filename()));  // in txtDirector
  messages_.answers = {kNo};
  Press(screen_->cmdOK);
  EXPECT_EQ(Said(0),
            "Fisierul ales pare sa fie al altei societati: Firma Veche SRL (cod fiscal RO 12), din "
            "09.07.2026 08:05.\nIn Kelnar01.mdb este Alta (cod fiscal 99).\nDoriti sa o "
            "inlocuiti ?");
  EXPECT_EQ(messages_.shown[0].buttons, kYesNo | kQuestion | kDefaultStep);
  EXPECT_EQ(Codes(), "200 \n");

  messages_.shown.clear();
  {
    const Connection list = company_.Open();
    Press(screen_->cmdOK);
    EXPECT_EQ(Said(1), "Error 70 (Permission denied: " + File().string() +
                           ") in procedure cmdOK_Click of Form frmImport Linia: 3");
  }
  EXPECT_TRUE(screen_->isVisible());
  Press(screen_->cmdOK);
  EXPECT_EQ(Said(3), "Restaurare cu succes a bazei de date");
  EXPECT_EQ(Codes(), "100 \n");
}

TEST_F(RestoreScreen, TheLoginUpgradesAnOlderFile) {
  SetSettings(std::make_unique<MemorySettings>());
  Settings().Set(kDatabasesPath, Folder().string());
  Execute("UPDATE kv_info SET VERSIUNE = 1");
  Execute("DROP TABLE kv_setari");
  frmLogin login(ActualizeazaBD);
  login.show();
  login.txtUserName->setText("admin");
  login.txtPassword->setText("1");
  messages_.shown.clear();
  QTest::mouseClick(login.cmdOK, Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_TRUE(login.LoginSucceeded());
  ASSERT_EQ(messages_.shown.size(), 2U) << Said(0);
  EXPECT_EQ(Said(1), "Actualizarea bazei de date s-a incheiat !");
  EXPECT_EQ(messages_.shown[1].buttons, kInformation);
  EXPECT_FALSE(StructuraDiferita());
  EXPECT_TRUE(Catalogue(company_.Open()).HasTable("kv_setari"));
}

TEST_F(RestoreScreen, TheMenuSavesAndCompactsUnlessAListIsOpen) {
  mnuSalvare_Click();
  EXPECT_EQ(Said(0), "Salvare cu succes a bazei de date Kelnar01.mdb");
  {
    const Connection list = company_.Open();
    EXPECT_THROW(mnuCompactare_Click(), Failure);
  }
  EXPECT_EQ(Said(1), "Eroare la compactarea bazei de date");
  mnuCompactare_Click();
  EXPECT_EQ(Said(2), "Compactarea bazei de date Kelnar01.mdb s-a realizat cu succes !");
}

}  // namespace
}  // namespace tevra::test
