// What stands under the document of a month besides the month's own charges.
#include <gtest/gtest.h>

#include "accounting/ChargePostings.h"
#include "accounting/cBLLNoteContabile.h"
#include "platform/text/Numbers.h"
#include "session/CompanySettings.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra::test {
namespace {

const DateTime kJuly(2026, 7, 31);

class MonthDocument : public ::testing::Test {
 protected:
  MonthDocument() {
    file_ = company_.Open();
    company_.AddAsset(
        {{"COD", "1"}, {"CONT", "2131"}, {"VAL_CUMP", 1000.0}, {"COTAL_LUNARA", 0.01}});
  }

  MonthUse Others(const DateTime& date = kJuly) { return OthersUnderMonth(file_, date); }
  void Post(const DateTime& date) { PostCharges(file_, date, Others(date)); }

  // A note of two lines that some other work wrote.
  void Write(const std::string& journal, const std::string& credited, double lei,
             const DateTime& date = kJuly) {
    NoteLine line = LineOf(journal, "IMO07", date);
    Note note;
    line.Cont = credited;
    line.SetCredit(CStr(lei));
    Add(note, line);
    line.Cont = "603";
    line.SetCredit("0");
    line.Debit = lei;
    Add(note, line);
    cBLLNoteContabile writer;
    NoteChecker checker;
    Transaction transaction(file_);
    writer.AddNote(file_, note, checker);
    transaction.Commit();
  }
  std::string Documents() {
    return company_.Rows(
        "SELECT DOC, DATAINR, COUNT(DISTINCT NDI) FROM Kv_Linii GROUP BY DOC, DATAINR ORDER BY "
        "DATAINR, DOC");
  }

  TestCompany company_;
  Connection file_;
};

TEST_F(MonthDocument, KnowsTheDocumentsOfMonths) {
  EXPECT_EQ(ChargeDocument(kJuly), "IMO07");
  EXPECT_EQ(ChargeDocument(kJuly, true), "IMO07/2026");
  for (const char* month : {"IMO01", "imo12", "IMO07/2026"}) EXPECT_TRUE(IsChargeDocument(month));
  for (const char* other : {"", "IMO", "IMO00", "IMO13", "IMO7", "IMO007", "IMO07-2026", "IMO07/26",
                            "IMO07/20x6", "XMO07", "IMO0x"}) {
    EXPECT_FALSE(IsChargeDocument(other)) << other;
  }
}

TEST_F(MonthDocument, OnlyTheMonthsOwnChargesAreNoQuestion) {
  Post(DateTime(2025, 7, 15));
  Post(DateTime(2026, 8, 31));
  EXPECT_EQ(Others(DateTime(2026, 8, 1)).others.size(), 0U);
  Post(DateTime(2026, 7, 15));
  EXPECT_EQ(Others().others.size(), 0U) << "another day of the month";
  EXPECT_TRUE(Documents().find("2025") == std::string::npos) << "agreed to, and gone";

  Write("OD", "2813", 77.5, DateTime(2024, 7, 31));
  Write("JC", "404", 10);                        // an asset "IMO07"
  Write("OD", "303", 20);                        // an object "07" that is put into use
  Write("JC", "404", 30, DateTime(2024, 7, 1));  // an object "07" bought in another year
  file_.Execute("UPDATE Kv_Linii SET PROV = 'G' WHERE DEBIT = 30 OR CREDIT = 30");
  file_.Execute(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, JURNAL, PROV, DOC, CONT, DEBIT) VALUES "
      "(90, 1, 'OD', 'I', 'imo07', '6811', 5), (91, 1, NULL, NULL, 'IMO07', '6811', 6), "
      "(92, 1, 'OD', 'G', 'IMO07', '6811', 7)");
  file_.Execute("UPDATE Kv_Linii SET DATAINR = '2026-07-31 00:00:00' WHERE NDI = 92");
  const MonthUse use = Others();
  EXPECT_EQ(use.document, "IMO07");
  EXPECT_EQ(use.others, (std::vector<NotesOfYear>{{std::nullopt, false, 1, 6},
                                                  {std::nullopt, true, 1, 5},
                                                  {2024, false, 1, 30},
                                                  {2024, true, 1, 77.5},
                                                  {2026, false, 3, 37}}));
}

