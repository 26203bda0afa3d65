// What the card keeps, derives and asks when boxes are left and when it is closed.
#include <QToolButton>

#include "tests/screens/CardTest.h"

namespace tevra::test {
namespace {

class EditedCard : public CardTest {};

// An asset whose dates and value in currency are not those that the rules would give.
int AddOddAsset(const TestCompany& company, const char* method = "L", bool blocked = false) {
  return company.AddAsset({{"COD", "INV1"},
                           {"DENUMIRE", "Strung"},
                           {"DOCUMENT", "F1"},
                           {"COD_GR_NOU", "1.1.1.1"},
                           {"CONT", "2131"},
                           {"COD_FURNIZOR", "7"},
                           {"COD_TVA_CUMP", "5"},
                           {"TIP_AM", method},
                           {"GRAD_U", 100},
                           {"VAL_CUMP", 12000},
                           {"CURS", 5},
                           {"VAL_CUMP_VAL", 1999.99},
                           {"DNFANI", 5},
                           {"DRFANI", 5},
                           {"BLOCATA", Value::YesNo(blocked)},
                           {"VAL_BLOCATA", 5000},
                           {"VAL_BLOCATA_VAL", 777},
                           {"DATA_ACH", DateTime(2024, 1, 15)},
                           {"DATA_PF", DateTime(2024, 3, 20)},
                           {"DATA_IN_AM", DateTime(2024, 6, 10)},
                           {"DATA_SF", DateTime(2030, 12, 31)},
                           {"DATA_BLOCARE", DateTime(2028, 9, 1)}});
}

TEST_F(EditedCard, ABoxOnlyPassedThroughChangesNothingOfAnExistingAsset) {
  struct Case {
    const char* method;
    bool blocked;
  };
  for (const Case& c : {Case{"L", false}, {"A", false}, {"N", false}, {"F", false}, {"L", true}}) {
    SCOPED_TRACE(std::string(c.method) + (c.blocked ? ", blocked" : ""));
    const auto card = Open({false, std::to_string(AddOddAsset(company_, c.method, c.blocked))});
    const auto everything = [&] {
      std::string text =
          Boxes(*card, {kValue, kExchangeRate, kForeignValue, kNormalYears, kRealYears, kRate,
                        kBlockedValue, kBlockedForeignValue, kCoef, kYearsLeft, kMonthsLeft,
                        kExpensed, kExpensedForeign});
      for (const DateBox* date : card->DTPicker1) text += " " + date->text().toStdString();
      return text;
    };
    // Boxes settle into their format when they are left.
    for (NumberBox* number : card->txtNumar) number->SetNumber(number->Number());
    const std::string loaded = everything();
    for (int i = 0; i < 45; ++i) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QCoreApplication::processEvents();
    }
    EXPECT_EQ(everything(), loaded);
    EXPECT_EQ(LastPrompt(), "");
    EXPECT_FALSE(card->HasChanges());
  }
}

TEST_F(EditedCard, ABoxThatWasChangedDerivesOnAnExistingAssetToo) {
  const auto card = Open({false, std::to_string(AddOddAsset(company_))});
  // A date typed again as it was is no change; a number typed again is taken as typed.
  Type(card->DTPicker1[kBought], "15012024");
  EXPECT_EQ(card->DTPicker1[kInService]->Date(), DateTime(2024, 3, 20));
  Type(card->DTPicker1[kInService], "21032024");
  EXPECT_EQ(card->DTPicker1[kStart]->Date(), DateTime(2024, 4, 1));
  EXPECT_EQ(card->DTPicker1[kEnd]->Date(), DateTime(2029, 4, 1));
  Type(card->DTPicker1[kStart], "10062024");
  EXPECT_EQ(card->DTPicker1[kEnd]->Date(), DateTime(2029, 6, 10));
  Type(card->DTPicker1[kInService], "21032024");
  EXPECT_EQ(card->DTPicker1[kStart]->Date(), DateTime(2024, 6, 10))
      << "what was derived is settled";
  Type(card->txtNumar[kValue], "12000");
  EXPECT_EQ(Boxes(*card, {kForeignValue}), "2.400,00");
  Type(card->txtNumar[kForeignValue], "1999,99");
  card->txtNumar[kValue]->setFocus();
  card->txtText[kRemarks]->setFocus();
  QCoreApplication::processEvents();
  EXPECT_EQ(Boxes(*card, {kForeignValue}), "1.999,99") << "typed once, derived once";
  Press(card->FaraUzura);
  EXPECT_EQ(Boxes(*card, {kCoef}), "0,3");
  Type(card->txtNumar[kNormalYears], "5");
  EXPECT_EQ(Boxes(*card, {kCoef}), "30");
  // The real duration that a method brings is not what somebody typed.
  Press(card->CuUzura);
  EXPECT_EQ(Boxes(*card, {kRealYears}), "3");
  card->txtNumar[kValue]->setFocus();
  Press(card->FaraUzura);
  card->txtNumar[kRealYears]->setFocus();
  card->txtNumar[kRate]->setFocus();
  QCoreApplication::processEvents();
  EXPECT_EQ(Boxes(*card, {kCoef}), "0,3");
  // Ticked and cleared again, the tick is as it was, but the methods are not.
  Press(card->chkBlocata);
  Press(card->chkBlocata);
  EXPECT_FALSE(card->Liniara->isEnabled());
  card->txtText[kRemarks]->setFocus();
  QCoreApplication::processEvents();
  EXPECT_TRUE(card->Liniara->isEnabled());
  EXPECT_EQ(Boxes(*card, {kBlockedValue, kBlockedForeignValue, kYearsLeft, kMonthsLeft}),
            "0 0 0 0");
}

TEST_F(EditedCard, TheRateOfTheDayReplacesATypedOneOnlyAfterAQuestion) {
  const auto enter = [this](const char* currency, const DateTime& day, double rate) {
    company_.Open().Execute("INSERT INTO kv_val2 (COD, DATA, CURS) VALUES (?, ?, ?)",
                            {currency, day, rate});
  };
  company_.Open().Execute("DELETE FROM kv_val2");
  enter("EUR", DateTime(2026, 3, 13, 14), 5.0903);
  enter("USD", DateTime(2026, 3, 14), 4.3);
  enter("EUR", DateTime(2026, 3, 17), 5.1);
  const auto card = Open();
  NumberBox* rate = card->txtNumar[kExchangeRate];
  Type(card->txtNumar[kValue], "10180,6");
  Type(card->DTPicker1[kBought], "15032026");
  const auto offer = [&] {
    messages_.shown.clear();
    rate->setFocus();
    QTest::keyClick(rate, Qt::Key_F4);
    QCoreApplication::processEvents();
    return LastPrompt();
  };
  EXPECT_EQ(offer(), "");
  EXPECT_EQ(Boxes(*card, {kExchangeRate, kForeignValue}), "5,0903 2.000,00");
  // A typed rate stays until the question is answered with Yes.
  Type(rate, "4,9");
  messages_.answers = {kNo, kYes};
  EXPECT_EQ(offer(), "Cursul 4,9 va fi inlocuit. Doriti cursul 5,0903 din 13.03.2026 ?");
  EXPECT_EQ(messages_.shown.back().buttons, 0L + kYesNo + kQuestion + kDefaultStep);
  EXPECT_EQ(rate->Text(), "4,9");
  EXPECT_NE(offer(), "");
  EXPECT_EQ(Boxes(*card, {kExchangeRate, kForeignValue}), "5,0903 2.000,00");
  EXPECT_EQ(offer(), "") << "it is there already";
  // The date that is being typed counts when the dots are clicked; an old rate is asked about.
  rate->clear();
  card->DTPicker1[kBought]->setFocus();
  QTest::keyClicks(card->DTPicker1[kBought], "01062026");
  messages_.answers = {kNo};
  QTest::mouseClick(rate->findChild<QToolButton*>(), Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_EQ(
      LastPrompt(),
      "Ultimul curs EUR dinainte de 01.06.2026 este cel din 17.03.2026. Doriti cursul 5,1 din "
      "17.03.2026 ?");
  EXPECT_EQ(rate->Text(), "");
  Type(card->DTPicker1[kBought], "12032026");
  EXPECT_EQ(offer(), "Nu exista curs EUR pentru 12.03.2026 sau dinainte !");
  // A box that is not to be left stops the click.
  Type(card->DTPicker1[kBought], "20032026");
  card->txtNumar[kNormalYears]->setFocus();
  QTest::mouseClick(rate->findChild<QToolButton*>(), Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_EQ(LastPrompt(), "Va rugam completati Durata normala !");
  EXPECT_EQ(rate->Text(), "");
  Type(card->txtNumar[kNormalYears], "8");
  CurrentSession().codDeviza.clear();
  EXPECT_EQ(offer(), "Va rugam alegeti deviza in configurarea societatii !");
}

TEST_F(EditedCard, AListThatNamesAnEntryAnewIsNoChange) {
  const int asset = AddOddAsset(company_);
  Connection file = company_.Open();
  file.Execute("UPDATE I_IMO SET COD_CC = 'C1'");
  const auto card = Open({false, std::to_string(asset)});
  ASSERT_EQ(card->cboCentruCost->Text(), "C1-Hala");
  file.Execute("UPDATE Kv_CC SET TITLU = 'Hala noua' WHERE COD = 'C1'");
  card->Activate();
  EXPECT_EQ(card->cboCentruCost->Text(), "C1-Hala noua");
  EXPECT_FALSE(card->HasChanges());
}

TEST_F(EditedCard, UnsavedChangesAreAskedForBeforeTheyAreLost) {
  const auto settle = [] {
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
  };
  {
    const auto card = Open();
    card->close();
    settle();
    EXPECT_FALSE(card->isVisible());
    EXPECT_EQ(messages_.shown.size(), 0u);
  }
  {
    const auto card = Open();
    Fill(*card);
    messages_.shown.clear();
    messages_.answers = {kNo};
    QTest::keyClick(card->txtText[kCode], Qt::Key_Escape);
    settle();
    ASSERT_EQ(messages_.shown.size(), 1u);
    EXPECT_EQ(messages_.shown[0].title, "Modificari nesalvate");
    EXPECT_TRUE(card->isVisible());
    EXPECT_EQ(card->txtText[kCode]->Text(), "INV1");
    Press(card->cmdSalvare);
    EXPECT_EQ(LastPrompt(), "Datele au fost salvate cu succes in Imobilizari!");
    EXPECT_FALSE(card->HasChanges());
  }
  const auto card = OpenStored();
  EXPECT_FALSE(card->HasChanges());
  Type(card->txtText[kName], "Freza");
  EXPECT_TRUE(card->HasChanges());
  Type(card->txtText[kName], "Strung");
  EXPECT_FALSE(card->HasChanges()) << "typed back";
  Press(card->Faraam);
  EXPECT_TRUE(card->HasChanges()) << "a choice, and what was derived from it";
  Press(card->cmdModificare);
  EXPECT_FALSE(card->HasChanges());
  card->cboFurnizori->SetText("");
  messages_.answers = {kYes};
  messages_.shown.clear();
  Press(card->cmdIesire);
  settle();
  EXPECT_EQ(messages_.shown.size(), 1u);
  EXPECT_FALSE(card->isVisible());
}

TEST_F(EditedCard, AnAssetHasOneCard) {
  const int asset = AddOddAsset(company_);
  const int other = AddOddAsset(company_);
  const auto open = [](int number) { return &OpenAssetCard({false, std::to_string(number)}); };
  const QPointer<frmFisaImo> card = open(asset);
  EXPECT_EQ(open(asset), card);
  EXPECT_NE(open(other), card);
  const QPointer<frmFisaImo> added = &OpenAssetCard({true, std::to_string(asset)});
  EXPECT_NE(added, card);
  EXPECT_EQ(&OpenAssetCard({true, ""}), added);
  for (Form* each : {static_cast<Form*>(open(other)), static_cast<Form*>(card.data()),
                     static_cast<Form*>(added.data())}) {
    each->close();
  }
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(card.isNull());
}

// A code that is taken, and a code that changes: what stands in the accounting lines is asked
// about.
TEST_F(EditedCard, NotesUnderItsCodeAreAskedForBeforeAnythingIsSaved) {
  const auto notes = [&] {
    return company_.Rows(
        "SELECT DOC, MAX(DEBIT) FROM Kv_Linii GROUP BY DOC, NDI ORDER BY DOC, NDI");
  };
  const auto add = [&](const char* value) {
    const auto card = Open();
    Fill(*card);
    Type(card->txtNumar[kValue], value);
    Press(card->cmdSalvare);
    EXPECT_EQ(card->windowTitle(), "Fisa imobilizare");
    const std::string code = card->txtText[kCode]->Text();
    card->DropChangesAndClose();
    return code;
  };
  EXPECT_EQ(add("12000"), "");
  EXPECT_EQ(messages_.shown.size(), 1u) << "no question for the first asset";
  messages_.answers = {kNo, kYes};
  EXPECT_EQ(add("500"), "INV1") << "the card stays as typed";
  EXPECT_EQ(GetRecordCount("I_IMO"), 1);
  EXPECT_EQ(notes(), "INV1 12000 \n");
  EXPECT_EQ(add("500"), "");
  EXPECT_EQ(GetRecordCount("I_IMO"), 2);
  EXPECT_EQ(notes(), "INV1 500 \n");

  company_.Open().Execute("DELETE * FROM I_IMO WHERE VAL_CUMP = 12000");
  for (const bool removed : {false, true}) {
    messages_.shown.clear();
    const auto card = OpenStored();
    const std::string before = card->txtText[kCode]->Text();
    card->txtText[kCode]->SetText(removed ? "INV3" : "INV2");
    messages_.answers = {removed ? kYes : kNo};
    Press(card->cmdModificare);
    ASSERT_EQ(messages_.shown.size(), 2u);
    EXPECT_EQ(messages_.shown[0].title, "Cod schimbat");
    EXPECT_EQ(notes(), removed ? "INV1 500 \nINV3 500 \n" : "INV1 500 \nINV2 500 \n");
    EXPECT_EQ(card->windowTitle(),
              removed ? "Fisa imobilizare - INV3 Strung" : "Fisa imobilizare - INV2 Strung");
  }
}

}  // namespace
}  // namespace tevra::test
