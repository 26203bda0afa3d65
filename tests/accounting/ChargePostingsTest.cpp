// The month's charges in the accounting lines.
#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "accounting/ChargePostings.h"
#include "platform/data/Recordset.h"
#include "platform/system/Clock.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra::test {
namespace {

class ChargePostings : public ::testing::Test {
 protected:
  ChargePostings() {
    clock::Set(DateTime(2026, 11, 23, 10, 30, 15));
    Connection file = company_.Open();
    file.Execute("DELETE * FROM I_CONTURIIM");
    file.Execute(
        "INSERT INTO I_CONTURIIM (CONT, CONT_AMO, CONT_CHELT) VALUES "
        "('2131', '2813', '6811'), ('214', '2814', '6811')");
  }
  ~ChargePostings() override { clock::Reset(); }

  void Add(const char* account, double value, std::map<std::string, Value> more = {}) {
    more.insert({{"COD", "1"}, {"CONT", account}, {"VAL_CUMP", value}, {"COTAL_LUNARA", 0.01}});
    company_.AddAsset({more.begin(), more.end()});
  }
  ChargesPosted Post(const DateTime& date) {
    Connection connection = company_.Open();
    return PostCharges(connection, date, OthersUnderMonth(connection, date));
  }
  std::string Lines(const std::string& fields = "NDI, NRLINIE, CONT, DEBIT, CREDIT") {
    return company_.Rows("SELECT " + fields + " FROM Kv_Linii ORDER BY NDI, NRLINIE");
  }