TEST_F(MonthDocument, TheChargesOfAMonthAreFoundUnderBothForms) {
  EXPECT_EQ(ChargesOfMonth(file_, kJuly).notes, 0);
  Post(DateTime(2026, 7, 15));
  Write("OD", "303", 20);  // an object that is put into use
  Write("JC", "404", 30);
  const NotesOfYear posted{2026, true, 1, 10};
  EXPECT_EQ(ChargesOfMonth(file_, kJuly), posted);
  file_.Execute("UPDATE Kv_Linii SET DOC = 'IMO07/2026'");
  EXPECT_EQ(ChargesOfMonth(file_, kJuly), posted);
  EXPECT_EQ(ChargesOfMonth(file_, DateTime(2025, 7, 31)).notes, 0);
  EXPECT_EQ(ChargesOfMonth(file_, DateTime(2026, 8, 31)).notes, 0);
}

TEST_F(MonthDocument, TheQuestionSaysYearsNumbersAndSums) {
  MessageRecorder messages;
  messages.answers = {kNo, kYes};
  EXPECT_TRUE(MayReplace({"IMO07", {}}));
  EXPECT_TRUE(messages.shown.empty());
  const MonthUse use{"IMO07",
                     {{std::nullopt, true, 1, 5}, {2024, true, 12, 1234.5}, {2026, false, 2, 30}}};
  EXPECT_FALSE(MayReplace(use));
  EXPECT_TRUE(MayReplace(use));
  EXPECT_EQ(messages.shown.at(0).prompt,
            "Sub documentul \"IMO07\" exista deja note din alt an sau de la alta operatie:\n"
            "- fara data: o nota, 5,00 lei\n"
            "- anul 2024: 12 note, 1.234,50 lei\n"
            "- anul 2026, altceva decat cheltuielile lunii: 2 note, 30,00 lei\n"
            "Scrierea notelor lunii le sterge. Doriti sa continuati?");
  EXPECT_EQ(messages.shown.at(0).buttons, kYesNo | kExclamation | kDefaultStep);
}

TEST_F(MonthDocument, WhatCameAfterTheAgreementIsNotDeleted) {
  Post(DateTime(2025, 7, 31));
  const MonthUse agreed = Others();
  Write("JC", "404", 10);
  const std::string before = Documents();
  for (const MonthUse& use : {MonthUse{}, agreed}) {
    EXPECT_EQ(FailureOf([&] { PostCharges(file_, kJuly, use); }), kRowChanged);
    EXPECT_EQ(Documents(), before);
  }
}

TEST_F(MonthDocument, WithTheYearInItYearsDoNotTouchAndAMonthIsPostedOnce) {
  Post(DateTime(2025, 7, 31));
  Write("OD", "2813", 8, DateTime(2026, 7, 31));  // as the month itself was posted before
  Write("OD", "303", 20, DateTime(2026, 7, 30));  // an object "07" that was put into use
  SetOn(file_, CompanySetting::kDocumentWithYear, true);
  EXPECT_TRUE(Others().others.empty());
  Post(kJuly);
  Post(DateTime(2027, 7, 31));
  const std::string kept = "IMO07 31.07.2025 1 \nIMO07 30.07.2026 1 \n";
  EXPECT_EQ(Documents(), kept + "IMO07/2026 31.07.2026 1 \nIMO07/2027 31.07.2027 1 \n");

  SetOn(file_, CompanySetting::kDocumentWithYear, false);
  PostCharges(file_, DateTime(2027, 7, 31), Others(DateTime(2027, 7, 31)));
  EXPECT_EQ(Documents(), "IMO07/2026 31.07.2026 1 \nIMO07 31.07.2027 1 \n");
}

}  // namespace
}  // namespace tevra::test
