// The disposal, worked as its user works it, and the rows and notes that come of it.
#include <QContextMenuEvent>
#include <QMenu>
#include <QTableView>
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/data/Recordset.h"
#include "platform/forms/Windows.h"
#include "platform/system/Clock.h"
#include "register/frmFisaImo.h"
#include "register/frmIesireImo.h"
#include "register/frmImo.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

using namespace amount;
using namespace account;

class FrmIesireImo : public ::testing::Test {
 protected:
  FrmIesireImo() {
    clock::Set(DateTime(2026, 11, 23));
    CurrentSession().codDeviza = "EUR";
    Connection file = company_.Open();
    file.Execute("INSERT INTO kv_Ter (COD, NUME, TIP) VALUES (7, 'O''NEIL & FIII', 'C')");
    file.Execute("INSERT INTO kv_Ter (COD, NUME, TIP) VALUES (8, 'FURNIZOR', 'F')");
    asset_ = AddAsset("L");
  }
  ~FrmIesireImo() override {
    DeleteScreens<Form>();
    clock::Reset();
  }

  int AddAsset(const char* method, const Value& rate = 3.3) {
    return company_.AddAsset({{"COD", "INV1"},
                              {"DENUMIRE", "Strung"},
                              {"COD_GR_NOU", "1.1.1.1"},
                              {"TIP_AM", method},
                              {"CONT", "2131"},
                              {"CURS", rate},
                              {"VAL_CUMP", 12000.0},
                              {"VAL_CUMP_VAL", 3636.0},
                              {"DRFANI", 5.0},
                              {"COTA_ANUALA", 0.2},
                              {"DATA_ACH", DateTime(2024, 1, 10)},
                              {"DATA_IN_AM", DateTime(2024, 2, 1)},
                              {"DATA_AMORT", DateTime(2024, 2, 1)},
                              {"DATA_SF", DateTime(2029, 2, 1)}});
  }
  frmIesireImo& Open(int asset = 0) {
    return *(screen_ = &Activate(OpenDisposal(asset == 0 ? asset_ : asset)));
  }
  // The box is left, then what it holds is looked up, then what depends on it runs.
  static void Settle() {
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
  }
  static void Type(QWidget* box, const char* text) {
    box->setFocus();
    auto* combo = qobject_cast<QComboBox*>(box);
    QWidget* typed = combo ? combo->lineEdit() : box;
    // Its list would take the focus from a window that no window manager gives it back to.
    if (combo) combo->setCompleter(nullptr);
    if (auto* line = qobject_cast<QLineEdit*>(typed)) line->selectAll();
    QTest::keyClicks(typed, text);
    QTest::keyClick(typed, Qt::Key_Tab);
    Settle();
  }
  static void Press(QAbstractButton* button) {
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    Settle();
  }
  // All that a sale needs, in the order of the tabs.
  void FillSale(const char* price = "1000") {
    Press(screen_->Vanzare);
    Type(screen_->cboIDClient, "7");
    Type(screen_->txtDocIesire, "F'12");
    Type(screen_->txtValoare[kPrice], price);
    Type(screen_->cboCheltuieli, "6583");
    Type(screen_->cboClient, "4111");
    Type(screen_->cboVenituri, "7583");
    Type(screen_->cboTVA, "2");
  }
  std::string Amounts() {
    std::string text;
    for (NumberBox* box : screen_->txtValoare) text += box->Text() + " ";
    return text + "| " + screen_->txtTVA->Text();
  }
  std::string Enabled() {
    std::string text;
    const auto add = [&text](const QWidget* box) { text += box->isEnabled() ? "x" : "-"; };
    for (NumberBox* box : screen_->txtValoare) add(box);
    text += " ";
    for (QWidget* box : std::initializer_list<QWidget*>{screen_->cboIDClient, screen_->txtDocIesire,
                                                        screen_->cboCheltuieli, screen_->cboClient,
                                                        screen_->cboVenituri, screen_->cboTVA,
                                                        screen_->txtTVA, screen_->txtProcent}) {
      add(box);
    }
    return text;
  }
  // The lines that the screen announces.
  std::string Announced() {
    const QTableWidget* table = screen_->notePreview->Table();
    std::string text;
    for (int row = 0; row < table->rowCount(); ++row) {
      for (int column = 0; column < 4; ++column) {
        text += table->item(row, column)->text().toStdString() + " ";
      }
      text += "| ";
    }
    return text;
  }
  std::string Lines() {
    return company_.Rows(
        "SELECT JURNAL, CONT, DEBIT, CREDIT, DEVDEBIT, DEVCREDIT, TERT FROM Kv_Linii ORDER BY NDI, "
        "NRLINIE");
  }
  std::string Stored() {
    return company_.Rows(
        "SELECT IESIRE, TIP_IESIRE, DATA_IESIRE, VAL_RAMASA_IESIRE, VAL_IESIRE, VAL_IESIRE_VAL, "
        "CONT_CA, DocIesire, ID_Client FROM I_IMO ORDER BY NRCRT");
  }
  std::string LastPrompt() const {
    return messages_.shown.empty() ? "" : messages_.shown.back().prompt;
  }

