// The users of a company on their screen.
#include <QTableView>
#include <QtTest>

#include <gtest/gtest.h>

#include "session/frmUtilizatori.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

class FrmUtilizatori : public ::testing::Test {
 protected:
  FrmUtilizatori() { screen_.show(); }

  void Add(const char* name, const char* password, int type) {
    screen_.txtNume->SetText(name);
    screen_.txtParola->SetText(password);
    screen_.cboTip->setCurrentIndex(type);
    QTest::mouseClick(screen_.cmdAdauga, Qt::LeftButton);
  }
  void GoTo(const char* name) {
    QAbstractItemModel* model = screen_.grdDataGrid->View()->model();
    for (int row = 0; row < model->rowCount(); ++row) {
      if (model->index(row, 0).data() == name) {
        screen_.grdDataGrid->View()->setCurrentIndex(model->index(row, 0));
      }
    }
  }
  Value Stored(const char* field, const char* name) {
    return company_.Open().QueryValue(
        std::string("SELECT ") + field + " FROM UTILIZATORI WHERE NUME = ?", {name});
  }
  std::string LastPrompt() const {
    return messages_.shown.empty() ? "" : messages_.shown.back().prompt;
  }

  TestCompany company_;
  MessageRecorder messages_;
  frmUtilizatori screen_;
};

TEST_F(FrmUtilizatori, AddsAUserAndClearsTheFields) {
  Add(" O'Hara ", " ăî ", 2);
  EXPECT_EQ(LastPrompt(), "");
  EXPECT_EQ(Stored("PAROLA", "O'Hara"), Value("ăî"));
  EXPECT_EQ(Stored("TIP", "O'Hara"), Value(2));
  EXPECT_EQ(screen_.txtNume->Text() + screen_.txtParola->Text(), "");
  EXPECT_EQ(screen_.grdDataGrid->ColumnText(2), "2 (Raportari)");
  EXPECT_EQ(screen_.txtNume->maxLength(), 10);
}

TEST_F(FrmUtilizatori, ANewUserThatWasNotAddedIsAskedForAtTheClose) {
  screen_.txtNume->SetText("ana");
  messages_.answers = {kNo};
  QTest::keyClick(screen_.txtNume, Qt::Key_Escape);
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.size(), 1u);
  EXPECT_TRUE(screen_.isVisible());
  Add("ana", "1", 1);
  screen_.close();
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.size(), 1u);
  EXPECT_FALSE(screen_.isVisible());
}

TEST_F(FrmUtilizatori, RefusalsInTheirWords) {
  struct Case {
    const char* name;
    const char* password;
    const char* prompt;
  };
  for (const Case& c : {Case{"  ", "1", "Va rugam introduceti numele !"},
                        Case{"Ana", "", "Va rugam introduceti parola !"},
                        Case{"ADMIN", "1",
                             "Acest nume de utilizator exista deja ! Adaugarea nu se poate efectua "
                             "!"}}) {
    Add(c.name, c.password, 0);
    EXPECT_EQ(LastPrompt(), c.prompt);
    EXPECT_EQ(messages_.shown.back().buttons, kCritical);
  }
  QTest::mouseClick(screen_.cmdSterge, Qt::LeftButton);
  EXPECT_EQ(LastPrompt(), "Utilizatorul admin nu se poate sterge !");
  EXPECT_EQ(company_.Open().QueryValue("SELECT COUNT(*) FROM UTILIZATORI"), Value(1));
}

TEST_F(FrmUtilizatori, DeletesWhenAsked) {
  Add("Ana", "1", 1);
  messages_.answers = {kNo, kYes};
  QTest::mouseClick(screen_.cmdSterge, Qt::LeftButton);
  EXPECT_EQ(LastPrompt(), "Sunteti sigur ca doriti sa stergeti utilizatorul : Ana ?");
  EXPECT_EQ(messages_.shown.back().title, "Confirmare stergere");
  EXPECT_EQ(messages_.shown.back().buttons, kYesNo | kQuestion | kDefaultStep);
  EXPECT_FALSE(Stored("NUME", "Ana").IsNull());
  QTest::mouseClick(screen_.cmdSterge, Qt::LeftButton);
  EXPECT_TRUE(Stored("NUME", "Ana").IsNull());
  EXPECT_EQ(screen_.grdDataGrid->ColumnText(0), "admin");
}

