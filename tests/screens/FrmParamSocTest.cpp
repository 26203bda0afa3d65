// The configuration of a company on its screen.
#include <QtTest>

#include <gtest/gtest.h>

#include "session/CompanySettings.h"
#include "session/frmParamSoc.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

class FrmParamSoc : public ::testing::Test {
 protected:
  FrmParamSoc() {
    Connection file = company_.Open();
    file.Execute("DELETE * FROM kv_par");
    file.Execute(
        "INSERT INTO kv_par (DATAIN, DATASN, DATAIN1, DATASN1, DATAIC, DATASC, CONTFURNIZORI) "
        "VALUES ('2026-01-01 00:00:00', '2026-12-31 00:00:00', '2027-01-01 00:00:00', "
        "'2027-12-31 00:00:00', '2026-01-01 00:00:00', '2026-12-31 00:00:00', '401')");
    screen_ = std::make_unique<frmParamSoc>();
    Activate(*screen_);
  }
  Value Stored(const std::string& field, const std::string& table) {
    return company_.Open().QueryValue("SELECT " + field + " FROM " + table);
  }
  void Save() { QTest::mouseClick(screen_->cmdSalvare, Qt::LeftButton); }
  std::string LastPrompt() const {
    return messages_.shown.empty() ? "" : messages_.shown.back().prompt;
  }

  TestCompany company_;
  MessageRecorder messages_;
  std::unique_ptr<frmParamSoc> screen_;
};

TEST_F(FrmParamSoc, SavesTheTabOnShow) {
  screen_->txtInfo.at("DENUMIRE")->setText("Brutăria 'La Ion' SRL");
  screen_->txtInfo.at("CAPSOC")->setText("1.234,5");
  Save();
  EXPECT_EQ(LastPrompt(), "");
  EXPECT_EQ(Stored("DENUMIRE", "kv_info"), Value("Brutăria 'La Ion' SRL"));
  EXPECT_EQ(Stored("CAPSOC", "kv_info"), Value(1234.5));
  EXPECT_EQ(screen_->txtInfo.at("DENUMIRE")->toolTip(),
            "Denumire societate, maxim 35 caractere alfanumerice");

  screen_->SSTab1->setCurrentIndex(1);
  screen_->DTPicker1[5]->SetDate(DateTime(2026, 6, 30));
  screen_->txtInfo.at("BANCA")->setText("nesalvata");
  Save();
  EXPECT_EQ(Stored("DATASC", "kv_par"), Value(DateTime(2026, 6, 30)));
  EXPECT_TRUE(Stored("BANCA", "kv_info").IsNull());

  screen_->SSTab1->setCurrentIndex(2);
  screen_->txtCoefDeg[1]->SetText("2,25");
  EXPECT_EQ(screen_->cboCont[0]->Text().substr(0, 4), "401-");
  screen_->cboCont[1]->SetBoundText("4111");
  emit screen_->cboCont[1]->Picked();
  screen_->cboDeviza->setCurrentIndex(screen_->cboDeviza->findText("EUR"));
  Save();
  EXPECT_EQ(LastPrompt(), "");
  EXPECT_EQ(Stored("coef2", "I_COEFAD"), Value(2.25));
  EXPECT_EQ(Stored("CONTCLIENTI", "kv_par"), Value("4111"));
  EXPECT_EQ(Stored("CODDeviza", "kv_par"), Value("EUR"));
  EXPECT_EQ(Stored("CONTFURNIZORI", "kv_par"), Value("401"));
}

TEST_F(FrmParamSoc, CoefficientsAndAccountsAreSavedTogetherOrNotAtAll) {
  const Value before = Stored("coef1", "I_COEFAD");
  company_.Open().Execute(
      "CREATE TRIGGER refuza BEFORE UPDATE ON kv_par BEGIN SELECT RAISE(ABORT, 'nu'); END");
  screen_->SSTab1->setCurrentIndex(2);
  screen_->txtCoefDeg[0]->SetText("9");
  screen_->txtConfig[0]->SetText("404");
  screen_->chkDocumentAn->click();
  Save();
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_NE(LastPrompt().find(" in procedura Salvare din Form frmParamSoc Linia: "),
            std::string::npos);
  EXPECT_EQ(Stored("coef1", "I_COEFAD"), before);
  EXPECT_EQ(screen_->txtCoefDeg[0]->Text(), "9");
  Connection file = company_.Open();
  EXPECT_FALSE(IsOn(file, CompanySetting::kDocumentWithYear));
  EXPECT_FALSE(frmParamSoc().chkDocumentAn->isChecked());
  company_.Open().Execute("DROP TRIGGER refuza");
  Save();
  EXPECT_EQ(Stored("coef1", "I_COEFAD"), Value(9.0));
  EXPECT_EQ(Stored("CONTFURNIZORI", "kv_par"), Value("404"));
  EXPECT_TRUE(IsOn(file, CompanySetting::kDocumentWithYear));
  EXPECT_TRUE(frmParamSoc().chkDocumentAn->isChecked());

  // What another program set in the meantime stays, unless the box was changed.
  SetOn(file, CompanySetting::kDocumentWithYear, false);
  screen_->txtConfig[0]->SetText("401");
  Save();
  EXPECT_FALSE(IsOn(file, CompanySetting::kDocumentWithYear));
}

