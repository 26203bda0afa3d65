// The rows that the card of an inventory object writes.
#include <functional>
#include <set>

#include "platform/system/Clock.h"
#include "tests/KilledWrites.h"
#include "tests/inventory/ObjectTest.h"

namespace tevra::test {
namespace {

using ObjectSave = ObjectTest;

std::string Names(const FieldValues& fields) {
  std::string names;
  for (const auto& [name, value] : fields) names += name + " ";
  return names;
}

TEST_F(ObjectSave, ANewObjectHasAllFieldsOfItsBoxes) {
  const ObjectCard card = FullCard();
  EXPECT_EQ(Names(NewObjectFields(card, "admin")),
            "COD DENUMIRE COD_CC COD_LOC DOCUMENT COD_FURNIZOR COD_TVA_CUMP CONT OBS1 UTILIZATOR "
            "VAL_CUMP CURS VAL_CUMP_VAL DATA_ACH DATA_PF PERS ");
  EXPECT_EQ(pAdaugaObiect(card), 1);
  // 486.5 is rounded to the even 486, 121.8906 to 121.891.
  EXPECT_EQ(Objects("NRCRT, COD, DENUMIRE, COD_CC, COD_LOC, DOCUMENT, COD_FURNIZOR, COD_TVA_CUMP, "
                    "CONT, OBS1, UTILIZATOR, VAL_CUMP, CURS, VAL_CUMP_VAL, DATA_ACH, DATA_PF, "
                    "PERS, Blocata, IESIRE, DATA_IESIRE"),
            "1 07 Trusa 'mare' C1 H1 F'1 7 90 303 obs admin 486 3,9913 121,891 16.03.2026 "
            "01.04.2026 Ion False False  \n");
  EXPECT_EQ(pAdaugaObiect(card), 2);
}

TEST_F(ObjectSave, EmptyBoxesWriteNullAndZero) {
  ObjectCard card;
  card.number[kForeignValue] = 10.0005;
  card.text[kName] = "  ";
  EXPECT_EQ(Names(NewObjectFields(card, "x")),
            "UTILIZATOR VAL_CUMP CURS VAL_CUMP_VAL DATA_ACH DATA_PF ");
  pAdaugaObiect(card);
  EXPECT_EQ(Objects("COD, DENUMIRE, CONT, VAL_CUMP, CURS, VAL_CUMP_VAL"), "   0 0 10 \n");
}

TEST_F(ObjectSave, AChangeKeepsTheFieldsOfEmptyBoxes) {
  pAdaugaObiect(FullCard());
  pAdaugaObiect(FullCard());
  CurrentSession().userName = "maria";
  ObjectCard card;
  card.text[kName] = "Alt nume";
  card.number[kValue] = 500.5;
  card.date = FullCard().date;
  pModificaObiect(card, 2);
  EXPECT_EQ(Objects("COD, DENUMIRE, COD_CC, COD_FURNIZOR, DOCUMENT, PERS, VAL_CUMP, CURS, "
                    "VAL_CUMP_VAL, UTILIZATOR, IESIRE, TIP_IESIRE"),
            "07 Trusa 'mare' C1 7 F'1 Ion 486 3,9913 121,891 admin False  \n"
            "07 Alt nume C1 7 F'1 Ion 500 0 0 maria False  \n");
  EXPECT_THROW(pModificaObiect(card, 3), Failure);
}

TEST_F(ObjectSave, ATickedScrappingLeavesOnItsDayAndPostsNothing) {
  pAdaugaObiect(FullCard());
  ObjectCard card = FullCard();
  card.scrapped = true;
  EXPECT_EQ(Names(NewObjectFields(card, "x")).find("IESIRE"), std::string::npos);
  pModificaObiect(card, 1);
  EXPECT_EQ(Objects("IESIRE, TIP_IESIRE, DATA_IESIRE, Blocata"), "True C 30.09.2026 False \n");
  EXPECT_EQ(Lines("NDI"), "");
  // Only the window disables the change of an object that left; the tick never comes back.
  card.scrapped = false;
  pModificaObiect(card, 1);
  EXPECT_EQ(Objects("IESIRE, TIP_IESIRE"), "True C \n");
}

TEST_F(ObjectSave, WhatIsNoNumberOrTooLongIsRefusedWhole) {
  ObjectCard card = FullCard();
  card.number[kRate] = "abc";
  EXPECT_THROW(pAdaugaObiect(card), Failure);
  card = FullCard();
  card.text[kSupplier] = "abc";
  EXPECT_THROW(pAdaugaObiect(card), Failure);
  card = FullCard();
  card.text[kCode] = std::string(21, 'x');
  EXPECT_THROW(pAdaugaObiect(card), Failure);
  EXPECT_EQ(Objects("NRCRT"), "");
}

TEST_F(ObjectSave, AnObjectIsReadBackAsItsCard) {
  clock::Set(DateTime(2026, 11, 23));
  pAdaugaObiect(FullCard());
  company_.Open().Execute("UPDATE I_INV SET Blocata = TRUE, DATA_PF = NULL, CURS = NULL");
  Connection file = company_.Open();
  const auto stored = ReadObject(file, 1);
  ASSERT_TRUE(stored);
  EXPECT_EQ(stored->card.text[kDocument], "F'1");
  EXPECT_EQ(stored->card.text[kPerson], "Ion");
  EXPECT_EQ(stored->card.vat, "4426-19");
  EXPECT_EQ(stored->card.number[kValue], Value(486.0));
  EXPECT_TRUE(stored->card.number[kRate].IsNull());
  EXPECT_EQ(stored->card.date[kBought], DateTime(2026, 3, 16));
  EXPECT_EQ(stored->card.date[kInService], DateTime(2026, 11, 23));
  EXPECT_TRUE(stored->writtenOff);
  EXPECT_FALSE(stored->left);
  EXPECT_FALSE(ReadObject(file, 2));
  file.Execute("DELETE * FROM kv_cote");
  EXPECT_EQ(ReadObject(file, 1)->card.vat, "");
  clock::Reset();
}

// Kills the saving of a row in each of its writes; the row is as before or as after.
TEST_F(ObjectSave, AKilledSaveLeavesTheRowAsBeforeOrAsAfter) {
  ObjectCard changed = FullCard();
  changed.text[kName] = "Alta";
  changed.number[kValue] = 500.0;
  changed.scrapped = true;
  struct Save {
    std::function<void()> work;
    std::string after;
  };
  const std::string before = "Trusa 'mare' 486  \n";
  const Save saves[] = {{[] { pAdaugaObiect(FullCard()); }, before + before},
                        {[&] { pModificaObiect(changed, 1); }, "Alta 500 30.09.2026 \n"}};
  pAdaugaObiect(FullCard());
  WriteCounter counter;
  for (const Save& save : saves) {
    std::set<std::string> states;
    const int writes = counter.WritesOf(save.work);
    ASSERT_GT(writes, 3);
    for (int killed = 1; killed <= writes; ++killed) {
      Connection file = company_.Open();
      file.Execute("DELETE FROM I_INV WHERE NRCRT > 1");
      file.Execute(
          "UPDATE I_INV SET DENUMIRE = 'Trusa ''mare''', VAL_CUMP = 486, IESIRE = 0, DATA_IESIRE = "
          "NULL");
      file.Close();
      EXPECT_TRUE(counter.KilledIn(killed, save.work)) << killed;
      states.insert(Objects("DENUMIRE, VAL_CUMP, DATA_IESIRE"));
    }
    EXPECT_EQ(states, (std::set<std::string>{before, save.after}));
  }
}

TEST(ObjectCardCheck, NamesTheFirstMistakeAndItsBox) {
  using Box = ObjectRefusal::Box;
  ObjectCard card;
  const auto refused = [&card](const char* message, Box box) {
    const auto refusal = RefusalToSave(card);
    ASSERT_TRUE(refusal) << message;
    EXPECT_EQ(refusal->message, message);
    EXPECT_EQ(refusal->box, box);
    EXPECT_EQ(refusal->icon, box == Box::kVat ? long{kInformation} : long{kCritical});
  };
  refused("Completati valoarea de cumparare a obiectului!", Box::kNone);
  card.number = {"x", Value(), "y"};
  refused("Valoarea de cumparare(lei) a obiectului trebuie sa fie o valoare numerica!",
          Box::kValue);
  card.number[kValue] = Value();
  refused("Valoarea de cumparare(valuta) a obiectului trebuie sa fie o valoare numerica!",
          Box::kForeignValue);
  card.number[kValue] = 5.0;
  refused("Valoarea de cumparare(valuta) a obiectului trebuie sa fie o valoare numerica!",
          Box::kForeignValue);
  card.number = {1e12, Value(), Value()};
  refused("Valoarea de cumparare(lei) este prea mare: cel mult 12 cifre inaintea virgulei !",
          Box::kValue);
  card.number = {-999999999999.99, Value(), 5.0};
  refused("Va rog introduceti TVA!", Box::kVat);
  card.vat = "4426-19";
  EXPECT_FALSE(RefusalToSave(card));
}

TEST(ObjectCardCheck, TheValueInCurrencyFollowsLeiAndRate) {
  EXPECT_EQ(ForeignValue(486.5, 3.9913), 121.890);
  EXPECT_EQ(ForeignValue(-1.0, 3.0), -0.333);
  for (const Value& none : {Value(), Value("x"), Value(0.0)}) {
    EXPECT_FALSE(ForeignValue(5.0, none));
  }
  EXPECT_FALSE(ForeignValue(Value(), 5.0));
  EXPECT_FALSE(ForeignValue("x", 5.0));
}

}  // namespace
}  // namespace tevra::test
