// The screen of the monthly charges, worked by keys and mouse.
#include <QCalendarWidget>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTableView>
#include <QtTest>
#include <functional>

#include <gtest/gtest.h>

#include "engine/Module3.h"
#include "platform/data/FileCheck.h"
#include "platform/print/frmPreview.h"
#include "platform/system/Clock.h"
#include "reports/Reports.h"
#include "reports/frmRapCHE.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

class FrmRapChe : public ::testing::Test {
 protected:
  FrmRapChe() {
    company_.AddAsset({{"COD", "1"},
                       {"TIP_AM", "L"},
                       {"DATA_ACH", DateTime(2026, 1, 10)},
                       {"DATA_IN_AM", DateTime(2026, 2, 1)},
                       {"DATA_SF", DateTime(2031, 2, 1)},
                       {"VAL_CUMP", 12000.0},
                       {"VAL_CUMP_VAL", 2400.0},
                       {"COTA_ANUALA", 0.2}});
    screen_.show();
  }

  Value Stored(const std::string& field) {
    return company_.Open().QueryValue("SELECT " + field + " FROM I_IMO");
  }
  template <class Control>
  Control* Find(const char* name) {
    return screen_.findChild<Control*>(name);
  }

  // Before the screen, which asks for the day when it is made.
  struct FixedDay {
    FixedDay() { clock::Set(DateTime(2025, 3, 14, 10, 30)); }
    ~FixedDay() { clock::Reset(); }
    FixedDay(const FixedDay&) = delete;
    FixedDay& operator=(const FixedDay&) = delete;
  } day_;
  TestCompany company_;
  MessageRecorder messages_;
  frmRapCHE screen_;
};

