// The pattern of a request for a report, by a request for the purchases of a period.
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/print/PageText.h"
#include "platform/print/frmPreview.h"
#include "platform/system/Clock.h"
#include "reports/ReportScreen.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

class frmAchizitii : public PeriodReportScreen {
 public:
  frmAchizitii() : PeriodReportScreen("frmAchizitii", "Achizitii", nullptr) {
    PeriodReportDescription request;
    request.groupings = {{&optCont, "optCont", "&Cont"},
                         {&optCODCL, "optCODCL", "Cod c&lasificare"},
                         {&optLoc, "optLoc", "Locali&zare"}};
    request.more = {chkGenNoteContabile = new CheckBox("chkGenNoteContabile", "Note", this)};
    request.report = [this](const PeriodRequest& chosen) {
      asked = chosen;
      return PurchasesReport(chosen);
    };
    Open(std::move(request));
  }
  OptionButton* optCont;
  OptionButton* optCODCL;
  OptionButton* optLoc;
  CheckBox* chkGenNoteContabile;
  PeriodRequest asked;
};

// Stands before the screen, which reads the day when it is made.
struct FixedDay {
  FixedDay() { clock::Set(DateTime(2026, 11, 23)); }
  ~FixedDay() { clock::Reset(); }
};

class ReportScreens : public ::testing::Test {
 protected:
  ReportScreens() {
    company_.AddAsset({{"COD", "1"},
                       {"DENUMIRE", "Strung"},
                       {"CONT", "2131"},
                       {"VAL_CUMP", 700.0},
                       {"DATA_ACH", DateTime(2026, 3, 31)}});
    company_.AddAsset({{"COD", "2"},
                       {"DENUMIRE", "Freza"},
                       {"CONT", "2131"},
                       {"VAL_CUMP", 900.0},
                       {"DATA_ACH", DateTime(2026, 4, 1)}});
    Activate(screen_);
  }
  ~ReportScreens() override { DeleteScreens<frmPreview>(); }

  TestCompany company_;
  MessageRecorder messages_;
  FixedDay day_;
  frmAchizitii screen_;
};

TEST_F(ReportScreens, ShowsThePreviewOfThePeriodInItsPlace) {
  EXPECT_EQ(screen_.DTPickerdela->Date(), DateTime(2026, 11, 23));
  EXPECT_TRUE(screen_.optCont->isChecked());
  EXPECT_FALSE(screen_.cboCodDeviza->isEnabled());
  screen_.DTPickerdela->SetDate(DateTime(2026, 1, 1));
  screen_.DTPickerla->SetDate(DateTime(2026, 3, 31));
  Press(screen_.cmdCMOK);
  EXPECT_TRUE(messages_.shown.empty());
  EXPECT_FALSE(screen_.isVisible());
  ASSERT_EQ(OpenScreens<frmPreview>().size(), 1u);
  std::string paper;
  for (const PaintedText& each : TextOfPage(OpenScreens<frmPreview>().front()->Document(), 0)) {
    paper += each.Text().toStdString() + "\n";
  }
  EXPECT_NE(paper.find("Strung"), std::string::npos);
  EXPECT_EQ(paper.find("Freza"), std::string::npos);
  EXPECT_EQ(screen_.asked.grouping, 0);
  EXPECT_EQ(screen_.asked.currency, "LEI");
}

TEST_F(ReportScreens, GroupingAndCurrencyGoIntoTheRequest) {
  Press(screen_.optLoc);
  Press(screen_.ckbDeviza);
  screen_.cboCodDeviza->setEditText("EUR");
  Press(screen_.cmdCMOK);
  EXPECT_EQ(screen_.asked.grouping, 2);
  EXPECT_EQ(screen_.asked.currency, "EUR");
}

TEST_F(ReportScreens, TheFirstGroupingCanBeChosenAgain) {
  Press(screen_.optLoc);
  Press(screen_.optCont);
  Press(screen_.cmdCMOK);
  EXPECT_EQ(screen_.asked.grouping, 0);
}

TEST_F(ReportScreens, AReportThatFailsLeavesTheScreen) {
  std::filesystem::remove(company_.File());
  Press(screen_.cmdCMOK);
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_NE(messages_.shown[0].prompt.find(" in procedura cmdCMOK_Click din Form frmAchizitii"),
            std::string::npos);
  EXPECT_TRUE(screen_.isVisible());
  EXPECT_TRUE(OpenScreens<frmPreview>().empty());
}

}  // namespace
}  // namespace tevra::test
