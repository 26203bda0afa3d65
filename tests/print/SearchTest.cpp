// What pages say, and where.
#include <QPainter>

#include <gtest/gtest.h>

#include "platform/print/Pdf.h"
#include "platform/print/TextSearch.h"
#include "platform/text/Failure.h"
#include "tests/TestCompany.h"
#include "tests/print/PdfText.h"
#include "tests/print/RegisterDocument.h"

namespace tevra::test {
namespace {

class Search : public FolderTest {
 protected:
  // The numbers of the places' pages, after a search of everything.
  static std::vector<int> PagesWith(PagedDocument& document, const QString& text, int from = 0) {
    document.LayOutAll();
    TextSearch search(document);
    search.Begin(text, from);
    while (search.SearchMore()) {
    }
    EXPECT_TRUE(search.IsDone());
    std::vector<int> pages;
    for (const FoundPlace& place : search.Places()) pages.push_back(place.page);
    return pages;
  }
  static void SearchAll(TextSearch& search) {
    while (search.SearchMore()) {
    }
  }
};

TEST_F(Search, FindsOnAllPagesWithoutCase) {
  RegisterDocument document(30);
  document.foot = "Intocmit: \u0218tefan & fiii (SRL)";
  EXPECT_EQ(PagesWith(document, "PAGINA 12"), std::vector<int>(10, 11));
  EXPECT_EQ(PagesWith(document, "  fix 205 "), std::vector<int>{20});
  EXPECT_EQ(PagesWith(document, "fix 20").size(), 11u);
  EXPECT_EQ(PagesWith(document, "\u0219TEFAN & FIII (srl)").size(), 30u);
  EXPECT_TRUE(PagesWith(document, "fix .*").empty());
  EXPECT_TRUE(PagesWith(document, "   ").empty());
  // One place begins behind the other's end.
  document.foot = "aaaaa";
  EXPECT_EQ(PagesWith(document, "aa").size(), 60u);
}

TEST_F(Search, ACellsLinesAreOneTextAndTwoCellsAreTwo) {
  TableDocument document(AssetList(60), DefaultPageLayout());
  const std::size_t rows = 12;
  const QString name = "strung CARUSEL cu comanda numerica si magazie de scule, hala 3";
  EXPECT_EQ(PagesWith(document, name).size(), rows);
  EXPECT_TRUE(PagesWith(document, "Calculator 1.234,50").empty());
  EXPECT_TRUE(PagesWith(document, "INV-000000 Calculator").empty());
  EXPECT_TRUE(PagesWith(document, InventoryNumber(0) + " " + InventoryNumber(1)).empty());
  TextSearch search(document);
  search.Begin(name, 0);
  SearchAll(search);
  ASSERT_FALSE(search.Places().empty());
  EXPECT_EQ(search.Places().front().marks.size(), 2u);
}

// As another program finds the words in the PDF.
TEST_F(Search, APlaceIsWhereItsLettersStand) {
  TableContent list = AssetList(120);
  list.header = "Strung, pagina \\p";
  TableDocument document(list, DefaultPageLayout());
  const auto pdf = folder_ / "lista.pdf";
  ASSERT_TRUE(SavePdf(document, pdf));
  TextSearch search(document);
  search.Begin("carusel", 0);
  SearchAll(search);
  std::vector<QRectF> words;
  for (const Word& word : WordsOf(pdf)) {
    if (word.text == "carusel") words.push_back(word.place);
  }
  ASSERT_EQ(search.Places().size(), words.size());
  ASSERT_EQ(words.size(), 24u);
  for (std::size_t i = 0; i < words.size(); ++i) {
    const FoundPlace& place = search.Places()[i];
    ASSERT_EQ(place.marks.size(), 1u);
    const QRectF mark(place.marks[0].topLeft() / kTwipsPerPoint,
                      place.marks[0].size() / kTwipsPerPoint);
    EXPECT_NEAR(mark.left(), words[i].left(), 0.5);
    EXPECT_NEAR(mark.right(), words[i].right(), 0.5);
    EXPECT_TRUE(mark.adjusted(-1, -2, 1, 2).contains(words[i].center()));
  }
}

TEST_F(Search, TurnedAndScaledTextIsMarkedWhereItStands) {
  class Turned : public RegisterDocument {
   public:
    using RegisterDocument::RegisterDocument;
    void PaintPage(QPainter& painter, int) override {
      painter.setFont(PaperFont(10));
      painter.translate(2000, 3000);
      painter.rotate(90);
      painter.scale(2, 2);
      painter.drawText(QPointF(100, 0), "scara");
    }
  };
  Turned document(1);
  document.LayOutAll();
  const std::vector<PaintedText> texts = TextOfPage(document, 0);
  ASSERT_EQ(texts.size(), 1u);
  const QRectF place = texts[0].PlaceOf(0, 5).front();
  EXPECT_NEAR(place.top(), 3200, 1);
  EXPECT_LT(place.left(), 2000);
  EXPECT_GT(place.right(), 2000);
  EXPECT_GT(place.height(), place.width());
}

TEST_F(Search, GoesRoundFromThePageOnShow) {
  RegisterDocument document(9);
  document.LayOutAll();
  document.foot = "total";
  TextSearch search(document);
  search.Begin("TOTAL", 5);
  ASSERT_TRUE(search.SearchMore());
  ASSERT_TRUE(search.CurrentPlace());
  EXPECT_EQ(search.CurrentPlace()->page, 5);
  // The one before is known when all are; then it is gone to.
  search.Go(-1);
  EXPECT_EQ(search.CurrentPlace()->page, 5);
  SearchAll(search);
  EXPECT_EQ(search.CurrentPlace()->page, 4);
  EXPECT_EQ(search.Current(), 4);
  EXPECT_EQ(search.Places().size(), 9u);
  for (int i = 0; i < 5; ++i) search.Go(1);
  EXPECT_EQ(search.CurrentPlace()->page, 0);
  search.Go(-1);
  EXPECT_EQ(search.Current(), 8);
  EXPECT_EQ(search.PlacesOn(3).size(), 1u);
  EXPECT_EQ(search.PlacesOn(99).size(), 0u);
}

TEST_F(Search, GoesOnWhileTheDocumentIsLaidOut) {
  RegisterDocument document(6);
  document.LayOutMore();
  document.LayOutMore();
  TextSearch search(document);
  search.Begin("pagin", 0);
  SearchAll(search);
  EXPECT_EQ(search.Places().size(), 20u);
  EXPECT_FALSE(search.IsDone());
  for (int i = 0; i < 14; ++i) search.Go(1);
  const FoundPlace before = *search.CurrentPlace();
  document.LayOutAll();
  // The pages say how many they are now.
  search.BeginAnew();
  SearchAll(search);
  EXPECT_TRUE(search.IsDone());
  EXPECT_EQ(search.Places().size(), 66u);
  ASSERT_TRUE(search.CurrentPlace());
  EXPECT_EQ(*search.CurrentPlace(), before);
}

TEST_F(Search, EndsWhenThereAreTooManyPlaces) {
  RegisterDocument document(60);
  document.LayOutAll();
  document.foot = QString(400, 'x');
  TextSearch search(document);
  search.Begin("x", 0);
  SearchAll(search);
  EXPECT_TRUE(search.IsFull());
  EXPECT_TRUE(search.IsDone());
  EXPECT_EQ(search.Places().size(), TextSearch::kMostPlaces);
  EXPECT_LT(document.PaintedPages(), 30);
}

}  // namespace
}  // namespace tevra::test
