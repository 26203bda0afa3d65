// The report of inventory objects, from the request by keys to the paper and the spreadsheet.
#include <QtTest>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/print/PageText.h"
#include "platform/print/frmPreview.h"
#include "platform/system/Desktop.h"
#include "reports/frmRapObInv.h"
#include "tests/SheetFile.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"
#include "tests/screens/Typing.h"

namespace tevra::test {
namespace {

class InventoryReports : public ::testing::Test {
 protected:
  InventoryReports() {
    Connection file = company_.Open();
    file.Execute("INSERT INTO I_LOCALIZARE (COD, TITLU) VALUES ('L1', 'Hala')");
    file.Execute("INSERT INTO Kv_CC (COD, TITLU) VALUES ('L1', 'Sectia'), ('C1', 'Alta')");
    Add("Ciocan", "2026-01-01", 701, Value(71.0), "L1");
    Add("Menghina", "2026-03-31", 802.6, Value(82.25), "L1");
    Add("Scara", "2026-02-01", 10, Value(), Value());
    Add("Cleste", "2026-04-01", 903, Value(93.0), "L1");
  }
  ~InventoryReports() override {
    SetSaveFileHandler({});
    delete preview_;
  }
  void Add(const char* name, const char* bought, double lei, const Value& foreign,
           const Value& location) {
    company_.Open().Execute(
        "INSERT INTO I_INV (COD, DENUMIRE, DATA_ACH, VAL_CUMP, VAL_CUMP_VAL, COD_LOC, COD_CC, "
        "CONT, "
        "PERS) VALUES (?, ?, ? & ' 00:00:00', ?, ?, ?, 'C1', '303', 'Ana')",
        {name, name, bought, lei, foreign, location});
  }
  // The preview of the first quarter, asked for by keys: `downs` arrows from the first grouping.
  frmPreview* Preview(int downs, const char* currency) {
    auto* screen = new frmRapObInv;
    Activate(*screen);
    EXPECT_TRUE(screen->optCont->isChecked());
    EXPECT_EQ(screen->cboCodDeviza->currentText(), "LEI");
    EXPECT_FALSE(screen->cboCodDeviza->isEnabled());
    Type("01012026");
    Key(Qt::Key_Tab);
    Type("31032026");
    Key(Qt::Key_Tab);
    for (int i = 0; i < downs; ++i) Key(Qt::Key_Down);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Space);
    EXPECT_TRUE(screen->chkGenNoteContabile->isChecked());
    if (*currency) {
      Key(Qt::Key_Tab);
      Key(Qt::Key_Space);
      Key(Qt::Key_Tab);
      Type(currency);
    }
    Key(Qt::Key_Return);
    EXPECT_FALSE(screen->isVisible());
    delete screen;
    delete preview_;
    for (frmPreview* preview : OpenScreens<frmPreview>()) preview_ = preview;
    return preview_;
  }
  static std::string PaperOf(frmPreview& preview) {
    std::string paper;
    for (const PaintedText& each : TextOfPage(preview.Document(), 0)) {
      paper += each.Text().toStdString() + ";";
    }
    return paper;
  }

  TestCompany company_;
  MessageRecorder messages_;
  QPointer<frmPreview> preview_;
};

TEST_F(InventoryReports, EveryGroupingPrintsThePeriodAndWritesNoNotes) {
  // The cost centre is the one that has the code of the location.
  const char* kTitles[] = {"CONT;303;", "Ana;", "Localizare;Hala;", "Centru;Sectia;"};
  for (int grouping = 0; grouping < 4; ++grouping) {
    frmPreview* preview = Preview(grouping, "");
    ASSERT_TRUE(preview);
    const std::string paper = PaperOf(*preview);
    for (const char* text : {"CHELTUIELI CU OBIECTE DE INVENTAR", "01.01.2026", "31.03.2026", "LEI",
                             kTitles[grouping], "Ciocan", "701;", "803;", "Scara", "1.514;"}) {
      EXPECT_NE(paper.find(text), std::string::npos) << text << " in " << paper;
    }
    EXPECT_EQ(paper.find("Cleste"), std::string::npos);
  }
  EXPECT_TRUE(messages_.shown.empty());
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM Kv_Linii"), "0 \n");
}

TEST_F(InventoryReports, ACurrencyChangesTheColumnButNotTheGrandTotal) {
  frmPreview* preview = Preview(2, "EUR-Euro");
  ASSERT_TRUE(preview);
  const std::string paper = PaperOf(*preview);
  for (const char* text : {"EUR", "71;", "82;", "153;", "TOTAL GENERAL;1.514;"}) {
    EXPECT_NE(paper.find(text), std::string::npos) << text << " in " << paper;
  }
  EXPECT_EQ(paper.find("701"), std::string::npos);
}

TEST_F(InventoryReports, TheSpreadsheetHasTheNumbersOfThePaper) {
  const std::filesystem::path file = company_.Directory() / "raport.xlsx";
  const std::filesystem::path csv = company_.Directory() / "raport.csv";
  const auto save = [&](frmPreview& preview) {
    SetSaveFileHandler([&](const SaveFileRequest&) { return file.string(); });
    preview.cmdFoaieCalcul->click();
    SetSaveFileHandler([&](const SaveFileRequest&) { return csv.string(); });
    preview.cmdCSV->click();
    QCoreApplication::processEvents();
    return CellsOf(file);
  };
  auto cells = save(*Preview(2, "EUR-Euro"));
  EXPECT_EQ(cells["E1"], "Valoare");
  EXPECT_EQ(cells["A3"], "Hala");
  EXPECT_EQ(cells["E3"], "71");
  EXPECT_EQ(cells["E4"], "82.25");
  EXPECT_EQ(cells["A5"], "TOTAL GENERAL LEI");
  EXPECT_EQ(cells["E5"], "1513.6");
  std::ifstream in(csv, std::ios::binary);
  std::ostringstream rows;
  rows << in.rdbuf();
  EXPECT_EQ(rows.str(),
            "Localizare,Nr. Inv.,Denumire,Data,Valoare\n"
            ",Scara,Scara,2026-02-01,\n"
            "Hala,Ciocan,Ciocan,2026-01-01,71\n"
            "Hala,Menghina,Menghina,2026-03-31,82.25\n");
  cells = save(*Preview(2, ""));
  EXPECT_EQ(cells["E3"], "701");
  EXPECT_EQ(cells["A5"], "");
  EXPECT_EQ(cells["E5"], "f:SUBTOTAL(109,E2:E4) 1513.6");
  EXPECT_TRUE(messages_.shown.empty());
}

}  // namespace
}  // namespace tevra::test