TEST_F(FrmUtilizatori, TheGridEditsAllButTheTypeOfAdmin) {
  Add("Ana", "1", 1);
  QAbstractItemModel* model = screen_.grdDataGrid->View()->model();
  GoTo("Ana");
  const int ana = screen_.grdDataGrid->View()->currentIndex().row();
  EXPECT_TRUE(model->setData(model->index(ana, 2), "0 (Toate)"));
  EXPECT_EQ(Stored("TIP", "Ana"), Value(0));
  EXPECT_FALSE(model->setData(model->index(ana, 0), "admin"));
  EXPECT_EQ(messages_.shown.size(), 1u);
  GoTo("admin");
  const int admin = screen_.grdDataGrid->View()->currentIndex().row();
  EXPECT_TRUE(model->setData(model->index(admin, 1), "secret"));
  EXPECT_EQ(Stored("PAROLA", "admin"), Value("secret"));
  EXPECT_FALSE(model->setData(model->index(admin, 2), "2 (Raportari)"));
  EXPECT_EQ(LastPrompt(), "Nu se poate modifica tipul pentru utilizatorul admin !");
  EXPECT_EQ(Stored("TIP", "admin"), Value(0));
  EXPECT_FALSE(model->setData(model->index(admin, 0), "Ion"));
  EXPECT_FALSE(model->setData(model->index(admin, 1), ""));
  EXPECT_EQ(company_.Rows("SELECT NUME, PAROLA, TIP FROM UTILIZATORI WHERE TIP = 0"),
            "admin secret 0 \nAna 1 0 \n");
}

TEST_F(FrmUtilizatori, TheRulesLookAtTheUsersAsTheyAreNow) {
  Add("Ana", "1", 0);
  Add("Ion", "1", 1);
  Connection other = company_.Open();
  other.Execute("DELETE FROM UTILIZATORI WHERE NUME = 'admin'");
  GoTo("Ana");
  QAbstractItemModel* model = screen_.grdDataGrid->View()->model();
  const int ana = screen_.grdDataGrid->View()->currentIndex().row();
  EXPECT_FALSE(model->setData(model->index(ana, 2), "1 (Culegeri + raportari)"));
  const std::string refusal = LastPrompt();
  EXPECT_EQ(refusal, "Trebuie sa ramana cel putin un utilizator cu parola si de tipul 0 (Toate) !");
  QTest::mouseClick(screen_.cmdSterge, Qt::LeftButton);
  EXPECT_EQ(LastPrompt(), refusal);
  EXPECT_EQ(Stored("TIP", "Ana"), Value(0));

  // The other one goes while the question stands on the screen.
  other.Execute("INSERT INTO UTILIZATORI (NUME, PAROLA, TIP) VALUES ('Dan', '1', 0)");
  const MessageHandler answer = SetMessageHandler([&](const MessageRequest& request) -> long {
    // Nobody is kept from writing while a message waits.
    other.Execute("DELETE FROM UTILIZATORI WHERE NUME = 'Dan'");
    messages_.shown.push_back(request);
    return kYes;
  });
  QTest::mouseClick(screen_.cmdSterge, Qt::LeftButton);
  SetMessageHandler(answer);
  EXPECT_EQ(LastPrompt(), refusal);
  EXPECT_EQ(Stored("TIP", "Ana"), Value(0));
}

TEST_F(FrmUtilizatori, TabGoesFromTheBoxesToAdaugare) {
  screen_.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&screen_));
  screen_.txtNume->setFocus();
  for (QWidget* next : std::initializer_list<QWidget*>{
           screen_.txtParola, screen_.cboTip, screen_.cmdAdauga, screen_.grdDataGrid->View()}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), next);
  }
}

}  // namespace
}  // namespace tevra::test
