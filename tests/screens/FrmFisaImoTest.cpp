// The card of an asset, worked as its user works it, and the rows that come of it.
#include "tests/screens/CardTest.h"

namespace tevra::test {
namespace {

class FrmFisaImo : public CardTest {};

TEST_F(FrmFisaImo, ANewCardStandsOnTodayAndTheUsualValues) {
  const auto card = Open();
  EXPECT_TRUE(card->Liniara->isChecked());
  EXPECT_EQ(card->txtText[kMethod]->Text(), "L");
  EXPECT_EQ(Boxes(*card, {6, 13, 14}), "100 0 0");
  EXPECT_EQ(card->cboGradUtiliz->Text(), "100");
  EXPECT_EQ(card->cboTVA->Text(), "FARA TVA-0");
  EXPECT_EQ(card->DTPicker1[kBought]->Date(), DateTime(2026, 11, 23));
  EXPECT_EQ(card->DTPicker1[kStart]->Date(), DateTime(2026, 12, 23));
  EXPECT_EQ(card->DTPicker1[kEnd]->Date(), DateTime(2026, 12, 23));
  EXPECT_TRUE(card->cmdSalvare->isEnabled());
  EXPECT_FALSE(card->cmdModificare->isEnabled());
  EXPECT_FALSE(card->cmdVanzare->isEnabled());
  EXPECT_FALSE(card->txtNumar[kCoef]->isEnabled());
  EXPECT_EQ(card->txtText[kCode]->toolTip(), "Maxim 20 caractere alfanumerice");
}

TEST_F(FrmFisaImo, AssetsOfAllMethodsAreEnteredAndReopened) {
  struct Case {
    const char* option;
    const char* normal;
    const char* boxes;  // real duration, rate, share
    const char* stored;
  };
  const Case cases[] = {
      {"Liniara", "8", "8 0,125 ", "L 8 96 0,125 0 0 0 01.02.2026 01.02.2026 01.02.2034"},
      {"Accelerata", "5", "5 0,25 0,5", "A 5 60 0,25 0,5 0 0 01.02.2026 01.02.2027 01.02.2031"},
      {"FaraUzura", "5", "5 0,333333333333333 0,3",
       "N 5 60 0,333333333333333 0,3 3 2 01.02.2026 01.02.2028 01.02.2031"},
      {"CuUzura", "8", "4 0,25 0,25", "M 4 48 0,25 0,25 4 0 01.02.2026 01.02.2026 01.02.2030"},
      {"Faraam", "8", "8 0 ", "F 8 96 0 0 0 0 15.01.2026 15.01.2026 15.01.2026"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.option);
    {
      const auto card = Open();
      Fill(*card, c.normal);
      card->findChild<OptionButton*>(c.option)->setChecked(true);
      EXPECT_EQ(Boxes(*card, {4, 5, 10}), c.boxes);
      card->DTPicker1[kBought]->setFocus();
      card->DTPicker1[kInService]->setFocus();
      QCoreApplication::processEvents();
      Press(card->cmdSalvare);
      EXPECT_EQ(LastPrompt(), "Datele au fost salvate cu succes in Imobilizari!");
      EXPECT_EQ(card->txtText[kCode]->Text(), "");
    }
    const char* fields =
        "TIP_AM, DRFANI, DRFLUNI, COTA_ANUALA, COEF, AD1, AD2, DATA_IN_AM, DATA_AMORT, DATA_SF";
    EXPECT_EQ(Stored(fields), c.stored);
    EXPECT_EQ(Stored("VAL_CUMP, VAL_CUMP_VAL, CURS, VAL_RAMASA"), "12000 2400 5 12000");
    const auto again = OpenStored();
    EXPECT_TRUE(again->findChild<OptionButton*>(c.option)->isChecked());
    EXPECT_EQ(again->cboFurnizori->Text(), "O'NEIL & FIII");
    EXPECT_EQ(again->cboTVA->Text(), "4426-19");
    EXPECT_FALSE(again->cmdSalvare->isEnabled());
    Press(again->cmdModificare);
    EXPECT_EQ(LastPrompt(), "Datele au fost modificate cu succes !");
    EXPECT_EQ(Stored(fields), c.stored);
    EXPECT_EQ(GetRecordCount("Kv_Linii"), 3) << "the note of the same document, once";
  }
}

TEST_F(FrmFisaImo, BlockingDerivesOverTheYearsLeftAndIsTakenBack) {
  {
    const auto card = Open();
    Fill(*card);
    Press(card->cmdSalvare);
  }
  const auto card = OpenStored();
  card->DTPicker1[kBlockedFrom]->SetDate(DateTime(2032, 7, 17));
  Press(card->chkBlocata);
  EXPECT_EQ(Boxes(*card, {11, 12, 5}), "2 7 0,5");
  EXPECT_FALSE(card->Accelerata->isEnabled());
  card->chkBlocata->setFocus();
  Type(card->txtNumar[kBlockedValue], "5000");
  EXPECT_EQ(card->txtNumar[kBlockedForeignValue]->Text(), "1.000,00");
  Press(card->cmdModificare);
  EXPECT_EQ(LastPrompt(), "Datele au fost modificate cu succes !");
  EXPECT_EQ(card->DTPicker1[kBlockedFrom]->Date(), DateTime(2032, 7, 1));
  EXPECT_EQ(Stored("BLOCATA, DATA_BLOCARE, VAL_BLOCATA, VAL_BLOCATA_VAL, DRBANI, COTA_ANUALA, "
                   "DATA_AMORT"),
            "True 01.07.2032 5000 1000 2 0,5 01.07.2032");

  const auto again = OpenStored();
  EXPECT_TRUE(again->chkBlocata->isChecked());
  EXPECT_EQ(Boxes(*again, {11, 12}), "2 7");
  again->chkBlocata->setFocus();
  Press(again->chkBlocata);
  EXPECT_FALSE(again->Liniara->isEnabled()) << "until the box is left";
  again->txtText[kRemarks]->setFocus();
  QCoreApplication::processEvents();
  EXPECT_TRUE(again->Liniara->isEnabled());
  EXPECT_EQ(Boxes(*again, {7, 8, 11, 12}), "0 0 0 0");
  Press(again->cmdModificare);
  EXPECT_EQ(Stored("BLOCATA, DRBANI"), "False 2");
}

TEST_F(FrmFisaImo, RefusalsInTheirWordsWithTheFocusWhereTheyAreMended) {
  const auto card = Open();
  Fill(*card);
  card->chkBlocata->setChecked(true);
  card->DTPicker1[kBlockedFrom]->SetDate(DateTime(2030, 1, 1));
  card->txtNumar[kBlockedValue]->SetText("100");
  card->txtNumar[kBlockedForeignValue]->SetText("20");
  ASSERT_TRUE(card->EsteFisaValida()) << LastPrompt();
  const std::string positive = "Va rugam introduceti o valoare numerica pozitiva pentru ";
  struct Case {
    const char* box;
    const char* text;
    std::string prompt;
  };
  const Case cases[] = {
      {"txtText(0)", "  ", "Va rugam completati Numar inventar !"},
      {"txtText(2)", "", "Va rugam completati Denumire !"},
      {"txtText(5)", "", "Va rugam completati Document !"},
      {"cboTVA", "", "TVA nu este completata !"},
      {"cboCont", "", "Contul nu este completat !"},
      {"cboGrupa", "", "Grupa de Imobilizare nu este completata !"},
      {"cboFurnizori", "", "Furnizorul nu este completat !"},
      {"txtNumar(0)", "", positive + "Valoare LEI !"},
      {"txtNumar(0)", "1.23", positive + "Valoare LEI !"},
      {"txtNumar(1)", "-1", positive + "Curs !"},
      {"txtNumar(2)", "abc", positive + "Valoare USD !"},
      {"txtNumar(3)", "", positive + "Durata normala !"},
      {"txtNumar(4)", "x", positive + "Durata reala !"},
      {"txtNumar(5)", "-0,5", positive + "Coeficient amortizare !"},
      {"cboGradUtiliz", "", "Gradul de utilizare nu este completat !"},
      {"txtNumar(7)", "", positive + "Valoare blocata LEI !"},
      {"txtNumar(8)", "-1", positive + "Valoare blocata USD !"},
      {"txtNumar(7)", "12000,01", positive + "Valoare blocata LEI mai mica decat Valoare LEI!"},
      {"txtNumar(8)", "2400,01", positive + "Valoare blocata USD mai mica decat Valoare USD!"},
  };
  for (const Case& c : cases) {
    auto* box = card->findChild<QWidget*>(c.box);
    auto* number = dynamic_cast<NumberBox*>(box);
    auto* combo = dynamic_cast<DataCombo*>(box);
    auto* text = dynamic_cast<TextBox*>(box);
    const std::string before = number ? number->Text() : combo ? combo->Text() : text->Text();
    const auto set = [&](const std::string& value) {
      number ? number->SetText(value) : combo ? combo->SetText(value) : text->SetText(value);
    };
    set(c.text);
    EXPECT_FALSE(card->EsteFisaValida());
    EXPECT_EQ(LastPrompt(), c.prompt) << c.box;
    EXPECT_EQ(messages_.shown.back().buttons, kCritical);
    EXPECT_TRUE(box->hasFocus()) << c.box;
    set(before);
  }
  card->txtText[kMethod]->SetText("");
  EXPECT_FALSE(card->EsteFisaValida());
  EXPECT_EQ(LastPrompt(), "Va rugam selectati tipul de amortizare !");
  card->txtText[kMethod]->SetText("L");
  card->DTPicker1[kBlockedFrom]->SetDate(card->DTPicker1[kStart]->Date().value().AddDays(-1));
  EXPECT_FALSE(card->EsteFisaValida());
  EXPECT_EQ(LastPrompt(), "Selectati data de blocare a imobilizarii corect!");
  card->DTPicker1[kBlockedFrom]->SetDate(card->DTPicker1[kEnd]->Date());
  EXPECT_TRUE(card->EsteFisaValida());
  card->DTPicker1[kBlockedFrom]->SetDate(card->DTPicker1[kEnd]->Date().value().AddDays(1));
  EXPECT_FALSE(card->EsteFisaValida());
  EXPECT_EQ(LastPrompt(),
            "Atentie! Nu puteti bloca o imobilizare a carei perioada de amortizare s-a sfarsit!");
  EXPECT_EQ(GetRecordCount("I_IMO"), 0);
}

TEST_F(FrmFisaImo, AMethodThatDoesNotFitFallsBackToTheLinearOne) {
  const auto card = Open();
  card->CuUzura->setChecked(true);
  EXPECT_EQ(LastPrompt(), "Va rugam completati Durata normala !");
  EXPECT_TRUE(card->Liniara->isChecked());
  EXPECT_TRUE(card->txtNumar[kNormalYears]->hasFocus());
  Type(card->txtNumar[kNormalYears], "4");
  card->CuUzura->setChecked(true);
  EXPECT_EQ(LastPrompt(), "Nu se calculeaza amortizare degresiva cu uzura pentru 4 ani!");
  EXPECT_EQ(card->txtText[kMethod]->Text(), "L");
  card->FaraUzura->setChecked(true);
  EXPECT_EQ(Boxes(*card, {4, 5, 10}), "4 0,333333333333333 0,375");
  // Typed again, the share is a percentage and the rate that of the whole life.
  Type(card->txtNumar[kNormalYears], "5");
  EXPECT_EQ(Boxes(*card, {4, 5, 10}), "5 0,2 30");
  Type(card->txtNumar[kNormalYears], "6");
  EXPECT_EQ(LastPrompt(), "Nu se calculeaza amortizare degresiva fara uzura pentru 6 ani!");
  EXPECT_TRUE(card->Liniara->isChecked());
  EXPECT_EQ(Boxes(*card, {4, 5}), "6 0,166666666666667");
}

TEST_F(FrmFisaImo, WhatCannotBeDerivedIsToldAndTheBoxKeepsItsText) {
  const auto card = Open();
  Type(card->txtNumar[kNormalYears], "1");
  EXPECT_EQ(Boxes(*card, {4, 5}), "1 1");
  card->Accelerata->setChecked(true);
  EXPECT_EQ(LastPrompt(), "11 - Division by zero");
  EXPECT_EQ(messages_.shown.back().title, " Accelerata_Click ");
  EXPECT_EQ(card->txtNumar[kRate]->Text(), "1");
  company_.Open().Execute("DELETE * FROM I_COEFAD");
  Type(card->txtNumar[kNormalYears], "8");
  card->CuUzura->setChecked(true);
  EXPECT_EQ(messages_.shown.back().title, " CuUzura_Click ");
  Type(card->txtNumar[kNormalYears], "opt");
  EXPECT_EQ(messages_.shown.back().title.substr(0, 28), "TxtNumar_lostfocus - Linia 4");
  EXPECT_EQ(card->txtNumar[kNormalYears]->Text(), "opt");
}

TEST_F(FrmFisaImo, AChoiceThatTheBoxLeftTookBackIsHeardOnce) {
  const auto card = Open();
  Type(card->txtNumar[kNormalYears], "8");
  card->txtNumar[kNormalYears]->setFocus();
  QTest::mouseClick(card->FaraUzura, Qt::LeftButton, {}, QPoint(8, card->FaraUzura->height() / 2));
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.size(), 1u);
  EXPECT_EQ(LastPrompt(), "Nu se calculeaza amortizare degresiva fara uzura pentru 8 ani!");
  EXPECT_TRUE(card->Liniara->isChecked());
  EXPECT_EQ(card->txtText[kMethod]->Text(), "L");
  EXPECT_TRUE(card->Frame7->isEnabled());
}

TEST_F(FrmFisaImo, WhatTheProgramDoesWithTheFocusLeavesNoBox) {
  const auto card = Open();
  card->txtNumar[kNormalYears]->setFocus();
  QTest::keyClick(card->txtNumar[kNormalYears], Qt::Key_Tab);
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.size(), 1u);
  EXPECT_TRUE(card->txtNumar[kNormalYears]->hasFocus());
  Fill(*card);
  messages_.shown.clear();
  card->txtNumar[kNormalYears]->setFocus();
  QTest::keyClick(card->txtNumar[kNormalYears], Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.size(), 1u) << LastPrompt();
  EXPECT_EQ(LastPrompt(), "Datele au fost salvate cu succes in Imobilizari!");
  EXPECT_TRUE(card->txtText[kCode]->hasFocus());
  EXPECT_EQ(card->DTPicker1[kStart]->Date(), DateTime(2026, 11, 23));
  // A date that nothing follows from holds nobody either.
  card->txtNumar[kRealYears]->SetText("abc");
  card->DTPicker1[kBought]->setFocus();
  card->txtNumar[kRealYears]->setFocus();
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.back().title, " DTPicker1_LostFocus ");
  EXPECT_TRUE(card->txtNumar[kRealYears]->hasFocus());
}

