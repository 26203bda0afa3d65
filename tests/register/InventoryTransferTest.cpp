// The transfer of small assets to the inventory: the note as a function, the work on a real file.
#include <gtest/gtest.h>

#include "engine/Module3.h"
#include "platform/data/Recordset.h"
#include "platform/system/Clock.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "register/InventoryTransfer.h"
#include "session/Session.h"
#include "tests/KilledWrites.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra::test {
namespace {

const DateTime kDay(2026, 4, 1);

// "account debit credit" of each line.
std::string LinesOf(const Note& note) {
  std::string text;
  for (const NoteLine& line : note) {
    text += line.Cont + " " + CStr(line.Debit) + " " + line.Credit() + "; ";
  }
  return text;
}

class InventoryTransfer : public ::testing::Test {
 protected:
  InventoryTransfer() {
    clock::Set(DateTime(2026, 4, 3, 10, 30, 15));
    CurrentSession().contObiecteInventar = "303";
    Execute("DELETE * FROM I_VALIM");
    Execute(
        "INSERT INTO I_VALIM (DATVALIM, VALIM) VALUES ('2013-07-01 00:00:00', 9000), "
        "('2026-01-01 00:00:00', 2500)");
    Execute("DELETE * FROM I_CONTURIIM");
    Execute(
        "INSERT INTO I_CONTURIIM (CONT, CONT_AMO, CONT_CHELT) VALUES ('2131', '2813', '6811'), "
        "('214', '2814', '6811'), ('2111', NULL, NULL), ('303', NULL, '603')");
  }
  ~InventoryTransfer() override { clock::Reset(); }

  void Execute(const std::string& sql, const Values& params = {}) const {
    company_.Open().Execute(sql, params);
  }
  int Add(const char* code, const Value& account, double value, double remaining,
          std::map<std::string, Value> more = {}) const {
    more.insert({{"COD", code},
                 {"DENUMIRE", "N"},
                 {"CONT", account},
                 {"VAL_CUMP", value},
                 {"VAL_RAMASA", remaining}});
    return company_.AddAsset({more.begin(), more.end()});
  }
  TransferSelection Selection() const {
    Connection connection = company_.Open();
    return ReadTransferSelection(connection);
  }
  std::string Codes() const {
    std::string codes;
    for (const SmallAsset& asset : Selection().assets) codes += asset.code + " ";
    return codes;
  }
  Transferred Transfer(const DateTime& day = kDay) const {
    Connection connection = company_.Open();
    return TransferToInventory(connection, ReadTransferSelection(connection), day);
  }
  std::string Lines() const {
    return company_.Rows(
        "SELECT NDI, NRLINIE, CONT, DEBIT, CREDIT FROM Kv_Linii ORDER BY NDI, NRLINIE");
  }
  /// All that a transfer may change.
  std::string State() const {
    return company_.Rows("SELECT * FROM I_IMO ORDER BY NRCRT") + "|" +
           company_.Rows("SELECT * FROM I_INV ORDER BY NRCRT") + "|" +
           company_.Rows(
               "SELECT NDI, NRLINIE, DOC, CONT, DEBIT, CREDIT FROM Kv_Linii "
               "ORDER BY NDI, NRLINIE");
  }

