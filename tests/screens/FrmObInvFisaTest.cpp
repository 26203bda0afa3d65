// The card of an inventory object, worked as its user works it.
#include "session/frmParamSoc.h"
#include "tests/screens/ObjectScreens.h"

namespace tevra::test {
namespace {

using namespace object;

class FrmObInvFisa : public ObjectScreens {
 protected:
  // All boxes from the first on, by keyboard alone; the focus is then in the remarks.
  void FillNew(frmObInvFisa& card) {
    card.txtText[kCode]->setFocus();
    for (const char* text : {"07", "Trusa 'mare'", "303", "C1", "H1", "Ion", "F'1", "7", "5"}) {
      Type(text);
    }
    for (const char* text : {"1.000,50", "5", "200,1"}) Type(text);
    for (const char* date : {"16032026", "01042026"}) Type(date);
  }
  static std::string Preview(const frmObInvFisa& card) {
    const QTableWidget* table = card.grdNota->Table();
    std::string text;
    for (int row = 0; row < table->rowCount(); ++row) {
      for (int column = 0; column < 4; ++column) {
        text += table->item(row, column)->text().toStdString() + (column < 3 ? "|" : "\n");
      }
    }
    return text.empty() ? card.grdNota->Reason()->text().toStdString() : text;
  }
  static std::string Modes(const frmObInvFisa& card) {
    std::string modes;
    for (const QWidget* part : std::initializer_list<const QWidget*>{
             card.cmdSalvare, card.cmdModificare, card.Frame1, card.Frame5}) {
      modes += part->isEnabled() ? "1" : "0";
    }
    return modes;
  }
};

TEST_F(FrmObInvFisa, AnObjectIsBoughtByKeyboardAlone) {
  frmObInvFisa& card = OpenCard();
  EXPECT_EQ(Modes(card), "1010");
  EXPECT_EQ(card.windowTitle(), "Fisa obiect inventar");
  EXPECT_EQ(Preview(card), "Completati valoarea de cumparare a obiectului!");
  FillNew(card);
  // VAT: 1000.5 * 19 % = 190.095, 190.10 with ties to even.
  EXPECT_EQ(Preview(card), "JC|401||1.190,60\n|4426|190,10|\n|303|1.000,50|\n");
  EXPECT_TRUE(messages_.shown.empty());
  Key(Qt::Key_Return);
  ASSERT_EQ(messages_.shown.size(), 1u) << LastPrompt();
  EXPECT_EQ(LastPrompt(), "Datele au fost salvate cu succes !");
  EXPECT_EQ(LastBox(), "|64");
  EXPECT_EQ(Objects("COD, DENUMIRE, COD_CC, COD_LOC, DOCUMENT, COD_FURNIZOR, COD_TVA_CUMP, CONT, "
                    "PERS, VAL_CUMP, CURS, VAL_CUMP_VAL, DATA_ACH, DATA_PF, UTILIZATOR"),
            "07 Trusa 'mare' C1 H1 F'1 7 5 303 Ion 1000 5 200,1 16.03.2026 01.04.2026 admin \n");
  EXPECT_EQ(Lines("CONT, DEBIT, CREDIT, DOC, TERT, CODBUG, DATAINR"),
            "401 0 1190,6 IMO07 7 C1 16.03.2026 \n4426 190,1 0 IMO07  C1 16.03.2026 \n"
            "303 1000,5 0 IMO07  C1 16.03.2026 \n");
  // The card is empty for the next object.
  EXPECT_EQ(card.txtText[kCode]->Text() + card.txtText[kVat]->Text() + card.cboTVA->Text(), "");
  EXPECT_TRUE(card.txtNumar[kValue]->IsEmpty());
  EXPECT_EQ(card.DTPicker1[kBought]->Date(), DateTime(2026, 11, 23));
  EXPECT_TRUE(card.txtText[kCode]->hasFocus());
  EXPECT_FALSE(card.HasChanges());
}

TEST_F(FrmObInvFisa, TheRateOfTheDayGivesTheValueInCurrency) {
  company_.Open().Execute("DELETE FROM kv_val2");
  company_.Open().Execute("INSERT INTO kv_val2 VALUES ('EUR', '2026-03-13 00:00:00', 5.0903)");
  CurrentSession().codDeviza = "EUR";
  frmObInvFisa& card = OpenCard(AddObject("07", "Trusa", "Ion", 101.806));
  messages_.answers = {kYes};
  card.txtNumar[kRate]->setFocus();
  Key(Qt::Key_F4);
  EXPECT_EQ(LastPrompt(), "Cursul 5 va fi inlocuit. Doriti cursul 5,0903 din 13.03.2026 ?");
  EXPECT_EQ(card.txtNumar[kRate]->Text() + " " + card.txtNumar[kForeignValue]->Text(), "5,0903 20");
  EXPECT_TRUE(card.HasChanges());
}

TEST_F(FrmObInvFisa, TheChecksNameTheirBoxes) {
  frmObInvFisa& card = OpenCard();
  Press(card.cmdSalvare);
  EXPECT_EQ(LastPrompt(), "Completati valoarea de cumparare a obiectului!");
  TypeIn(card.txtNumar[kValue], "1.23");
  Press(card.cmdSalvare);
  EXPECT_EQ(LastPrompt(),
            "Valoarea de cumparare(lei) a obiectului trebuie sa fie o valoare numerica!");
  EXPECT_TRUE(card.txtNumar[kValue]->hasFocus());
  EXPECT_EQ(card.txtNumar[kValue]->selectedText(), "1.23");
  TypeIn(card.txtNumar[kValue], "");
  TypeIn(card.txtNumar[kForeignValue], "abc");
  Press(card.cmdSalvare);
  EXPECT_EQ(LastPrompt(),
            "Valoarea de cumparare(valuta) a obiectului trebuie sa fie o valoare numerica!");
  EXPECT_TRUE(card.txtNumar[kForeignValue]->hasFocus());
  TypeIn(card.txtNumar[kForeignValue], "12");
  Press(card.cmdSalvare);
  EXPECT_EQ(LastPrompt(), "Va rog introduceti TVA!");
  EXPECT_EQ(LastBox(), "|64");
  EXPECT_TRUE(card.cboTVA->hasFocus());
  EXPECT_EQ(Objects("COD"), "");
  // Only a value in currency: an object of 0 lei, without lines.
  TypeIn(card.cboTVA, "5");
  EXPECT_EQ(Preview(card), "La valoarea 0 nu se scrie nota contabila.");
  Press(card.cmdSalvare);
  EXPECT_EQ(Objects("VAL_CUMP, VAL_CUMP_VAL, CONT"), "0 12  \n");
  EXPECT_EQ(Lines("CONT"), "");
}

TEST_F(FrmObInvFisa, WithoutTheInventoryAccountTheConfigurationOpens) {
  CurrentSession().contObiecteInventar = "";
  frmObInvFisa& card = OpenCard();
  EXPECT_EQ(Preview(card), "Va rog configurati contul de obiecte de inventar!");
  Press(card.cmdSalvare);
  EXPECT_EQ(LastPrompt(), "Va rog configurati contul de obiecte de inventar!");
  EXPECT_EQ(LastBox(), "|64");
  ASSERT_EQ(OpenScreens<frmParamSoc>().size(), 1u);
  EXPECT_EQ(OpenScreens<frmParamSoc>().front()->SSTab1->currentIndex(), 2);
  delete OpenScreens<frmParamSoc>().front();
  CurrentSession().userType = 2;
  Activate(card);
  Press(card.cmdSalvare);
  EXPECT_TRUE(OpenScreens<frmParamSoc>().empty());
  EXPECT_EQ(messages_.shown.size(), 2u);
}

TEST_F(FrmObInvFisa, NotesOfAnythingElseUnderTheDocumentAreAskedAbout) {
  company_.Open().Execute(
      "INSERT INTO Kv_Linii (NDI, NrLinie, Jurnal, Cont, Doc, Debit) VALUES "
      "(1, 1, 'OD', '6811', 'IMO07', 5)");
  frmObInvFisa& card = OpenCard();
  FillNew(card);
  messages_.answers = {kNo, kYes};
  Press(card.cmdSalvare);
  EXPECT_NE(LastPrompt().find("\"IMO07\" exista deja o nota contabila, in suma de 5,00 lei"),
            std::string::npos)
      << LastPrompt();
  EXPECT_EQ(Objects("COD") + Lines("CONT"), "6811 \n");
  EXPECT_EQ(card.txtText[kCode]->Text(), "07");
  Press(card.cmdSalvare);
  EXPECT_EQ(Objects("COD") + Lines("CONT"), "07 \n401 \n4426 \n303 \n");
}

TEST_F(FrmObInvFisa, ARowThatIsNotSavedKeepsTheCardAndWritesNoNote) {
  frmObInvFisa& card = OpenCard();
  FillNew(card);
  TypeIn(card.txtNumar[kRate], "abc");
  Press(card.cmdSalvare);
  EXPECT_EQ(LastPrompt(), "13 - Type mismatch: abc");
  EXPECT_EQ(LastBox(), "Salvare|16");
  EXPECT_EQ(Objects("COD") + Lines("CONT"), "");
  EXPECT_EQ(card.txtText[kCode]->Text(), "07");
}

TEST_F(FrmObInvFisa, ARefusedNoteLeavesTheObject) {
  CurrentSession().contFurnizori = "";
  frmObInvFisa& card = OpenCard();
  FillNew(card);
  Press(card.cmdSalvare);
  EXPECT_EQ(LastPrompt(),
            "Eroare -2147221494 - Trebuie sa precizati: Cont in procedura pAddNoteContabile din "
            "Form frmRapCHE Linia: 0");
  EXPECT_EQ(Objects("COD") + Lines("CONT"), "07 \n");
  EXPECT_EQ(card.txtText[kCode]->Text(), "");
}

TEST_F(FrmObInvFisa, AChangeKeepsTheFieldsOfEmptiedBoxesAndLocksTheCard) {
  const int id = AddObject("07", "Trusa", "Ion", 1000);
  frmObInvFisa& card = OpenCard(id);
  EXPECT_EQ(Modes(card), "0111");
  EXPECT_EQ(card.windowTitle(), "Fisa obiect inventar - 07 Trusa");
  EXPECT_EQ(card.cboCentruCost->Text() + card.cboFurnizori->Text(), "C1-HalaO'NEIL & FIII");
  EXPECT_EQ(card.cboTVA->Text(), "4426-19");
  EXPECT_FALSE(card.HasChanges());
  TypeIn(card.txtText[kPerson], "");
  TypeIn(card.cboCentruCost, "");
  TypeIn(card.txtText[kName], " Trusa 'noua' ");
  EXPECT_TRUE(card.HasChanges());
  Key(Qt::Key_Return);
  EXPECT_EQ(LastPrompt(), "Datele au fost modificate cu succes !");
  EXPECT_EQ(Objects("DENUMIRE, PERS, COD_CC, VAL_CUMP, VAL_CUMP_VAL"),
            "Trusa 'noua' Ion C1 1000 250 \n");
  EXPECT_EQ(Lines("CONT"), "");
  EXPECT_EQ(Modes(card), "0101");
  EXPECT_TRUE(card.cmdIesire->hasFocus());
  EXPECT_FALSE(card.HasChanges());
}

TEST_F(FrmObInvFisa, TheValueInCurrencyFollowsValueAndRate) {
  frmObInvFisa& fresh = OpenCard();
  TypeIn(fresh.txtNumar[kValue], "1000");
  EXPECT_TRUE(fresh.txtNumar[kForeignValue]->IsEmpty());
  TypeIn(fresh.txtNumar[kRate], "3");
  EXPECT_EQ(fresh.txtNumar[kForeignValue]->Number(), 333.333);
  TypeIn(fresh.txtNumar[kRate], "0");
  EXPECT_EQ(fresh.txtNumar[kForeignValue]->Number(), 333.333);
  TypeIn(fresh.txtNumar[kForeignValue], "1");
  EXPECT_EQ(fresh.txtNumar[kForeignValue]->Number(), 1);
  // On the card of an existing object only a changed box derives: 1000 / 5 is not the stored 250.
  frmObInvFisa& card = OpenCard(AddObject("07", "Trusa", "Ion", 1000));
  card.txtNumar[kValue]->setFocus();
  Key(Qt::Key_Tab);
  Key(Qt::Key_Tab);
  EXPECT_EQ(card.txtNumar[kForeignValue]->Number(), 250);
  TypeIn(card.txtNumar[kRate], "4,5");
  EXPECT_EQ(card.txtNumar[kForeignValue]->Number(), 222.222);
  // The same number, typed again, derives too.
  TypeIn(card.txtNumar[kForeignValue], "1");
  TypeIn(card.txtNumar[kRate], "4,5");
  EXPECT_EQ(card.txtNumar[kForeignValue]->Number(), 222.222);
}

TEST_F(FrmObInvFisa, AnObjectIsWrittenOffOnce) {
  const int id = AddObject("07", "Trusa", "Ion", 1000);
  frmObInvFisa& card = OpenCard(id);
  EXPECT_EQ(Preview(card), "OD|303||1.000,00\n|603|1.000,00|\n");
  TypeIn(card.txtNumar[kValue], "800");
  EXPECT_EQ(Preview(card), "OD|303||800,00\n|603|800,00|\n");
  Press(card.cmdDescarcare);
  EXPECT_EQ(LastPrompt(), "Descarcare cu succes !");
  EXPECT_EQ(LastBox(), "|64");
  EXPECT_EQ(Lines("JURNAL, DATAINR, CONT, DEBIT, CREDIT"),
            "OD 01.04.2026 303 0 800 \nOD 01.04.2026 603 800 0 \n");
  EXPECT_EQ(Objects("Blocata, VAL_CUMP"), "True 1000 \n");
  const std::string before = "Obiectul de inventar este descarcat, nu il mai puteti descarca";
  EXPECT_EQ(Preview(card), before);
  Press(card.cmdDescarcare);
  EXPECT_EQ(LastPrompt(), "Obiectul de inventar a fost pus in functiune");
  EXPECT_EQ(LastBox(), "|48");
  card.DropChangesAndClose();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  frmObInvFisa& again = OpenCard(id);
  EXPECT_TRUE(again.bBlocata);
  Press(again.cmdDescarcare);
  EXPECT_EQ(LastPrompt(), before);
  EXPECT_EQ(LastBox(), "|64");
  EXPECT_EQ(Lines("NDI"), "1 \n1 \n");
}

TEST_F(FrmObInvFisa, TheWriteOffIsRefusedByDateExistenceAndAccount) {
  frmObInvFisa& fresh = OpenCard();
  TypeIn(fresh.DTPicker1[kInService], "31122025");
  Press(fresh.cmdDescarcare);
  EXPECT_EQ(LastPrompt(),
            "Data punerii functiune trebuie sa fie in intervalul: 01.01.2026 - 31.12.2026");
  EXPECT_EQ(LastBox(), "|0");
  EXPECT_TRUE(fresh.DTPicker1[kInService]->hasFocus());
  TypeIn(fresh.DTPicker1[kInService], "01012026");
  Press(fresh.cmdDescarcare);
  EXPECT_EQ(LastPrompt(), "Obiectul de inventar nu exista");
  EXPECT_EQ(LastBox(), "|16");

  company_.Open().Execute("UPDATE I_CONTURIIM SET CONT_CHELT = NULL WHERE CONT = '303'");
  frmObInvFisa& card = OpenCard(AddObject("07", "Trusa", "Ion", 1000));
  const std::string none = "Nu exista cont de cheltuiala asociat contului: 303";
  EXPECT_EQ(Preview(card), none);
  Press(card.cmdDescarcare);
  EXPECT_EQ(LastPrompt(), none);
  EXPECT_EQ(LastBox(), "|48");
  company_.Open().Execute("UPDATE I_CONTURIIM SET CONT_CHELT = '' WHERE CONT = '303'");
  Press(card.cmdDescarcare);
  EXPECT_EQ(LastPrompt(),
            "Eroare -2147221494 - Trebuie sa precizati: Cont in procedura cmdDescarcare_Click din "
            "Form frmObInvFisa Linia: 1");
  EXPECT_EQ(Objects("Blocata") + Lines("CONT"), "False \n");
}

TEST_F(FrmObInvFisa, ATickScrapsTheObjectAndItsCardIsThenForReading) {
  const int id = AddObject("07", "Trusa", "Ion", 1000);
  frmObInvFisa& card = OpenCard(id);
  card.chKCasare->setFocus();
  Key(Qt::Key_Space);
  TypeIn(card.DTPicker1[kLeft], "30092026");
  Press(card.cmdModificare);
  EXPECT_EQ(Objects("IESIRE, TIP_IESIRE, DATA_IESIRE"), "True C 30.09.2026 \n");
  EXPECT_EQ(Lines("CONT"), "");
  Press(card.cmdVanzare);
  Press(card.cmdConservare);
  EXPECT_EQ(messages_.shown.size(), 1u);
  card.close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  frmObInvFisa& again = OpenCard(id);
  EXPECT_EQ(Modes(again), "0001");
  EXPECT_TRUE(again.chKCasare->isChecked());
  EXPECT_EQ(again.DTPicker1[kLeft]->Date(), DateTime(2026, 9, 30));
}

TEST_F(FrmObInvFisa, TheListsOfferWhatIsInUse) {
  frmObInvFisa& card = OpenCard();
  const auto entries = [](const DataCombo* combo) {
    std::string text;
    for (int i = 0; i < combo->count(); ++i) text += combo->itemText(i).toStdString() + ";";
    return text;
  };
  EXPECT_EQ(entries(card.cboCentruCost), "C1-Hala;");
  EXPECT_EQ(entries(card.cboFurnizori), "O'NEIL & FIII;");
  EXPECT_EQ(entries(card.cboTVA).substr(0, 16), "4426-21;4426-11;");
  EXPECT_EQ(entries(card.cboTVA).find("4427"), std::string::npos);
  EXPECT_EQ(entries(card.cboCont).substr(0, 1), "3");
  company_.Open().Execute("INSERT INTO Kv_CC (COD, TITLU, UTILIZABIL) VALUES ('C3', 'Noua', 'D')");
  card.Activate();
  EXPECT_EQ(entries(card.cboCentruCost), "C1-Hala;C3-Noua;");
}

TEST_F(FrmObInvFisa, ChangesAreNotLostWithoutAQuestion) {
  frmObInvFisa& card = OpenCard(AddObject("07", "Trusa", "Ion", 1000));
  TypeIn(card.txtText[kName], "Alta");
  messages_.answers = {kNo};
  card.close();
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.size(), 1u);
  EXPECT_TRUE(card.isVisible());
  EXPECT_EQ(Objects("DENUMIRE"), "Trusa \n");
}

}  // namespace
}  // namespace tevra::test