  TestCompany company_;
  MessageRecorder messages_;
  int asset_ = 0;
  frmIesireImo* screen_ = nullptr;
};

TEST_F(FrmIesireImo, OpensForScrappingWithTheAssetBroughtUpToToday) {
  frmIesireImo& screen = Open();
  EXPECT_EQ(screen.windowTitle(), "Iesire Imobilizare");
  EXPECT_TRUE(screen.Casare->isChecked());
  EXPECT_EQ(screen.txtOut->Text(), "C");
  EXPECT_EQ(screen.txtNrInv->Text() + screen.txtDenumire->Text(), "INV1Strung");
  EXPECT_EQ(screen.DTPicker1->Date(), DateTime(2026, 11, 23));
  EXPECT_EQ(Amounts(), "5.200,00 1.576,00     | ");
  EXPECT_EQ(screen.TextCump->Text() + " " + screen.TextCumpDev->Text(), "12.000,00 3.636,00");
  EXPECT_EQ(Enabled(), "------ xxx-----");
  EXPECT_EQ(screen.cboIDClient->count(), 1);
  EXPECT_GE(screen.cboCheltuieli->findText("2131", Qt::MatchStartsWith), 0) << "all accounts";
  EXPECT_FALSE(screen.lblIesita->isVisible());
  EXPECT_EQ(screen.notePreview->Reason()->text(), "Casarea nu scrie nota contabila.");
  EXPECT_EQ(company_.Rows("SELECT DATA_CALCUL FROM I_IMO"), "23.11.2026 \n");
  EXPECT_FALSE(screen.HasChanges());
  EXPECT_EQ(&OpenDisposal(asset_), &screen) << "one for each asset";
}

TEST_F(FrmIesireImo, AScrappingIsSavedUnchecked) {
  frmIesireImo& screen = Open();
  Type(screen.cboCheltuieli, "6583");
  Type(screen.txtDocIesire, "PV 'unu'");
  EXPECT_TRUE(screen.HasChanges());
  Press(screen.cmdSalvare);
  EXPECT_EQ(LastPrompt(), "Datele au fost salvate cu succes !");
  EXPECT_EQ(messages_.shown.back().buttons, kInformation);
  EXPECT_EQ(Stored(), "True C 23.11.2026 5200 0 0 6583 PV 'unu'  \n");
  EXPECT_EQ(Lines(), "");
  EXPECT_FALSE(screen.HasChanges());
  EXPECT_TRUE(screen.isVisible()) << "it stays open";
  EXPECT_TRUE(screen.lblIesita->isVisible());
}

TEST_F(FrmIesireImo, ASaleDerivesAnnouncesAndWrites) {
  frmIesireImo& screen = Open();
  Press(screen.Vanzare);
  EXPECT_EQ(screen.txtOut->Text(), "V");
  EXPECT_EQ(Enabled(), "--x--- xxxxxx--");
  EXPECT_LT(screen.cboCheltuieli->findText("2131", Qt::MatchStartsWith), 0);
  EXPECT_EQ(screen.notePreview->Reason()->text(),
            "Nota apare dupa ce completati pretul de vanzare.");
  FillSale();
  EXPECT_EQ(Amounts(), "5.200,00 1.576,00 1.000,00 303,00 -4.200,00 -1.273,00 | 210,00");
  EXPECT_EQ(screen.txtProcent->Number(), 21);
  EXPECT_EQ(Announced(),
            "JV 4111 1.210,00  |  7583  1.000,00 |  4427  210,00 | OD 2131  12.000,00 |  6583 "
            "5.200,00  |  2813 6.800,00  | ");
  EXPECT_FALSE(screen.lblAtentie->isVisible());
  Press(screen.cmdSalvare);
  ASSERT_EQ(messages_.shown.size(), 1u) << LastPrompt();
  EXPECT_EQ(Stored(), "True V 23.11.2026 5200 1000 303 6583 F'12 7 \n");
  EXPECT_EQ(Lines(),
            "JV 4111 1210 0 366,64 0 7 \nJV 7583 0 1000 0 303  \nJV 4427 0 210 0 63,64  \n"
            "OD 2131 0 12000 0 3636  \nOD 6583 5200 0 1576 0  \nOD 2813 6800 0 2060 0  \n");
  // Saving once more asks nothing and replaces both notes.
  Press(screen.cmdSalvare);
  EXPECT_EQ(messages_.shown.size(), 2u);
  EXPECT_EQ(GetRecordCount("Kv_Linii"), 6);
}

