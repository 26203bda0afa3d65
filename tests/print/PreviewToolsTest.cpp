// The preview's search, its list of pages, and the rows taken out of it.
#include <QApplication>
#include <QScrollBar>
#include <QtTest>
#include <fstream>
#include <sstream>

#include "platform/forms/Pictures.h"
#include "platform/print/frmPreview.h"
#include "platform/system/Desktop.h"
#include "platform/system/Settings.h"
#include "platform/text/Failure.h"
#include "tests/SheetFile.h"
#include "tests/TestCompany.h"
#include "tests/print/PdfText.h"
#include "tests/print/RegisterDocument.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

class PreviewTools : public FolderTest {
 protected:
  PreviewTools() { SetSettings(std::make_unique<MemorySettings>()); }
  ~PreviewTools() override {
    SetSaveFileHandler({});
    SetSettings({});
  }

  // `ready`: the pages that the source of data gives at once.
  frmPreview& Open(int pages, int ready = 1000000) {
    auto document = std::make_unique<RegisterDocument>(pages);
    document_ = document.get();
    document_->ready = ready;
    preview_ = std::make_unique<frmPreview>(std::move(document));
    preview_->resize(900, 600);
    Activate(*preview_);
    EXPECT_TRUE(QTest::qWaitFor([&] { return document_->PageCount() == std::min(pages, ready); }));
    QCoreApplication::processEvents();
    return *preview_;
  }
  void LookFor(const char* text) {
    QTest::keyClick(preview_->View, Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(preview_->Find->txtCauta->hasFocus());
    QTest::keyClicks(preview_->Find->txtCauta, text);
  }
  QString Found() const { return preview_->Find->lblGasite->text(); }
  int Page() const { return preview_->txtPagina->text().toInt(); }

  static std::string TextOf(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
  }

  MessageRecorder messages_;
  RegisterDocument* document_ = nullptr;
  std::unique_ptr<frmPreview> preview_;
};

// ---- Search -------------------------------------------------------------------------------------

TEST_F(PreviewTools, KeysGoThroughThePlacesFound) {
  frmPreview& preview = Open(40);
  EXPECT_FALSE(preview.Find->isVisible());
  LookFor("FIX 39");  // 39, and 390 to 399
  ASSERT_TRUE(QTest::qWaitFor([&] { return Found() == "1 din 11"; }));
  EXPECT_EQ(Page(), 4);
  QTest::keyClick(preview.Find->txtCauta, Qt::Key_F3);
  EXPECT_EQ(Found(), "2 din 11");
  EXPECT_EQ(Page(), 40);
  QTest::keyClick(preview.Find->txtCauta, Qt::Key_Return, Qt::ShiftModifier);
  QTest::keyClick(preview.Find->txtCauta, Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(Found(), "11 din 11");
  preview.Find->cmdCautaInainte->click();
  EXPECT_EQ(Found(), "1 din 11");
  EXPECT_EQ(Page(), 4);
  preview.Find->txtCauta->setText("lipseste");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Found() == "Nu s-a gasit nimic"; }));
  EXPECT_FALSE(preview.Find->cmdCautaInainte->isEnabled());
}

TEST_F(PreviewTools, ThePlaceIsShownAndMarked) {
  frmPreview& preview = Open(40);
  // The marks are the only colour on show.
  const auto coloured = [&] {
    const QImage image = preview.View->viewport()->grab().toImage();
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor colour = image.pixelColor(x, y);
        pixels += colour.red() > colour.blue() + 60 ? 1 : 0;
      }
    }
    return pixels;
  };
  EXPECT_EQ(coloured(), 0);
  LookFor("mijlocul fix 219 ");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Found() == "1 din 1"; }));
  EXPECT_EQ(Page(), 22);
  EXPECT_GT(coloured(), 500);
  QTest::keyClick(preview.Find->txtCauta, Qt::Key_Escape);
  EXPECT_EQ(coloured(), 0);
}

TEST_F(PreviewTools, EscapeClosesTheBarBeforeTheWindow) {
  frmPreview& preview = Open(5);
  LookFor("pagina 3");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Found() == "1 din 10"; }));
  QTest::keyClick(preview.Find->txtCauta, Qt::Key_Escape);
  EXPECT_FALSE(preview.Find->isVisible());
  EXPECT_TRUE(preview.isVisible());
  EXPECT_TRUE(preview.View->hasFocus());
  // The text is still there for the next time.
  QTest::keyClick(preview.View, Qt::Key_F3);
  ASSERT_TRUE(QTest::qWaitFor([&] { return Found() == "1 din 10"; }));
  preview.View->setFocus();
  QTest::keyClick(preview.View, Qt::Key_Escape);
  EXPECT_FALSE(preview.Find->isVisible());
  QTest::keyClick(preview.View, Qt::Key_Escape);
  EXPECT_FALSE(preview.isVisible());
}

