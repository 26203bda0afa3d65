// The statistics of purchases, from the request to the paper.
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/print/PageText.h"
#include "platform/print/frmPreview.h"
#include "reports/frmRapStatistici.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

class Statistics : public ::testing::Test {
 protected:
  Statistics() {
    AddAsset("Strung", DateTime(2026, 1, 1), 701, 71);
    AddAsset("Freza", DateTime(2026, 3, 31), 802, 82);
    AddAsset("Presa", DateTime(2026, 4, 1), 903, 93);
  }
  ~Statistics() override { DeleteScreens<frmPreview>(); }
  void AddAsset(const char* name, const DateTime& bought, double lei, double foreign) {
    company_.AddAsset({{"COD", name},
                       {"DENUMIRE", name},
                       {"CONT", "2131"},
                       {"COD_LOC", "H1"},
                       {"COD_CC", "C1"},
                       {"COD_GR_NOU", "2.1.17.1.1"},
                       {"IESIRE", Value::YesNo(true)},
                       {"VAL_CUMP", lei},
                       {"VAL_CUMP_VAL", foreign},
                       {"DATA_ACH", bought}});
  }
  // The first page of the first quarter's purchases.
  std::string Paper(OptionButton* frmRapStatistici::*grouping, const char* currency) {
    auto* screen = new frmRapStatistici;
    screen->show();
    screen->DTPickerdela->SetDate(DateTime(2026, 1, 1));
    screen->DTPickerla->SetDate(DateTime(2026, 3, 31));
    (screen->*grouping)->click();
    screen->Option2->click();
    if (std::string(currency) != "LEI") {
      screen->ckbDeviza->click();
      QCoreApplication::processEvents();
      screen->cboCodDeviza->setEditText(currency);
    }
    screen->cmdCMOK->click();
    QCoreApplication::processEvents();
    EXPECT_FALSE(screen->isVisible());
    delete screen;
    std::string paper;
    for (frmPreview* preview : OpenScreens<frmPreview>()) {
      for (const PaintedText& each : TextOfPage(preview->Document(), 0)) {
        paper += each.Text().toStdString() + "\n";
      }
      delete preview;
    }
    return paper;
  }

  TestCompany company_;
  MessageRecorder messages_;
};

TEST_F(Statistics, EveryGroupingPrintsThePeriodNewestFirstInEachCurrency) {
  const std::pair<OptionButton * frmRapStatistici::*, const char*> kGroupings[] = {
      {&frmRapStatistici::optCont, "2131"},
      {&frmRapStatistici::optCODCL, "2.1.17.1.1"},
      {&frmRapStatistici::optLoc, "H1"},
      {&frmRapStatistici::optCC, "C1"}};
  for (const auto& [grouping, title] : kGroupings) {
    for (const bool lei : {true, false}) {
      const std::string paper = Paper(grouping, lei ? "LEI" : "EUR");
      const auto has = [&](const char* text) { return paper.find(text) != std::string::npos; };
      EXPECT_TRUE(has(title)) << title << lei;
      EXPECT_EQ(has("701"), lei) << title;
      EXPECT_EQ(has("71"), !lei) << title;
      EXPECT_EQ(has("1.503"), lei) << title;
      EXPECT_EQ(has("153"), !lei) << title;
      EXPECT_LT(paper.find("Freza"), paper.find("Strung")) << title;
      EXPECT_FALSE(has("Presa"));
      EXPECT_TRUE(has(lei ? "LEI" : "EUR"));
    }
  }
  EXPECT_TRUE(messages_.shown.empty());
}

}  // namespace
}  // namespace tevra::test
