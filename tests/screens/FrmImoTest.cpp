// The register and the plan, worked as their user works them.
#include <QTableView>
#include <QtTest>
#include <map>

#include <gtest/gtest.h>

#include "platform/data/Recordset.h"
#include "platform/forms/Windows.h"
#include "platform/print/PageText.h"
#include "platform/print/frmPageSetup.h"
#include "platform/print/frmPreview.h"
#include "platform/system/Settings.h"
#include "register/frmFisaImo.h"
#include "register/frmImo.h"
#include "register/frmPlanAmo.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

class FrmImo : public ::testing::Test {
 protected:
  FrmImo() {
    SetSettings(nullptr);
    for (const char* name : {"Strung", "Freza", "Strung 'mic'", "Presa strung"}) AddAsset(name);
  }
  ~FrmImo() override {
    DeleteScreens<Form>();
    SetSettings(nullptr);
  }
  int AddAsset(const char* name, const std::map<std::string, Value>& more = {}) {
    std::map<std::string, Value> fields{{"COD", "INV"},
                                        {"DENUMIRE", name},
                                        {"COD_GR_NOU", "1.1.1.1"},
                                        {"TIP_AM", "L"},
                                        {"VAL_CUMP", 1000.4},
                                        {"VAL_CUMP_VAL", 200.4},
                                        {"COTA_ANUALA", 0.2},
                                        {"DRFANI", 5.0},
                                        {"DATA_IN_AM", DateTime(2004, 2, 1)},
                                        {"DATA_SF", DateTime(2009, 2, 1)}};
    for (const auto& [field, value] : more) fields[field] = value;
    return company_.AddAsset({fields.begin(), fields.end()});
  }
  frmImo& Open() { return *(list_ = &Activate(windows::Open<frmImo>())); }
  void Click(int row) {
    QTableView* view = list_->TDBGrid1->View();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      view->visualRect(view->model()->index(row, 0)).center());
  }
  void Search(const char* text) {
    list_->txtCautare->setText(text);
    list_->txtCautare->setFocus();
    QTest::keyClick(list_->txtCautare, Qt::Key_Return);
  }
  std::string Names() {
    const DataGrid& grid = *list_->TDBGrid1;
    const int column = grid.ColumnOf("DENUMIRE");
    std::string names;
    for (int row = 0; row < grid.View()->model()->rowCount(); ++row) {
      names += grid.View()->model()->index(row, column).data().toString().toStdString() + ";";
    }
    return names;
  }
  std::string LastMessage() { return messages_.shown.empty() ? "" : messages_.shown.back().prompt; }
  // Accepts the page's set-up, which is modal, and hands out the preview that follows.
  PagedDocument* Listed(QAbstractButton* button) {
    QTimer::singleShot(0, [] {
      for (frmPageSetup* setup : OpenScreens<frmPageSetup>()) setup->cmdAccept->click();
    });
    Press(button);
    const auto previews = OpenScreens<frmPreview>();
    return previews.size() == 1 ? &previews.front()->Document() : nullptr;
  }

  static std::string PaperOf(PagedDocument& document) {
    document.LayOutAll();
    std::string text;
    for (int page = 0; page < document.PageCount(); ++page) {
      for (const PaintedText& each : TextOfPage(document, page)) {
        text += each.Text().toStdString() + "\n";
      }
    }
    return text;
  }

  TestCompany company_;
  MessageRecorder messages_;
  frmImo* list_ = nullptr;
};

