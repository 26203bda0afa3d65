// The registry of companies on its screen.
#include <QLineEdit>
#include <QTableView>
#include <QtTest>

#include <gtest/gtest.h>

#include "session/Companies.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "session/frmSocietati.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

class FrmSocietati : public ::testing::Test {
 protected:
  FrmSocietati() { CompanyRegistry::WriteDefault(company_.Directory().string()); }

  static void Add(frmSocietati& screen, const char* code, const char* name) {
    screen.txtCod->clear();
    screen.txtDenumire->clear();
    QTest::keyClicks(screen.txtCod, code);
    QTest::keyClicks(screen.txtDenumire, name);
    QTest::mouseClick(screen.cmdAdauga, Qt::LeftButton);
  }
  std::vector<Company> Registered() const {
    return CompanyRegistry::Load(company_.Directory().string()).Companies();
  }
  bool HasFile(const char* name) const {
    return std::filesystem::exists(company_.Directory() / name);
  }

  TestCompany company_;
  MessageRecorder messages_;
};

TEST_F(FrmSocietati, ADatabaseInTheWayIsAskedAbout) {
  company_.Open().Execute("UPDATE kv_info SET DENUMIRE = 'Veche SA'");
  for (const char* name : {"Kelnar02.mdb", "Kelnar03.mdb"}) {
    std::filesystem::copy_file(company_.File(), company_.Directory() / name);
  }
  frmSocietati screen;
  screen.show();
  messages_.answers = {kAbort, kRetry, kIgnore};
  Add(screen, "02", "Doi");
  ASSERT_EQ(messages_.shown.size(), 1u);
  const MessageRequest& question = messages_.shown[0];
  EXPECT_EQ(question.prompt.rfind("Baza de date Kelnar02.mdb (Veche SA) exista deja", 0), 0u);
  EXPECT_EQ(question.captions[0] + question.captions[1] + question.captions[2],
            "RenuntarePreluareInlocuire");
  EXPECT_EQ(ButtonsOf(question.buttons).at(DefaultButton(question.buttons)).answer, kAbort);
  EXPECT_EQ(Registered().size(), 1u);
  EXPECT_EQ(screen.txtCod->Text(), "02") << "what was typed stays";
  Add(screen, "02", "Doi");
  Add(screen, "03", "Trei");
  EXPECT_EQ(messages_.shown.size(), 3u);
  EXPECT_EQ(Registered().size(), 3u);
  const auto nameIn = [&](const char* database) {
    Connection file(CompanyConnectionString(company_.Directory().string(), database));
    return file.QueryValue("SELECT DENUMIRE FROM kv_info").TextOrEmpty();
  };
  EXPECT_EQ(nameIn("Kelnar02.mdb"), "Veche SA");
  EXPECT_EQ(nameIn("Kelnar03.mdb"), "Trei");
  EXPECT_TRUE(HasFile("Salv_Tevra"));
}

TEST_F(FrmSocietati, RefusalsInTheirWords) {
  struct Case {
    const char* code;
    const char* name;
    const char* prompt;
  };
  frmSocietati screen;
  screen.show();
  for (const Case& c :
       {Case{"", "Firma", "Va rugam completati codul societatii  !"},
        Case{"02", "  ", "Va rugam completati denumirea societatii  !"},
        Case{"01", "Firma",
             "Acest cod de societate exista deja ! Adaugarea nu se poate efectua !"}}) {
    Add(screen, c.code, c.name);
    EXPECT_EQ(messages_.shown.back().prompt, c.prompt);
    EXPECT_EQ(messages_.shown.back().buttons, kCritical);
  }
  // The box takes nothing that no code has.
  Add(screen, "./", "Firma");
  EXPECT_EQ(messages_.shown.back().prompt, "Va rugam completati codul societatii  !");
  QTest::mouseClick(screen.cmdSterge, Qt::LeftButton);
  EXPECT_EQ(messages_.shown.back().prompt, "Societatea cu codul 01 nu se poate sterge !");
  EXPECT_EQ(Registered().size(), 1u);
}