TEST_F(FrmRapChe, OpensOnTodayWithTheNote) {
  EXPECT_EQ(screen_.windowTitle(), "Listare Cheltuieli cu amortizarea");
  EXPECT_EQ(Find<QGroupBox>("Frame1")->title(), "Atentie!");
  EXPECT_EQ(Find<QLabel>("Label1")->text(),
            "Inainte de Listare, va rugam efectuati Calculul amortizarilor pentru luna dorita.");
  EXPECT_EQ(Find<QCalendarWidget>("MonthView1")->selectedDate(), QDate(2025, 3, 14));
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(FrmRapChe, CalculatesForExactlyTheChosenDay) {
  Find<QCalendarWidget>("MonthView1")->setSelectedDate(QDate(2026, 6, 15));
  EXPECT_TRUE(Find<QLabel>("lblData")->text().endsWith("15.06.2026"));
  QTest::mouseClick(Find<QPushButton>("cmdCalcul"), Qt::LeftButton);
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_EQ(messages_.shown[0].prompt,
            "Calculul cheltuielilor lunare s-a efectuat pentru  1 imobilizari");
  EXPECT_EQ(Stored("DATA_CALCUL"), Value(DateTime(2026, 6, 15)));
  EXPECT_EQ(Stored("VAL_AMOR_CUMULATA"), Value(1000.0));
}

TEST_F(FrmRapChe, EnterCalculatesTodayWithoutItsTimeAndEscapeLeaves) {
  QTest::keyClick(&screen_, Qt::Key_Return);
  EXPECT_EQ(Stored("DATA_CALCUL"), Value(DateTime(2025, 3, 14)));
  QTest::keyClick(&screen_, Qt::Key_Escape);
  EXPECT_FALSE(screen_.isVisible());
}

TEST_F(FrmRapChe, EnterOnTheWayOutLeavesAndCalculatesNothing) {
  auto* out = Find<QPushButton>("cmdCMCancel");
  out->setFocus();
  QTest::keyClick(out, Qt::Key_Return);
  EXPECT_FALSE(screen_.isVisible());
  EXPECT_TRUE(Stored("DATA_CALCUL").IsNull());
}

TEST_F(FrmRapChe, PostsTheMonthWhenAskedAlsoBehindARunThatFailed) {
  company_.Open().Execute("UPDATE I_IMO SET CONT = '2131'");
  const auto lines = [&](const char* what) {
    return company_.Open().QueryValue(std::string("SELECT ") + what + " FROM Kv_Linii");
  };
  auto* run = Find<QPushButton>("cmdCalcul");
  Find<QCalendarWidget>("MonthView1")->setSelectedDate(QDate(2026, 6, 15));
  QTest::mouseClick(run, Qt::LeftButton);
  EXPECT_EQ(lines("COUNT(*)").AsLong(), 0);
  screen_.chkGenNoteContabile->setChecked(true);
  QTest::mouseClick(run, Qt::LeftButton);
  EXPECT_EQ(lines("COUNT(*)").AsLong(), 2);
  EXPECT_EQ(lines("SUM(DEBIT)").AsDouble(), 200.0);
  EXPECT_EQ(lines("MAX(DOC)"), Value("IMO06"));
  EXPECT_EQ(messages_.shown.size(), 2u);

  company_.Open().Execute("UPDATE I_IMO SET DATA_SF = NULL, COTAL_LUNARA = 0.02");
  QTest::mouseClick(run, Qt::LeftButton);
  EXPECT_EQ(messages_.shown.back().prompt, "Eroare la CALCUL !");
  EXPECT_EQ(lines("SUM(DEBIT)").AsDouble(), 240.0);

  company_.Open().Execute("UPDATE I_CONTURIIM SET CONT_AMO = NULL");
  QTest::mouseClick(run, Qt::LeftButton);
  EXPECT_EQ(messages_.shown.back().prompt,
            "Eroare -2147221494 - Trebuie sa precizati: Cont in procedura pAddNoteContabile din "
            "Form frmRapCHE Linia: 2");
  EXPECT_EQ(lines("SUM(DEBIT)").AsDouble(), 240.0);
}

TEST_F(FrmRapChe, ADamagedFileIsNeitherCalculatedNorPosted) {
  company_.Open().Execute("UPDATE I_IMO SET CONT = '2131', COTAL_LUNARA = 0.02");
  SetBeforeMonth([](Connection&) { throw DamagedFile("deteriorata"); });
  screen_.chkGenNoteContabile->setChecked(true);
  QTest::mouseClick(screen_.cmdCalcul, Qt::LeftButton);
  SetBeforeMonth({});
  ASSERT_EQ(messages_.shown.size(), 3u);
  EXPECT_EQ(messages_.shown[1].prompt, "deteriorata");
  EXPECT_NE(messages_.shown[2].prompt.find("deteriorata"), std::string::npos);
  EXPECT_TRUE(Stored("DATA_CALCUL").IsNull());
  EXPECT_EQ(company_.Rows("SELECT NDI FROM Kv_Linii"), "");
}

TEST_F(FrmRapChe, NotesOfAnotherYearAreAskedForAndKeptOnNo) {
  company_.Open().Execute("UPDATE I_IMO SET CONT = '2131'");
  const auto days = [&] { return company_.Rows("SELECT DISTINCT DATAINR FROM Kv_Linii"); };
  const auto post = [&](const QDate& day) {
    screen_.MonthView1->setSelectedDate(day);
    QTest::mouseClick(screen_.cmdCalcul, Qt::LeftButton);
  };
  screen_.chkGenNoteContabile->setChecked(true);
  post({2026, 6, 15});
  messages_.answers = {kOk, kNo, kOk, kYes};
  post({2027, 6, 15});
  ASSERT_EQ(messages_.shown.size(), 3u);
  EXPECT_NE(messages_.shown[2].prompt.find("- anul 2026: o nota, 200,00 lei"), std::string::npos)
      << messages_.shown[2].prompt;
  EXPECT_EQ(days(), "15.06.2026 \n");
  post({2027, 6, 15});
  EXPECT_EQ(days(), "15.06.2027 \n");
  post({2027, 6, 30});
  EXPECT_EQ(messages_.shown.size(), 6u) << "a month again is no question";
  EXPECT_EQ(days(), "30.06.2027 \n");
}

// June 2026 begins on a Monday, so its page shows the week before and the days until 5 July.
TEST_F(FrmRapChe, GreyDaysLeadToTheirMonthAndSelectNothing) {
  auto* calendar = screen_.MonthView1;
  auto* days = calendar->findChild<QTableView*>();
  const auto click = [&](int row, int column, const QPoint& drag = {}) {
    const QPoint place = days->visualRect(days->model()->index(row, column)).center();
    QTest::mousePress(days->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseMove(days->viewport(), place + drag);
    QTest::mouseRelease(days->viewport(), Qt::LeftButton, {}, place + drag);
  };
  const auto shown = [&] { return QDate(calendar->yearShown(), calendar->monthShown(), 1); };
  const QDate selected(2026, 6, 15);
  calendar->setSelectedDate(selected);
  ASSERT_EQ(days->model()->index(6, 6).data().toInt(), 5) << "the grid shows 5 July there";
  click(6, 6);
  EXPECT_EQ(shown(), QDate(2026, 7, 1));
  EXPECT_EQ(calendar->selectedDate(), selected);
  EXPECT_TRUE(screen_.lblData->text().endsWith("15.06.2026"));
  click(1, 0);
  EXPECT_EQ(shown(), QDate(2026, 6, 1));
  click(1, 6);
  EXPECT_EQ(calendar->selectedDate(), selected) << "31 May stands there";
  EXPECT_EQ(shown(), QDate(2026, 5, 1));
  click(3, 3);
  EXPECT_EQ(calendar->selectedDate(), QDate(2026, 5, 14));

  // A drag that ends on a grey day selects nothing either.
  const int below = days->visualRect(days->model()->index(6, 3)).center().y() -
                    days->visualRect(days->model()->index(3, 4)).center().y();
  click(3, 4, {0, below});
  EXPECT_EQ(calendar->selectedDate(), QDate(2026, 5, 14));

  const auto press = [&](int key) { QTest::keyClick(days, static_cast<Qt::Key>(key)); };
  calendar->setSelectedDate({2026, 6, 30});
  press(Qt::Key_Left);
  EXPECT_EQ(calendar->selectedDate(), QDate(2026, 6, 29));
  press(Qt::Key_Down);
  EXPECT_EQ(shown(), QDate(2026, 7, 1));
  EXPECT_EQ(calendar->selectedDate(), QDate(2026, 6, 29));
  press(Qt::Key_Down);
  EXPECT_EQ(calendar->selectedDate(), QDate(2026, 7, 1));
  press(Qt::Key_Up);
  press(Qt::Key_Up);
  EXPECT_EQ(calendar->selectedDate(), QDate(2026, 6, 30));
}

TEST_F(FrmRapChe, TheCurrencyWaitsForItsTick) {
  EXPECT_EQ(screen_.cboCodDeviza->currentText(), "LEI");
  EXPECT_FALSE(screen_.cboCodDeviza->isEnabled());
  screen_.ckbDeviza->setChecked(true);
  EXPECT_TRUE(screen_.cboCodDeviza->isEnabled());
  EXPECT_EQ(screen_.cboCodDeviza->currentText(), "");
  EXPECT_GT(screen_.cboCodDeviza->count(), 1);
  screen_.ckbDeviza->setChecked(false);
  EXPECT_EQ(screen_.cboCodDeviza->currentText(), "LEI");
}

TEST_F(FrmRapChe, PrintsByWhatWasClickedLastButNeverBackByAccount) {
  struct Case {
    std::function<void(frmRapCHE&)> choose;
    const char* design;
    const char* currency;
  };
  const std::vector<Case> cases{
      {[](frmRapCHE&) {}, "DataReportCHE", "LEI"},
      {[](frmRapCHE& s) { s.optCODCL->click(); }, "DataReportCHE_GR", "LEI"},
      {[](frmRapCHE& s) {
         s.optLoc->click();
         QCoreApplication::processEvents();
         s.optCont->click();
       },
       "DataReportCHE_LOC", "LEI"},
      {[](frmRapCHE& s) {
         s.optCC->click();
         s.ckbDeviza->setChecked(true);
         s.cboCodDeviza->setEditText("EUR-Euro");
       },
       "DataReportCHE_CC_VAL", "EUR"},
      {[](frmRapCHE& s) { s.ckbDeviza->setChecked(true); }, "DataReportCHEVAL", ""}};
  for (const Case& each : cases) {
    auto* screen = new frmRapCHE;
    screen->setAttribute(Qt::WA_DeleteOnClose);
    screen->show();
    screen->MonthView1->setSelectedDate(QDate(2026, 9, 15));
    each.choose(*screen);
    QCoreApplication::processEvents();
    const QPointer<frmRapCHE> alive(screen);
    QTest::mouseClick(screen->cmdListare, Qt::LeftButton);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(alive) << "the screen closes behind its report";
    ASSERT_EQ(OpenScreens<frmPreview>().size(), 1u);
    frmPreview* preview = OpenScreens<frmPreview>().front();
    auto& report = dynamic_cast<BandedReport&>(preview->Document());
    ReportLayout design = report.Design();
    EXPECT_EQ(design.name, each.design);
    EXPECT_EQ(design.Control("ReportHeader", "lblLuna").text, "Septembrie");
    EXPECT_EQ(design.Control("ReportHeader", "lblAn").text, "2026");
    EXPECT_EQ(design.Control("ReportHeader", "lblValuta").text, each.currency);
    EXPECT_TRUE(design.Section("CH_Cont_Detail").visible);
    delete preview;
  }
  EXPECT_TRUE(messages_.shown.empty());
}

}  // namespace
}  // namespace tevra::test
