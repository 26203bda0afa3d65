// What a page is made of: columns on narrow paper, texts in cells, the print format.
#include <numeric>

#include <gtest/gtest.h>

#include "platform/print/CellText.h"
#include "platform/print/PagedDocument.h"
#include "platform/print/PrintFormat.h"
#include "platform/print/TableStrips.h"

namespace tevra::test {
namespace {

using Strips = std::vector<std::vector<int>>;

double Sum(const std::vector<double>& widths) {
  return std::accumulate(widths.begin(), widths.end(), 0.0);
}

TEST(TableStrips, ColumnsFitThePageWidenedOrMadeSmaller) {
  const TableStrips narrow = DivideColumns({100, 100}, 1000);
  EXPECT_EQ(narrow.widths, (std::vector<double>{100, 100}));
  const TableStrips nearly = DivideColumns({300, 600}, 1000);
  EXPECT_EQ(nearly.scale, 1);
  EXPECT_NEAR(Sum(nearly.widths), 1000, 1e-6);
  const TableStrips wide = DivideColumns({500, 500, 250}, 1000);
  EXPECT_EQ(wide.strips, (Strips{{0, 1, 2}}));
  EXPECT_DOUBLE_EQ(wide.scale, 0.8);
  EXPECT_NEAR(Sum(wide.widths), 1000, 1e-6);
}

TEST(TableStrips, TooWideTheyBreakIntoStripsThatEachBeginWithTheFirst) {
  const TableStrips table = DivideColumns({200, 400, 400, 500, 300, 100}, 1000);
  EXPECT_EQ(table.scale, 1);
  EXPECT_EQ(table.strips, (Strips{{0, 1, 2}, {0, 3, 4}, {0, 5}}));
}

TEST(TableStrips, NoColumnIsWiderThanThePageAndAllAreThere) {
  EXPECT_EQ(DivideColumns({5000}, 1000).widths, std::vector<double>{1000});
  const TableStrips table = DivideColumns({5000, 5000, 100, 5000}, 1000);
  EXPECT_EQ(table.strips, (Strips{{0, 1}, {0, 2}, {0, 3}}));
  for (const std::vector<int>& strip : table.strips) {
    double width = 0;
    for (const int column : strip) width += table.widths[static_cast<std::size_t>(column)];
    EXPECT_LE(width, 1000);
  }
  EXPECT_EQ(DivideColumns({}, 1000).strips, Strips{{}});
}

TEST(PrintFormat, PartsAndNumbers) {
  struct Case {
    const char* format;
    bool centred;
    PageLine line;
  };
  const Case cases[] = {
      {"Editat de Kelnar Tevra       \\tPagina: \\p",
       false,
       {"Editat de Kelnar Tevra", "", "Pagina: 3"}},
      {"R A P O R T", true, {"", "R A P O R T", ""}},
      {"Pagina \\p din \\P", false, {"Pagina 3 din 12", "", ""}},
      {"a\\tb\tc\\td", true, {"a", "b", "c d"}},
      {"\\t\\tdreapta", false, {"", "", "dreapta"}},
      {"C:\\\\tot\\x \\", false, {"C:\\tot\\x \\", "", ""}},
      {"", true, {"", "", ""}},
  };
  for (const Case& each : cases) {
    const PageLine line = ReadPrintFormat(each.format, 3, 12, each.centred);
    EXPECT_EQ(line.left, each.line.left) << each.format;
    EXPECT_EQ(line.centre, each.line.centre) << each.format;
    EXPECT_EQ(line.right, each.line.right) << each.format;
  }
  EXPECT_EQ(ReadPrintFormat("\\p din \\P", 3, 0, false).left, "3 din ...");
  EXPECT_EQ(ReadPrintFormat(QuotePrintFormat("D:\\tot\\p"), 3, 12, true).centre, "D:\\tot\\p");
}

TEST(CellText, BreaksBetweenWordsAndShortensOnlyTheLastLine) {
  const CellText text(PaperFont(9));
  const double width = text.Width("magazie de scule");
  EXPECT_EQ(text.Fit("magazie de scule", width, 2, false).lines, QStringList{"magazie de scule"});
  EXPECT_EQ(text.Fit("magazie de scule, hala", width, 2, false).lines,
            (QStringList{"magazie de", "scule, hala"}));
  const FittedText tooLong = text.Fit("magazie de scule, hala de productie", width, 2, false);
  ASSERT_EQ(tooLong.lines.size(), 2);
  EXPECT_EQ(tooLong.lines[0], "magazie de");
  EXPECT_TRUE(tooLong.lines[1].startsWith("scule, hala"));
  EXPECT_TRUE(tooLong.lines[1].endsWith("..."));
  const FittedText word = text.Fit(QString(40, 'm'), width, 2, false);
  ASSERT_EQ(word.lines.size(), 2);
  for (const QString& line : word.lines + tooLong.lines) {
    EXPECT_LE(text.Width(line), width + 1) << line.toStdString();
  }
}

TEST(CellText, ANumberIsMadeSmallerAndKeepsAllItsDigits) {
  const CellText text(PaperFont(9));
  const double width = text.Width("123.456,78");
  const FittedText sum = text.Fit("123.456.789.012,34", width, 2, true);
  EXPECT_EQ(sum.lines, QStringList{"123.456.789.012,34"});
  EXPECT_LE(text.Width("123.456.789.012,34") * sum.shrink, width + 1);
}

// The quick answer may send a text to the slow one, never call a text short that is too long.
TEST(CellText, TheQuickMeasureNeverCallsALongTextShort) {
  const CellText text(PaperFont(9));
  for (const char* each :
       {"Strung carusel", "WAVA. To, Ty, AVAV", "123.456.789,00", "linie\nnoua", "\u0218tefan"}) {
    const double width = text.Width(QString(each).replace('\n', ' '));
    EXPECT_TRUE(text.FitsOneLine(each, width * 1.05)) << each;
    EXPECT_FALSE(text.FitsOneLine(each, width * 0.95)) << each;
  }
}

}  // namespace
}  // namespace tevra::test