TEST_F(FrmSocietati, DeletesThatCompanyOnlyWhenAsked) {
  frmSocietati screen;
  screen.show();
  Add(screen, "02", "Doi");
  Add(screen, "03", "Trei");
  screen.TDBGrid1->View()->setCurrentIndex(screen.TDBGrid1->View()->model()->index(1, 0));
  messages_.answers = {kNo, kYes};
  QTest::mouseClick(screen.cmdSterge, Qt::LeftButton);
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_EQ(messages_.shown[0].prompt,
            "Sunteti sigur ca doriti sa stergeti societatea : 02 - Doi si baza de date aferenta ?");
  EXPECT_EQ(messages_.shown[0].title, "Confirmare stergere");
  EXPECT_EQ(messages_.shown[0].buttons, kYesNo | kQuestion | kDefaultStep);
  EXPECT_TRUE(HasFile("Kelnar02.mdb"));
  QTest::mouseClick(screen.cmdSterge, Qt::LeftButton);
  EXPECT_FALSE(HasFile("Kelnar02.mdb"));
  EXPECT_TRUE(HasFile("Kelnar01.mdb"));
  EXPECT_TRUE(HasFile("Kelnar03.mdb"));
  ASSERT_EQ(Registered().size(), 2u);
  EXPECT_EQ(Registered()[1].cod, "03");
}

TEST_F(FrmSocietati, ADeletionThatFailedShowsTheListAsItIsNow) {
  frmSocietati screen;
  screen.show();
  for (const char* code : {"02", "03", "04", "05"}) Add(screen, code, "Firma");
  const std::string directory = company_.Directory().string();
  CompanyRegistry theirs = CompanyRegistry::Load(directory);
  StergeSocietate(theirs, directory, *theirs.Find("02"));
  StergeSocietate(theirs, directory, *theirs.Find("05"));
  Connection user(CompanyConnectionString(directory, "Kelnar04.mdb"));
  QTableView* view = screen.TDBGrid1->View();
  view->setCurrentIndex(view->model()->index(3, 0));
  ASSERT_EQ(screen.TDBGrid1->ColumnText(0), "04");
  QTest::mouseClick(screen.cmdSterge, Qt::LeftButton);
  EXPECT_EQ(messages_.shown.back().prompt.substr(0, 9), "Eroare 70");
  EXPECT_EQ(view->model()->rowCount(), 3);
  EXPECT_EQ(screen.TDBGrid1->ColumnText(0), "04");
}

TEST_F(FrmSocietati, ANameChangedInTheGridIsWrittenAtTheClose) {
  frmSocietati screen;
  screen.show();
  auto* model = screen.TDBGrid1->View()->model();
  EXPECT_TRUE(model->setData(model->index(0, 1), "Alt nume"));
  EXPECT_FALSE(model->setData(model->index(0, 1), "  "));
  EXPECT_FALSE(model->setData(model->index(0, 1), "cu\x01semn"));
  EXPECT_FALSE(model->flags(model->index(0, 0)) & Qt::ItemIsEditable);
  // What stands in an open cell counts too.
  QTableView* view = screen.TDBGrid1->View();
  view->setCurrentIndex(model->index(0, 1));
  view->edit(view->currentIndex());
  view->findChild<QLineEdit*>()->setText("Numele nou");
  screen.close();
  EXPECT_EQ(Registered()[0].denumire, "Numele nou");
}

TEST_F(FrmSocietati, AListThatNobodyChangedIsNotWritten) {
  const auto file = company_.Directory() / "Societat.XML";
  const std::string marked = Content(file) + "<!-- as it was -->";
  WriteFile(file, marked);
  std::filesystem::permissions(company_.Directory(), std::filesystem::perms(0555));
  {
    frmSocietati screen;
    screen.show();
    screen.close();
  }
  std::filesystem::permissions(company_.Directory(), std::filesystem::perms(0755));
  EXPECT_TRUE(messages_.shown.empty());
  EXPECT_EQ(Content(file), marked);
}

TEST_F(FrmSocietati, ARegistryThatCannotBeReadIsToldAndLeftAlone) {
  WriteFile(company_.Directory() / "Societat.XML", "<xml>");
  frmSocietati screen;
  screen.show();
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_NE(messages_.shown[0].prompt.find(" in procedura Form_Load din Form frmSocietati Linia: "),
            std::string::npos);
  Add(screen, "02", "Doi");
  QTest::mouseClick(screen.cmdSterge, Qt::LeftButton);
  screen.close();
  EXPECT_EQ(Content(company_.Directory() / "Societat.XML"), "<xml>");
}

}  // namespace
}  // namespace tevra::test
