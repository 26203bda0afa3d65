// Bands on pages: what stays together, what is hidden, what grows.
#include <cmath>

#include <gtest/gtest.h>

#include "platform/print/BandedReport.h"
#include "platform/print/DocumentRows.h"
#include "platform/print/PageSettings.h"
#include "platform/text/Failure.h"

namespace tevra::test {
namespace {

// Groups "G0", "G1".. with rows numbered on, each of one leu.
class Groups : public ReportData {
 public:
  explicit Groups(std::vector<std::size_t> rows) : rows_(std::move(rows)) {}
  std::size_t GroupCount() const override { return rows_.size(); }
  Rows RowsOf(std::size_t group) const override {
    std::size_t first = 0;
    for (std::size_t i = 0; i < group; ++i) first += rows_[i];
    return {first, rows_[group]};
  }
  Value GroupValue(std::size_t group, const std::string& field) const override {
    if (field == "KEY") return group == emptyKey ? Value() : Value("G" + std::to_string(group));
    return static_cast<double>(rows_[group]);
  }
  Value RowValue(std::size_t row, const std::string& field) const override {
    asked = std::max(asked, row);
    if (field == "NAME") return row == longName ? Value(std::string(120, 'W')) : Value("Strung");
    if (field == "DAY") return DateTime(2026, 3, 14);
    return static_cast<double>(row);
  }
  Value GrandTotal(const std::string&) const override {
    double sum = 0;
    for (const std::size_t rows : rows_) sum += static_cast<double>(rows);
    return sum;
  }

  std::size_t emptyKey = 1000;
  std::size_t longName = 100000;
  mutable std::size_t asked = 0;

 private:
  std::vector<std::size_t> rows_;
};

ReportControl Control(const char* name, ControlKind kind, const char* field, double width = 100) {
  ReportControl control{name, kind, field, field};
  control.width = width;
  if (kind == ControlKind::kField && *field == 'N') control.lines = 2;
  return control;
}

// A page of 100 points' margins: 20 for each head and foot, 10 a row.
ReportLayout Design() {
  using Kind = ControlKind;
  ReportControl sum = Control("Sum", Kind::kFunction, "SUM");
  sum.format = "###,###";
  return {"Proba",
          "CH",
          "KEY",
          {{"Head", BandRole::kReportHeader, 40, {Control("Title", Kind::kLabel, "Raport")}},
           {"Top", BandRole::kPageHeader, 20, {Control("Names", Kind::kLabel, "Denumire")}},
           {"Group", BandRole::kGroupHeader, 20, {Control("Key", Kind::kField, "KEY")}},
           {"Row",
            BandRole::kDetail,
            10,
            {Control("Name", Kind::kField, "NAME", 50), Control("Day", Kind::kField, "DAY")}},
           {"Total", BandRole::kGroupFooter, 20, {Control("Count", Kind::kField, "COUNT")}},
           {"Foot", BandRole::kPageFooter, 20, {Control("Page", Kind::kPage, "%p / %P %d")}},
           {"End", BandRole::kReportFooter, 20, {sum}}}};
}

class Banded : public ::testing::Test {
 protected:
  // As many rows as `rows` of 10 points have room beside page head and foot.
  std::unique_ptr<BandedReport> Make(std::vector<std::size_t> groups, int rows = 40) {
    data_ = std::make_shared<Groups>(std::move(groups));
    const double height = (40 + rows * 10) * 25.4 / 72 + 40;
    QPageLayout page(QPageSize(QSizeF(150, height), QPageSize::Millimeter), QPageLayout::Portrait,
                     QMarginsF(20, 20, 20, 19.9), QPageLayout::Millimeter);
    return std::make_unique<BandedReport>("Proba", design_, data_, DateTime(2026, 11, 23), page);
  }
  // "Head Top Group Row*3 Total Foot"
  static std::string Bands(const BandedReport& report, int page) {
    std::string text;
    std::string last;
    int times = 0;
    const auto flush = [&] {
      if (times > 0) text += (text.empty() ? "" : " ") + last;
      if (times > 1) text += "*" + std::to_string(times);
      times = 0;
    };
    for (const BandedReport::Band& band : report.BandsOf(page)) {
      if (band.section->name != last) flush();
      last = band.section->name;
      ++times;
    }
    flush();
    return text;
  }
  static QString TextOf(const BandedReport& report, int page, const std::string& control) {
    for (const BandedReport::Band& band : report.BandsOf(page)) {
      for (const auto& [each, text] : band.texts) {
        if (each->name == control) return text;
      }
    }
    return "(none)";
  }

