// The transfer to the inventory, from the button of the register to the refreshed list, by keys.
#include <QLineEdit>
#include <QTableView>
#include <QtTest>
#include <functional>

#include <gtest/gtest.h>

#include "platform/forms/Windows.h"
#include "platform/system/Clock.h"
#include "platform/system/Settings.h"
#include "register/TransferPreview.h"
#include "register/frmImo.h"
#include "register/frmSelLuna.h"
#include "session/Session.h"
#include "session/frmParamSoc.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

class TransferScreens : public ::testing::Test {
 protected:
  TransferScreens() {
    SetSettings(nullptr);
    clock::Set(DateTime(2026, 4, 3));
    CurrentSession().contObiecteInventar = "303";
    company_.Open().Execute("UPDATE I_VALIM SET VALIM = 2500");
    Add("A1", "2131", 2500, 1000);
    Add("A2", "2131", 9999, 5000);
    list_ = &Activate(windows::Open<frmImo>());
  }
  ~TransferScreens() override {
    DeleteScreens<Form>();
    clock::Reset();
  }
  void Add(const char* code, const char* account, double value, double remaining) const {
    company_.AddAsset({{"COD", code},
                       {"DENUMIRE", "Asset"},
                       {"CONT", account},
                       {"VAL_CUMP", value},
                       {"VAL_RAMASA", remaining},
                       {"DATA_CALCUL", DateTime(2026, 3, 31)}});
  }
  // Presses the button; `choose` works in the modal screen of the month.
  void Press(const std::function<void(frmSelLuna&)>& choose) {
    QTimer::singleShot(0, [&] {
      const auto screens = OpenScreens<frmSelLuna>();
      ASSERT_EQ(screens.size(), 1U);
      choose(*screens.front());
    });
    test::Press(list_->cmdInv);
  }
  void PressForMarch() {
    Press([](frmSelLuna& screen) {
      QTest::keyClicks(screen.DTPicker, "032026");
      QTest::keyClick(screen.DTPicker, Qt::Key_Return);
    });
  }
  std::string State() const {
    return company_.Rows("SELECT COUNT(*) FROM I_INV") +
           company_.Rows("SELECT COUNT(*) FROM Kv_Linii") +
           company_.Rows("SELECT COUNT(*) FROM I_IMO WHERE IESIRE <> 0");
  }
  const MessageRequest& Last() const { return messages_.shown.back(); }

  TestCompany company_;
  MessageRecorder messages_;
  frmImo* list_ = nullptr;
};

TEST_F(TransferScreens, TheMonthIsChosenByKeys) {
  std::string title;
  Press([&](frmSelLuna& screen) {
    EXPECT_EQ(screen.windowTitle(), "Selectati luna");
    EXPECT_EQ(screen.DTPicker->text(), "04/2026");
    EXPECT_EQ(screen.focusWidget(), screen.DTPicker);
    // The arrows go through the months and on into the next year.
    QTest::keyClick(screen.DTPicker, Qt::Key_Down);
    EXPECT_EQ(screen.DTPicker->text(), "03/2026");
    QTest::keyClicks(screen.DTPicker, "12");
    QTest::keyClick(screen.DTPicker, Qt::Key_Up);
    EXPECT_EQ(screen.DTPicker->text(), "01/2027");
    QTest::keyClick(screen.DTPicker, Qt::Key_Right);
    QTest::keyClicks(screen.DTPicker, "25");
    EXPECT_EQ(screen.DTPicker->Date(), DateTime(2025, 1, 3));
    QTest::keyClick(screen.DTPicker, Qt::Key_Home);
    QTest::keyClicks(screen.DTPicker, "15.08.2024");
    EXPECT_EQ(screen.DTPicker->Date(), DateTime(2024, 8, 15));
    QTest::keyClick(screen.DTPicker, Qt::Key_Escape);
    EXPECT_FALSE(screen.isVisible());
    EXPECT_FALSE(screen.OkPressed);
  });
  EXPECT_TRUE(messages_.shown.empty());
  EXPECT_EQ(State(), "0 \n0 \n0 \n");
}

TEST_F(TransferScreens, TheAssetsAreShownBeforeTheQuestion) {
  Press([](frmSelLuna& screen) {
    auto* preview = screen.findChild<QTableWidget*>("tblActive");
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->rowCount(), 1);
    EXPECT_EQ(preview->item(0, 0)->text(), "A1");
    EXPECT_EQ(preview->item(0, 2)->text(), "2.500,00");
    EXPECT_EQ(preview->item(0, 3)->text(), "1.000,00");
    EXPECT_EQ(screen.findChild<QLabel*>("lblActive")->text(),
              "O imobilizare are acum valoarea pana la 2.500,00 lei, in total 2.500,00 lei:");
    QTest::keyClick(&screen, Qt::Key_Escape);
  });
  TransferSelection selection{100, {}, 2};
  EXPECT_EQ(TransferPreviewText(selection),
            "Nici o imobilizare nu are acum valoarea pana la 100,00 lei.");
  selection.assets.resize(3);
  EXPECT_EQ(TransferPreviewText(selection),
            "3 imobilizari au acum valoarea pana la 100,00 lei, in total 0,00 lei:\n"
            "Atentie: 2 imobilizari iesite, cu valoare ramasa, primesc din nou note contabile.");
}

