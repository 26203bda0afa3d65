// Lists on paper, read back from real PDF files.
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <algorithm>
#include <set>

#include "platform/print/Pdf.h"
#include "platform/print/TableDocument.h"
#include "platform/text/Failure.h"
#include "tests/print/PdfText.h"
#include "tests/system/Folder.h"

namespace tevra::test {
namespace {

class TableOnPaper : public FolderTest {
 protected:
  std::vector<QString> Saved(TableContent content,
                             const QPageLayout& layout = DefaultPageLayout()) {
    TableDocument document(std::move(content), layout);
    EXPECT_TRUE(SavePdf(document, File()));
    std::vector<QString> pages = PagesOf(File());
    EXPECT_EQ(static_cast<int>(pages.size()), document.PageCount());
    return pages;
  }
  std::filesystem::path File() const { return folder_ / "lista.pdf"; }
};

QString Joined(const std::vector<QString>& pages) {
  return QStringList(pages.begin(), pages.end()).join('\f');
}

void Paint(PagedDocument& document, int page) {
  QImage image(800, 1100, QImage::Format_RGB32);
  QPainter painter(&image);
  PaintOnPaper(painter, document, page);
}

TEST_F(TableOnPaper, EveryPageHasItsHeadsAndFootersAndEveryRowStandsOnce) {
  constexpr int kRows = 203;
  const std::vector<QString> pages = Saved(AssetList(kRows));
  ASSERT_GT(pages.size(), 3u);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const QString number = QString("Pagina: %1 din %2").arg(i + 1).arg(pages.size());
    for (const QString& part :
         {QString("REGISTRUL IMOBILIZARILOR"), QString("Nr.Crt."), QString("Denumire"),
          QString("TOTAL"), QString(kTotal), QString("Editat de Kelnar Tevra"), number}) {
      EXPECT_EQ(pages[i].count(part), 1) << part.toStdString() << " on page " << i + 1;
    }
  }
  const QString all = Joined(pages);
  for (int row = 0; row < kRows; ++row) EXPECT_EQ(all.count(InventoryNumber(row)), 1) << row;
  EXPECT_EQ(all.count("magazie de scule, hala 3"), (kRows + 3) / 5);
  EXPECT_FALSE(all.contains("..."));
}

TEST_F(TableOnPaper, ASumOfTwelveDigitsStandsWholeInItsColumn) {
  TableContent list = AssetList(3);
  list.columns[3].footer.clear();
  for (TableColumn& column : list.columns) column.width = 40;
  list.columns.push_back({"Valoare", 40, Qt::AlignRight, kTotal});
  const auto text = list.text;
  list.text = [text](int row, int column) { return column < 3 ? text(row, column) : kTotal; };
  Saved(list);
  const double right = 15 * 72 / 25.4 + (4 * 40 + 110);
  QRectF before;
  int sums = 0;
  for (const Word& word : WordsOf(File())) {
    if (word.text != kTotal) continue;
    ++sums;
    EXPECT_LT(word.place.right(), right);
    // The one beside it ends before it begins.
    if (before.top() == word.place.top()) {
      EXPECT_LE(before.right(), word.place.left());
    }
    before = word.place;
  }
  EXPECT_EQ(sums, 2 * 3 + 1);
}

TEST_F(TableOnPaper, AListWiderThanThePageComesInStripsThatRepeatTheFirstColumn) {
  TableContent list = AssetList(100);
  list.columns[0].footer = "Suma";
  for (int i = 0; i < 6; ++i) {
    list.columns.push_back({QString("Coloana%1").arg(i), 120, Qt::AlignRight, {}});
  }
  const auto text = list.text;
  list.text = [text](int row, int column) {
    return column < 4 ? text(row, column) : QString("%1/%2").arg(row).arg(column);
  };
  TableDocument document(list);
  SavePdf(document, File());
  const std::vector<QString> pages = PagesOf(File());
  ASSERT_EQ(pages.size() % 3, 0u);
  const std::size_t ofStrip = pages.size() / 3;
  ASSERT_GT(ofStrip, 1u);
  const QRegularExpression cell("(?<![\\d/])(\\d+)/(\\d+)(?!\\d)");
  std::multiset<std::pair<int, int>> cells;
  for (std::size_t page = 0; page < pages.size(); ++page) {
    EXPECT_EQ(pages[page].count("Nr.Crt."), 1) << page;
    EXPECT_EQ(pages[page].count("Suma"), 1) << page;
    EXPECT_EQ(pages[page].count("INV-") > 0, page < ofStrip) << page;
    for (auto matches = cell.globalMatch(pages[page]); matches.hasNext();) {
      const auto match = matches.next();
      cells.insert({match.captured(1).toInt(), match.captured(2).toInt()});
    }
  }
  for (int row = 0; row < list.rows; ++row) {
    for (int column = 4; column < 10; ++column) EXPECT_EQ(cells.count({row, column}), 1u);
  }
  // The pages of a strip lie beside those of the first: the same rows, at the same height.
  const QRegularExpression firstRow("\n +(\\d+) ");
  for (std::size_t page = 0; page < ofStrip; ++page) {
    for (const std::size_t strip : {1, 2}) {
      EXPECT_EQ(firstRow.match(pages[page]).captured(1),
                firstRow.match(pages[strip * ofStrip + page]).captured(1));
    }
  }
}

TEST_F(TableOnPaper, AListWithoutRowsOrColumnsIsASoundPage) {
  const std::vector<QString> empty = Saved(AssetList(0));
  ASSERT_EQ(empty.size(), 1u);
  for (const char* part : {"REGISTRUL IMOBILIZARILOR", "Denumire", kTotal, "Pagina: 1 din 1"}) {
    EXPECT_TRUE(empty[0].contains(part)) << part;
  }
  TableContent bare;
  bare.title = "C:\\tot\\pagina";  // means itself at the head of the page
  const std::vector<QString> page = Saved(bare);
  ASSERT_EQ(page.size(), 1u);
  EXPECT_EQ(page[0].trimmed(), "C:\\tot\\pagina");
}

TEST_F(TableOnPaper, WhatStandsBelowTheRowsGoesOnAPageOfItsOwnWhereThereIsNoRoom) {
  TableContent list = AssetList(10);
  QRectF place;
  list.appendixHeight = 200;
  list.appendix = [&](QPainter& painter, const QRectF& area) {
    place = area;
    painter.drawText(area.center(), "GRAFIC");
  };
  const std::vector<QString> one = Saved(list);
  ASSERT_EQ(one.size(), 1u);
  EXPECT_TRUE(one[0].contains("GRAFIC"));
  EXPECT_NEAR(place.height(), 200 * kTwipsPerPoint, 1);
  EXPECT_NEAR(place.width(), (210 - 30) / 25.4 * kTwipsPerInch, 20);
  list.rows = 41;
  const std::vector<QString> two = Saved(list);
  ASSERT_EQ(two.size(), 2u);
  EXPECT_TRUE(two[0].contains(kTotal));
  EXPECT_EQ(two[1].count("GRAFIC"), 1);
  EXPECT_TRUE(two[1].contains("Pagina: 2 din 2"));
  list.appendixHeight = 5000;  // no more than a page
  Saved(list);
  EXPECT_LT(place.bottom(), (297 - 15) / 25.4 * kTwipsPerInch);
}

TEST_F(TableOnPaper, TheFirstPageIsThereBeforeTheLastRowsAreAskedFor) {
  TableContent list = AssetList(32767);
  int furthest = -1;
  const auto text = list.text;
  list.text = [&furthest, text](int row, int column) {
    furthest = std::max(furthest, row);
    return text(row, column);
  };
  TableDocument document(list);
  EXPECT_EQ(furthest, -1);
  document.LayOutMore();
  ASSERT_EQ(document.PageCount(), 1);
  EXPECT_FALSE(document.IsComplete());
  Paint(document, 0);
  EXPECT_LT(furthest, 100);
  EXPECT_TRUE(document.LayOutAll());
  EXPECT_GT(document.PageCount(), 500);
  // Another paper begins anew.
  document.SetPageLayout(
      MakePageLayout(QPageSize::A3, QPageLayout::Landscape, QMarginsF(10, 10, 10, 10)));
  EXPECT_EQ(document.PageCount(), 0);
  EXPECT_FALSE(document.IsComplete());
}

TEST_F(TableOnPaper, APageIsNeverTooSmallForARow) {
  const std::vector<QString> pages =
      Saved(AssetList(5),
            MakePageLayout(QPageSize::A5, QPageLayout::Landscape, QMarginsF(60, 60, 60, 48)));
  EXPECT_LE(pages.size(), 5u * 3);
  for (int row = 0; row < 5; ++row) EXPECT_EQ(Joined(pages).count(InventoryNumber(row)), 1);
}

TEST_F(TableOnPaper, AFailureOfTheDataLeavesTheStepToBeDone) {
  TableContent list = AssetList(120);
  bool broken = true;
  const auto text = list.text;
  list.text = [&broken, text](int row, int column) {
    if (broken && row == 60) throw Failure(kStatementError, "randul nu poate fi citit");
    return text(row, column);
  };
  TableDocument document(list);
  EXPECT_THROW(document.LayOutAll(), Failure);
  EXPECT_EQ(document.PageCount(), 1);
  EXPECT_FALSE(document.IsComplete());
  broken = false;
  EXPECT_TRUE(SavePdf(document, File()));
  const QString all = Joined(PagesOf(File()));
  for (int row = 0; row < 120; ++row) EXPECT_EQ(all.count(InventoryNumber(row)), 1) << row;
}

}  // namespace
}  // namespace tevra::test