TEST_F(FrmImo, OpensWithTheNewestFirstItsTotalsAndItsCount) {
  frmImo& list = Open();
  EXPECT_EQ(Names(), "Presa strung;Strung 'mic';Freza;Strung;");
  EXPECT_EQ(list.TDBGrid1->Columns().size(), 65u);
  EXPECT_EQ(list.TDBGrid1->ShownColumns().size(), 29u);
  EXPECT_EQ(list.TDBGrid1->Footer("VAL_CUMP"), "4.002");
  EXPECT_EQ(list.TDBGrid1->Footer("VAL_CUMP_VAL"), "802");
  EXPECT_EQ(list.TDBGrid1->Footer("VAL_RAMASA"), "0");
  EXPECT_EQ(list.Label1->text(), "4");
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(FrmImo, SearchesByTheBeginningOfTheName) {
  frmImo& list = Open();
  Search("Strung '");
  EXPECT_EQ(Names(), "Strung 'mic';");
  Search(" Nimic");
  EXPECT_EQ(LastMessage(), "Nu exista inregistrari ale caror denumire sa inceapa cu  Nimic !");
  EXPECT_EQ(messages_.shown.back().buttons, kInformation);
  EXPECT_EQ(Names(), "Strung 'mic';");
  company_.Open().Execute("INSERT INTO I_LOCALIZARE (COD, TITLU) VALUES ('H1', 'Hala')");
  company_.Open().Execute("UPDATE I_IMO SET COD_LOC = 'H1'");
  Search("");
  EXPECT_EQ(Names(), "Strung;Freza;Strung 'mic';Presa strung;");
  EXPECT_EQ(list.TDBGrid1->ColumnText(list.TDBGrid1->ColumnOf("loc")), "");
  EXPECT_EQ(list.TDBGrid1->Footer("VAL_CUMP"), "4.002");
}

TEST_F(FrmImo, TheCardOpensForTheRowSelectedLast) {
  frmImo& list = Open();
  Press(list.cmdModificare);
  EXPECT_EQ(LastMessage(), "Va rugam selectati o inregistrare !");
  EXPECT_EQ(messages_.shown.back().buttons, kCritical);
  Click(2);
  EXPECT_EQ(list.sNrCrt, "2");
  company_.Open().Execute("UPDATE I_IMO SET COD_GR_NOU = NULL WHERE NRCRT = 2");
  list.TDBGrid1->RefreshInPlace("NRCRT");
  EXPECT_EQ(list.sNrCrt, "2");
  Press(list.cmdModificare);
  EXPECT_EQ(LastMessage(),
            "Va rog asociati un cod nou de clasificare in Tabela Coduri de clasificare");
  EXPECT_TRUE(OpenScreens<frmFisaImo>().empty());
  // From another row it does not open either.
  list.datPrimaryRS->MoveTo(1);
  Press(list.cmdModificare);
  EXPECT_EQ(messages_.shown.size(), 3u);
  EXPECT_TRUE(OpenScreens<frmFisaImo>().empty());
  Click(1);
  Press(list.cmdModificare);
  ASSERT_EQ(OpenScreens<frmFisaImo>().size(), 1u);
  EXPECT_FALSE(list.bAdaugare);
  EXPECT_EQ(OpenScreens<frmFisaImo>().front()->txtText[text::kName]->Text(), "Strung 'mic'");
}

TEST_F(FrmImo, DeletesTheCurrentAssetWhenTheUserAgrees) {
  frmImo& list = Open();
  company_.Open().Execute(
      "INSERT INTO Kv_Linii (NDI, NrLinie, Jurnal, Cont, Doc, Debit) VALUES "
      "(1, 1, 'JC', '2131', 'F1', 5)");
  Click(1);
  messages_.answers = {kNo, kYes};
  Press(list.CommandButton3);
  EXPECT_EQ(LastMessage(),
            "Sunteti sigur ca doriti sa efectuati stergerea inregistrarii 3 - Strung 'mic' ?");
  EXPECT_EQ(messages_.shown.back().title, "Confirmare stergere");
  EXPECT_EQ(messages_.shown.back().buttons, long{kYesNo} | kDefaultStep);
  EXPECT_EQ(list.Label1->text(), "4");
  Press(list.CommandButton3);
  EXPECT_EQ(Names(), "Presa strung;Freza;Strung;");
  EXPECT_EQ(list.TDBGrid1->ColumnText(0), "2");
  EXPECT_EQ(list.Label1->text(), "3");
  EXPECT_EQ(company_.Open().QueryValue("SELECT COUNT(*) FROM Kv_Linii").AsLong(), 1);
  // The card of an asset that is gone: told, and nothing is added.
  Press(list.cmdModificare);
  EXPECT_EQ(LastMessage().substr(0, 7), "3021 - ");
  EXPECT_EQ(company_.Open().QueryValue("SELECT COUNT(*) FROM I_IMO").AsLong(), 3);

  company_.Open().Execute("DELETE * FROM I_IMO");
  list.Activate();
  const std::size_t told = messages_.shown.size();
  Press(list.CommandButton3);
  EXPECT_EQ(messages_.shown.size(), told);
}

TEST_F(FrmImo, AnotherProgramsWriteKeepsTheAsset) {
  CurrentSession().connectionString += ";Lock Timeout=50";
  frmImo& list = Open();
  Connection other = company_.Open();
  other.BeginTrans();
  Press(list.CommandButton3);
  EXPECT_EQ(messages_.shown.back().title, " CommandButton3_Click ");
  other.RollbackTrans();
  EXPECT_EQ(company_.Open().QueryValue("SELECT COUNT(*) FROM I_IMO").AsLong(), 4);
}

TEST_F(FrmImo, ListsTheSelectedRowsUnderTheirOwnTotals) {
  frmImo& list = Open();
  PagedDocument* none = Listed(list.cmdListare);
  ASSERT_TRUE(none);
  EXPECT_EQ(none->Title(), "Imobilizari");
  EXPECT_EQ(PaperOf(*none).find("Strung"), std::string::npos);
  EXPECT_EQ(list.TDBGrid1->Footer("VAL_CUMP"), "0");
  DeleteScreens<frmPreview>();
  Click(0);
  QTest::keyClick(list.TDBGrid1->View(), Qt::Key_Down, Qt::ShiftModifier);
  PagedDocument* two = Listed(list.cmdListare);
  ASSERT_TRUE(two);
  const std::string paper = PaperOf(*two);
  for (const char* part : {"R A P O R T", "Presa strung", "Strung 'mic'", "2.000", "401",
                           "Editat de Kelnar Tevra", "Pagina: 1"}) {
    EXPECT_NE(paper.find(part), std::string::npos) << part;
  }
  EXPECT_EQ(paper.find("Freza"), std::string::npos);
  EXPECT_EQ(list.TDBGrid1->Footer("VAL_CUMP"), "2.000");
  EXPECT_EQ(list.TDBGrid1->Footer("VAL_CUMP_VAL"), "401");
}

TEST_F(FrmImo, ShowsThePlanOfTheCurrentAsset) {
  AddAsset("Vandut", {{"IESIRE", Value::YesNo(true)}});
  AddAsset("Teren", {{"TIP_AM", "F"}});
  frmImo& list = Open();
  Click(1);
  Press(list.cmdPlan);
  EXPECT_EQ(LastMessage(), "Aceasta imobilizare  a fost vanduta / casata !");
  Click(0);
  Press(list.cmdPlan);
  EXPECT_EQ(LastMessage(), "Aceasta imobilizare este fara amortizare");
  EXPECT_TRUE(OpenScreens<frmPlanAmo>().empty());
  Click(2);
  Press(list.cmdPlan);
  ASSERT_EQ(OpenScreens<frmPlanAmo>().size(), 1u);
  frmPlanAmo& plan = *OpenScreens<frmPlanAmo>().front();
  EXPECT_EQ(plan.Label2->text(), "4");
  EXPECT_EQ(plan.Label4->text(), "Presa strung");
  const QAbstractItemModel* rows = plan.TDBGrid1->View()->model();
  ASSERT_EQ(rows->rowCount(), 6);
  EXPECT_EQ(rows->index(0, 0).data().toString(), "2004");
  EXPECT_EQ(rows->index(0, 2).data().toString(), "183");
  EXPECT_EQ(rows->index(5, 4).data().toString(), "0");
  ASSERT_EQ(plan.picGrafic->Points().size(), 6u);
  EXPECT_EQ(plan.picGrafic->Points()[0].remaining, 817);
  plan.optVal->click();
  QCoreApplication::processEvents();
  EXPECT_EQ(plan.picGrafic->Points()[0].depreciation, 37);
  EXPECT_EQ(plan.picGrafic->Currency(), "USD");
  Press(plan.cmdListare);
  ASSERT_EQ(OpenScreens<frmPreview>().size(), 1u);
  const std::string paper = PaperOf(OpenScreens<frmPreview>().front()->Document());
  for (const char* part : {"PLAN DE AMORTIZARE", "Denumire: Presa strung", "2009", "Pagina: 1"}) {
    EXPECT_NE(paper.find(part), std::string::npos) << part;
  }

  // Asked for again, the same window shows the other asset.
  Click(4);
  Press(list.cmdPlan);
  ASSERT_EQ(OpenScreens<frmPlanAmo>().size(), 1u);
  EXPECT_EQ(plan.Label4->text(), "Freza");
}

TEST_F(FrmImo, APlanThatFailsLeavesTheOneBefore) {
  frmImo& list = Open();
  Click(0);
  Press(list.cmdPlan);
  company_.Open().Execute("UPDATE I_IMO SET DATA_SF = NULL WHERE NRCRT = 2");
  Click(2);
  Press(list.cmdPlan);
  EXPECT_EQ(LastMessage(), "Eroare la salvare !");
  EXPECT_EQ(messages_.shown.back().title, "Salvare plan amortizare");
  EXPECT_EQ(company_.Open().QueryValue("SELECT COUNT(*) FROM I_PLANAMO WHERE ID = 4").AsLong(), 6);
}

}  // namespace
}  // namespace tevra::test