TEST_F(PreviewTools, ALongSearchLeavesTheWindowFreeAndCanBeGivenUp) {
  frmPreview& preview = Open(20000);
  LookFor("pagina 20000");
  QCoreApplication::processEvents();
  EXPECT_EQ(Found(), "Se cauta...");
  EXPECT_TRUE(preview.Find->IsSearching());
  QTest::keyClick(preview.View, Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Page(), 2);
  EXPECT_LT(document_->PaintedPages(), 20000);
  QTest::keyClick(preview.Find->txtCauta, Qt::Key_Escape);
  QCoreApplication::processEvents();
  const int searched = document_->PaintedPages();
  QTest::qWait(60);
  EXPECT_EQ(document_->PaintedPages(), searched);
  EXPECT_LT(searched, 20000);
}

TEST_F(PreviewTools, PagesAreSearchedWhileTheyAreLaidOut) {
  Open(300, 200);
  LookFor("fix 199");  // 199, and 1990 to 1999
  ASSERT_TRUE(QTest::qWaitFor([&] { return Found() == "1 din 11..."; }));
  preview_->Find->Go(-1);
  EXPECT_EQ(Page(), 20);
  preview_->Find->txtCauta->setText("fix 2999");
  ASSERT_TRUE(QTest::qWaitFor([&] { return document_->PaintedPages() == 200; }));
  EXPECT_EQ(Found(), "Se cauta...");
  document_->ready = 300;
  ASSERT_TRUE(QTest::qWaitFor([&] { return Found() == "1 din 1"; }));
  EXPECT_EQ(Page(), 300);
  // The number of all pages stands on the first one only now that it is known.
  preview_->Find->txtCauta->setText("din 300 pagini");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Found() == "300 din 300"; }));
}

TEST_F(PreviewTools, APageThatCannotBeReadIsToldOnce) {
  frmPreview& preview = Open(40);
  document_->brokenPage = 30;
  LookFor("fix 21");
  ASSERT_TRUE(QTest::qWaitFor([&] { return messages_.shown.size() == 1u; }));
  QTest::qWait(50);
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_NE(messages_.shown[0].prompt.find("pagina nu poate fi citita"), std::string::npos);
  EXPECT_EQ(Found(), "Cautarea s-a oprit la o pagina care nu poate fi citita");
  EXPECT_TRUE(preview.isVisible());
  document_->brokenPage = -1;
  QTest::keyClicks(preview.Find->txtCauta, "0");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Found() == "1 din 1"; }));
}

// ---- The list of pages --------------------------------------------------------------------------

TEST_F(PreviewTools, OnlyPagesOnShowArePainted) {
  frmPreview& preview = Open(1000);
  EXPECT_FALSE(preview.List->isVisible());
  document_->painted.clear();
  QTest::keyClick(preview.View, Qt::Key_F9);
  ASSERT_TRUE(preview.List->isVisible());
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return document_->painted.count(preview.List->LastShown()) > 0; }));
  QTest::qWait(30);
  const int shown = preview.List->LastShown() + 1;
  EXPECT_GT(shown, 2);
  // The view paints its page anew, since it is narrower now.
  EXPECT_LE(document_->PaintedPages(), shown + 1);
  QTest::keyClick(preview.View, Qt::Key_End);
  EXPECT_EQ(preview.List->LastShown(), 999);
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return document_->painted.count(preview.List->FirstShown()) > 0; }));
  QTest::qWait(30);
  EXPECT_LE(document_->PaintedPages(), 2 * shown + 4);
  // What was painted is kept.
  document_->painted.clear();
  preview.List->verticalScrollBar()->setValue(preview.List->verticalScrollBar()->value() - 1);
  QTest::qWait(30);
  EXPECT_LE(document_->PaintedPages(), 1);
  QTest::keyClick(preview.View, Qt::Key_F9);
  EXPECT_FALSE(preview.List->isVisible());
}

TEST_F(PreviewTools, AClickAndTheKeysGoToAPage) {
  frmPreview& preview = Open(1000);
  preview.cmdListaPagini->click();
  QCoreApplication::processEvents();
  QTest::mouseClick(preview.List->viewport(), Qt::LeftButton, {},
                    {60, preview.List->viewport()->height() / 2});
  const int clicked = Page();
  EXPECT_GT(clicked, 1);
  EXPECT_LE(clicked, preview.List->LastShown() + 1);
  preview.List->setFocus();
  QTest::keyClick(preview.List, Qt::Key_Down);
  EXPECT_EQ(Page(), clicked + 1);
  QTest::keyClick(preview.List, Qt::Key_Up);
  QTest::keyClick(preview.List, Qt::Key_PageDown);
  EXPECT_GT(Page(), clicked + 1);
  QTest::keyClick(preview.List, Qt::Key_End);
  EXPECT_EQ(Page(), 1000);
  EXPECT_EQ(preview.List->LastShown(), 999);
  QTest::keyClick(preview.List, Qt::Key_Down);
  EXPECT_EQ(Page(), 1000);
  QTest::keyClick(preview.List, Qt::Key_Home);
  EXPECT_EQ(preview.List->FirstShown(), 0);
}

