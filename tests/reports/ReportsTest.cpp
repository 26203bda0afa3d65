// All reports on the sample company: their bands against the agreed texts, their totals against
// statements of their own.
//
// With TEVRA_WRITE_AGREED set the texts are written anew, to be read before they are agreed.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/data/Recordset.h"
#include "platform/print/PageText.h"
#include "platform/system/Clock.h"
#include "platform/system/Settings.h"
#include "platform/text/Numbers.h"
#include "reports/Layouts.h"
#include "reports/Reports.h"
#include "session/Session.h"
#include "tests/reports/Sample.h"

namespace tevra::test {
namespace {

class ReportsOnPaper : public ::testing::Test {
 protected:
  ReportsOnPaper() {
    SetSettings(nullptr);
    clock::Set(DateTime(2026, 11, 23));
    CurrentSession().companyName = "Tamplaria & Fiii SRL";
  }
  ~ReportsOnPaper() override { clock::Reset(); }

  // A line a band: its name, and its texts by the names of their controls.
  static std::string Bands(BandedReport& report) {
    report.LayOutAll();
    std::ostringstream out;
    for (int page = 0; page < report.PageCount(); ++page) {
      out << "== " << page + 1 << "\n";
      for (const BandedReport::Band& band : report.BandsOf(page)) {
        out << band.section->name << ":";
        for (const auto& [control, text] : band.texts) {
          const bool line = control->kind == ControlKind::kLine;
          if (line || !text.isEmpty()) {
            out << " " << control->name << (line ? "" : "=" + text.toStdString() + ";");
          }
        }
        out << "\n";
      }
    }
    return out.str();
  }

  // Where everything stands: left edge and width in hundredths of the page.
  static std::string Places(const ReportLayout& design) {
    std::ostringstream out;
    for (const ReportSection& section : design.sections) {
      out << section.name << ":";
      for (const ReportControl& control : section.controls) {
        out << " " << control.name << "@" << control.left << "+" << control.width;
      }
      out << "\n";
    }
    return out.str();
  }

  void ExpectAgreed(BandedReport& report, const std::string& design, const std::string& as) {
    EXPECT_EQ(report.Design().name, design);
    seen_.insert(report.Design().name);
    const std::string file = std::string(TEVRA_AGREED) + "/" + as + ".txt";
    const std::string bands = Places(report.Design()) + Bands(report);
    if (std::getenv("TEVRA_WRITE_AGREED")) std::ofstream(file, std::ios::binary) << bands;
    std::ifstream in(file, std::ios::binary);
    std::ostringstream agreed;
    agreed << in.rdbuf();
    EXPECT_EQ(bands, agreed.str()) << as;
  }
  // The texts of a control, in the order of the pages.
  static std::vector<std::string> TextsOf(BandedReport& report, const std::string& control) {
    report.LayOutAll();
    std::vector<std::string> texts;
    for (int page = 0; page < report.PageCount(); ++page) {
      for (const BandedReport::Band& band : report.BandsOf(page)) {
        for (const auto& [each, text] : band.texts) {
          if (each->name == control) texts.push_back(text.toStdString());
        }
      }
    }
    return texts;
  }
  std::vector<std::string> Sums(const std::string& what, const std::string& key, const char* mask,
                                const Values& params = {}) {
    Recordset rows = company_.Open().OpenRecordset("SELECT SUM(" + what + ") FROM " + key, params);
    std::vector<std::string> texts;
    for (; !rows.Eof(); rows.MoveNext()) {
      texts.push_back(rows.Get(0).IsNull() ? "" : Format(rows.Get(0).AsDouble(), mask));
    }
    return texts;
  }

