// The write-off of an inventory object.
#include "platform/system/MessageBox.h"
#include "tests/KilledWrites.h"
#include "tests/inventory/ObjectTest.h"
#include "tests/text/Expect.h"

namespace tevra::test {
namespace {

class WriteOffTest : public ObjectTest {
 protected:
  WriteOffTest() { pAdaugaObiect(FullCard()); }

  void ExpectRefused(const ObjectCard& card, int id, const char* message, long icon) {
    const WriteOffResult result = WriteOff(card, id);
    ASSERT_TRUE(result.refusal) << message;
    EXPECT_EQ(result.refusal->message, message);
    EXPECT_EQ(result.refusal->icon, icon);
    EXPECT_EQ(Lines("CONT"), "");
  }
};

TEST_F(WriteOffTest, PostsWhatIsOnTheCardAndMarksTheObject) {
  AddLine(7, "IMO07", 5);
  pAdaugaObiect(FullCard());
  ObjectCard card = FullCard();
  card.number[kValue] = 800.255;
  const WriteOffResult result = WriteOff(card, 1);
  EXPECT_FALSE(result.refusal);
  EXPECT_EQ(result.note.size(), 2u);
  // The purchase note, which has the same document, stays.
  EXPECT_EQ(Lines("NDI, NRLINIE, JURNAL, DATAINR, CONT, DEBIT, CREDIT, DOC, MARCA, COD, CURS, "
                  "DEVDEBIT, DEVCREDIT, TERT, CODBUG, PROV"),
            "7 1 OD  6811 5  IMO07         \n"
            "8 1 OD 01.04.2026 303 0 800,26 IMO07 IMO07 LEI 3,9913 0 0   I \n"
            "8 2 OD 01.04.2026 603 800,26 0 IMO07 IMO07 LEI 3,9913 0 0   I \n");
  EXPECT_EQ(Objects("Blocata, VAL_CUMP"), "True 486 \nFalse 486 \n");
}

TEST_F(WriteOffTest, IsRefusedInTheOrderOfItsTests) {
  ExpectRefused(FullCard(), 2, "Obiectul de inventar nu exista", kCritical);
  ObjectCard card = FullCard();
  card.text[kAccount] = "3'03";
  ExpectRefused(card, 1, "Nu exista cont de cheltuiala asociat contului: 3'03", kExclamation);
  company_.Open().Execute("UPDATE I_CONTURIIM SET CONT_CHELT = NULL WHERE CONT = '303'");
  ExpectRefused(FullCard(), 1, "Nu exista cont de cheltuiala asociat contului: 303", kExclamation);
  company_.Open().Execute("UPDATE I_INV SET Blocata = TRUE");
  ExpectRefused(FullCard(), 1, "Obiectul de inventar a fost pus in functiune", kExclamation);
}

TEST_F(WriteOffTest, AnEmptyExpenseAccountStopsBothLines) {
  company_.Open().Execute("UPDATE I_CONTURIIM SET CONT_CHELT = '' WHERE CONT = '303'");
  try {
    WriteOff(FullCard(), 1);
    ADD_FAILURE() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Description(), "Trebuie sa precizati: Cont");
  }
  EXPECT_EQ(Lines("CONT"), "");
  EXPECT_EQ(Objects("Blocata"), "False \n");
}

TEST_F(WriteOffTest, AValueOfZeroIsMarkedWithoutANoteAndAnEmptyOneIsNot) {
  ObjectCard card = FullCard();
  card.number[kValue] = Value();
  EXPECT_EQ(FailureOf([&] { WriteOff(card, 1); }), kTypeMismatch);
  EXPECT_EQ(Objects("Blocata"), "False \n");
  card.number[kValue] = 0.001;
  EXPECT_TRUE(WriteOff(card, 1).note.empty());
  EXPECT_EQ(Objects("Blocata"), "True \n");
  EXPECT_EQ(Lines("CONT"), "");
}

TEST_F(WriteOffTest, TheDayOfUseLiesInTheYear) {
  ObjectCard card = FullCard();
  const auto refused = [&card](const DateTime& day) {
    card.date[kInService] = day;
    return RefusalToWriteOff(card, false).has_value();
  };
  EXPECT_TRUE(refused(DateTime(2025, 12, 31)));
  EXPECT_FALSE(refused(DateTime(2026, 1, 1)));
  EXPECT_FALSE(refused(DateTime(2026, 12, 31, 23, 0, 0)));
  EXPECT_TRUE(refused(DateTime(2027, 1, 1)));
  const auto refusal = RefusalToWriteOff(card, false);
  EXPECT_EQ(refusal->message,
            "Data punerii functiune trebuie sa fie in intervalul: 01.01.2026 - 31.12.2026");
  EXPECT_EQ(refusal->box, ObjectRefusal::Box::kInService);
  EXPECT_EQ(RefusalToWriteOff(card, true)->message,
            "Obiectul de inventar este descarcat, nu il mai puteti descarca");
}

// Each user is a program of his own.
TEST_F(WriteOffTest, TwoUsersAtOnceWriteOneNote) {
  constexpr int kUsers = 6;
  for (int user = 0; user < kUsers; ++user) {
    if (fork() == 0) _exit(WriteOff(FullCard(), 1).refusal ? 1 : 0);
  }
  int done = 0;
  for (int user = 0; user < kUsers; ++user) {
    int status = 0;
    wait(&status);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == 0) ++done;
  }
  EXPECT_EQ(done, 1);
  EXPECT_EQ(Lines("NDI, CONT"), "1 303 \n1 603 \n");
}

TEST_F(WriteOffTest, AnotherProgramsWriteStopsItWhole) {
  CurrentSession().connectionString += ";Lock Timeout=50";
  Connection other = company_.Open();
  other.BeginTrans();
  EXPECT_THROW(WriteOff(FullCard(), 1), Failure);
  other.RollbackTrans();
  EXPECT_EQ(Lines("CONT") + Objects("Blocata"), "False \n");
}

TEST_F(WriteOffTest, AKilledProcessLeavesNoteAndMarkOrNeither) {
  WriteCounter counter;
  const auto work = [] { WriteOff(FullCard(), 1); };
  const int writes = counter.WritesOf(work);
  ASSERT_GT(writes, 3);
  int before = 0;
  for (int killed = 1; killed <= writes; ++killed) {
    Connection file = company_.Open();
    file.Execute("DELETE FROM Kv_Linii");
    file.Execute("UPDATE I_INV SET Blocata = FALSE");
    file.Close();
    EXPECT_TRUE(counter.KilledIn(killed, work)) << killed;
    const std::string state = Lines("CONT") + Objects("Blocata");
    if (state == "False \n")
      ++before;
    else
      EXPECT_EQ(state, "303 \n603 \nTrue \n") << killed;
  }
  EXPECT_GT(before, 0);
}

}  // namespace
}  // namespace tevra::test