  TestCompany company_;
  MessageRecorder messages_;
};

TEST_F(InventoryTransfer, ANoteCreditsTheValueAndSplitsIt) {
  struct Case {
    double value;
    double remaining;
    const char* lines;
  };
  const Case kCases[] = {
      {2500, 1000, "2131 0 2500; 603 1000 0; 2813 1500 0; "},
      {1200, 1200, "2131 0 1200; 603 1200 0; "},
      {1000.005, 333.335, "2131 0 1000; 603 333,34 0; 2813 666,66 0; "},  // ties to even
      {0.3, 0.1, "2131 0 0,3; 603 0,1 0; 2813 0,2 0; "},
      {10, 0.004, "2131 0 10; 2813 10 0; "},
      {10.001, 9.999, "2131 0 10; 603 10 0; "},
      {0, 5, "603 5 0; 2813 -5 0; "},
      {100, 300, "2131 0 100; 603 300 0; 2813 -200 0; "},
      {0.004, 0.004, ""},
  };
  for (const Case& each : kCases) {
    const NotedAsset asset{7, "2131", "2813", "C1", "FF 1", each.value, each.remaining};
    EXPECT_EQ(LinesOf(TransferNote(asset, "603", kDay)), each.lines)
        << each.value << " " << each.remaining;
  }
}

TEST_F(InventoryTransfer, TheDepreciationOfANoteIsRoundedToo) {
  const NotedAsset asset{7, "2131", "2813", "C1", "FF 1", 0.3, 0.1};
  EXPECT_EQ(TransferNote(asset, "603", kDay).at(2).Debit, 0.2);
}

TEST_F(InventoryTransfer, TheDayIsTheFirstOfTheMonthAfter) {
  EXPECT_EQ(TransferDay(2026, 3), kDay);
  EXPECT_EQ(TransferDay(2026, 12), DateTime(2027, 1, 1));
  EXPECT_EQ(TransferDocument(kDay), "IMOII01.04.2026");
  EXPECT_EQ(OtherMonthText(DateTime(2026, 3, 31)),
            "Ultimul calcul pentru mijloacele fixe trebuie sa fie in luna : [3-2026]");
}

TEST_F(InventoryTransfer, SmallAssetsWithSomethingLeftAreFound) {
  Add("limit", "2131", 2500, 1);
  Add("above", "2131", 2500.01, 1);
  Add("ended", "2131", 100, 0);
  Add("left", "2131", 100, 50, {{"IESIRE", Value::YesNo(true)}});
  Add("O'Neil", "999", 100, 50);
  Add("none", "2131", 0, 1, {{"VAL_CUMP", Value()}});
  EXPECT_EQ(Codes(), "limit O'Neil ");
  EXPECT_EQ(Selection().notedAgain, 1);
  EXPECT_EQ(NothingToTransferText(Selection()),
            "Nu exista imobilizari a caror valoare sa fie mai mica de 2500!");
  EXPECT_TRUE(AskToTransfer(Selection()));
  EXPECT_EQ(messages_.shown[0].prompt,
            "2 imobilizari gasite cu valoare mai mica de 2500! Doriti sa fie trecute in "
            "inventar? ");
  EXPECT_EQ(messages_.shown[0].title, "Trecere in inventar");
  EXPECT_EQ(messages_.shown[0].buttons, kYesNo);
  messages_.answers = {kNo};
  EXPECT_FALSE(AskToTransfer(Selection()));

  Execute("UPDATE I_VALIM SET VALIM = 50.5 WHERE VALIM = 2500");
  EXPECT_NE(NothingToTransferText(Selection()).find("mai mica de 50,5!"), std::string::npos);
  Execute("UPDATE I_VALIM SET VALIM = NULL WHERE VALIM < 100");
  Add("free", "2131", 0, 3);
  EXPECT_EQ(Codes(), "free ");
  Execute("DELETE * FROM I_VALIM");
  EXPECT_EQ(Codes(), "free ");
  EXPECT_EQ(Selection().limit, 0);
}

TEST_F(InventoryTransfer, CopiesNotesAndMarksAreWritten) {
  Add("A1", "2131", 2400.5, 1000.25,
      {{"DENUMIRE", "Masa d'oua"},
       {"COD_CC", "C1"},
       {"COD_LOC", "H1"},
       {"COD_FURNIZOR", 7},
       {"DOCUMENT", "FF 'x'"},
       {"DATA_ACH", DateTime(2025, 1, 10)},
       {"DATA_PF", DateTime(2025, 2, 11)},
       {"CURS", 4.9},
       {"VAL_CUMP_VAL", 489.9},
       {"OBS1", "obs"},
       {"COD_TVA_CUMP", 5}});
  Add("A2", "214", 600, 600);
  Add("A3", "2131", 9999, 5000);
  Execute("INSERT INTO I_INV (COD) VALUES ('vechi'), ('sters')");
  Execute("DELETE * FROM I_INV WHERE COD = 'sters'");
  CurrentSession().userName = "Ana";
  const Transferred done = Transfer();

  // The number of the deleted object is not used again.
  EXPECT_EQ(company_.Rows("SELECT NRCRT, COD, DENUMIRE, COD_CC, CONT, COD_LOC, COD_FURNIZOR, "
                          "DOCUMENT, DATA_ACH, DATA_PF, VAL_CUMP, CURS, VAL_CUMP_VAL, OBS1, "
                          "COD_TVA_CUMP, Blocata, IESIRE FROM I_INV WHERE NRCRT > 1"),
            "3 A1 Masa d'oua C1 303 H1 7 FF 'x' 10.01.2025 11.02.2025 2400,5 4,9 489,9 obs 5 True "
            "False \n"
            "4 A2 N  303      600 0 0   True False \n");
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM I_INV WHERE NRCRT = 4 AND COD_CC IS NULL AND "
                          "COD_LOC IS NULL AND COD_FURNIZOR IS NULL AND DATA_ACH IS NULL AND OBS1 "
                          "IS NULL AND COD_TVA_CUMP IS NULL AND UTILIZATOR IS NULL AND PERS IS "
                          "NULL"),
            "1 \n");
  EXPECT_EQ(Lines(),
            "1 1 2131 0 2400,5 \n1 2 603 1000,25 0 \n1 3 2813 1400,25 0 \n"
            "2 1 214 0 600 \n2 2 603 600 0 \n");
  EXPECT_EQ(company_.Rows("SELECT JURNAL, DATAINR, DOC, MARCA, CODBUG, COD, CURS, DEVDEBIT, "
                          "DEVCREDIT, CANTIT, PROV, DATASCAD, UTILIZATOR, CodSucursala, COTATVA, "
                          "DocExplicatie FROM Kv_Linii WHERE NRLINIE = 2 ORDER BY NDI"),
            "OD 01.04.2026 IMOII01.04.2026 IMOII01.04.2026 C1 LEI 0 0 0 1 I 01.05.2026 Ana 01 0 "
            "FF 'x' \n"
            "OD 01.04.2026 IMOII01.04.2026 IMOII01.04.2026  LEI 0 0 0 1 I 01.05.2026 Ana 01 0  \n");
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM Kv_Linii WHERE TERT IS NULL"), "5 \n");
  EXPECT_EQ(company_.Rows("SELECT COD, IESIRE, DATA_IESIRE, UTILIZATOR, TIP_IESIRE, VAL_IESIRE, "
                          "VAL_RAMASA FROM I_IMO ORDER BY NRCRT"),
            "A1 True 01.04.2026 Ana  0 1000,25 \nA2 True 01.04.2026 Ana  0 600 \n"
            "A3 False    0 5000 \n");
  ASSERT_EQ(done.copies.size(), 2U);
  EXPECT_EQ(done.copies[1].number, 4);
  EXPECT_EQ(done.copies[1].asset.code, "A2");
  ASSERT_EQ(done.notes.size(), 2U);
  EXPECT_EQ(done.notes[1].number, 2);
  EXPECT_EQ(done.notes[1].asset, 2);
  EXPECT_EQ(done.warning, "");
}