  SampleCompany company_{DateTime(2026, 10, 31)};
  std::set<std::string> seen_;
};

TEST_F(ReportsOnPaper, AllTwentyDesignsAreAsAgreed) {
  // What each choice of the grouping shows, in lei and in currency: account, class (the person in
  // charge for inventory), location, cost centre.
  struct Designs {
    const char* charges;
    const char* purchases;
    const char* inventory;
  };
  const std::map<std::string, std::array<Designs, 4>> shown = {
      {"LEI",
       {{{"DataReportCHE", "DataReport_STA_ACH", "DataReport_ObvInv_CONT"},
         {"DataReportCHE_GR", "DataReport_STA_ACH_GR", "DataReport_ObInv"},
         {"DataReportCHE_LOC", "DataReport_STA_ACH_LOC", "DataReport_ObInv_LOC"},
         {"DataReportCHE_CC", "DataReport_STA_ACH_CC", "DataReport_ObInv_CC"}}}},
      {"EUR",
       {{{"DataReportCHEVAL", "DataReport_STA_ACH_VAL", "DataReport_ObvInv_CONT"},
         {"DataReportCHE_GR_VAL", "DataReport_STA_ACH_GR_VAL", "DataReport_ObInv"},
         {"DataReportCHE_LOC_VAL", "DataReport_STA_ACH_LOC_VAL", "DataReport_ObInv_LOC"},
         {"DataReportCHE_CC_VAL", "DataReport_STA_ACH_CC_VAL", "DataReport_ObInv_CC"}}}}};
  for (const auto& [currency, designs] : shown) {
    for (std::uint8_t grouping = 0; grouping < 4; ++grouping) {
      const Designs& design = designs.at(grouping);
      ExpectAgreed(*ChargesReport({grouping, currency, 10, 2026, true}), design.charges,
                   design.charges);
      const PeriodRequest period{grouping, currency, DateTime(2022, 1, 1), DateTime(2026, 12, 31)};
      ExpectAgreed(*PurchasesReport(period), design.purchases, design.purchases);
      ExpectAgreed(*InventoryReport(period), design.inventory,
                   std::string(design.inventory) + (currency == "LEI" ? "" : "_EUR"));
    }
  }
  const std::vector<std::string> names = LayoutNames();
  EXPECT_EQ(seen_, std::set<std::string>(names.begin(), names.end()));
  EXPECT_EQ(seen_.size(), 20u);
}

TEST_F(ReportsOnPaper, ACompanyWithoutANameHasItsCode) {
  CurrentSession().companyName = " ";
  EXPECT_EQ(TextsOf(*ChargesReport({0, "LEI", 10, 2026, false}), "lblSocietate").front(), "01");
}

TEST_F(ReportsOnPaper, WithoutDetailGroupsAndTotalsStand) {
  const auto report = ChargesReport({0, "LEI", 10, 2026, false});
  ExpectAgreed(*report, "DataReportCHE", "DataReportCHE_fara_detaliu");
}

TEST_F(ReportsOnPaper, TotalsAreThoseOfTheRegister) {
  const std::string charge =
      "CASE WHEN BLOCATA <> 0 THEN VAL_BLOCATA ELSE VAL_CUMP - VALCHELEI END * COTAL_LUNARA";
  auto report = ChargesReport({3, "LEI", 10, 2026, true});
  const std::string byCentre = "I_IMO GROUP BY COD_CC ORDER BY COD_CC";
  EXPECT_EQ(TextsOf(*report, "Text10"), Sums(charge, byCentre, "###,###"));
  EXPECT_EQ(TextsOf(*report, "Text12"), Sums("VAL_RAMASA", byCentre, "###,###"));
  EXPECT_EQ(TextsOf(*report, "Function1"), Sums(charge, "I_IMO", "###,###"));
  EXPECT_EQ(TextsOf(*report, "Function2"), Sums("VAL_AMOR_CUMULATA", "I_IMO", "###,###"));
  EXPECT_EQ(TextsOf(*report, "Function4"),
            Sums("VAL_AMOR_CUMULATA + VAL_RAMASA", "I_IMO", "###,###"));
  report = ChargesReport({1, "EUR", 10, 2026, false});
  EXPECT_EQ(
      TextsOf(*report, "Text11"),
      Sums("VAL_AMOR_CUMULATA_VAL", "I_IMO GROUP BY COD_GR_NOU ORDER BY COD_GR_NOU", "###,###"));
  // In currency the grand total of the inventory stays the one in lei, as designed.
  const Values days{DateTime(2010, 1, 1), DateTime(2026, 12, 31)};
  report = InventoryReport({1, "EUR", DateTime(2010, 1, 1), DateTime(2026, 12, 31)});
  const std::string bought = "I_INV WHERE DATA_ACH >= ? AND DATA_ACH <= ?";
  EXPECT_EQ(TextsOf(*report, "Text7"),
            Sums("VAL_CUMP_VAL", bought + " GROUP BY PERS ORDER BY PERS", "#.##0", days));
  EXPECT_EQ(TextsOf(*report, "Function1"), Sums("VAL_CUMP", bought, "#.##0", days));
}

TEST_F(ReportsOnPaper, OddGroupsAndAmountsFindTheirPlace) {
  Connection file = company_.Open();
  file.Execute("DELETE * FROM I_IMO");
  const auto add = [&](const Value& account, double left, const char* name) {
    company_.AddAsset({{"COD", "1"}, {"CONT", account}, {"DENUMIRE", name}, {"VAL_RAMASA", left}});
  };
  add("2131", 1e12, "Strung");
  add(Value(), -1234.6, "Fara cont");
  add("2131", 0.0, "Nimic");
  auto report = ChargesReport({0, "LEI", 10, 2026, true});
  EXPECT_EQ(TextsOf(*report, "Text1"), (std::vector<std::string>{"", "2131"}));
  EXPECT_EQ(TextsOf(*report, "Text12"), (std::vector<std::string>{"-1.235", "1.000.000.000.000"}));
  EXPECT_EQ(TextsOf(*report, "Function3"), std::vector<std::string>{"999.999.998.765"});
  file.Execute("DELETE * FROM I_IMO");
  report = ChargesReport({0, "", 10, 2026, true});
  report->LayOutAll();
  EXPECT_EQ(report->PageCount(), 1);
  EXPECT_EQ(report->Design().name, "DataReportCHEVAL");
  EXPECT_EQ(TextsOf(*report, "lblValuta"), std::vector<std::string>{""});
  EXPECT_EQ(TextsOf(*report, "Function3"), std::vector<std::string>{""});
  report = PurchasesReport({0, "LEI", DateTime(2026, 1, 1), DateTime(2025, 1, 1)});
  EXPECT_TRUE(TextsOf(*report, "Text2").empty());
}

// The longest names and codes of the widest letters stand in full.
TEST_F(ReportsOnPaper, NothingIsCutOff) {
  const std::string name(50, 'W');
  const std::string code(20, 'W');
  company_.Open().Execute("DELETE * FROM I_IMO");
  company_.AddAsset({{"COD", code},
                     {"DENUMIRE", name},
                     {"CONT", std::string(16, 'W')},
                     {"COD_LOC", std::string(11, 'W')},
                     {"DATA_ACH", DateTime(2026, 1, 1)},
                     {"VAL_CUMP", -123456789012.0},
                     {"VAL_RAMASA", -123456789012.0}});
  const PeriodRequest period{2, "LEI", DateTime(2026, 1, 1), DateTime(2026, 1, 1)};
  for (const auto& report : {ChargesReport({2, "LEI", 10, 2026, true}), PurchasesReport(period)}) {
    report->LayOutAll();
    std::string painted;
    for (const PaintedText& text : TextOfPage(*report, 0)) painted += text.Text().toStdString();
    EXPECT_EQ(painted.find("..."), std::string::npos);
    const auto wide = static_cast<std::size_t>(std::count(painted.begin(), painted.end(), 'W'));
    EXPECT_EQ(wide, name.size() + code.size() + 2 * 11u);
    EXPECT_NE(painted.find("-123.456.789.012"), std::string::npos);
  }
}

TEST(MonthNames, AreRomanian) {
  EXPECT_EQ(MonthName(1), "Ianuarie");
  EXPECT_EQ(MonthName(12), "Decembrie");
  EXPECT_EQ(MonthName(0) + MonthName(13), "");
}

}  // namespace
}  // namespace tevra::test
