// What people do with any list: mark rows, arrange columns, copy, take it to a spreadsheet.
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMimeData>
#include <QTemporaryDir>
#include <QToolButton>
#include <fstream>
#include <sstream>

#include "platform/export/TableExport.h"
#include "platform/grid/GridExport.h"
#include "platform/grid/GridTools.h"
#include "platform/grid/frmColoane.h"
#include "platform/system/Desktop.h"
#include "platform/system/Settings.h"
#include "tests/SheetFile.h"
#include "tests/grid/GridFixture.h"

namespace tevra::test {
namespace {

class GridWork : public Grid {
 protected:
  GridWork() {
    SetSettings(nullptr);
    grid_.SetRowSelect(true);
    grid_.SetTools("Coloane/proba", "Imobilizari");
  }
  ~GridWork() override { SetSettings(nullptr); }

  void Click(int row, Qt::KeyboardModifiers keys = {}) {
    const QRect cell = grid_.View()->visualRect(grid_.View()->model()->index(row, 0));
    QTest::mouseClick(grid_.View()->viewport(), Qt::LeftButton, keys, cell.center());
  }
  ExportTable Table(const char* title) {
    content_ = std::make_unique<GridContent>(grid_.Content());
    return TableOf(*content_, title);
  }
  std::string File(const char* name) const { return folder_.filePath(name).toStdString(); }
  static std::string Text(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
  }
  static std::string ShownFields(const DataGrid& grid) {
    std::string fields;
    for (const int column : grid.ShownColumns()) {
      fields += grid.Columns()[static_cast<std::size_t>(column)].field + " ";
    }
    return fields;
  }