TEST_F(FrmFisaImo, AnAssetThatIsGoneIsToldOnce) {
  const auto card = Open({false, "4711"});
  ASSERT_EQ(messages_.shown.size(), 1u);
  EXPECT_EQ(messages_.shown[0].title, " Form_Load ");
  EXPECT_EQ(LastPrompt(), "3021 - No current record");
}

TEST_F(FrmFisaImo, DirectExpenseIsOfLinearAssetsAlone) {
  const auto card = Open();
  Fill(*card);
  Press(card->chkChelt);
  EXPECT_EQ(Boxes(*card, {13, 14}), "2.400,00 480,00");
  Press(card->cmdSalvare);
  EXPECT_EQ(Stored("VALCHELEI, VALCHEVAL, VAL_RAMASA, VAL_RAMASA_VAL"), "2400 480 9600 1920");
  company_.Open().Execute("UPDATE I_IMO SET VALCHELEI = 2000");
  const auto again = OpenStored();
  EXPECT_TRUE(again->chkChelt->isChecked());
  EXPECT_EQ(Boxes(*again, {13}), "2.000,00") << "ticked while loading, nothing is counted anew";
  again->Accelerata->setChecked(true);
  EXPECT_FALSE(again->Frame7->isEnabled());
  EXPECT_EQ(Boxes(*again, {13, 14}), "0 0");
  EXPECT_FALSE(again->chkChelt->isChecked());
  EXPECT_TRUE(again->txtNumar[kCoef]->isEnabled());
}