TEST_F(FrmIesireImo, AfterAChangeBackTheVatRateStaysEnabled) {
  frmIesireImo& screen = Open();
  FillSale();
  Press(screen.Casare);
  EXPECT_EQ(Enabled(), "------ xxx--x--");
  EXPECT_EQ(screen.txtOut->Text(), "C");
  EXPECT_EQ(screen.notePreview->Reason()->text(), "Casarea nu scrie nota contabila.");
  Press(screen.cmdSalvare);
  EXPECT_EQ(Stored(), "True C 23.11.2026 5200 0 0 6583 F'12 7 \n");
  EXPECT_EQ(Lines(), "");
}

TEST_F(FrmIesireImo, LeavingThePriceDerivesWithTheFixedRate) {
  frmIesireImo& screen = Open();
  FillSale();
  Type(screen.txtValoare[kPrice], "2000,5");
  EXPECT_EQ(Amounts(), "5.200,00 1.576,00 2.000,50 606,00 -3.199,50 -970,00 | 380,10")
      << "19 %, shown with two decimals";
  EXPECT_TRUE(screen.lblAtentie->isVisible());
  EXPECT_NE(screen.lblAtentie->text().indexOf("TVA colectata"), -1);
  Type(screen.txtValoare[kPrice], "abc");
  EXPECT_EQ(LastPrompt(), "Va rugam introduceti o valoare numerica pozitiva pentru Pret vanzare!");
  EXPECT_EQ(messages_.shown.back().buttons, kExclamation);
  EXPECT_EQ(screen.txtValoare[kPrice]->Number(), 0);
  EXPECT_EQ(screen.focusWidget(), screen.txtValoare[kPrice]);
  EXPECT_EQ(screen.txtValoare[kForeignPrice]->Number(), 606) << "nothing was derived";
  Type(screen.txtValoare[kPrice], "999999999999999");
  EXPECT_EQ(screen.txtValoare[kPrice]->Text(), "999.999.999.999.999,00");
}

TEST_F(FrmIesireImo, LeavingTheDateShowsTheResidualValueOfThatDay) {
  frmIesireImo& screen = Open();
  FillSale();
  Type(screen.DTPicker1, "31122026");
  EXPECT_EQ(Amounts(), "5.000,00 1.515,00 1.000,00 303,00 -4.200,00 -1.273,00 | 210,00")
      << "the differences stay";
  EXPECT_EQ(company_.Rows("SELECT DATA_CALCUL FROM I_IMO"), "31.12.2026 \n");
  // A date that cannot be calculated is not left, and nothing is saved under it.
  company_.Open().Execute("UPDATE I_IMO SET DATA_SF = NULL");
  Type(screen.DTPicker1, "30112026");
  EXPECT_EQ(LastPrompt(),
            "Eroare 94 - Invalid use of Null: DATA_SF in procedura DTPicker1_LostFocus din Form "
            "frmIesireImo Linia: 0");
  const std::size_t shown = messages_.shown.size();
  screen.DTPicker1->SetDate(DateTime(2026, 11, 29));
  screen.cmdSalvare->click();
  QCoreApplication::processEvents();
  EXPECT_GT(messages_.shown.size(), shown);
  EXPECT_EQ(Stored().substr(0, 5), "False");
}

TEST_F(FrmIesireImo, AnAssetThatCannotBeCalculatedIsNotSaved) {
  company_.Open().Execute("UPDATE I_IMO SET DATA_SF = NULL");
  frmIesireImo& screen = Open();
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_NE(LastPrompt().find("Invalid use of Null: DATA_SF in procedura Casare_Click"),
            std::string::npos);
  Press(screen.cmdSalvare);
  EXPECT_NE(LastPrompt().find("in procedura cmdSalvare_Click"), std::string::npos);
  EXPECT_EQ(Stored().substr(0, 5), "False");
}

