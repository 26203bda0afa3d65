// The list of inventory objects, worked as its user works it.
#include "platform/print/PageText.h"
#include "platform/print/frmPreview.h"
#include "tests/screens/GridTexts.h"
#include "tests/screens/ObjectScreens.h"

namespace tevra::test {
namespace {

class FrmObInv : public ObjectScreens {
 protected:
  FrmObInv() {
    AddObject("1", "Trusa", "Ion", 100.4);
    AddObject("2", "Scara 'mare'", "Maria", 200.4);
    AddObject("3", "Trusa veche", "Ion'escu", 300.4);
  }
  frmObInv& Open() { return *(list_ = &Activate(windows::Open<frmObInv>())); }
  void Click(int row, Qt::KeyboardModifiers modifiers = {}) {
    QTableView* view = list_->TDBGrid1->View();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers,
                      view->visualRect(view->model()->index(row, 0)).center());
  }
  void Search(const char* text) {
    list_->txtCautare->setText(text);
    list_->txtCautare->setFocus();
    QTest::keyClick(list_->txtCautare, Qt::Key_Return);
    QCoreApplication::processEvents();
  }
  std::string Column(const char* field) const { return ColumnTexts(*list_->TDBGrid1, field); }
  std::string Footers() {
    return (list_->TDBGrid1->Footer("VAL_CUMP") + " " + list_->TDBGrid1->Footer("VAL_CUMP_VAL"))
        .toStdString();
  }
  frmObInv* list_ = nullptr;
};

TEST_F(FrmObInv, OpensWithTheNewestFirstItsColumnsAndTotals) {
  frmObInv& list = Open();
  std::string captions;
  for (const GridColumn& column : list.TDBGrid1->Columns()) {
    captions += column.caption.toStdString() + ";";
  }
  EXPECT_EQ(captions,
            "Nr.crt.;Nr.Inv.;Denumire;Centru Cost;Cont;Localizare;Furnizor;Document;Data "
            "achizitiei;Data punere in functiune;Valoare;Curs valutar;Valoare in "
            "valuta;Iesire;Data iesirii;Persoana evidenta;Observatii;");
  EXPECT_EQ(Column("NRCRT"), "3;2;1;");
  EXPECT_EQ(Column("Furniz"), "O'NEIL & FIII;O'NEIL & FIII;O'NEIL & FIII;");
  EXPECT_EQ(Column("iesire"), "Nu;Nu;Nu;");
  EXPECT_EQ(Footers(), "601,20 150,30");
  EXPECT_EQ(list.lblRecCount->text(), "3");
  EXPECT_EQ(list.windowTitle(), "Obiecte de inventar");
  auto* byName = list.findChild<OptionButton*>("optOb");
  ASSERT_TRUE(byName && byName->isChecked());
  EXPECT_EQ(byName->text(), "dupa den. obiect");
  EXPECT_EQ(list.findChild<OptionButton*>("optPers")->text(), " dupa pers. evid.");
  EXPECT_EQ(list.cmdCauta->toolTip(), "Cautare dupa denumire sau persoana");
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(FrmObInv, AnEmptyRegisterIsShownEmpty) {
  company_.Open().Execute("DELETE * FROM I_INV");
  frmObInv& list = Open();
  EXPECT_EQ(list.lblRecCount->text(), "0");
  EXPECT_EQ(Footers(), "0,00 0,00");
  Press(list.CommandButton3);
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(FrmObInv, SearchesByNameOrByPerson) {
  frmObInv& list = Open();
  Search("  trusa ");
  EXPECT_EQ(Column("NRCRT"), "3;1;");
  // In whole lei after a search: 400.8.
  EXPECT_EQ(Footers(), "401,00 100,20");
  EXPECT_EQ(list.lblRecCount->text(), "2");
  EXPECT_TRUE(list.txtCautare->hasFocus());
  Search(" x'");
  EXPECT_EQ(LastPrompt(), "Nu exista obiecte de inventar ale caror denumire sa inceapa cu  x' !");
  EXPECT_EQ(LastBox(), "|64");
  EXPECT_EQ(Column("NRCRT"), "3;1;");
  EXPECT_EQ(list.lblRecCount->text(), "2");
  list.findChild<OptionButton*>("optPers")->click();
  Search("Ion'");
  EXPECT_EQ(Column("NRCRT"), "3;");
  Search("nimeni");
  EXPECT_EQ(LastPrompt(),
            "Nu exista persoane care gestioneaza obiectele de inventar ale caror nume sa inceapa "
            "cu nimeni !");
  Search(" ");
  EXPECT_EQ(Column("NRCRT"), "3;2;1;");
  EXPECT_EQ(Footers(), "601,00 150,30");
  EXPECT_EQ(Column("CC"), "Hala;Hala;Hala;");
  company_.Open().Execute("DROP TABLE I_LOCALIZARE");
  Search("trusa");
  EXPECT_EQ(LastBox(), "Cautare|16");
}

TEST_F(FrmObInv, TheFootersFollowTheSelectionAndTheRegister) {
  frmObInv& list = Open();
  Click(0);
  EXPECT_EQ(Footers(), "300,00 75,10");
  Click(1, Qt::ShiftModifier);
  EXPECT_EQ(Footers(), "501,00 125,20");
  AddObject("4", "Nou", "Ana", 1000);
  list.TDBGrid1->View()->clearSelection();
  list.Activate();
  EXPECT_EQ(list.lblRecCount->text(), "4");
  EXPECT_EQ(Column("NRCRT"), "4;3;2;1;");
  list.TDBGrid1->AddGroupColumn(list.TDBGrid1->ColumnOf("DENUMIRE"));
  EXPECT_EQ(Column("NRCRT"), "4;2;1;3;");
  EXPECT_EQ(Footers(), "1.601,00 400,30");
  list.cmdDown->click();
  EXPECT_EQ(Column("NRCRT"), "3;1;2;4;");
}

TEST_F(FrmObInv, TheCardOpensForTheRowSelectedLastOrForANewObject) {
  frmObInv& list = Open();
  Press(list.cmdModificare);
  EXPECT_EQ(LastPrompt(), "Va rugam selectati o inregistrare !");
  EXPECT_EQ(LastBox(), "|16");
  Click(1);
  EXPECT_EQ(list.sNrCrt, "2");
  Press(list.cmdModificare);
  ASSERT_EQ(OpenScreens<frmObInvFisa>().size(), 1u);
  EXPECT_EQ(OpenScreens<frmObInvFisa>().front()->ID, 2);
  EXPECT_FALSE(list.bAdaugare);
  Activate(list);
  Press(list.cmdModificare);
  EXPECT_EQ(OpenScreens<frmObInvFisa>().size(), 1u);
  Press(list.cmdCreare);
  Press(list.cmdCreare);
  EXPECT_TRUE(list.bAdaugare);
  EXPECT_EQ(OpenScreens<frmObInvFisa>().size(), 2u);
}

TEST_F(FrmObInv, DeletesTheCurrentObjectWhenTheUserAgrees) {
  frmObInv& list = Open();
  company_.Open().Execute(
      "INSERT INTO Kv_Linii (NDI, NrLinie, Jurnal, Cont, Doc, Debit) VALUES "
      "(1, 1, 'JC', '303', 'IMO2', 5)");
  company_.Open().Execute("UPDATE I_INV SET Blocata = TRUE");
  Click(1);
  messages_.answers = {kNo, kYes};
  Press(list.CommandButton3);
  EXPECT_EQ(LastPrompt(),
            "Sunteti sigur ca doriti sa efectuati stergerea obiectului Scara 'mare' ?");
  EXPECT_EQ(LastBox(), "Confirmare stergere|" + std::to_string(kYesNo | kQuestion | kDefaultStep));
  EXPECT_EQ(Column("NRCRT"), "3;2;1;");
  Press(list.CommandButton3);
  EXPECT_EQ(Column("NRCRT"), "3;1;");
  EXPECT_EQ(list.lblRecCount->text(), "2");
  EXPECT_EQ(Lines("DOC"), "IMO2 \n");
  EXPECT_NE(list.sNrCrt, "2");

  Connection other = company_.Open();
  CurrentSession().connectionString += ";Lock Timeout=50";
  other.BeginTrans();
  Press(list.CommandButton3);
  other.RollbackTrans();
  EXPECT_EQ(LastBox(), " CommandButton3_Click |16");
  EXPECT_EQ(Objects("NRCRT"), "1 \n3 \n");
}

TEST_F(FrmObInv, ListsTheSelectedRows) {
  frmObInv& list = Open();
  Click(1);
  Press(list.cmdListare);
  const auto previews = OpenScreens<frmPreview>();
  ASSERT_EQ(previews.size(), 1u);
  PagedDocument& document = previews.front()->Document();
  document.LayOutAll();
  std::string paper;
  for (int page = 0; page < document.PageCount(); ++page) {
    for (const PaintedText& each : TextOfPage(document, page)) {
      paper += each.Text().toStdString() + "\n";
    }
  }
  for (const char* part :
       {"R A P O R T", "Scara 'mare'", "200,40", "Editat de Tevra", "Pagina: 1", "Nr.Inv."}) {
    EXPECT_NE(paper.find(part), std::string::npos) << part;
  }
  EXPECT_EQ(paper.find("Trusa"), std::string::npos);
  EXPECT_EQ(document.Title(), "Obiecte de inventar");
}

}  // namespace
}  // namespace tevra::test
