// Currencies and rates on their screen, worked by keyboard.
#include <QSslSocket>
#include <QTableView>
#include <QTimer>
#include <QtTest>
#include <fstream>

#include <gtest/gtest.h>

#include "platform/system/Clock.h"
#include "platform/system/Desktop.h"
#include "platform/system/Settings.h"
#include "reference/frmPreluare.h"
#include "reference/frmValute.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"
#include "tests/web/HttpsServer.h"

namespace tevra::test {
namespace {

class FrmValute : public ::testing::Test {
 protected:
  FrmValute() {
    clock::Set(DateTime(2026, 1, 9));
    SetSettings(nullptr);
    Connection company = company_.Open();
    company.Execute("DELETE FROM kv_val");
    company.Execute("DELETE FROM kv_val2");
    company.Execute("INSERT INTO kv_val VALUES ('EUR', 'Euro')");
    company.Execute("INSERT INTO kv_val VALUES ('USD', 'Dolarul')");
    for (int day = 1; day <= 7; ++day) {
      company.Execute("INSERT INTO kv_val2 VALUES ('EUR', ?, ?)",
                      {DateTime(2026, 1, day), 5 + day / 100.0});
    }
    company.Execute("INSERT INTO kv_val2 VALUES ('USD', '2026-01-07 18:00:00', 4.5)");
  }
  ~FrmValute() override { clock::Reset(); }

  void Open() {
    screen_ = std::make_unique<frmValute>();
    Activate(*screen_);
  }
  void Currency(Qt::Key key) const { Press(screen_->grdValute->View(), key); }
  std::string Add() {
    messages_.shown.clear();
    Press(screen_->cmdAdauga);
    return messages_.shown.empty() ? "" : messages_.shown.back().prompt;
  }
  // Presses "Preluare BNR"; `choose` works in the screen that asks where from.
  void TakeOver(const std::function<void(frmPreluare&)>& choose = [](frmPreluare& choice) {
    QTest::keyClick(choice.optFisier, Qt::Key_Return);
  }) {
    QTimer::singleShot(0, [&] {
      auto* choice = screen_->findChild<frmPreluare*>();
      ASSERT_TRUE(choice);
      choose(*choice);
    });
    Press(screen_->cmdPreluare);
  }
  std::string Shown() const {
    std::string rates;
    const QAbstractItemModel* model = screen_->grdCursValuta->View()->model();
    for (int row = 0; row < model->rowCount(); ++row) {
      rates += model->index(row, 1).data().toString().left(2).toStdString() + "=" +
               model->index(row, 2).data().toString().toStdString() + " ";
    }
    return rates;
  }

  TestCompany company_;
  MessageRecorder messages_;
  std::unique_ptr<frmValute> screen_;
};

TEST_F(FrmValute, TheCountAppliesAtTheNextRowAndASearchShowsOneDay) {
  Open();
  const std::string newest = "07=5,07 06=5,06 05=5,05 04=5,04 03=5,03 ";
  EXPECT_EQ(Shown(), newest);
  EXPECT_EQ(screen_->lblValuta->text(), "EUR");
  screen_->cboNumarCursuri->setCurrentText("Toate");
  EXPECT_EQ(Shown(), newest);
  Currency(Qt::Key_Down);
  EXPECT_EQ(Shown(), "07=4,5 ");
  EXPECT_EQ(screen_->lblValuta->text(), "USD");
  // The rate of 18:00 counts for the day after, as whole days are compared.
  screen_->dteDataCurs->SetDate(DateTime(2026, 1, 7));
  Press(screen_->cmdCautaCurs);
  EXPECT_EQ(Shown(), "");
  Currency(Qt::Key_Up);
  EXPECT_EQ(Shown(), newest + "02=5,02 01=5,01 ");
  Press(screen_->cmdCautaCurs);
  EXPECT_EQ(Shown(), "07=5,07 ");
}

TEST_F(FrmValute, ARateIsANumberOfACurrency) {
  Open();
  Retype(screen_->txtCurs, "5,0,1");
  EXPECT_EQ(Add(), "Va rugam introduceti o valoare numerica !");
  EXPECT_TRUE(screen_->txtCurs->hasFocus());
  Retype(screen_->txtCurs, "5,0871");
  EXPECT_EQ(Add(), "");
  EXPECT_EQ(Shown(), "09=5,0871 07=5,07 06=5,06 05=5,05 04=5,04 ");
  EXPECT_EQ(Add(), "");  // two rates on one day
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM kv_val2 WHERE DATA = '2026-01-09 00:00:00'"),
            "2 \n");

  QAbstractItemModel* rates = screen_->grdCursValuta->View()->model();
  EXPECT_FALSE(rates->setData(rates->index(0, 2), "5.09"));
  EXPECT_TRUE(rates->setData(rates->index(0, 2), "5,09"));
  messages_.answers = {kYes};
  messages_.shown.clear();
  Press(screen_->grdCursValuta->View(), Qt::Key_Delete);
  EXPECT_EQ(messages_.shown.at(0).prompt,
            "Sunteti sigur ca doriti sa stergeti cursul EUR din 09.01.2026 ?");
  EXPECT_EQ(company_.Rows("SELECT CURS FROM kv_val2 WHERE DATA = '2026-01-09 00:00:00'"),
            "5,0871 \n");