  ReportLayout design_ = Design();
  std::shared_ptr<Groups> data_;
};

TEST_F(Banded, BandsStandInTheirOrder) {
  auto report = Make({2, 1});
  report->LayOutAll();
  ASSERT_EQ(report->PageCount(), 1);
  EXPECT_EQ(Bands(*report, 0), "Head Top Group Row*2 Total Group Row Total End Foot");
  EXPECT_EQ(TextOf(*report, 0, "Sum"), "3");
  EXPECT_EQ(TextOf(*report, 0, "Day"), "14.03.2026");
  EXPECT_EQ(TextOf(*report, 0, "Page"), "1 / 1 23.11.2026");
}

TEST_F(Banded, WithoutRowsHeadsAndTotalsStand) {
  auto report = Make({});
  report->LayOutAll();
  ASSERT_EQ(report->PageCount(), 1);
  EXPECT_EQ(Bands(*report, 0), "Head Top End Foot");
  EXPECT_EQ(TextOf(*report, 0, "Sum"), "");  // the mask leaves a zero blank
}

TEST_F(Banded, AHeadKeepsItsFirstRowAndTotalsTheLast) {
  // 40 rows' room: title 4, then a group of 2 + 30 + 2 leaves room for a head without its row.
  auto report = Make({30, 5});
  report->LayOutAll();
  ASSERT_EQ(report->PageCount(), 2);
  EXPECT_EQ(Bands(*report, 0), "Head Top Group Row*30 Total Foot");
  EXPECT_EQ(Bands(*report, 1), "Top Group Row*5 Total End Foot");
  // A group that fills the page but for its totals hands its last row over, too.
  report = Make({33, 1});
  report->LayOutAll();
  EXPECT_EQ(Bands(*report, 0), "Head Top Group Row*32 Foot");
  EXPECT_EQ(Bands(*report, 1), "Top Group Row Total Group Row Total End Foot");
  EXPECT_EQ(TextOf(*report, 1, "Key"), TextOf(*report, 0, "Key"));
  // The grand total never stands alone.
  report = Make({32});
  report->LayOutAll();
  EXPECT_EQ(Bands(*report, 0), "Head Top Group Row*31 Foot");
  EXPECT_EQ(Bands(*report, 1), "Top Group Row Total End Foot");
}

TEST_F(Banded, APageFooterStandsAtTheBottomWithTheCountOfPages) {
  auto report = Make({100});
  report->LayOutMore();
  EXPECT_EQ(report->PageCount(), 1);
  EXPECT_EQ(TextOf(*report, 0, "Page"), "1 / ... 23.11.2026");
  report->LayOutAll();
  EXPECT_EQ(TextOf(*report, 2, "Page"), "3 / 3 23.11.2026");
  std::size_t rows = 0;
  for (int page = 0; page < report->PageCount(); ++page) {
    const auto bands = report->BandsOf(page);
    for (const auto& band : bands) rows += band.section->name == "Row" ? 1 : 0;
    EXPECT_NEAR(bands.back().top + bands.back().height, report->PrintArea().bottom(), 1);
    for (std::size_t i = 1; i + 1 < bands.size(); ++i) {
      EXPECT_NEAR(bands[i].top, bands[i - 1].top + bands[i - 1].height, 0.01);
    }
  }
  EXPECT_EQ(rows, 100u);
}

TEST_F(Banded, ABandAboveEverythingStandsOnEachPage) {
  design_.sections.insert(design_.sections.begin(), {"Company", BandRole::kPageTop, 20});
  auto report = Make({50});
  report->LayOutAll();
  ASSERT_EQ(report->PageCount(), 2);
  EXPECT_EQ(Bands(*report, 0), "Company Head Top Group Row*31 Foot");
  EXPECT_EQ(Bands(*report, 1), "Company Top Group Row*19 Total End Foot");
}

TEST_F(Banded, TheFirstPageAsksForNoLaterRows) {
  auto report = Make({30000});
  report->LayOutMore();
  EXPECT_LT(data_->asked, 50u);
}

TEST_F(Banded, HiddenBandsAndLinesAreGone) {
  design_.Section("ROW").visible = false;
  design_.Control("total", "count").visible = false;
  auto report = Make({500, 1});
  report->LayOutAll();
  EXPECT_EQ(Bands(*report, 0), "Head Top Group Total Group Total End Foot");
  EXPECT_EQ(TextOf(*report, 0, "Count"), "(none)");
  EXPECT_EQ(data_->asked, 0u);
  EXPECT_THROW(design_.Section("Lipsa"), Failure);
  EXPECT_THROW(design_.Control("Row", "Lipsa"), Failure);
}

TEST_F(Banded, ALongNameMakesItsRowHigher) {
  auto report = Make({3});
  data_->longName = 1;
  data_->emptyKey = 0;
  report->LayOutAll();
  const auto bands = report->BandsOf(0);
  EXPECT_GT(bands[4].height, bands[3].height * 1.8);
  EXPECT_EQ(bands[5].height, bands[3].height);
  EXPECT_EQ(TextOf(*report, 0, "Key"), "");
}

TEST_F(Banded, ABandThatNoPageHoldsIsPrintedOnce) {
  design_.Section("Row").height = 2000;
  auto report = Make({3});
  report->LayOutAll();
  EXPECT_EQ(report->PageCount(), 5);
  std::size_t rows = 0;
  for (int page = 0; page < report->PageCount(); ++page) {
    for (const auto& band : report->BandsOf(page)) rows += band.section->name == "Row" ? 1 : 0;
  }
  EXPECT_EQ(rows, 3u);
}

TEST_F(Banded, AnotherPaperBeginsAnew) {
  auto report = Make({300});
  report->LayOutAll();
  const int before = report->PageCount();
  report->SetPageLayout(
      MakePageLayout(QPageSize::A4, QPageLayout::Landscape, QMarginsF(15, 15, 15, 15)));
  EXPECT_FALSE(report->IsComplete());
  report->LayOutAll();
  EXPECT_NE(report->PageCount(), before);
}

// What is read of a row source, as CSV has it.
std::string Csv(BandedReport& report) {
  const std::unique_ptr<DocumentRows> rows = report.Rows();
  std::string text;
  for (const ExportColumn& column : rows->Columns()) {
    text += column.caption.toStdString() + (column.footed ? "+;" : ";");
  }
  Values row;
  for (text += "\n"; rows->Next(row); text += "\n") {
    for (const Value& value : row) text += value.TextOrEmpty() + ";";
  }
  return text;
}

TEST_F(Banded, GivesItsRowsWithTheirGroupsOrTheGroupsAlone) {
  auto report = Make({2, 0, 1});
  data_->emptyKey = 2;
  EXPECT_TRUE(report->HasRows());
  EXPECT_EQ(Csv(*report),
            "KEY;Denumire;Denumire;\nG0;Strung;14.03.2026;\nG0;Strung;14.03.2026;\n"
            ";Strung;14.03.2026;\n");
  design_.Section("Row").visible = false;
  design_.Control("Total", "Count").format = "###,###";
  report = Make({2, 1});
  EXPECT_EQ(Csv(*report), "KEY;Denumire+;\nG0;2;\nG1;1;\n");
}

}  // namespace
}  // namespace tevra::test
