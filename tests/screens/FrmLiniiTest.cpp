// The query of accounting lines, worked as its user works it.
#include <QComboBox>
#include <QFile>
#include <QPointer>
#include <QTableView>
#include <QtTest>

#include <gtest/gtest.h>

#include "accounting/frmLinii.h"
#include "platform/data/Recordset.h"
#include "platform/forms/Windows.h"
#include "platform/print/PageText.h"
#include "platform/print/frmPreview.h"
#include "platform/system/Settings.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/screens/GridTexts.h"
#include "tests/screens/Screens.h"
#include "tests/screens/Typing.h"

namespace tevra::test {
namespace {

class FrmLinii : public ::testing::Test {
 protected:
  FrmLinii() : file_(company_.Open()) {
    SetSettings(nullptr);
    file_.Execute("INSERT INTO kv_Ter (COD, NUME) VALUES (7, 'O''NEIL & FIII')");
    Add({1, 1, "6811", 100.1, 0, DateTime(2026, 10, 31), "IMO10", Value(), "I", "Lei <1> & 'x'"});
    Add({1, 2, "2813", 0, 100.1, DateTime(2026, 10, 31), "IMO10", Value(), "I", Value()});
    Add({2, 1, "2131", 2500, 0, DateTime(2026, 9, 15), "INV-7", 7, "I", Value()});
    Add({2, 2, "404", 0, 2500, DateTime(2026, 9, 15), "INV-7", 7, "I", Value()});
    Add({3, 1, "371", 0.2, 0, DateTime(2026, 10, 5), "BON", Value(), "G", Value()});
  }
  ~FrmLinii() override {
    DeleteScreens<Form>();
    SetSettings(nullptr);
  }

  void Add(const Values& line) {
    file_.Execute(
        "INSERT INTO Kv_Linii (NDI, NRLINIE, CONT, DEBIT, CREDIT, DATAINR, DOC, TERT, PROV, EXPL) "
        "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
        line);
  }
  frmLinii& Open() { return *(list_ = &Activate(windows::OpenNew<frmLinii>())); }
  std::string Column(const char* field) const { return ColumnTexts(*list_->TDBGrid1, field); }
  std::string Totals() {
    std::string texts;
    for (const char* field : {"DEBIT", "CREDIT", "DEVDEBIT", "DEVCREDIT"}) {
      texts += list_->TDBGrid1->Footer(field).toStdString() + "|";
    }
    return texts + list_->lblNoInreg->text().toStdString();
  }
  void GoTo(int row) { list_->TDBGrid1->View()->selectRow(row); }
  std::string LastPrompt() const {
    return messages_.shown.empty() ? "" : messages_.shown.back().prompt;
  }

