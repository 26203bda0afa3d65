// The transfer to the inventory from the command line.
#include "app/batch/Batch.h"
#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

namespace {

class TransferTest : public BatchTest {
 protected:
  TransferTest() {
    Execute("UPDATE I_VALIM SET VALIM = 2500");
    Execute("UPDATE kv_par SET CONTObiecteInventar = '303'");
    company_.AddAsset({{"COD", "A'1"},
                       {"DENUMIRE", "Tableta"},
                       {"CONT", "2131"},
                       {"COD_CC", "ADM"},
                       {"VAL_CUMP", 2400.5},
                       {"VAL_RAMASA", 1000.25},
                       {"DATA_CALCUL", DateTime(2026, 3, 31)}});
  }
  void Execute(const char* sql) const { company_.Open().Execute(sql); }
  std::string State() const {
    return company_.Rows("SELECT COUNT(*) FROM I_INV") +
           company_.Rows("SELECT COUNT(*) FROM Kv_Linii") +
           company_.Rows("SELECT COUNT(*) FROM I_IMO WHERE IESIRE <> 0");
  }
};

constexpr const char* kPrinted =
    "Obiect  Nr. crt.  Nr. inv.  Denumire  Valoare Lei  Valoare ramasa\n"
    "------  --------  --------  --------  -----------  --------------\n"
    "     1         1  A'1       Tableta      2.400,50        1.000,25\n"
    "\n"
    "Nota  Imobilizare  Cont     Debit    Credit  Centru de Cost\n"
    "----  -----------  ----  --------  --------  --------------\n"
    "   1            1  2131      0,00  2.400,50  ADM\n"
    "   1            1  603   1.000,25      0,00  ADM\n"
    "   1            1  2813  1.400,25      0,00  ADM\n"
    "\n";

TEST_F(TransferTest, MovesAfterYesAndShowsItBeforeOnRequest) {
  const std::string question =
      "1 imobilizari gasite cu valoare mai mica de 2500! Doriti sa fie trecute in inventar? ";
  ExpectRefused({"transfer", "03.2026"}, question);
  const Result dry = RunAsAdmin({"transfer", "03.2026", "--dry-run"});
  EXPECT_EQ(dry.code, kDone) << dry.err;
  EXPECT_EQ(dry.out, kPrinted + std::string("Ar trece in inventar 1 imobilizare; IMOII01.04.2026: "
                                            "1 nota, 2.400,50 lei\n"
                                            "Nu s-a scris nimic (--dry-run).\n"));
  EXPECT_EQ(State(), "0 \n0 \n0 \n");
  const Result result = RunAsAdmin({"transfer", "03.2026", "--yes"});
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_EQ(result.out, kPrinted + std::string("Au trecut in inventar 1 imobilizare; "
                                               "IMOII01.04.2026: 1 nota, 2.400,50 lei\n"));
  EXPECT_NE(result.err.find(question), std::string::npos);
  EXPECT_EQ(State(), "1 \n3 \n1 \n");
  ExpectRefused({"transfer", "03.2026", "--yes"},
                "Nu exista imobilizari a caror valoare sa fie mai mica de 2500!");
}

TEST_F(TransferTest, RefusesLikeTheWindow) {
  for (const char* month : {"13.2026", "3.2026", "2026-03", "01.03.2026", "03.26", ""}) {
    ExpectRefused({"transfer", month, "--yes"},
                  "Luna \"" + std::string(month) + "\" nu este corecta (LL.AAAA) !");
  }
  ExpectRefused({"transfer", "04.2026", "--yes"},
                "Ultimul calcul pentru mijloacele fixe trebuie sa fie in luna : [4-2026]");
  Execute("CREATE TRIGGER x BEFORE UPDATE ON I_IMO BEGIN SELECT RAISE(ABORT, 'gata'); END");
  for (const char* option : {"--yes", "--dry-run"}) {
    ExpectRefused({"transfer", "03.2026", option}, "gata");
  }
  Execute("DROP TRIGGER x");
  Execute("UPDATE I_CONTURIIM SET CONT_CHELT = '' WHERE CONT = '303'");
  for (const char* option : {"--yes", "--dry-run"}) {
    ExpectRefused({"transfer", "03.2026", option}, "Trebuie sa precizati: Cont (NRCRT 1)");
  }
  Execute("UPDATE kv_par SET CONTObiecteInventar = NULL");
  ExpectRefused({"transfer", "03.2026", "--dry-run"},
                "Va rog configurati contul de obiecte de inventar");
}

TEST_F(TransferTest, AWarningGoesToTheErrorOutput) {
  Execute("UPDATE I_IMO SET CONT = '999'");
  const Result result = RunAsAdmin({"transfer", "03.2026", "--yes"});
  EXPECT_EQ(result.code, kDone);
  EXPECT_NE(result.err.find("Nu am generat note contabile\n"), std::string::npos);
  EXPECT_NE(result.out.find("IMOII01.04.2026: 0 note, 0,00 lei\n"), std::string::npos);
  EXPECT_EQ(State(), "1 \n0 \n1 \n");
}

}  // namespace

}  // namespace tevra::batch::test