TEST_F(InventoryTransfer, AnAssetThatLeftWithARemainingValueIsNotedAgain) {
  Add("A1", "2131", 100, 40);
  Transfer();
  Add("A2", "2131", 200, 200);
  EXPECT_EQ(Selection().notedAgain, 1);
  Transfer();
  EXPECT_EQ(Lines(),
            "1 1 2131 0 100 \n1 2 603 40 0 \n1 3 2813 60 0 \n"
            "2 1 2131 0 100 \n2 2 603 40 0 \n2 3 2813 60 0 \n"
            "3 1 2131 0 200 \n3 2 603 200 0 \n");
  EXPECT_EQ(company_.Rows("SELECT COD FROM I_INV ORDER BY NRCRT"), "A1 \nA2 \n");
}

TEST_F(InventoryTransfer, AWarningLeavesTheNotesOut) {
  Add("A1", "999", 100, 40);  // its account is not associated
  Transferred done = Transfer();
  EXPECT_EQ(done.warning, "Nu am generat note contabile");
  EXPECT_EQ(done.warningIcon, 0);
  Add("A2", "2131", 100, 40);
  Execute("UPDATE I_CONTURIIM SET CONT_CHELT = NULL WHERE CONT = '303'");
  done = Transfer();
  EXPECT_EQ(done.warning, "Va rog asociati un cont de cheltuiala contului: 303");
  EXPECT_EQ(done.warningIcon, kExclamation);
  EXPECT_EQ(Lines(), "");
  EXPECT_EQ(company_.Rows("SELECT COD FROM I_INV ORDER BY NRCRT"), "A1 \nA2 \n");
  EXPECT_EQ(company_.Rows("SELECT COUNT(*) FROM I_IMO WHERE IESIRE = 0"), "0 \n");
}

TEST_F(InventoryTransfer, AnAssetWithoutAssociationMovesWithoutANote) {
  Add("large", "2131", 9999, 5000);
  Add("A1", "999", 100, 40);
  Add("A2", Value(), 100, 40);
  Add("A3", "2111", 100, 60);
  Add("limit", "2131", 2500, 2500);
  const Transferred done = Transfer();
  EXPECT_EQ(done.copies.size(), 4U);
  // An association without a depreciation account counts as account 0.
  EXPECT_EQ(Lines(),
            "1 1 2111 0 100 \n1 2 603 60 0 \n1 3 0 40 0 \n"
            "2 1 2131 0 2500 \n2 2 603 2500 0 \n");
  EXPECT_EQ(company_.Rows("SELECT COD FROM I_IMO WHERE IESIRE = 0"), "large \n");
}