TEST_F(TransferScreens, WithoutAnAccountTheConfigurationOpens) {
  CurrentSession().contObiecteInventar.clear();
  for (const int userType : {2, 0}) {
    CurrentSession().userType = userType;
    test::Press(list_->cmdInv);
    EXPECT_EQ(Last().prompt, "Va rog configurati contul de obiecte de inventar");
    EXPECT_EQ(Last().buttons, kInformation);
    EXPECT_EQ(OpenScreens<frmParamSoc>().size(), userType == 0 ? 1U : 0U);
  }
}

TEST_F(TransferScreens, TheLastCalculationMustBeOfTheMonth) {
  Press([](frmSelLuna& screen) { screen.cmdOk->click(); });
  EXPECT_EQ(Last().prompt,
            "Ultimul calcul pentru mijloacele fixe trebuie sa fie in luna : [4-2026]");
  EXPECT_EQ(Last().buttons, kInformation);
  company_.Open().Execute("UPDATE I_IMO SET DATA_CALCUL = NULL");
  PressForMarch();
  EXPECT_EQ(Last().prompt,
            "Ultimul calcul pentru mijloacele fixe trebuie sa fie in luna : [3-2026]");
  company_.Open().Execute("UPDATE I_IMO SET DATA_CALCUL = '2026-03-31 00:00:00'");
  company_.Open().Execute("DELETE * FROM I_VALIM");
  PressForMarch();
  EXPECT_EQ(Last().prompt, "Nu exista imobilizari a caror valoare sa fie mai mica de 0!");
  EXPECT_EQ(Last().buttons, kInformation);
  EXPECT_EQ(State(), "0 \n0 \n0 \n");
}

TEST_F(TransferScreens, YesMovesTheAssetsAndTheListShowsIt) {
  messages_.answers = {kNo, kYes};
  PressForMarch();
  EXPECT_EQ(Last().prompt,
            "1 imobilizari gasite cu valoare mai mica de 2500! Doriti sa fie trecute in "
            "inventar? ");
  EXPECT_EQ(State(), "0 \n0 \n0 \n");
  Add("A3", "2131", 9, 9);
  PressForMarch();
  EXPECT_EQ(messages_.shown.size(), 2U);
  EXPECT_EQ(company_.Rows("SELECT COD, IESIRE, DATA_IESIRE FROM I_IMO ORDER BY NRCRT"),
            "A1 True 01.04.2026 \nA2 False  \nA3 True 01.04.2026 \n");
  EXPECT_EQ(State(), "2 \n5 \n2 \n");
  EXPECT_EQ(list_->lblRecCount->text(), "3") << "the list was read anew";
  const DataGrid& grid = *list_->TDBGrid1;
  const auto* rows = grid.View()->model();
  EXPECT_EQ(rows->index(0, grid.ColumnOf("IESIRE")).data().toString(), "Da");
}

TEST_F(TransferScreens, AWarningFollowsTheWork) {
  company_.Open().Execute("UPDATE I_CONTURIIM SET CONT_CHELT = NULL WHERE CONT = '303'");
  PressForMarch();
  EXPECT_EQ(Last().prompt, "Va rog asociati un cont de cheltuiala contului: 303");
  EXPECT_EQ(Last().buttons, kExclamation);
  EXPECT_EQ(State(), "1 \n0 \n1 \n");
}

TEST_F(TransferScreens, AFailureIsToldUnderItsStepAndLeavesNothing) {
  struct Case {
    const char* table;
    const char* prompt;
    const char* title;
  };
  const Case kCases[] = {
      {"INSERT ON I_INV", ": gata", " TrecereInInventar "},
      {"INSERT ON Kv_Linii", ": gata in procedura pAddNoteContabile din Form frmImo Linia: ", ""},
      {"UPDATE ON I_IMO", ": gata in procedura pIesireMF din Form frmImo Linia: ", ""}};
  for (const Case& each : kCases) {
    company_.Open().Execute(std::string("CREATE TRIGGER x BEFORE ") + each.table +
                            " BEGIN SELECT RAISE(ABORT, 'gata'); END");
    PressForMarch();
    EXPECT_NE(Last().prompt.find(each.prompt), std::string::npos) << Last().prompt;
    EXPECT_EQ(Last().title, each.title);
    EXPECT_EQ(Last().prompt.rfind("Eroare ", 0) == 0, Last().title.empty());
    EXPECT_EQ(State(), "0 \n0 \n0 \n");
    company_.Open().Execute("DROP TRIGGER x");
  }
  company_.Open().Execute("DROP TABLE I_VALIM");
  list_->cmdInv->click();
  QCoreApplication::processEvents();
  EXPECT_EQ(Last().title, " cmdInv_Click ");
}

}  // namespace
}  // namespace tevra::test