  QTemporaryDir folder_;
  std::unique_ptr<GridContent> content_;
};

TEST_F(GridWork, ARowThatTheUserGoesToIsMarkedAndTheProgramsOwnMoveMarksNothing) {
  source_.MoveTo(1);
  EXPECT_TRUE(grid_.SelectedRows().empty());
  int changes = 0;
  QObject::connect(&grid_, &DataGrid::SelChange, [&] { ++changes; });
  Click(2);
  EXPECT_EQ(grid_.SelectedRows(), std::vector<std::size_t>{2});
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(source_.Recordset().Position(), 2u);
  QTest::keyClick(grid_.View(), Qt::Key_Up);
  EXPECT_EQ(grid_.SelectedRows(), std::vector<std::size_t>{1});
  QTest::keyClick(grid_.View(), Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(grid_.SelectedRows(), (std::vector<std::size_t>{0, 1}));
  Click(2, Qt::ControlModifier);
  EXPECT_EQ(grid_.SelectedRows().size(), 3u);
  source_.Refresh();
  EXPECT_TRUE(grid_.SelectedRows().empty());
}

TEST_F(GridWork, TheStripsAndTheRowsOwnMarksGoTogether) {
  source_.show();
  QWidget* selectors = grid_.View()->verticalHeader()->viewport();
  Click(0);
  const int y = grid_.View()->verticalHeader()->sectionViewportPosition(1) + 4;
  QTest::mouseClick(selectors, Qt::LeftButton, {}, QPoint(6, y));
  EXPECT_EQ(grid_.SelectedRows(), std::vector<std::size_t>{1});
  QTest::keyClick(grid_.View(), Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(grid_.SelectedRows(), (std::vector<std::size_t>{1, 2}));
  // The data source's strip is the user's hand, too.
  const auto buttons = source_.findChildren<QToolButton*>();
  ASSERT_EQ(buttons.size(), 4);
  buttons.first()->click();
  EXPECT_EQ(grid_.SelectedRows(), std::vector<std::size_t>{0});
}

TEST_F(GridWork, TheCurrentCellLeavesAHiddenColumn) {
  Click(0);
  ASSERT_EQ(grid_.View()->currentIndex().column(), 0);
  grid_.View()->setColumnHidden(0, true);
  grid_.LeaveHiddenColumn();
  EXPECT_EQ(grid_.View()->currentIndex(), grid_.View()->model()->index(0, 1));
  source_.MoveTo(1);
  EXPECT_EQ(grid_.View()->currentIndex(), grid_.View()->model()->index(1, 1));
}

// The footers on the screen may be of other rows.
TEST_F(GridWork, WhatIsPrintedBearsTheSumsOfItsRows) {
  grid_.SetFooter("VAL_CUMP", "1.250,50");
  Click(1);
  Click(2, Qt::ControlModifier);
  GridContent marked = grid_.Content(DataGrid::Rows::kMarked);
  EXPECT_EQ(marked.Columns()[2].footer, "1.250,50");
  marked.SumFooters();
  EXPECT_EQ(marked.Columns()[2].footer, "16,00");
  EXPECT_EQ(marked.Columns()[1].footer, "");
}

TEST_F(GridWork, TheUsersColumnsAreRememberedAndCanBeGivenUp) {
  QHeaderView* header = grid_.View()->horizontalHeader();
  const std::string own = ShownFields(grid_);
  const int width = header->sectionSize(1);
  header->moveSection(header->visualIndex(2), 0);
  header->setSectionHidden(3, true);
  header->resizeSection(1, 77);
  grid_.hide();

  const auto reopened = [&] {
    auto grid = std::make_unique<DataGrid>("TDBGrid1", nullptr);
    SetUpColumns(*grid);
    grid->SetDataSource(&source_);
    grid->SetTools("Coloane/proba", "Imobilizari");
    return grid;
  };
  auto again = reopened();
  EXPECT_EQ(ShownFields(*again), "VAL_CUMP COD DENUMIRE DATA_ACH BLOCATA ");
  EXPECT_EQ(again->View()->columnWidth(1), 77);
  again->ResetColumns();
  EXPECT_EQ(ShownFields(*again), own);
  EXPECT_EQ(again->View()->columnWidth(1), width);
  again.reset();
  EXPECT_EQ(ShownFields(*reopened()), own);

  for (const char* damaged : {"", "=", "COD=x DENUMIRE=-5", "LIPSA=40", "COD=0 DENUMIRE=0"}) {
    Settings().Set("Coloane/proba", damaged);
    EXPECT_EQ(ShownFields(*reopened()), own) << damaged;
  }
  Settings().Set("Coloane/proba", "denumire=50 COD=0 denumire=60 LIPSA=9");
  EXPECT_EQ(ShownFields(*reopened()), "DENUMIRE VAL_CUMP COTA_ANUALA DATA_ACH BLOCATA ");
}

TEST_F(GridWork, ColumnsAreChosenInAList) {
  frmColoane form({{4, "Data", true}, {1, "Denumire", true}, {0, "Nr. inv.", false}}, "Proba");
  form.show();
  form.cmdNiciuna->click();
  EXPECT_FALSE(form.cmdAccept->isEnabled());
  form.lstColoane->setCurrentRow(2);
  form.lstColoane->item(2)->setCheckState(Qt::Checked);
  form.cmdSus->click();
  form.cmdSus->click();
  EXPECT_FALSE(form.cmdSus->isEnabled());
  ASSERT_TRUE(form.cmdAccept->isEnabled());
  form.cmdAccept->click();
  EXPECT_TRUE(form.Accepted());
  std::string order;
  for (const ColumnChoice& choice : form.Choices()) {
    order += std::to_string(choice.column) + (choice.shown ? "+ " : "- ");
  }
  EXPECT_EQ(order, "0+ 4- 1- ");
}

TEST_F(GridWork, MarkedRowsAreCopiedAsATable) {
  const auto copied = [&] {
    QTest::keyClick(grid_.View(), Qt::Key_C, Qt::ControlModifier);
    return QGuiApplication::clipboard()->text().toStdString();
  };
  grid_.View()->setColumnHidden(3, true);
  source_.MoveTo(0);
  EXPECT_EQ(copied(), "b");
  company_.Open().Execute("UPDATE I_IMO SET DENUMIRE = ? WHERE COD = 'c'", {"Freza <2>\tmica"});
  source_.Refresh();
  Click(0);
  Click(2, Qt::ControlModifier);
  EXPECT_EQ(copied(),
            "Nr. inv.\tDenumire\tValoare Lei\tData cumparare\tBlocata\n"
            "b\tStrung\t1.234,50\t14.03.2026\tDa\n"
            "c\tFreza <2> mica\t9,00\t\tNu\n");
  const QString html = QGuiApplication::clipboard()->mimeData()->html();
  EXPECT_TRUE(html.contains("<td align=\"right\">1.234,50</td>")) << html.toStdString();
  EXPECT_TRUE(html.contains("<td>Freza &lt;2&gt; mica</td>"));
}

TEST_F(GridWork, ASpreadsheetHoldsNumbersDatesAndSums) {
  company_.AddAsset({{"COD", "=1+1"},
                     {"DENUMIRE", "\"Cerna\" & fiii"},
                     {"VAL_CUMP", 0.1},
                     {"DATA_ACH", DateTime(1899, 12, 31)}});
  source_.Refresh();
  grid_.SetFooter("VAL_CUMP", "1.251");
  QHeaderView* header = grid_.View()->horizontalHeader();
  header->moveSection(header->visualIndex(2), 0);
  grid_.View()->setColumnHidden(3, true);
  const std::string file = File("lista.xlsx");
  ASSERT_TRUE(SaveSpreadsheet(Table("Imobilizari: [2026]"), file));
  auto cells = CellsOf(file);
  EXPECT_EQ(cells["A1"], "Valoare Lei");
  EXPECT_EQ(cells["B1"], "Nr. inv.");
  EXPECT_EQ(cells["A2"], "1234.5");
  EXPECT_EQ(cells["D2"], std::to_string(static_cast<int>(DateTime(2026, 3, 14).Serial())));
  EXPECT_EQ(cells["E2"], "Da");
  EXPECT_EQ(cells.count("D3"), 0u);
  EXPECT_EQ(cells["B5"], "=1+1");
  EXPECT_EQ(cells["C5"], "\"Cerna\" & fiii");
  EXPECT_EQ(cells["D5"], "31.12.1899");
  EXPECT_EQ(cells["A6"], "f:SUBTOTAL(109,A2:A5) 1250.6");
  EXPECT_EQ(cells.count("B6"), 0u);
}

TEST_F(GridWork, CsvKeepsAllDigits) {
  company_.Open().Execute("UPDATE I_IMO SET VAL_CUMP = ?, DENUMIRE = ? WHERE COD = 'c'",
                          {1.0 / 3, "Freza, \"mica\""});
  source_.Refresh();
  source_.Recordset().SetSort("COD DESC");
  ASSERT_TRUE(SaveCsv(Table("Lista"), File("lista.csv")));
  EXPECT_EQ(Text(File("lista.csv")),
            "Nr. inv.,Denumire,Valoare Lei,Cota anuala,Data cumparare,Blocata\n"
            "c,\"Freza, \"\"mica\"\"\",0.3333333333333333,0,,Nu\n"
            "b,Strung,1234.5,0.125,2026-03-14,Da\n"
            "A,Freza,7,0,,Nu\n");
}

TEST_F(GridWork, AWebPageLooksLikeTheListWithItsSums) {
  company_.Open().Execute("UPDATE I_IMO SET DENUMIRE = '<b>\"Cerna\"</b> & fiii' WHERE COD = 'c'");
  source_.Refresh();
  grid_.SetFooter("VAL_CUMP", "altceva");
  ASSERT_TRUE(SaveHtml(Table("Lista <1>"), File("lista.htm")));
  const std::string page = Text(File("lista.htm"));
  const std::string table = page.substr(page.find("<h3>"));
  EXPECT_EQ(table.substr(0, table.find("</thead>")),
            "<h3>Lista &lt;1&gt;</h3>\n<table>\n<thead>\n<tr><th>Nr. inv.</th><th>Denumire</th><th "
            "class=\"nr\">Valoare Lei</th><th class=\"nr\">Cota anuala</th><th>Data "
            "cumparare</th><th>Blocata</th></tr>\n");
  EXPECT_NE(table.find("<td>&lt;b&gt;&quot;Cerna&quot;&lt;/b&gt; &amp; fiii</td>"),
            std::string::npos);
  EXPECT_NE(table.find("<th class=\"nr\">1.250,50</th>"), std::string::npos) << table;
  EXPECT_NE(page.find("<meta charset=\"utf-8\">"), std::string::npos);
  EXPECT_EQ(table.find("altceva"), std::string::npos);
}

TEST_F(GridWork, AFileIsReplacedWholeOrNotAtAll) {
  std::ofstream(File("veche.xlsx")) << "veche";
  const auto giveUp = [](int, int) { return false; };
  EXPECT_FALSE(SaveSpreadsheet(Table("Lista"), File("veche.xlsx"), giveUp));
  EXPECT_FALSE(SaveCsv(Table("Lista"), File("veche.xlsx"), giveUp));
  EXPECT_FALSE(SaveHtml(Table("Lista"), File("veche.xlsx"), giveUp));
  EXPECT_EQ(Text(File("veche.xlsx")), "veche");
  EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
  for (const char* missing : {"lipsa/lista.xlsx", "lipsa/lista.csv"}) {
    try {
      const std::string file = File(missing);
      file.ends_with("csv") ? SaveCsv(Table("Lista"), file) : SaveSpreadsheet(Table("Lista"), file);
      FAIL();
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), kPathNotFound);
    }
  }
}

TEST_F(GridWork, TheUserSavesTheListWhereHeSays) {
  GridTools tools(grid_);
  tools.SetUp({}, "Imobilizari");
  std::string chosen = File("lista.csv");
  std::vector<std::string> offered;
  SetSaveFileHandler([&](const SaveFileRequest& request) {
    offered.push_back(request.name);
    return chosen;
  });
  tools.ExportCsv();
  EXPECT_NE(Text(chosen).find("b,Strung,1234.5,"), std::string::npos);
  chosen = File("lista.xlsx");
  tools.ExportSpreadsheet();
  EXPECT_EQ(CellsOf(chosen)["B3"], "Freza");
  chosen = File("lipsa/lista.xlsx");
  tools.ExportSpreadsheet();
  SetSaveFileHandler({});
  EXPECT_EQ(offered,
            (std::vector<std::string>{"Imobilizari.csv", "Imobilizari.xlsx", "Imobilizari.xlsx"}));
  ASSERT_EQ(messages_.shown.size(), 3u);
  EXPECT_EQ(messages_.shown[1].prompt, "Lista a fost salvata in " + File("lista.xlsx"));
  EXPECT_NE(messages_.shown[2].prompt.find("Path not found"), std::string::npos);
}

// What is taken elsewhere stays as it was when the list goes on.
TEST_F(GridWork, ContentIsIndependentOfItsGrid) {
  Click(0);
  Click(2, Qt::ControlModifier);
  const GridContent marked = grid_.Content(DataGrid::Rows::kMarked);
  source_.Recordset().SetSort("COD DESC");
  source_.Notify();
  source_.Close();
  ASSERT_EQ(marked.RowCount(), 2u);
  EXPECT_EQ(marked.TextAt(0, 1), "Strung");
  EXPECT_EQ(marked.TextAt(1, 0), "c");
}

TEST_F(GridWork, RefreshedTheListKeepsItsPlaceAndItsOrder) {
  grid_.AddGroupColumn(0);
  source_.MoveTo(1);  // A, b, c
  company_.AddAsset({{"COD", "a0"}, {"DENUMIRE", "Presa"}});
  grid_.RefreshInPlace("NRCRT");
  EXPECT_EQ(Cell(0, 0) + Cell(1, 0) + Cell(2, 0) + Cell(3, 0), "Aa0bc");
  EXPECT_EQ(grid_.ColumnText(0), "b");
  EXPECT_EQ(grid_.SortFields(), std::vector<std::string>{"COD"});
  company_.Open().Execute("UPDATE I_IMO SET COD = 'b''c' WHERE COD = 'b'");
  grid_.RefreshInPlace("NRCRT");
  company_.AddAsset({{"COD", "a1"}});
  grid_.RefreshInPlace("COD");
  EXPECT_EQ(grid_.ColumnText(0), "b'c");
  company_.Open().Execute("DELETE * FROM I_IMO WHERE COD IN ('b''c', 'a1')");
  grid_.RefreshInPlace("NRCRT");
  EXPECT_EQ(grid_.ColumnText(0), "c");
  company_.Open().Execute("DELETE * FROM I_IMO");
  grid_.RefreshInPlace("NRCRT");
  EXPECT_FALSE(grid_.View()->currentIndex().isValid());

  // Other rows come in their own order.
  source_.SetRecordSource("select * from I_IMO order by NRCRT desc");
  source_.Refresh();
  EXPECT_TRUE(grid_.SortFields().empty());
}

TEST_F(GridWork, AnotherDirectionSortsByTheSameColumns) {
  grid_.AddGroupColumn(0);
  sorter_.SetSortType(2);
  sorter_.Sort();
  EXPECT_EQ(Cell(0, 0) + Cell(1, 0) + Cell(2, 0), "cbA");
  emit grid_.SortWanted({}, false);
  EXPECT_EQ(Cell(0, 0) + Cell(1, 0) + Cell(2, 0), "bAc");
}

}  // namespace
}  // namespace tevra::test