// ---- Rows ---------------------------------------------------------------------------------------

TEST_F(PreviewTools, RowsAreSavedAsSpreadsheetAndCsv) {
  frmPreview& preview = Open(30);
  std::optional<std::string> chosen;
  std::vector<std::string> asked;
  SetSaveFileHandler([&](const SaveFileRequest& request) {
    asked.push_back(request.name);
    return chosen;
  });
  preview.cmdFoaieCalcul->click();
  EXPECT_TRUE(NamesIn(folder_).empty());
  chosen = (folder_ / "registru.xlsx").string();
  preview.cmdFoaieCalcul->click();
  auto cells = CellsOf(*chosen);
  EXPECT_EQ(cells["B1"], "Valoare");
  EXPECT_EQ(cells["A301"], "MF 299");
  EXPECT_EQ(cells["B301"], "299.5");
  EXPECT_EQ(cells["C2"], std::to_string(static_cast<int>(DateTime(2026, 3, 1).Serial())));
  EXPECT_EQ(cells["B302"], "f:SUBTOTAL(109,B2:B301) 45000");
  EXPECT_EQ(cells.count("A302"), 0u);
  chosen = (folder_ / "registru.csv").string();
  preview.cmdCSV->click();
  const std::string csv = TextOf(*chosen);
  EXPECT_TRUE(csv.starts_with("Denumire,Valoare,Data\nMF 0,0.5,2026-03-01\n"));
  EXPECT_TRUE(csv.ends_with("MF 299,299.5,2026-03-20\n"));
  EXPECT_EQ(asked, (std::vector<std::string>{"Registru_ luna 3.xlsx", "Registru_ luna 3.xlsx",
                                             "Registru_ luna 3.csv"}));
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(PreviewTools, RowsAreOfferedOnlyWhereThereAreSome) {
  frmPreview& preview = Open(3);
  EXPECT_TRUE(preview.cmdFoaieCalcul->isVisible());
  EXPECT_TRUE(preview.cmdCSV->isVisible());
  frmPreview list(std::make_unique<TableDocument>(AssetList(3), DefaultPageLayout()));
  list.show();
  EXPECT_FALSE(list.cmdFoaieCalcul->isVisible());
  EXPECT_FALSE(list.cmdCSV->isVisible());
}

TEST_F(PreviewTools, InANarrowWindowPicturesStandForTheCaptions) {
  ASSERT_TRUE(QDir(QString::fromStdString(folder_.string())).mkpath("BMP"));
  QImage picture(16, 16, QImage::Format_ARGB32);
  picture.fill(Qt::black);
  for (const char* name : {"Tiparire", "SalvarePDF", "FoaieCalcul", "CSV", "Pagina", "Iesire"}) {
    ASSERT_TRUE(
        picture.save(QString("%1/BMP/%2.bmp").arg(QString::fromStdString(folder_.string()), name)));
  }
  SetPictureDirectory(folder_.string());
  frmPreview& preview = Open(3);
  SetPictureDirectory({});
  preview.resize(1400, 560);
  QCoreApplication::processEvents();
  EXPECT_EQ(preview.cmdFoaieCalcul->text(), "&Foaie de calcul");
  preview.resize(860, 560);
  QTest::keyClick(preview.View, Qt::Key_F, Qt::ControlModifier);
  preview.cmdListaPagini->click();
  QCoreApplication::processEvents();
  EXPECT_EQ(preview.width(), 860);
  EXPECT_TRUE(preview.cmdFoaieCalcul->text().isEmpty());
  for (const QAbstractButton* button : std::initializer_list<const QAbstractButton*>{
           preview.cmdTiparire, preview.cmdSalvarePDF, preview.cmdFoaieCalcul, preview.cmdCSV,
           preview.cmdPagina, preview.cmdIesire, preview.Find->cmdCautaInapoi}) {
    EXPECT_GE(button->width(), button->sizeHint().width()) << button->objectName().toStdString();
  }
  // The letter of a caption holds without it.
  std::vector<std::string> asked;
  SetSaveFileHandler([&](const SaveFileRequest& request) -> std::optional<std::string> {
    asked.push_back(request.extension);
    return {};
  });
  QTest::keyClick(&preview, Qt::Key_F, Qt::AltModifier);
  ASSERT_TRUE(QTest::qWaitFor([&] { return asked == std::vector<std::string>{"xlsx"}; }));
}

}  // namespace
}  // namespace tevra::test