TEST_F(FrmIesireImo, RefusalsNameTheBoxAndSaveNothing) {
  frmIesireImo& screen = Open();
  Press(screen.Vanzare);
  const auto refused = [&](const char* message, long icon, QWidget* box) {
    Press(screen.cmdSalvare);
    EXPECT_EQ(LastPrompt(), message);
    EXPECT_EQ(messages_.shown.back().buttons, icon) << message;
    const bool there = !box || box->hasFocus() || box->isAncestorOf(screen.focusWidget());
    EXPECT_TRUE(there) << message;
    EXPECT_EQ(Stored().substr(0, 5), "False") << message;
  };
  refused("Va rugam introduceti o valoare numerica pozitiva pentru Pret vanzare!", kCritical,
          screen.txtValoare[kPrice]);
  Type(screen.txtValoare[kPrice], "-1");
  refused("Va rugam introduceti o valoare numerica pozitiva pentru Pret vanzare!", kCritical,
          screen.txtValoare[kPrice]);
  Type(screen.txtValoare[kPrice], "0");
  refused("Va rugam completati Cont de cheltuieli !", kCritical, screen.cboCheltuieli);
  Type(screen.cboCheltuieli, "6583");
  refused("Va rugam completati Cont client !", kCritical, screen.cboClient);
  Type(screen.cboClient, "4111");
  refused("Va rugam completati Cont de venituri !", kCritical, screen.cboVenituri);
  Type(screen.cboVenituri, "7583");
  refused("Va rugam completati Cod TVA la vanzare !", kCritical, screen.cboTVA);
  Type(screen.cboTVA, "2");
  refused("Va rog selectati Clientul", kInformation, screen.cboIDClient);
  Type(screen.cboIDClient, "7");
  refused("Va rog introduceti nr documentului de vanzare", kInformation, screen.txtDocIesire);
  Type(screen.txtDocIesire, "F1");
  company_.Open().Execute("DELETE * FROM kv_Ter");
  refused("Clientul ales nu mai exista in tabela de terti !", kExclamation, screen.cboIDClient);
  company_.Open().Execute("UPDATE I_IMO SET DATA_CALCUL = ?", {DateTime(2026, 10, 31)});
  refused("Va rog efectuati calculul pentru mijloacele fixe pana in luna curenta: [11-2026]", 0,
          nullptr);
  company_.Open().Execute("UPDATE I_IMO SET CURS = 0");
  refused("Va rog introduceti cursul pentru obiectul de inventar: INV1", 0, nullptr);
}

TEST_F(FrmIesireImo, NotesOfOthersGoOnlyWhenTheUserAgrees) {
  frmIesireImo& screen = Open();
  FillSale();
  company_.Open().Execute(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, JURNAL, CONT, DEBIT, DOC) VALUES (4, 1, 'JC', '401', "
      "50, 'f''12')");
  messages_.answers = {kNo};
  Press(screen.cmdSalvare);
  EXPECT_NE(LastPrompt().find("o nota contabila, in suma de 50,00 lei"), std::string::npos);
  EXPECT_EQ(Stored().substr(0, 5), "False");
  EXPECT_EQ(GetRecordCount("Kv_Linii"), 1);
  EXPECT_TRUE(screen.HasChanges());
  messages_.answers = {kYes};
  Press(screen.cmdSalvare);
  EXPECT_EQ(GetRecordCount("Kv_Linii"), 6);
}

TEST_F(FrmIesireImo, FailuresOfTheStepsAreTold) {
  frmIesireImo& screen = Open();
  FillSale();
  company_.Open().Execute("DELETE * FROM I_CONTURIIM WHERE CONT = '2131'");
  Press(screen.cmdSalvare);
  EXPECT_EQ(LastPrompt(), "Va rog asociati contului 2131 un cont de amortizare");
  EXPECT_EQ(messages_.shown.back().buttons, kInformation);
  EXPECT_EQ(GetRecordCount("Kv_Linii"), 3);
  company_.Open().Execute("INSERT INTO I_CONTURIIM (CONT) VALUES ('2131')");
  Press(screen.cmdSalvare);
  EXPECT_EQ(LastPrompt(),
            "Eroare -2147221494 - Trebuie sa precizati: Cont in procedura pAddNoteContabile din "
            "Form frmFisaImo Linia: 2");
  EXPECT_EQ(GetRecordCount("Kv_Linii"), 3);
  company_.Open().Execute("DELETE * FROM Kv_Linii");
  company_.Open().Execute("DELETE * FROM I_IMO");
  AddAsset("L");
  company_.Open().Execute("UPDATE I_IMO SET DATA_CALCUL = ?", {DateTime(2026, 11, 30)});
  Press(screen.cmdSalvare);
  EXPECT_EQ(LastPrompt().substr(0, 7), "3021 - ");
  EXPECT_EQ(messages_.shown.back().title, "Salvare");
  EXPECT_EQ(GetRecordCount("Kv_Linii"), 0) << "no notes for a row that was not saved";
}