  company_.Open().Execute("DELETE FROM kv_val");
  Open();
  Retype(screen_->txtCurs, "1");
  EXPECT_EQ(Add(), "Va rugam selectati un cod de valuta !");
}

TEST_F(FrmValute, ACurrencyIsAddedOnceAndDeletedAfterAQuestion) {
  Open();
  screen_->optValuta->setFocus();
  QTest::keyClick(screen_->optValuta, Qt::Key_Space);
  QCoreApplication::processEvents();
  EXPECT_TRUE(screen_->fraValuta->isVisible() && !screen_->fraCurs->isVisible());
  EXPECT_EQ(Add(), "Va rugam completati codul valutei  !");
  EXPECT_TRUE(screen_->txtCodValuta->hasFocus());
  Retype(screen_->txtCodValuta, "usd");
  EXPECT_EQ(Add(), "Acest cod de valuta exista deja ! Adaugarea nu se poate efectua !");
  Retype(screen_->txtCodValuta, "chf ");
  Retype(screen_->txtDenumireValuta, "francul");
  EXPECT_EQ(Add(), "");
  EXPECT_EQ(company_.Rows("SELECT * FROM kv_val WHERE COD = 'CHF'"), "CHF FRANCUL \n");
  EXPECT_EQ(screen_->sCodValuta + Shown(), "CHF");

  Currency(Qt::Key_Home);
  screen_->grdValute->View()->setCurrentIndex(screen_->grdValute->View()->model()->index(0, 0));
  messages_.answers = {kNo, kYes};
  messages_.shown.clear();
  Currency(Qt::Key_Delete);
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_EQ(messages_.shown[0].prompt,
            "Sunteti sigur ca doriti sa stergeti valuta cu codul : EUR ?\n\nEste folosit in "
            "configurarea societatii si 7 cursuri valutare.");
  EXPECT_EQ(messages_.shown[0].title, "Confirmare stergere");
  Currency(Qt::Key_Delete);
  EXPECT_EQ(company_.Rows("SELECT COD FROM kv_val ORDER BY COD"), "CHF \nUSD \n");
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM kv_val2 WHERE COD = 'EUR'"), "7 \n");
  EXPECT_EQ(screen_->sCodValuta, screen_->grdValute->ColumnText(0));
  EXPECT_NE(screen_->sCodValuta, "EUR");
}

TEST_F(FrmValute, TheBanksFileIsTakenWholeOrNotAtAll) {
  const std::string file = (company_.Directory() / "nbrfxrates.xml").string();
  const OpenFileHandler before = SetOpenFileHandler([&](const OpenFileRequest&) { return file; });
  std::ofstream(file) << "<DataSet><Body><Cube date=\"2026-01-08\"><Rate currency=\"EUR\">5.0999"
                         "</Rate><Rate currency=\"USD\" multiplier=\"0\">4</Rate></Cube></Body>"
                         "</DataSet>";
  Open();
  TakeOver();
  EXPECT_EQ(messages_.shown.back().buttons, kCritical);
  EXPECT_EQ(messages_.shown.back().prompt,
            "Fisierul nbrfxrates.xml, linia 1: multiplicatorul \"0\" al valutei USD nu este un "
            "numar intreg pozitiv ! Niciun curs nu a fost preluat.");
  EXPECT_EQ(Shown().substr(0, 3), "07=");
  std::ofstream(file) << "<DataSet><Body><Cube date=\"2026-01-08\"><Rate currency=\"EUR\">5.0999"
                         "</Rate></Cube></Body></DataSet>";
  TakeOver();
  EXPECT_EQ(messages_.shown.back().prompt,
            "Cursurile au fost preluate: 1 curs nou, 0 modificate, 0 neschimbate, 0 sarite.");
  EXPECT_EQ(Shown().substr(0, 10), "08=5,0999 ");
  SetOpenFileHandler(before);
}

TEST_F(FrmValute, TheBanksRatesComeFromAnAddressToo) {
  const HttpsServer server([](QSslSocket& client, const std::string& path) {
    const std::string rates =
        "<DataSet><Body><Cube date=\"2026-01-08\"><Rate currency=\"EUR\">5.0999</Rate></Cube>"
        "</Body></DataSet>";
    const std::string reply =
        Reply("200 OK", path == "/rates.xml" ? rates : "<!DOCTYPE html><html><p>Acasa</html>");
    client.write(reply.c_str(), static_cast<qint64>(reply.size()));
    client.disconnectFromHost();
  });
  Open();
  const auto take = [&](const std::string& address) {
    TakeOver([&](frmPreluare& choice) {
      EXPECT_FALSE(choice.txtAdresa->isEnabled());
      Press(choice.optAdresa);
      Retype(choice.txtAdresa, "http://curs.bnr.ro/x");
      QTest::keyClick(choice.txtAdresa, Qt::Key_Return);
      QCoreApplication::processEvents();
      EXPECT_TRUE(choice.isVisible() && choice.focusWidget() == choice.txtAdresa);
      EXPECT_EQ(messages_.shown.back().prompt,
                "Adresa \"http://curs.bnr.ro/x\" nu are forma https://...");
      Retype(choice.txtAdresa, address.c_str());
      QTest::keyClick(choice.txtAdresa, Qt::Key_Return);
    });
    return messages_.shown.back().prompt;
  };
  EXPECT_NE(
      take(server.Address("/")).find("nu este un document XML intreg ! Niciun curs nu a fost"),
      std::string::npos)
      << messages_.shown.back().prompt;
  EXPECT_EQ(Shown().substr(0, 3), "07=");
  EXPECT_EQ(take(server.Address("/rates.xml")),
            "Cursurile au fost preluate: 1 curs nou, 0 modificate, 0 neschimbate, 0 sarite.");
  EXPECT_EQ(Shown().substr(0, 10), "08=5,0999 ");
  messages_.shown.clear();
  TakeOver([&](frmPreluare& choice) {
    EXPECT_EQ(choice.txtAdresa->Text(), server.Address("/rates.xml"));  // kept for the user
    QTest::keyClick(choice.optFisier, Qt::Key_Escape);
  });
  EXPECT_TRUE(messages_.shown.empty());
}

}  // namespace
}  // namespace tevra::test
