// The items of the menu "Prelucrari": each backs the company up before it writes.
#include <QApplication>

#include "care/Backup.h"
#include "care/CareMenu.h"
#include "platform/system/Clock.h"
#include "tests/care/CareTest.h"

namespace tevra::test {
namespace {

class ConversionMenu : public CareTest {
 protected:
  ConversionMenu() {
    clock::Set(DateTime(2005, 7, 1, 9, 30, 0));
    Execute("DELETE FROM kv_val WHERE COD = 'ROL'");
    Execute("UPDATE I_CLASIFICARE SET LIM_INF = 8");
    Execute(
        "UPDATE I_IMO SET COD_GR = '1.1.1', VAL_RAMASA = 90, DALUNI = 30, DRFLUNI = 120, "
        "DATA_CALCUL = CDate('31.12.2004'), DATA_ACH = CDate('01.01.2002')");
    before_ = SetMessageHandler([this](const MessageRequest& request) -> long {
      const QCursor* pointer = QApplication::overrideCursor();
      const bool busy = pointer && pointer->shape() == Qt::BusyCursor;
      said_ += request.prompt + (busy ? " (busy)\n" : "\n");
      return kYes;
    });
  }
  ~ConversionMenu() override {
    SetMessageHandler(before_);
    clock::Reset();
  }

  std::string said_;
  MessageHandler before_;
};

TEST_F(ConversionMenu, EveryWorkWritesAfterItsBackup) {
  Recalcul_Click();
  Preluare_Click();
  Recalcul_2005_Click();
  EXPECT_EQ(company_.Rows("SELECT COD_GR_NOU, DRBLUNI FROM I_IMO"), "1.1.1 72 \n");
  const std::string begin = "Reclasificare_Kelnar01_01.07.2005_09.30.00";
  EXPECT_EQ(NamesIn(BackupFolder()),
            (std::vector<std::string>{begin + ".mdb", begin + "_2.mdb", begin + "_3.mdb"}));
  // The last one has the two earlier works in it, and not its own.
  Connection last("Data Source=" + (BackupFolder() / (begin + "_3.mdb")).string() +
                  ";Mode=Read;PWD=" + kFilePassword);
  EXPECT_EQ(last.QueryValue("SELECT COD_GR_NOU FROM I_IMO").AsText(), "1.1.1");
  EXPECT_EQ(last.QueryValue("SELECT DRBLUNI FROM I_IMO").AsLong(), 0);
  EXPECT_EQ(last.QueryValue("SELECT MAX(DURNOR_NOU) FROM I_CLASIFICARE").AsLong(), 8);
}

TEST_F(ConversionMenu, TheConversionShowsThatItWorks) {
  mnuDenominare_Click();
  EXPECT_EQ(said_,
            " Inregistrarile cu data achizitiei pana la 01.07.2005 vor fi convertite ireversibil "
            "in LEI NOI.\n"
            "Salvare cu succes a bazei de date Kelnar01.mdb (busy)\n"
            "Baza de date a fost convertita in LEI NOI\n");
  EXPECT_FALSE(QApplication::overrideCursor());
  EXPECT_EQ(company_.Rows("SELECT VAL_CUMP FROM I_IMO"), "0,15 \n");
}

TEST_F(ConversionMenu, ABackupThatFailsStopsTheWork) {
  const std::string before = Dump(File());
  WriteFile(BackupFolder(), "in calea directorului");
  Recalcul_Click();
  EXPECT_EQ(FailureOf([] { Preluare_Click(); }), kPermissionDenied);
  Recalcul_2005_Click();
  mnuDenominare_Click();
  EXPECT_EQ(Dump(File()), before);
  EXPECT_NE(said_.find("Eroare 70 - Salvarea dinaintea lucrarii nu a reusit"), std::string::npos);
}

}  // namespace
}  // namespace tevra::test