  TestCompany company_;
  Connection file_;
  MessageRecorder messages_;
  frmLinii* list_ = nullptr;
};

TEST_F(FrmLinii, OpensWithTheNewestLinesItsColumnsAndTotals) {
  frmLinii& list = Open();
  std::string captions;
  for (const GridColumn& column : list.TDBGrid1->Columns()) {
    captions += column.caption.toStdString() + ";";
  }
  EXPECT_EQ(captions,
            "NDI;Nr. crt.;Jurnal;Data document;Document;Fel si Nr. "
            "Document;Cont;Debit;Credit;Explicatie;Marca;LITM;Centru cost;Cod;Curs;Debit "
            "valuta;Credit valuta;Cantitate;Tert;Cota TVA;Linia cu baza pentru "
            "TVA;Provenienta;Data Scadenta;Utilizator;Data validarii;CodSucursala;");
  EXPECT_EQ(list.windowTitle(), "Inregistrari");
  EXPECT_EQ(Column("CONT"), "6811;2813;371;2131;404;");
  EXPECT_EQ(Column("NUME"), ";;;O'NEIL & FIII;O'NEIL & FIII;");
  EXPECT_EQ(Totals(), "2.600,30|2.600,10|0,00|0,00|5");
  EXPECT_EQ(list.findChild<QComboBox*>("cboListaCautare")->currentText(), "CONT");
  EXPECT_EQ(list.cmdUp->toolTip(), "Ordine crescatoare");
  EXPECT_EQ(list.cmdDown->toolTip(), "Ordine descrescatoare");
  EXPECT_EQ(list.cmdCauta->toolTip(), "Cautare in functie de conditiile stabilite mai sus");
  EXPECT_EQ(list.cmdDelete->toolTip(), "Stergere NDI curent");
  EXPECT_EQ(list.cmdListare->toolTip(),
            "Listare linii selectate pe ecran, imprimanta si salvare in fisierul Raport.htm");
  EXPECT_EQ(list.cmdClose->toolTip(), "Inchidere fereastra");
  EXPECT_NE(&Open(), &list);  // a window each time
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(FrmLinii, SearchesByConditionsTypedOnTheKeyboard) {
  frmLinii& list = Open();
  // The builder has the focus in the value of the first condition.
  Key(Qt::Key_Tab, Qt::ShiftModifier);
  Choose("incepe cu");
  Type("2");
  Key(Qt::Key_Return);
  EXPECT_EQ(Column("CONT"), "2813;2131;");
  EXPECT_EQ(Totals(), "2.500,00|100,10|0,00|0,00|2");
  Press(list.findChild<QPushButton*>("cmdAdaugaConditie"));
  Choose("DATA INREGISTRARE");
  Choose("mai mic decat");
  Type("01102026");
  Press(list.cmdCauta);
  EXPECT_EQ(Column("CONT"), "2131;");
  EXPECT_EQ(list.TDBGrid1->PrintInfo().header.toStdString(),
            "R A P O R T     CONDITII: CONT incepe cu \"2\" SI DATA INREGISTRARE < 01.10.2026");
  list.WhereBuilder->SetConditions({{"Kv_Linii.CONT", WhereOperator::kEqual, "999"}});
  Press(list.cmdCauta);
  EXPECT_EQ(Totals(), "||||0");
  list.WhereBuilder->SetConditions({});
  Press(list.cmdCauta);
  EXPECT_EQ(Column("CONT"), "6811;2813;371;2131;404;");
  EXPECT_EQ(list.TDBGrid1->PrintInfo().header, "R A P O R T");
  EXPECT_TRUE(messages_.shown.empty()) << LastPrompt();
}

TEST_F(FrmLinii, AConditionWithoutSenseIsToldAndKeepsTheRows) {
  frmLinii& list = Open();
  list.WhereBuilder->SetConditions({{"Kv_Linii.CONT", WhereOperator::kBegins, "2"}});
  Press(list.cmdCauta);
  const std::string found = Totals();
  list.WhereBuilder->SetConditions({{"Kv_Linii.CONT", WhereOperator::kBegins, "6"},
                                    {"Kv_Linii.DEBIT", WhereOperator::kEqual, "1,2,3"}});
  Press(list.cmdCauta);
  EXPECT_EQ(LastPrompt(),
            "Conditia \"DEBIT\": \"1,2,3\" nu este un numar. Numerele se scriu ca 1.234,56 !");
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "txtValoare2");
  EXPECT_EQ(list.WhereBuilder->Conditions().size(), 2u);
  EXPECT_EQ(Totals(), found);
  file_.Execute("DROP TABLE kv_CC");
  list.WhereBuilder->SetConditions({});
  Press(list.cmdCauta);
  EXPECT_NE(LastPrompt().find(" in procedura cmdCauta_Click din Form frmLinii Linia: "),
            std::string::npos)
      << LastPrompt();
  EXPECT_EQ(list.TDBGrid1->View()->model()->rowCount(), 2);
}

TEST_F(FrmLinii, SortsByTheColumnsInTheGroupArea) {
  frmLinii& list = Open();
  list.TDBGrid1->AddGroupColumn(list.TDBGrid1->ColumnOf("CONT"));
  EXPECT_EQ(Column("CONT"), "2131;2813;371;404;6811;");
  Press(list.cmdCauta);
  EXPECT_EQ(Column("CONT"), "6811;2813;371;2131;404;");
  EXPECT_TRUE(list.TDBGrid1->SortFields().empty());
  list.TDBGrid1->AddGroupColumn(list.TDBGrid1->ColumnOf("DEBIT"));
  list.cmdDown->click();
  QCoreApplication::processEvents();
  EXPECT_EQ(Column("CONT"), "2131;6811;371;2813;404;");
  list.cmdUp->click();
  QCoreApplication::processEvents();
  EXPECT_EQ(Column("DEBIT"), "0,00;0,00;0,20;100,10;2.500,00;");
}

TEST_F(FrmLinii, DeletesTheWholeNoteOfTheCurrentLineAfterAQuestion) {
  file_.Execute("UPDATE Kv_Linii SET DocExplicatie = 'FF'");
  frmLinii& list = Open();
  EXPECT_EQ(Column("DocExplicatie"), "FF;FF;FF;FF;FF;");
  GoTo(2);
  Press(list.cmdDelete);
  EXPECT_EQ(LastPrompt(), "Nu puteti sterge documentul pentru ca provine din gestiune");
  EXPECT_EQ(messages_.shown.back().buttons, 48);
  GoTo(1);
  messages_.answers = {kNo};
  Press(list.cmdDelete);
  EXPECT_EQ(LastPrompt(), "Sigur doriti sa stergeti documentul 1 ?");
  EXPECT_EQ(messages_.shown.back().buttons, kYesNo);
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM Kv_Linii"), "5 \n");
  list.WhereBuilder->SetConditions({{"Kv_Linii.CONT", WhereOperator::kBegins, "6"}});
  Press(list.cmdCauta);
  list.TDBGrid1->AddGroupColumn(list.TDBGrid1->ColumnOf("CONT"));
  GoTo(0);
  Press(list.cmdDelete);
  EXPECT_EQ(company_.Rows("SELECT DISTINCT NDI FROM Kv_Linii ORDER BY NDI"), "2 \n3 \n");
  // All other lines, as at the opening but without the kind of the document.
  EXPECT_EQ(Column("CONT"), "371;2131;404;");
  EXPECT_EQ(Totals(), "2.500,20|2.500,00|0,00|0,00|3");
  EXPECT_EQ(list.TDBGrid1->PrintInfo().header, "R A P O R T");
  EXPECT_TRUE(list.TDBGrid1->SortFields().empty());
  EXPECT_TRUE(list.TDBGrid1->GroupColumns().empty());
  EXPECT_EQ(Column("DocExplicatie"), ";;;");
  EXPECT_EQ(list.WhereBuilder->Conditions().size(), 1u);
}

TEST_F(FrmLinii, ADeletionThatFailsOrHasNoRowDeletesNothing) {
  Add({0, 1, "5311", 1, 0, DateTime(2027, 1, 1), "X", Value(), "I", Value()});
  frmLinii& list = Open();
  GoTo(0);
  Press(list.cmdDelete);
  EXPECT_EQ(LastPrompt(), "Sigur doriti sa stergeti documentul 0 ?");
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM Kv_Linii"), "6 \n");
  CurrentSession().connectionString += ";Lock Timeout=1";
  GoTo(1);
  {
    const Transaction writing(file_);
    Press(list.cmdDelete);
  }
  EXPECT_NE(LastPrompt().find(" in procedura cmdDelete_Click din Form frmLinii Linia: "),
            std::string::npos)
      << LastPrompt();
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM Kv_Linii"), "6 \n");
  file_.Execute("DELETE * FROM Kv_Linii");
  Press(list.cmdCauta);
  messages_.shown.clear();
  Press(list.cmdDelete);
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(FrmLinii, ListsTheRowsOnPaperAndAsAWebPage) {
  frmLinii& list = Open();
  list.WhereBuilder->SetConditions({{"Kv_Linii.DATAINR", WhereOperator::kEqual, "31.10.2026"},
                                    {"Kv_Linii.CONT", WhereOperator::kNotEqual, "404"}});
  Press(list.cmdCauta);
  // Conditions that were not searched with have no part in the listing.
  list.WhereBuilder->SetConditions({});
  Press(list.cmdListare);
  ASSERT_EQ(OpenScreens<frmPreview>().size(), 1u);
  PagedDocument& document = OpenScreens<frmPreview>().front()->Document();
  document.LayOutAll();
  std::string paper;
  for (int page = 0; page < document.PageCount(); ++page) {
    for (const PaintedText& text : TextOfPage(document, page)) {
      paper += text.Text().toStdString() + "\n";
    }
  }
  for (const char* part : {"R A P O R T     CONDITII: DATA INREGISTRARE = 31.10.2026 SI CONT <> ",
                           "2813", "Editat de Kelnar Brovena", "Pagina: 1", "100,10"}) {
    EXPECT_NE(paper.find(part), std::string::npos) << part << paper;
  }
  EXPECT_EQ(paper.find("404\n"), std::string::npos);
  QFile page(QString::fromStdString((company_.Directory() / "Raport.htm").string()));
  ASSERT_TRUE(page.open(QIODevice::ReadOnly));
  const QString html = page.readAll();
  EXPECT_TRUE(
      html.contains("<h3>R A P O R T     CONDITII: DATA INREGISTRARE = 31.10.2026 SI CONT"));
  EXPECT_TRUE(html.contains("<td>Lei &lt;1&gt; &amp; 'x'</td>"));
  EXPECT_EQ(html.count("<tr>"), 4);
  EXPECT_TRUE(html.contains("<th class=\"nr\">100,10</th>"));
  EXPECT_TRUE(messages_.shown.empty()) << LastPrompt();
}

TEST_F(FrmLinii, FailuresOfTheFieldsAndTheTotalsKeepTheirNames) {
  file_.Execute("DROP TABLE Kv_PC");
  Open();
  ASSERT_FALSE(messages_.shown.empty());
  EXPECT_NE(messages_.shown.front().prompt.find(
                " in procedura GetFieldsProperties din Form frmTerti Linia: "),
            std::string::npos)
      << messages_.shown.front().prompt;
  messages_.shown.clear();
  auto* source = list_->findChild<Adodc*>("datPrimaryRS");
  ASSERT_TRUE(source);
  source->SetRecordset(file_.OpenRecordset("select NDI from Kv_Linii"));
  list_->GetTotal();
  EXPECT_EQ(
      LastPrompt(),
      "Eroare 3265 - Item not found: DEBIT in procedura GetTotal din Form frmInterogari Linia: 1");
  // The lines can be used all the same.
  file_.Execute("DELETE * FROM Kv_Linii WHERE NDI = 3");
  Press(list_->cmdCauta);
  Press(list_->findChild<QPushButton*>("cmdAdaugaConditie"));
  Press(list_->cmdCauta);
  EXPECT_EQ(Column("CONT"), "6811;2813;2131;404;");
}

}  // namespace
}  // namespace tevra::test