TEST_F(FrmParamSoc, YearsThatDoNotFitAreNotSaved) {
  screen_->SSTab1->setCurrentIndex(1);
  screen_->DTPicker1[2]->SetDate(DateTime(2027, 1, 2));
  Save();
  EXPECT_EQ(LastPrompt(),
            "Data de inceput a exercitiului N+1 trebuie sa fie ziua urmatoare datei de sfarsit a "
            "exercitiului N ! Salvarea nu se poate efectua !");
  EXPECT_EQ(messages_.shown.back().title, "Validare");
  EXPECT_EQ(messages_.shown.back().buttons, kCritical);
  EXPECT_EQ(Stored("DATAIN1", "kv_par"), Value(DateTime(2027, 1, 1)));
}

TEST_F(FrmParamSoc, LeavingABoxTellsAndStays) {
  struct Case {
    const char* field;
    const char* text;
    const char* prompt;
  };
  for (const Case& c :
       {Case{"CAPSOC", "1.23", "Va rugam introduceti o valoare numerica pentru capitalul social !"},
        Case{"FP", "x", "Va rugam introduceti o valoare numerica pentru forma de proprietate !"},
        Case{"RAMURA", "12a", "Va rugam introduceti o valoare numerica pentru Cod CAEN !"},
        Case{"PLATITVA", "d", "Va rugam completati D (de la DA) sau N (de la NU) !"}}) {
    QLineEdit* box = screen_->txtInfo.at(c.field);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Tab);
    QCoreApplication::processEvents();
    EXPECT_FALSE(box->hasFocus()) << "an empty box may be passed";
    box->setFocus();
    QTest::keyClicks(box, c.text);
    QTest::keyClick(box, Qt::Key_Tab);
    QCoreApplication::processEvents();
    EXPECT_EQ(LastPrompt(), c.prompt);
    EXPECT_TRUE(box->hasFocus());
    const std::size_t told = messages_.shown.size();
    Save();
    EXPECT_EQ(messages_.shown.size(), told + 1);
    box->setText(std::string(c.field) == "PLATITVA" ? "D" : "1");
  }
  EXPECT_TRUE(Stored("FP", "kv_info").IsNull());

  screen_->SSTab1->setCurrentIndex(1);
  DateBox* entry = screen_->DTPicker1[4];
  entry->setFocus();
  entry->SetDate(DateTime(2028, 1, 1));
  QTest::keyClick(entry, Qt::Key_Tab);
  QCoreApplication::processEvents();
  EXPECT_EQ(
      LastPrompt(),
      "Data de inceput a peroadei de culegere trebuie sa fie mai mica decat data de sfarsit!");
  EXPECT_TRUE(entry->hasFocus());
}

TEST_F(FrmParamSoc, ABoxThatIsNotLeftComesBackWithItsTab) {
  QLineEdit* box = screen_->txtInfo.at("PLATITVA");
  box->setFocus();
  QTest::keyClicks(box, "x");
  screen_->SSTab1->setCurrentIndex(2);
  QCoreApplication::processEvents();
  EXPECT_EQ(LastPrompt(), "Va rugam completati D (de la DA) sau N (de la NU) !");
  EXPECT_EQ(screen_->SSTab1->currentIndex(), 0);
  EXPECT_TRUE(box->hasFocus());
}

TEST_F(FrmParamSoc, AMissingDateLeavesTheOthersToBeChecked) {
  company_.Open().Execute("UPDATE kv_par SET DATAIC = NULL");
  frmParamSoc screen;
  screen.show();
  screen.SSTab1->setCurrentIndex(1);
  screen.DTPicker1[0]->SetDate(DateTime(2030, 1, 1));
  QTest::mouseClick(screen.cmdSalvare, Qt::LeftButton);
  EXPECT_EQ(LastPrompt(),
            "Data de inceput a exercitiului trebuie sa fie mai mica decat data de sfarsit ! "
            "Salvarea nu se poate efectua !");
}

TEST_F(FrmParamSoc, TwoTabsShareTheOneRow) {
  company_.Open().Execute("DELETE * FROM kv_par");
  frmParamSoc screen;
  screen.show();
  screen.SSTab1->setCurrentIndex(1);
  screen.DTPicker1[0]->SetDate(DateTime(2026, 1, 1));
  QTest::mouseClick(screen.cmdSalvare, Qt::LeftButton);
  screen.SSTab1->setCurrentIndex(2);
  screen.txtConfig[0]->SetText("404");
  QTest::mouseClick(screen.cmdSalvare, Qt::LeftButton);
  EXPECT_EQ(LastPrompt(), "");
  EXPECT_EQ(Stored("Count(*)", "kv_par"), Value(1));
  EXPECT_EQ(Stored("DATAIN", "kv_par"), Value(DateTime(2026, 1, 1)));
  EXPECT_EQ(Stored("CONTFURNIZORI", "kv_par"), Value("404"));
}