TEST_F(FrmIesireImo, ANullRateDerivesNothingAndCountsOneInTheNotes) {
  const int asset = AddAsset("F", Value());
  Open(asset);
  FillSale();
  EXPECT_EQ(Amounts(), "12.000,00 3.636,00 1.000,00 0,00 -11.000,00 0,00 | 210,00");
  Press(screen_->cmdSalvare);
  EXPECT_EQ(Lines(),
            "JV 4111 1210 0 210 0 7 \nJV 7583 0 1000 0 0  \nJV 4427 0 210 0 210  \n"
            "OD 2131 0 12000 0 3636  \nOD 6583 12000 0 3636 0  \n");
}

TEST_F(FrmIesireImo, ComingBackShowsTheAssetAsItsCardSavedIt) {
  frmIesireImo& screen = Open();
  company_.Open().Execute("UPDATE I_IMO SET VAL_CUMP = 24000, DENUMIRE = 'Strung mare'");
  screen.Activate();
  EXPECT_EQ(Amounts(), "10.400,00 1.576,00     | ");
  EXPECT_EQ(screen.TextCump->Text() + screen.txtDenumire->Text(), "24.000,00Strung mare");
  EXPECT_FALSE(screen.HasChanges());
  FillSale();
  company_.Open().Execute("UPDATE I_IMO SET CURS = 5, CONT = '2132'");
  screen.Activate();
  EXPECT_EQ(Amounts(), "10.400,00 1.576,00 1.000,00 200,00 -9.400,00 -1.376,00 | 210,00");
  EXPECT_NE(Announced().find("OD 2132  24.000,00"), std::string::npos);
  EXPECT_TRUE(screen.HasChanges());
  company_.Open().Execute("UPDATE I_CONTURIIM SET CONT_AMO = '2814' WHERE CONT = '2132'");
  screen.Activate();
  EXPECT_NE(Announced().find(" 2814 13.600,00"), std::string::npos) << Announced();
}

TEST_F(FrmIesireImo, ClosingAsksOnlyWhenABoxWasChanged) {
  frmIesireImo& screen = Open();
  Type(screen.txtDocIesire, "PV");
  messages_.answers = {kNo};
  QTest::keyClick(&screen, Qt::Key_Escape);
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.size(), 1u);
  EXPECT_TRUE(screen.isVisible());
  Type(screen.txtDocIesire, "");
  screen.txtDocIesire->clear();
  QTest::keyClick(&screen, Qt::Key_Escape);
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.size(), 1u);
}

TEST_F(FrmIesireImo, OpensFromTheCardAndFromTheMenuOfARow) {
  frmFisaImo& card = OpenAssetCard({false, std::to_string(asset_)});
  Press(card.cmdVanzare);
  EXPECT_FALSE(windows::Keyed<frmIesireImo>()[std::to_string(asset_)].isNull());
  const int second = AddAsset("L");
  frmImo& list = windows::Open<frmImo>();
  list.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
  QTableView* view = list.TDBGrid1->View();
  QContextMenuEvent key(QContextMenuEvent::Keyboard, {}, view->mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(view, &key);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_TRUE(menu);
  QStringList offered;
  QAction* disposal = nullptr;
  for (QAction* action : menu->actions()) {
    offered << action->text();
    if (action->text() == "Iesire imobilizare...") disposal = action;
  }
  EXPECT_EQ(offered.mid(0, 6).join("|").toStdString(),
            "Modificare|Stergere|Plan a|Iesire imobilizare...||Co&loana");
  ASSERT_TRUE(disposal);
  disposal->trigger();
  menu->close();
  QCoreApplication::processEvents();
  frmIesireImo* screen = windows::Keyed<frmIesireImo>()[std::to_string(second)];
  ASSERT_TRUE(screen);
  // The list behind shows at once what was saved.
  const auto left = [&] {
    return list.TDBGrid1->ColumnText(list.TDBGrid1->ColumnOf("TIP_IESIRE"));
  };
  EXPECT_EQ(left(), "");
  Press(screen->cmdSalvare);
  EXPECT_EQ(left(), "C");
}

}  // namespace
}  // namespace tevra::test
