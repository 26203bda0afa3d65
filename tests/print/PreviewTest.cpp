// The preview, driven as a user does.
#include <QApplication>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
#include <QtTest>

#include "platform/print/frmPageSetup.h"
#include "platform/print/frmPreview.h"
#include "platform/system/Desktop.h"
#include "platform/system/Settings.h"
#include "platform/text/Failure.h"
#include "tests/TestCompany.h"
#include "tests/print/PdfText.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

class Preview : public FolderTest {
 protected:
  Preview() { SetSettings(std::make_unique<MemorySettings>()); }
  ~Preview() override {
    SetSaveFileHandler({});
    SetSettings({});
  }

  frmPreview& Open(int rows) {
    preview_ = std::make_unique<frmPreview>(
        std::make_unique<TableDocument>(AssetList(rows), DefaultPageLayout()));
    Activate(*preview_);
    EXPECT_TRUE(QTest::qWaitFor([&] { return preview_->Document().IsComplete(); }));
    QCoreApplication::processEvents();
    return *preview_;
  }

  MessageRecorder messages_;
  std::unique_ptr<frmPreview> preview_;
};

// How much of the page's picture is dark.
int DarkPixels(const QWidget& view) {
  const QImage image = const_cast<QWidget&>(view).grab().toImage();
  int dark = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) dark += qGray(image.pixel(x, y)) < 64 ? 1 : 0;
  }
  return dark;
}

TEST_F(Preview, ShowsPagesBeforeAllAreLaidOut) {
  frmPreview preview(std::make_unique<TableDocument>(AssetList(32767), DefaultPageLayout()));
  EXPECT_EQ(preview.windowTitle(), "Lista imobilizarilor");
  preview.show();
  EXPECT_FALSE(preview.Document().IsComplete());
  EXPECT_TRUE(preview.lblPagini->text().endsWith("..."));
  EXPECT_GT(DarkPixels(*preview.View), 500);
  ASSERT_TRUE(QTest::qWaitFor([&] { return preview.Document().IsComplete(); }, 60000));
  ASSERT_TRUE(QTest::qWaitFor([&] {
    return preview.lblPagini->text() == QString("din %1").arg(preview.Document().PageCount());
  }));
}