TEST_F(InventoryTransfer, AFailureOfAnyStepLeavesNothing) {
  Add("A1", "2131", 100, 40);
  Add("A2", "2131", 200, 200);
  const std::string before = State();
  const TransferSelection agreed = Selection();
  struct Case {
    const char* damage;
    const char* repair;
    TransferStep step;
    const char* text;
  };
  const Case kCases[] = {
      {"CREATE TRIGGER x BEFORE INSERT ON I_INV WHEN NEW.COD = 'A2' BEGIN SELECT RAISE(ABORT, "
       "'copie'); END",
       "DROP TRIGGER x", TransferStep::kCopy, "copie"},
      {"UPDATE I_CONTURIIM SET CONT_CHELT = '' WHERE CONT = '303'",
       "UPDATE I_CONTURIIM SET CONT_CHELT = '603' WHERE CONT = '303'", TransferStep::kNote,
       "Trebuie sa precizati: Cont"},
      {"CREATE TRIGGER x BEFORE INSERT ON Kv_Linii WHEN NEW.NDI = 2 BEGIN SELECT RAISE(ABORT, "
       "'nota'); END",
       "DROP TRIGGER x", TransferStep::kNote, "nota"},
      {"CREATE TRIGGER x BEFORE UPDATE ON I_IMO WHEN NEW.COD = 'A2' BEGIN SELECT RAISE(ABORT, "
       "'iesire'); END",
       "DROP TRIGGER x", TransferStep::kMark, "iesire"},
      {"INSERT INTO I_VALIM (DATVALIM, VALIM) VALUES ('2026-02-01 00:00:00', 150)",
       "DELETE * FROM I_VALIM WHERE VALIM = 150", TransferStep::kCopy, "s-au schimbat intre timp"},
  };
  for (const Case& each : kCases) {
    Execute(each.damage);
    Connection connection = company_.Open();
    TransferStep reached = TransferStep::kCopy;
    const Refusal refusal = RefusalOf([&] {
      TransferToInventory(connection, agreed, kDay, [&](TransferStep step) { reached = step; });
    });
    EXPECT_NE(refusal.text.find(each.text), std::string::npos) << refusal.text;
    EXPECT_EQ(reached, each.step) << each.text;
    if (each.step == TransferStep::kNote) {
      EXPECT_EQ(refusal.source.substr(0, 6), "NRCRT ");
    }
    connection.Close();
    Execute(each.repair);
    EXPECT_EQ(State(), before) << each.text;
  }
}

// The second user agreed to assets that the first one has moved in the meantime.
TEST_F(InventoryTransfer, TwoUsersMoveAnAssetOnce) {
  Add("A1", "2131", 100, 40);
  const TransferSelection agreed = Selection();
  Transfer();
  const std::string after = State();
  Connection second = company_.Open();
  EXPECT_EQ(FailureOf([&] { TransferToInventory(second, agreed, kDay); }), kRowChanged);
  EXPECT_EQ(State(), after);
  Connection other = company_.Open();
  other.BeginTrans();
  Connection impatient(company_.ConnectionString() + ";Lock Timeout=50");
  EXPECT_NE(FailureOf([&] { TransferToInventory(impatient, agreed, kDay); }), 0);
  other.RollbackTrans();
  EXPECT_EQ(State(), after);
}

TEST_F(InventoryTransfer, AKilledTransferIsWholeOrNothing) {
  Execute(
      "INSERT INTO I_IMO (COD, CONT, VAL_CUMP, VAL_RAMASA) WITH RECURSIVE n(x) AS (VALUES (1) "
      "UNION ALL SELECT x + 1 FROM n WHERE x < 600) SELECT 'A' & x, '2131', 1000, 400 FROM n");
  const auto reset = [&] {
    Execute("DELETE * FROM I_INV");
    Execute("DELETE * FROM Kv_Linii");
    Execute("UPDATE I_IMO SET IESIRE = 0, DATA_IESIRE = NULL");
  };
  WriteCounter counter;
  const int writes = counter.WritesOf([&] { Transfer(); });
  ASSERT_GT(writes, 20);
  constexpr int kKills = 20;
  int before = 0;
  int after = 0;
  for (int kill = 1; kill <= kKills; ++kill) {
    reset();
    const int at = writes * kill / kKills;
    counter.KilledIn(at, [&] { Transfer(); });
    const std::string state = company_.Rows("SELECT COUNT(*) FROM I_INV") +
                              company_.Rows("SELECT COUNT(*), SUM(DEBIT) FROM Kv_Linii") +
                              company_.Rows("SELECT COUNT(*) FROM I_IMO WHERE IESIRE <> 0");
    before += state == "0 \n0  \n0 \n" ? 1 : 0;
    after += state == "600 \n1800 600000 \n600 \n" ? 1 : 0;
    ASSERT_EQ(before + after, kill) << "killed in write " << at << ": " << state;
    EXPECT_EQ(company_.Open().QueryValue("PRAGMA integrity_check"), Value("ok"));
  }
  EXPECT_GT(before, 0);
  EXPECT_GT(after, 0);
}

}  // namespace
}  // namespace tevra::test