TEST_F(FrmFisaImo, TheListAndTheFieldOfClassesChangeADayApart) {
  struct Case {
    DateTime today;
    bool newList;
    const char* stored;
  };
  for (const Case& c : {Case{DateTime(2004, 12, 31), false, "x "},
                        {DateTime(2005, 1, 1), false, " x"},
                        {DateTime(2005, 1, 2), true, " x"}}) {
    clock::Set(c.today);
    company_.Open().Execute("DELETE * FROM I_IMO");
    {
      const auto card = Open();
      const std::string bound =
          company_.Open()
              .QueryValue(std::string("SELECT ") + (c.newList ? "COD_GR_NOU" : "COD_GR") +
                          " FROM I_CLASIFICARE WHERE COD_GR_NOU = '1.1.1.1'")
              .AsText();
      card->cboGrupa->SetBoundText(bound);
      EXPECT_GE(card->cboGrupa->currentIndex(), 0);
      emit card->cboGrupa->Picked();
      EXPECT_EQ(Boxes(*card, {3}), c.newList ? "8" : "6");
    }
    const int number = company_.AddAsset(
        {{"COD", "1"}, {"COD_GR", "veche"}, {"COD_GR_NOU", "noua"}, {"TIP_AM", "L"}});
    const auto card = Open({false, std::to_string(number)});
    EXPECT_EQ(card->txtText[kGroup]->Text(), c.today < DateTime(2005, 1, 1) ? "veche" : "noua");
  }
}

