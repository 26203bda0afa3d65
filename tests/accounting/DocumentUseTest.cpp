// Composed notes, and what stands under a document before notes are written there.
#include <gtest/gtest.h>

#include "accounting/DocumentUse.h"
#include "accounting/cBLLNoteContabile.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

class DocumentUseTest : public ::testing::Test {
 protected:
  DocumentUseTest() { connection_ = company_.Open(); }

  // A note of two lines.
  std::int32_t Post(const std::string& journal, const std::string& document, double lei) {
    NoteLine line = LineOf(journal, document, DateTime(2026, 3, 31));
    Note note;
    line.Cont = "6811";
    line.Debit = lei;
    Add(note, line);
    line.Cont = "2813";
    line.Debit = 0;
    Add(note, line);  // exactly 0
    line.SetCredit(std::to_string(static_cast<int>(lei)));
    Add(note, line);
    Transaction transaction(connection_);
    cBLLNoteContabile writer;
    NoteChecker checker;
    const std::int32_t number = writer.AddNote(connection_, note, checker);
    EXPECT_EQ(writer.AddNote(connection_, {}, checker), 0);
    checker.Finish();
    transaction.Commit();
    return number;
  }

  TestCompany company_;
  Connection connection_;
};

TEST_F(DocumentUseTest, ComposedNotesAreNumberedAndLeaveZeroLinesOut) {
  EXPECT_EQ(Post("OD", "A'1", 10), 1);
  EXPECT_EQ(Post("OD", "A'1", 20), 2);
  EXPECT_EQ(company_.Rows("SELECT NDI, NRLINIE, CONT, DEBIT, CREDIT, CANTIT, PROV, CodSucursala, "
                          "MARCA FROM Kv_Linii ORDER BY NDI, NRLINIE"),
            "1 1 6811 10 0 1 I 01 A'1 \n1 2 2813 0 10 1 I 01 A'1 \n"
            "2 1 6811 20 0 1 I 01 A'1 \n2 2 2813 0 20 1 I 01 A'1 \n");
}

TEST_F(DocumentUseTest, OnlyOtherNotesOfTheDocumentAreCountedAndAskedAbout) {
  Post("JV", "F'1", 1000);
  Post("OD", "F'1", 300);
  Post("OD", "F'1", 45);
  Post("OD", "F2", 7);
  const DocumentUse all = NotesUnder(connection_, "f'1");
  EXPECT_EQ(all.notes, 3);
  EXPECT_EQ(all.lei, 1345);
  const DocumentUse others = NotesUnder(connection_, "F'1", {"JV"});
  EXPECT_EQ(others.notes, 2);
  EXPECT_EQ(others.lei, 345);
  // Nobody knows which of two notes in one journal is the caller's.
  EXPECT_EQ(NotesUnder(connection_, "F'1", {"JV", "OD"}).notes, 2);
  EXPECT_EQ(NotesUnder(connection_, "F2", {"JV", "OD"}).notes, 0);
  connection_.Execute("UPDATE Kv_Linii SET JURNAL = NULL WHERE DOC = 'F2'");
  EXPECT_EQ(NotesUnder(connection_, "F2", {"JV", "OD"}).notes, 1);

  MessageRecorder messages;
  EXPECT_TRUE(MayDelete(NotesUnder(connection_, "F3")));
  EXPECT_TRUE(messages.shown.empty());
  messages.answers = {kNo, kYes};
  EXPECT_FALSE(MayDelete(others));
  EXPECT_TRUE(MayDelete(NotesUnder(connection_, "F2")));
  ASSERT_EQ(messages.shown.size(), 2U);
  EXPECT_EQ(messages.shown[0].prompt,
            "Sub documentul \"F'1\" exista deja 2 note contabile, in suma de 345,00 lei, care nu "
            "provin din aceasta operatie. Salvarea le sterge. Doriti sa continuati?");
  EXPECT_EQ(messages.shown[0].buttons, kYesNo | kExclamation | kDefaultStep);
  EXPECT_NE(messages.shown[1].prompt.find("exista deja o nota contabila, in suma de 7,00 lei"),
            std::string::npos);
}

}  // namespace
}  // namespace tevra::test