TEST_F(FrmParamSoc, ACoefficientIsANumberAboveZeroOrIsRefusedByName) {
  const Value before = Stored("coef2", "I_COEFAD");
  screen_->SSTab1->setCurrentIndex(2);
  for (const char* text : {"", " ", "0", "-1,5", "doi", "1.23"}) {
    screen_->txtCoefDeg[1]->SetText(text);
    screen_->txtConfig[0]->SetText("404");
    Save();
    EXPECT_EQ(LastPrompt(),
              "Va rugam introduceti o valoare numerica mai mare decat 0 pentru coeficientul "
              "\"intre 5 si 10 ani\" !")
        << text;
    EXPECT_EQ(messages_.shown.back().buttons, kCritical);
    EXPECT_TRUE(screen_->txtCoefDeg[1]->hasFocus());
    EXPECT_EQ(screen_->lblStare->text(), "");
    EXPECT_EQ(Stored("coef2", "I_COEFAD"), before);
    EXPECT_EQ(Stored("CONTFURNIZORI", "kv_par"), Value("401")) << "nor are the accounts saved";
  }
}

TEST_F(FrmParamSoc, TheStripOfCoefficientsRefusesTheSame) {
  company_.Open().Execute("INSERT INTO I_COEFAD (coef1, coef2, coef3) VALUES (1, 2, NULL)");
  frmParamSoc screen;
  screen.show();
  screen.SSTab1->setCurrentIndex(2);
  const QList<QAbstractButton*> strip = screen.adoCoefAD->findChildren<QAbstractButton*>();
  ASSERT_EQ(strip.size(), 4);
  screen.txtCoefDeg[0]->SetText("");
  strip[2]->click();
  EXPECT_EQ(LastPrompt(),
            "13 - Va rugam introduceti o valoare numerica mai mare decat 0 pentru coeficientul "
            "\"intre 2 si 5 ani\" !");
  EXPECT_EQ(screen.adoCoefAD->Recordset().Position(), 0u);
  screen.txtCoefDeg[0]->SetText("1,75");
  strip[2]->click();
  EXPECT_EQ(screen.adoCoefAD->Recordset().Position(), 1u);
  EXPECT_EQ(Stored("coef1", "I_COEFAD"), Value(1.75));
  EXPECT_FALSE(screen.HasChanges()) << "another row is no change";
  // What the company lacks already does not keep the accounts from being saved.
  screen.txtConfig[0]->SetText("404");
  QTest::mouseClick(screen.cmdSalvare, Qt::LeftButton);
  EXPECT_EQ(Stored("CONTFURNIZORI", "kv_par"), Value("404"));
}

TEST_F(FrmParamSoc, TheStateSpeaksOfTheSavedPageUntilTheNextChange) {
  const auto state = [&] { return screen_->lblStare->text().toStdString(); };
  QLineEdit* town = screen_->txtInfo.at("ORAS1");
  town->setText("Vlaheni");
  Save();
  EXPECT_EQ(state(), "Datele au fost salvate.");
  town->setText("Vlahenii Noi");
  EXPECT_EQ(state(), "");
  screen_->SSTab1->setCurrentIndex(1);
  Save();
  EXPECT_EQ(state(), "Pagina a fost salvata. Alte pagini au modificari nesalvate.");
  screen_->SSTab1->setCurrentIndex(0);
  Save();
  EXPECT_EQ(state(), "Datele au fost salvate.");
}

TEST_F(FrmParamSoc, WhatWasNotSavedIsAskedForAndThenDropped) {
  EXPECT_FALSE(screen_->HasChanges());
  screen_->txtInfo.at("ORAS1")->setText("Vlaheni");
  messages_.answers = {kNo, kYes};
  QTest::keyClick(screen_.get(), Qt::Key_Escape);
  QCoreApplication::processEvents();
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_TRUE(screen_->isVisible());
  EXPECT_EQ(screen_->txtInfo.at("ORAS1")->text(), "Vlaheni");
  QTest::mouseClick(screen_->cmdCancel, Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.size(), 2u);
  EXPECT_FALSE(screen_->isVisible());
  EXPECT_TRUE(Stored("ORAS1", "kv_info").IsNull());

  // Saved, or typed back, it is not asked for.
  frmParamSoc again;
  again.show();
  again.txtInfo.at("ORAS1")->setText("Vlaheni");
  QTest::mouseClick(again.cmdSalvare, Qt::LeftButton);
  again.SSTab1->setCurrentIndex(2);
  again.txtCoefDeg[0]->SetText("7");
  again.txtCoefDeg[0]->SetText(Stored("coef1", "I_COEFAD").AsText());
  again.close();
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.size(), 2u);
  EXPECT_FALSE(again.isVisible());
}

}  // namespace
}  // namespace tevra::test
