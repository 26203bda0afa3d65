// Printing, on a printer that writes files.
#include <QApplication>
#include <QTimer>

#include "platform/print/frmPrint.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Failure.h"
#include "tests/TestCompany.h"
#include "tests/print/PdfText.h"

namespace tevra::test {
namespace {

class Printing : public FolderTest {
 protected:
  Printing() {
    SetPrinters({[] {
                   return QStringList{"Laser", "Fisier"};
                 },
                 [] { return QString("Fisier"); },
                 [this](const QString& name) {
                   asked_ = name;
                   auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
                   printer->setOutputFormat(QPrinter::PdfFormat);
                   printer->setOutputFileName(QString::fromStdString(File().string()));
                   return printer;
                 }});
  }
  ~Printing() override { SetPrinters({}); }

  std::filesystem::path File() const { return folder_ / "tiparit.pdf"; }

  // Prints, with a user who fills the dialog so.
  void Print(PagedDocument& document, const std::function<void(frmPrint&)>& user) {
    QTimer::singleShot(0, qApp, [&] {
      auto* screen = qobject_cast<frmPrint*>(QApplication::activeModalWidget());
      ASSERT_TRUE(screen);
      user(*screen);
    });
    PrintAsked(document, nullptr);
  }

  MessageRecorder messages_;
  QString asked_;
};

TEST_F(Printing, AllPagesOnTheUsualPrinter) {
  TableDocument document(AssetList(120), DefaultPageLayout());
  Print(document, [](frmPrint& screen) { screen.cmdTiparire->click(); });
  EXPECT_EQ(asked_, "Fisier");
  const std::vector<QString> pages = PagesOf(File());
  ASSERT_EQ(static_cast<int>(pages.size()), document.PageCount());
  for (const QString& page : pages) EXPECT_EQ(page.count(kTotal), 1);
  // The margins are those of the document, on the printer's paper too.
  for (const Word& word : WordsOf(File())) {
    EXPECT_GE(word.place.left(), 15 * 72 / 25.4 - 1) << word.text.toStdString();
    EXPECT_LE(word.place.right(), (210 - 15) * 72 / 25.4 + 1) << word.text.toStdString();
  }
}

TEST_F(Printing, SomePagesSeveralTimesOneCopyBehindTheOther) {
  TableDocument document(AssetList(203), DefaultPageLayout());
  Print(document, [](frmPrint& screen) {
    screen.cboImprimanta->setCurrentText("Laser");
    screen.txtDeLa->setValue(2);
    screen.txtPanaLa->setValue(3);
    screen.txtExemplare->setValue(2);
    EXPECT_TRUE(screen.optInterval->isChecked());
    screen.cmdTiparire->click();
  });
  EXPECT_EQ(asked_, "Laser");
  const std::vector<QString> pages = PagesOf(File());
  ASSERT_EQ(pages.size(), 4u);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const QString number = QString("Pagina: %1 din %2").arg(2 + i % 2).arg(document.PageCount());
    EXPECT_TRUE(pages[i].contains(number)) << i;
  }
}

TEST_F(Printing, PagesThatAreNotThereAreRefused) {
  TableDocument document(AssetList(120), DefaultPageLayout());
  Print(document, [&](frmPrint& screen) {
    screen.txtDeLa->setValue(3);
    screen.txtPanaLa->setValue(2);
    screen.cmdTiparire->click();
    screen.txtDeLa->setValue(4);
    screen.txtPanaLa->setValue(9);
    screen.cmdTiparire->click();
    EXPECT_TRUE(screen.isVisible());
    screen.cmdRenunta->click();
  });
  ASSERT_EQ(messages_.shown.size(), 2u);
  EXPECT_EQ(messages_.shown[0].prompt, "Prima pagina trebuie sa fie inaintea ultimei !");
  EXPECT_EQ(messages_.shown[1].prompt, "Documentul se termina la pagina 3 !");
  EXPECT_TRUE(NamesIn(folder_).empty());
}

TEST_F(Printing, WithoutAPrinterTheUserIsToldOfThePdf) {
  SetPrinters({[] { return QStringList(); }, [] { return QString(); }, {}});
  TableDocument document(AssetList(3), DefaultPageLayout());
  PrintAsked(document, nullptr);
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_TRUE(messages_.shown[0].prompt.starts_with("Nu este instalata nici o imprimanta !"));
}

TEST_F(Printing, APrinterThatRefusesIsNamed) {
  TableDocument document(AssetList(3), DefaultPageLayout());
  SetPrinters({[] { return QStringList{"Laser"}; }, [] { return QString(); },
               [](const QString&) {
                 auto printer = std::make_unique<QPrinter>();
                 printer->setOutputFormat(QPrinter::PdfFormat);
                 printer->setOutputFileName("/lipsa/tiparit.pdf");
                 return printer;
               }});
  try {
    PrintDocument(document, {"Laser", 1, 1, 0});
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kDeviceError);
    EXPECT_NE(failure.Description().find("Laser"), std::string::npos);
  }
}

}  // namespace
}  // namespace tevra::test
