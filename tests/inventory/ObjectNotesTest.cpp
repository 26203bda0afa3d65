// The purchase note of an inventory object.
#include "tests/KilledWrites.h"
#include "tests/inventory/ObjectTest.h"
#include "tests/text/Expect.h"

namespace tevra::test {
namespace {

class ObjectNotes : public ObjectTest {
 protected:
  // After a Yes to all notes under the document.
  static Note Post(const ObjectCard& card) {
    return pAddNoteContabile(card, NotesBeforePurchase(card));
  }
};

TEST_F(ObjectNotes, APurchaseCreditsTheSupplierWithValueAndVat) {
  Post(FullCard());
  // 486.50 * 19 / 100 = 92.435, a tie that rounds to the even 92.44; 486.50 + 92.44 = 578.94.
  EXPECT_EQ(Lines("NDI, NRLINIE, JURNAL, DATAINR, CONT, DEBIT, CREDIT, DOC, MARCA, TERT, CODBUG"),
            "1 1 JC 16.03.2026 401 0 578,94 IMO07 IMO07 7 C1 \n"
            "1 2 JC 16.03.2026 4426 92,44 0 IMO07 IMO07  C1 \n"
            "1 3 JC 16.03.2026 303 486,5 0 IMO07 IMO07  C1 \n");
  EXPECT_EQ(Lines("COD, CURS, DEVDEBIT, DEVCREDIT, CANTIT, PROV, CotaTVA, CodSucursala, "
                  "UTILIZATOR, DATASCAD, DocExplicatie"),
            "LEI 3,9913 0 0 1 I 0 01 admin 16.04.2026  \n"
            "LEI 3,9913 0 0 1 I 0 01 admin 16.04.2026  \n"
            "LEI 3,9913 0 0 1 I 0 01 admin 16.04.2026  \n");
}

TEST_F(ObjectNotes, ZeroAmountsHaveNoLines) {
  ObjectCard card = FullCard();
  card.vat = "4426-0";
  Post(card);
  EXPECT_EQ(Lines("NRLINIE, CONT, DEBIT, CREDIT"), "1 401 0 486,5 \n2 303 486,5 0 \n");
  card.number[kValue] = Value();
  EXPECT_TRUE(Post(card).empty());
  EXPECT_EQ(Lines("CONT"), "");
  card = FullCard();
  card.scrapped = true;
  EXPECT_TRUE(PurchaseNote(card).empty());
  Post(FullCard());
  Post(card);  // leaves the note alone
  EXPECT_EQ(Lines("CONT"), "401 \n4426 \n303 \n");
}

TEST_F(ObjectNotes, VatHasItsDecimalsAndItsSign) {
  ObjectCard card = FullCard();
  card.vat = "4426.9-9,5";
  card.number = {100.0, Value(), Value()};
  card.text[kSupplier].clear();
  Post(card);
  EXPECT_EQ(Lines("CONT, DEBIT, CREDIT, TERT, CURS"),
            "401 0 109,5  0 \n4426.9 9,5 0  0 \n303 100 0  0 \n");
  card.number[kValue] = -100.0;
  Post(card);
  EXPECT_EQ(Lines("CONT, DEBIT, CREDIT"), "401 0 -109,5 \n4426.9 -9,5 0 \n303 -100 0 \n");
}

// 10.125 at 24 %: the VAT is 2.43, the value rounds to 10.12; 12.555 would round to 12.56.
TEST_F(ObjectNotes, HalfABanLeavesTheNoteBalanced) {
  ObjectCard card = FullCard();
  card.number[kValue] = 10.125;
  card.vat = "4426-24";
  Post(card);
  EXPECT_EQ(Lines("CONT, DEBIT, CREDIT"), "401 0 12,55 \n4426 2,43 0 \n303 10,12 0 \n");
}

TEST_F(ObjectNotes, AnotherNoteUnderTheDocumentIsCountedAndReplaced) {
  EXPECT_EQ(NotesBeforePurchase(FullCard()).notes, 0);
  AddLine(1, "IMO07", 1000);  // the charges of a July
  AddLine(2, "IMO07", 234.5);
  AddLine(3, "IMO08", 9);
  const DocumentUse use = NotesBeforePurchase(FullCard());
  EXPECT_EQ(use.document, "IMO07");
  EXPECT_EQ(use.notes, 2);
  EXPECT_EQ(use.lei, 1234.5);
  Post(FullCard());
  EXPECT_EQ(Lines("NDI, DOC, CONT"), "3 IMO08 6811 \n4 IMO07 401 \n4 IMO07 4426 \n4 IMO07 303 \n");
}

TEST_F(ObjectNotes, NotesThatCameAfterTheAnswerStay) {
  AddLine(1, "IMO07", 1000);
  const DocumentUse agreed = NotesBeforePurchase(FullCard());
  AddLine(2, "IMO07", 5);
  const Refusal refused = RefusalOf([&] { pAddNoteContabile(FullCard(), agreed); });
  EXPECT_EQ(refused.number, kRowChanged);
  EXPECT_EQ(refused.text,
            "Notele contabile sub documentul \"IMO07\" s-au schimbat intre timp; salvati din nou");
  EXPECT_EQ(Lines("NDI, CONT"), "1 6811 \n2 6811 \n");
}

TEST_F(ObjectNotes, ACodeWithAnApostropheIsData) {
  ObjectCard card = FullCard();
  card.text[kCode] = "x' OR '1'='1";
  AddLine(1, "IMO07", 5);
  Post(card);
  EXPECT_EQ(Lines("DOC"), "IMO07 \nIMOx' OR '1'='1 \nIMOx' OR '1'='1 \nIMOx' OR '1'='1 \n");
}

TEST_F(ObjectNotes, ARefusedNoteLeavesTheOldOne) {
  AddLine(1, "IMO07", 5);
  CurrentSession().contFurnizori = "";
  EXPECT_THROW(Post(FullCard()), Failure);
  CurrentSession().contFurnizori = "401";
  ObjectCard card = FullCard();
  card.vat = "4426-abc";
  EXPECT_THROW(Post(card), Failure);
  CurrentSession().connectionString += ";Lock Timeout=50";
  Connection other = company_.Open();
  other.BeginTrans();
  EXPECT_THROW(Post(FullCard()), Failure);
  other.RollbackTrans();
  EXPECT_EQ(Lines("NDI, CONT"), "1 6811 \n");
}

TEST_F(ObjectNotes, AKilledProcessLeavesTheOldNoteOrTheNewOne) {
  AddLine(1, "IMO07", 5);
  WriteCounter counter;
  const auto work = [] { Post(FullCard()); };
  const int writes = counter.WritesOf(work);
  ASSERT_GT(writes, 3);
  int before = 0;
  for (int killed = 1; killed <= writes; ++killed) {
    company_.Open().Execute("DELETE FROM Kv_Linii");
    AddLine(1, "IMO07", 5);
    EXPECT_TRUE(counter.KilledIn(killed, work)) << killed;
    const std::string accounts = Lines("CONT");
    if (accounts == "6811 \n")
      ++before;
    else
      EXPECT_EQ(accounts, "401 \n4426 \n303 \n") << killed;
  }
  EXPECT_GT(before, 0);
}

}  // namespace
}  // namespace tevra::test