TEST_F(FrmFisaImo, AFailedRowWritesNoNoteAndLeavesTheCardAsTyped) {
  const auto card = Open();
  Fill(*card);
  company_.Open().Execute(
      "CREATE TRIGGER refuza BEFORE INSERT ON I_IMO BEGIN SELECT RAISE(ABORT, 'nu'); END");
  Press(card->cmdSalvare);
  ASSERT_FALSE(messages_.shown.empty());
  EXPECT_EQ(messages_.shown.back().title, "Salvare");
  EXPECT_EQ(card->txtText[kCode]->Text(), "INV1");
  EXPECT_EQ(GetRecordCount("Kv_Linii"), 0);
  company_.Open().Execute("DROP TRIGGER refuza");

  CurrentSession().contFurnizori = "";
  Press(card->cmdSalvare);
  EXPECT_EQ(LastPrompt().substr(0, 57),
            "Eroare -2147221494 - Trebuie sa precizati: Cont in proced");
  EXPECT_EQ(GetRecordCount("I_IMO"), 1);
  EXPECT_EQ(GetRecordCount("Kv_Linii"), 0);

  const auto again = OpenStored();
  company_.Open().Execute("DELETE * FROM I_IMO");
  Press(again->cmdModificare);
  EXPECT_EQ(messages_.shown.back().title, "Modificare ");
  EXPECT_EQ(LastPrompt(), "3021 - No current record Linia: 3");
  EXPECT_EQ(GetRecordCount("Kv_Linii"), 0);
}

TEST_F(FrmFisaImo, WithoutAClassOfAKnownDurationNothingIsAdded) {
  company_.Open().Execute("UPDATE I_CLASIFICARE SET DURNOR_NOU = 0");
  const auto card = Open();
  Press(card->cmdSalvare);
  EXPECT_EQ(LastPrompt(),
            "Va rog stabiliti duratele normale noi (HG 2139/2004 )in Tabelul Coduri de "
            "Clasificare");
}

}  // namespace
}  // namespace tevra::test
