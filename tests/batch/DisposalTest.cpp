// Scrapping and sale from the command line.
#include "app/batch/Batch.h"
#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

namespace {

class DisposalTest : public BatchTest {
 protected:
  DisposalTest() {
    AddAsset("10");
    company_.Open().Execute("INSERT INTO kv_Ter (COD, NUME, TIP) VALUES (7, 'O''NEIL', 'C')");
  }
  int AddAsset(const char* code) {
    return company_.AddAsset({{"COD", code},
                              {"TIP_AM", "L"},
                              {"CONT", "2131"},
                              {"CURS", 4.0},
                              {"DATA_ACH", DateTime(2005, 12, 10)},
                              {"DATA_IN_AM", DateTime(2006, 1, 1)},
                              {"DATA_SF", DateTime(2008, 1, 1)},
                              {"VAL_CUMP", 12000.0},
                              {"VAL_CUMP_VAL", 3000.0},
                              {"DRFANI", 2.0},
                              {"COTA_ANUALA", 0.5}});
  }
  // Thirteen months at 500 lei are over on that day.
  static std::vector<std::string> Sale(const std::vector<std::string>& changed = {}) {
    std::vector<std::string> all{"dispose",   "10",   "31.01.2007", "--sell", "--price",   "8000",
                                 "--client",  "7",    "--document", "F'1",    "--vat",     "2",
                                 "--expense", "6583", "--customer", "4111",   "--revenue", "7583"};
    all.insert(all.end(), changed.begin(), changed.end());
    return all;
  }
  std::string Row() const {
    return company_.Rows(
        "SELECT IESIRE, TIP_IESIRE, DATA_IESIRE, VAL_RAMASA_IESIRE, VAL_RAMASA_IESIRE_VAL, "
        "VAL_IESIRE, VAL_IESIRE_VAL, CONT_CA, CONT_CLI, CONT_VEN, COD_TVA_VANZ, DocIesire, "
        "ID_Client, UTILIZATOR FROM I_IMO ORDER BY NRCRT");
  }
  std::string Lines() const {
    return company_.Rows(
        "SELECT JURNAL, CONT, DEBIT, CREDIT, DEVDEBIT, DEVCREDIT, TERT, COTATVA, CURS, DATAINR "
        "FROM Kv_Linii ORDER BY NDI, NRLINIE");
  }
};

TEST_F(DisposalTest, ASaleWritesAndPrintsItsNotes) {
  Result result = RunAsAdmin(Sale());
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out.substr(0, result.out.find('\n')), "Datele au fost salvate cu succes !");
  for (const char* part :
       {"Nota contabila F'1:", "9.680,00", "1.680,00", "OD", "5.500,00", "6.500,00"}) {
    EXPECT_NE(result.out.find(part), std::string::npos) << part << " in " << result.out;
  }
  EXPECT_EQ(Row(), "True V 31.01.2007 5500 1375 8000 2000 6583 4111 7583 2 F'1 7 admin \n");
  const std::string lines =
      "JV 4111 9680 0 2420 0 7 21 4 31.01.2007 \nJV 7583 0 8000 0 2000  21 4 31.01.2007 \n"
      "JV 4427 0 1680 0 420  21 4 31.01.2007 \nOD 2131 0 12000 0 3000  21 4 31.01.2007 \n"
      "OD 6583 5500 0 1375 0  21 4 31.01.2007 \nOD 2813 6500 0 1625 0  21 4 31.01.2007 \n";
  EXPECT_EQ(Lines(), lines);
  result = RunAsAdmin(Sale());
  EXPECT_EQ(result.code, kDone) << "its own notes are no question";
  EXPECT_EQ(result.err,
            "Imobilizarea a iesit deja din gestiune la 31.01.2007, prin vanzare, cu documentul "
            "F'1. Salvarea inlocuieste datele iesirii.\n");
  EXPECT_EQ(Lines(), lines);
}

TEST_F(DisposalTest, AScrappingNeedsNothingElse) {
  const int second = AddAsset("10");
  ExpectRefused({"dispose", "10", "31.01.2007", "--scrap"},
                "Numarul de inventar 10 este al mai multor imobilizari, cu numerele curente 1, " +
                    std::to_string(second) + ": alegeti cu --nrcrt !");
  Result result =
      RunAsAdmin({"dispose", "--nrcrt", std::to_string(second), "31.01.2007", "--scrap"});
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_EQ(result.out, "Datele au fost salvate cu succes !\n");
  EXPECT_EQ(company_.Rows("SELECT IESIRE, TIP_IESIRE, CONT_CA FROM I_IMO ORDER BY NRCRT"),
            "False   \nTrue C  \n");
  result = RunAsAdmin({"dispose", "--nrcrt", "1", "2007-01-31", "--scrap", "--expense", "2131"});
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_EQ(company_.Rows("SELECT CONT_CA, VAL_RAMASA_IESIRE FROM I_IMO WHERE NRCRT = 1"),
            "2131 5500 \n");
  EXPECT_EQ(Lines(), "");
}