TEST_F(Preview, ButtonsAndKeysGoThroughThePages) {
  frmPreview& preview = Open(203);
  const int pages = preview.Document().PageCount();
  ASSERT_GT(pages, 3);
  EXPECT_EQ(preview.lblPagini->text(), QString("din %1").arg(pages));
  EXPECT_FALSE(preview.cmdPrima->isEnabled());
  EXPECT_FALSE(preview.cmdInapoi->isEnabled());
  const auto shown = [&] { return preview.txtPagina->text().toInt(); };
  preview.cmdInainte->click();
  EXPECT_EQ(shown(), 2);
  preview.cmdUltima->click();
  EXPECT_EQ(shown(), pages);
  EXPECT_FALSE(preview.cmdInainte->isEnabled());
  preview.cmdInapoi->click();
  EXPECT_EQ(shown(), pages - 1);
  QTest::keyClick(preview.View, Qt::Key_Home);
  EXPECT_EQ(shown(), 1);
  QTest::keyClick(preview.View, Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(shown(), 2);
  QTest::keyClick(preview.View, Qt::Key_End);
  EXPECT_EQ(shown(), pages);
  QTest::keyClick(preview.View, Qt::Key_Home);
  int presses = 0;
  for (; shown() < pages && presses < 50; ++presses) {
    QTest::keyClick(preview.View, Qt::Key_PageDown);
  }
  EXPECT_GE(presses, pages);
  EXPECT_LT(presses, 50);
}

TEST_F(Preview, ThePageBoxGoesToThePageTyped) {
  frmPreview& preview = Open(203);
  const auto type = [&](const char* text) {
    preview.txtPagina->setFocus();
    preview.txtPagina->selectAll();
    QTest::keyClicks(preview.txtPagina, text);
    QTest::keyClick(preview.txtPagina, Qt::Key_Return);
    return preview.txtPagina->text();
  };
  EXPECT_EQ(type("3"), "3");
  EXPECT_EQ(preview.View->CurrentPage(), 2);
  EXPECT_EQ(type("999"), QString::number(preview.Document().PageCount()));
  EXPECT_EQ(type("0"), QString::number(preview.Document().PageCount()));
  // Typed and left without Enter, the box says again what is on show.
  QTest::keyClicks(preview.txtPagina, "1");
  preview.View->setFocus();
  QCoreApplication::processEvents();
  EXPECT_EQ(preview.txtPagina->text(), QString::number(preview.Document().PageCount()));
}

TEST_F(Preview, ZoomByButtonsKeysWheelAndChoice) {
  frmPreview& preview = Open(203);
  EXPECT_EQ(preview.cboZoom->currentText(), "Latimea paginii");
  EXPECT_EQ(preview.View->horizontalScrollBar()->maximum(), 0);
  const auto choose = [&](const char* text) {
    preview.cboZoom->setCurrentText(text);
    emit preview.cboZoom->activated(preview.cboZoom->currentIndex());
  };
  preview.cmdUltima->click();
  choose("100 %");
  EXPECT_EQ(preview.View->Zoom(), 1);
  EXPECT_EQ(preview.txtPagina->text(), QString::number(preview.Document().PageCount()));
  preview.cmdMarire->click();
  EXPECT_EQ(preview.cboZoom->currentText(), "125 %");
  QTest::keyClick(preview.View, Qt::Key_Minus);
  QTest::keyClick(preview.View, Qt::Key_Minus);
  EXPECT_EQ(preview.cboZoom->currentText(), "75 %");
  QWheelEvent wheel(QPointF(100, 100), preview.View->mapToGlobal(QPointF(100, 100)), {}, {0, 120},
                    Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(preview.View->viewport(), &wheel);
  EXPECT_EQ(preview.cboZoom->currentText(), "100 %");
  for (int i = 0; i < 5; ++i) preview.cmdMarire->click();
  EXPECT_EQ(preview.cboZoom->currentText(), "200 %");
  choose("Pagina intreaga");
  preview.resize(700, 500);
  QCoreApplication::processEvents();
  const double page = preview.Document().PageSize().height() / kTwipsPerInch *
                      preview.View->logicalDpiY() * preview.View->Zoom();
  EXPECT_LE(page, preview.View->viewport()->height());
  EXPECT_GT(page, preview.View->viewport()->height() * 0.9);
}

TEST_F(Preview, SavesThePdfWhereTheUserSays) {
  frmPreview& preview = Open(203);
  std::optional<std::string> chosen;
  SaveFileRequest asked;
  SetSaveFileHandler([&](const SaveFileRequest& request) {
    asked = request;
    return chosen;
  });
  preview.cmdSalvarePDF->click();
  EXPECT_EQ(asked.name, "Lista imobilizarilor.pdf");
  EXPECT_EQ(asked.extension, "pdf");
  EXPECT_TRUE(NamesIn(folder_).empty());
  chosen = (folder_ / "lista.pdf").string();
  preview.cmdSalvarePDF->click();
  EXPECT_EQ(static_cast<int>(PagesOf(*chosen).size()), preview.Document().PageCount());
  EXPECT_TRUE(messages_.shown.empty());
  chosen = (folder_ / "lipsa" / "lista.pdf").string();
  preview.cmdSalvarePDF->click();
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_NE(messages_.shown[0].prompt.find("Eroare 76 - Path not found"), std::string::npos);
}

TEST_F(Preview, AnotherPaperIsLaidOutAnew) {
  frmPreview& preview = Open(203);
  const int portrait = preview.Document().PageCount();
  preview.cmdUltima->click();
  QTimer::singleShot(0, qApp, [] {
    auto* screen = qobject_cast<frmPageSetup*>(QApplication::activeModalWidget());
    ASSERT_TRUE(screen);
    screen->cboHartie->setCurrentText("A3");
    screen->cmdAccept->click();
  });
  preview.cmdPagina->click();
  ASSERT_TRUE(QTest::qWaitFor([&] { return preview.Document().IsComplete(); }));
  QCoreApplication::processEvents();
  EXPECT_LT(preview.Document().PageCount(), portrait);
  EXPECT_EQ(preview.lblPagini->text(), QString("din %1").arg(preview.Document().PageCount()));
  EXPECT_LE(preview.txtPagina->text().toInt(), preview.Document().PageCount());
}

TEST_F(Preview, DataThatCannotBeReadIsToldOnce) {
  TableContent list = AssetList(500);
  list.text = [text = list.text](int row, int column) {
    if (row == 300) throw Failure(kStatementError, "randul nu poate fi citit");
    return text(row, column);
  };
  frmPreview preview(std::make_unique<TableDocument>(list, DefaultPageLayout()));
  preview.show();
  ASSERT_TRUE(QTest::qWaitFor([&] { return messages_.shown.size() == 1u; }));
  QTest::qWait(50);
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_NE(messages_.shown[0].prompt.find("randul nu poate fi citit"), std::string::npos);
  EXPECT_TRUE(preview.lblPagini->text().endsWith("..."));
  EXPECT_TRUE(preview.isVisible());
}

TEST_F(Preview, SeveralStandBesideEachOtherAndGoWhenClosed) {
  ShowPreview(std::make_unique<TableDocument>(AssetList(3)));
  ShowPreview(std::make_unique<TableDocument>(AssetList(3)));
  const auto open = OpenScreens<frmPreview>;
  ASSERT_EQ(open().size(), 2u);
  QTest::keyClick(open().front()->View, Qt::Key_Escape);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_EQ(open().size(), 1u);
  EXPECT_FALSE(open().front()->isModal());
  open().front()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  // From a modal screen it can be used as well.
  frmPageSetup modal(DefaultPageLayout());
  modal.setWindowModality(Qt::ApplicationModal);
  modal.show();
  ShowPreview(std::make_unique<TableDocument>(AssetList(3)));
  QWidget* preview = QApplication::activeModalWidget();
  ASSERT_TRUE(qobject_cast<frmPreview*>(preview));
  preview->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(QApplication::activeModalWidget(), &modal);
}

}  // namespace
}  // namespace tevra::test