  TestCompany company_;
};

TEST_F(ChargePostings, EachAssetHasANoteOfItsOwn) {
  Add("214", 12345.67, {{"COD_CC", "C1"}});
  Add("2131", 1000.0, {{"BLOCATA", Value::YesNo(true)}, {"VAL_BLOCATA", 600.5}});
  Add("2131", 1000.0, {{"VALCHELEI", 200.0}});
  Add("999", 1000.0);                            // its account is not associated
  Add("2131", 1000.0, {{"COTAL_LUNARA", 0.0}});  // ended
  Add("2131", 1000.0, {{"VALCHELEI", Value()}});
  Add("2131", 0.4);  // rounds to nothing
  Add("2131", -100.0);
  const ChargesPosted posted = Post(DateTime(2026, 7, 15));
  EXPECT_EQ(Lines(),
            "1 1 2814 0 123,46 \n"
            "1 2 6811 123,46 0 \n"
            "2 1 2813 0 6 \n"  // 6.005 to the even one
            "2 2 6811 6 0 \n"
            "3 1 2813 0 8 \n"
            "3 2 6811 8 0 \n"
            "4 1 2813 0 -1 \n"
            "4 2 6811 -1 0 \n");
  EXPECT_EQ(posted.notes, 4);
  EXPECT_EQ(posted.lei, 136.46);
}

TEST_F(ChargePostings, ALineBearsWhatTheMonthHasInCommon) {
  Add("214", 12345.67, {{"COD_CC", "C1"}});
  CurrentSession().userName = "Ana";
  Post(DateTime(2026, 7, 15));
  EXPECT_EQ(
      Lines("JURNAL, DATAINR, DOC, MARCA, CODBUG, CODCC, COD, CURS, DEVDEBIT, DEVCREDIT, "
            "CANTIT, PROV, DATASCAD, UTILIZATOR, TIMP, CodSucursala, DocExplicatie"),
      "OD 15.07.2026 IMO07 IMO07 C1  LEI 0 0 0 1 I 15.08.2026 Ana 23.11.2026 10:30:15 01  \n"
      "OD 15.07.2026 IMO07 IMO07 C1  LEI 0 0 0 1 I 15.08.2026 Ana 23.11.2026 10:30:15 01  \n");
  EXPECT_EQ(company_.Open().QueryValue("SELECT COUNT(*) FROM Kv_Linii WHERE TERT IS NULL").AsLong(),
            2);
}

// The engine gives rows backwards here unless a statement orders them.
TEST_F(ChargePostings, NotesComeInTheOrderOfTheAssetsEachWithItsCentre) {
  for (const char* centre : {"C3", "C1", "C1", "C2"}) Add("214", 1000.0, {{"COD_CC", centre}});
  Add("2131", 1000.0);
  Connection connection = company_.Open();
  connection.Execute("PRAGMA reverse_unordered_selects=ON");
  PostCharges(connection, DateTime(2026, 7, 15));
  EXPECT_EQ(Lines("NDI, CODBUG, CONT"),
            "1 C3 2814 \n1 C3 6811 \n2 C1 2814 \n2 C1 6811 \n3 C1 2814 \n3 C1 6811 \n"
            "4 C2 2814 \n4 C2 6811 \n5  2813 \n5  6811 \n");
}

// Another user changes the rates and commits while the posting waits for its turn.
TEST_F(ChargePostings, TheRatesAreThoseOfTheMomentOfWriting) {
  Add("214", 1000.0);
  Connection other = company_.Open();
  other.BeginTrans();
  other.Execute("UPDATE I_IMO SET COTAL_LUNARA = 0.5");
  std::thread posting([this] { Post(DateTime(2026, 7, 15)); });
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  other.CommitTrans();
  posting.join();
  EXPECT_EQ(Lines("DEBIT"), "0 \n500 \n");
}

TEST_F(ChargePostings, AMonthReplacesItselfInEveryYear) {
  Add("214", 1000.0);
  Post(DateTime(2025, 7, 31));
  Post(DateTime(2025, 8, 31));
  company_.Open().Execute(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, DOC, CONT) VALUES (50, 1, 'imo07', 'x')");
  Post(DateTime(2025, 7, 31));
  EXPECT_EQ(Lines("NDI, DOC, DATAINR"),
            "2 IMO08 31.08.2025 \n2 IMO08 31.08.2025 \n"
            "3 IMO07 31.07.2025 \n3 IMO07 31.07.2025 \n");
  Post(DateTime(2026, 7, 1));
  EXPECT_EQ(Lines("NDI, DOC, DATAINR"),
            "2 IMO08 31.08.2025 \n2 IMO08 31.08.2025 \n"
            "3 IMO07 01.07.2026 \n3 IMO07 01.07.2026 \n");
  company_.Open().Execute("UPDATE I_IMO SET COTAL_LUNARA = 0");
  EXPECT_EQ(Post(DateTime(2026, 7, 1)).notes, 0);
  EXPECT_EQ(Lines("NDI, DOC"), "2 IMO08 \n2 IMO08 \n");
}

TEST_F(ChargePostings, AFailureLeavesTheOldPostings) {
  Add("214", 1000.0);
  Post(DateTime(2026, 7, 31));
  const std::string before = Lines();
  Add("2131", 500.0);
  for (const char* column : {"CONT_AMO", "CONT_CHELT"}) {
    company_.Open().Execute("UPDATE I_CONTURIIM SET CONT_AMO = '2813', CONT_CHELT = '6811'");
    company_.Open().Execute(std::string("UPDATE I_CONTURIIM SET ") + column +
                            " = NULL WHERE CONT = '2131'");
    const Refusal refusal = RefusalOf([&] { Post(DateTime(2026, 7, 31)); });
    EXPECT_EQ(refusal.number, kRefusedNote);
    EXPECT_EQ(refusal.text, "Trebuie sa precizati: Cont");
    EXPECT_EQ(refusal.source, "NRCRT 2");
    EXPECT_EQ(Lines(), before);
  }
  company_.Open().Execute("UPDATE I_CONTURIIM SET CONT_AMO = '2813', CONT_CHELT = '6811'");
  company_.Open().Execute("UPDATE I_IMO SET VAL_CUMP = 1e308, COTAL_LUNARA = 100 WHERE NRCRT = 2");
  EXPECT_EQ(RefusalOf([&] { Post(DateTime(2026, 7, 31)); }).text, "Overflow: VAL_AMOR");
  EXPECT_EQ(Lines(), before);
  Connection other = company_.Open();
  other.BeginTrans();
  Connection impatient(company_.ConnectionString() + ";Lock Timeout=50");
  EXPECT_NE(FailureOf([&] { PostCharges(impatient, DateTime(2026, 7, 31)); }), 0);
  other.RollbackTrans();
  EXPECT_EQ(Lines(), before);
}

}  // namespace
}  // namespace tevra::test