TEST_F(DisposalTest, WhatTheWindowRefusesIsRefusedInItsWords) {
  ExpectRefused(Sale({"--price", "abc"}),
                "Va rugam introduceti o valoare numerica pozitiva pentru Pret vanzare!");
  ExpectRefused(Sale({"--price", "-0,01"}), "pozitiva pentru Pret vanzare!");
  ExpectRefused(Sale({"--vat", ""}), "Va rugam completati Cod TVA la vanzare !");
  ExpectRefused(Sale({"--document", ""}), "Va rog introduceti nr documentului de vanzare");
  ExpectRefused(Sale({"--expense", "2131"}), "Contul de cheltuieli 2131 nu exista in lista !");
  ExpectRefused(Sale({"--client", "8"}), "Clientul 8 nu exista in lista !");
  ExpectRefused({"dispose", "11", "31.01.2007", "--scrap"},
                "Imobilizarea cu numarul de inventar 11 nu exista !");
  ExpectRefused({"dispose", "--nrcrt", "9", "31.01.2007", "--scrap"},
                "Imobilizarea cu numarul curent 9 nu exista !");

  // From here on the asset was calculated, which the file keeps.
  const auto refusal = [&](const std::vector<std::string>& arguments) {
    const Result result = RunAsAdmin(arguments);
    EXPECT_EQ(result.code, kRefused) << result.out;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(Lines(), "");
    EXPECT_EQ(Row().substr(0, 5), "False");
    return result.err;
  };
  company_.Open().Execute("UPDATE I_IMO SET CURS = 0");
  EXPECT_EQ(refusal(Sale()), "Va rog introduceti cursul pentru obiectul de inventar: 10\n");
  company_.Open().Execute("UPDATE I_IMO SET CURS = 4");
  company_.Open().Execute("UPDATE I_IMO SET DATA_CALCUL = ? WHERE NRCRT = ?",
                          {DateTime(2007, 2, 28), AddAsset("12")});
  EXPECT_EQ(refusal(Sale()).substr(0, 72),
            "Va rog efectuati calculul pentru mijloacele fixe pana in luna curenta: [");
  company_.Open().Execute("UPDATE I_IMO SET DATA_SF = NULL");
  const std::string failed = refusal(Sale());
  EXPECT_NE(failed.find("DATA_SF"), std::string::npos) << failed;
}

TEST_F(DisposalTest, NotesOfOthersAreDeletedOnlyWithYesAndAMissingNoteIsTold) {
  company_.Open().Execute(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, JURNAL, CONT, DEBIT, DOC) VALUES "
      "(9, 1, 'JC', '401', 50, 'F''1')");
  Result result = RunAsAdmin(Sale());
  EXPECT_EQ(result.code, kRefused);
  EXPECT_NE(result.err.find("exista deja o nota contabila, in suma de 50,00 lei"),
            std::string::npos);
  EXPECT_EQ(Row().substr(0, 5), "False");
  company_.Open().Execute("DELETE * FROM I_CONTURIIM WHERE CONT = '2131'");
  result = RunAsAdmin(Sale({"--yes"}));
  EXPECT_EQ(result.code, kRefused);
  EXPECT_NE(result.out.find("9.680,00"), std::string::npos);
  EXPECT_NE(result.err.find("Va rog asociati contului 2131 un cont de amortizare\n"),
            std::string::npos);
  EXPECT_EQ(company_.Rows("SELECT DISTINCT JURNAL FROM Kv_Linii"), "JV \n");
  company_.Open().Execute("INSERT INTO I_CONTURIIM (CONT) VALUES ('2131')");
  result = RunAsAdmin(Sale());
  EXPECT_EQ(result.code, kRefused);
  EXPECT_NE(result.err.find("Imobilizarea este trecuta ca vanduta, dar nota scoaterii din "
                            "gestiune nu a fost scrisa !\nEroare -2147221494 - Trebuie sa "
                            "precizati: Cont"),
            std::string::npos)
      << result.err;
}

TEST_F(DisposalTest, AWrongLineSaysWhatIsWrong) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"10"}, "Lipseste argumentul DATA !"},
      {{"--nrcrt", "1"}, "Lipseste argumentul DATA !"},
      {{}, "Lipseste argumentul COD !"},
      {{"--nrcrt", "1", "10", "31.01.2007", "--scrap"}, "--nrcrt exclude argumentul COD !"},
      {{"10", "31.01.2007"}, "Lipseste optiunea --scrap sau --sell !"},
      {{"10", "31.01.2007", "--scrap", "--sell"}, "Optiunea --sell exclude --scrap !"},
      {{"10", "31.01.2007", "--scrap", "--vat", "2"}, "--vat nu se potriveste cu --scrap !"}};
  for (const auto& [arguments, text] : cases) {
    std::vector<std::string> line{"dispose"};
    line.insert(line.end(), arguments.begin(), arguments.end());
    const Result result = RunAsAdmin(line);
    EXPECT_EQ(result.code, kUsage) << text;
    EXPECT_NE(result.err.find(text), std::string::npos) << result.err;
  }
}

}  // namespace

}  // namespace tevra::batch::test
