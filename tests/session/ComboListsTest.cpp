// What the plain combos list, over a fresh company.
#include "session/ComboLists.h"
#include "session/Module1.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

class ComboLists : public ::testing::Test {
 protected:
  ComboLists() {
    ExecuteSQL(
        "INSERT INTO kv_Ter (COD, NUME, TIP, UTILIZABIL) VALUES (7, 'Ambii', 'M', 'd'), "
        "(3, 'Furnizor', 'f', 'D'), (5, 'Client', 'C', 'D'), (1, 'Vechi', 'F', 'N'), "
        "(2, NULL, NULL, 'D')");
    ExecuteSQL(
        "INSERT INTO Kv_CC (COD, TITLU, UTILIZABIL) VALUES ('b', 'Birou', 'D'), ('a', 'x', 'N')");
    ExecuteSQL("INSERT INTO kv_cote (COD, CONT, PROCENT) VALUES (20, 'TVA deductibila', 9.5)");
    ExecuteSQL("DELETE FROM kv_PC WHERE CONT > '1011'");
  }

  test::TestCompany company_;
};

// All entries, or how many and the first, joined by bars.
std::string Listed(const std::string& combo, std::size_t most) {
  const std::vector<std::string> entries = ComboEntries(combo);
  std::string text = entries.size() > most ? std::to_string(entries.size()) + ": " : "";
  for (std::size_t i = 0; i < std::min(entries.size(), most); ++i) {
    text += (i ? "|" : "") + entries[i];
  }
  return text;
}

TEST_F(ComboLists, EveryComboListsItsOwnRowsInItsOrder) {
  const std::string accounts =
      "1-Clasa 1 - Conturi de capitaluri|10-Capital si rezerve|101-Capital|1011-Capital subscris "
      "nevarsat";
  const std::string currencies = "40: AED-Dirhamul Emiratelor Arabe|AUD-Dolarul australian";
  const std::string operations =
      "14: 1-Achizitii de imobilizari|2-Achizitii de stocuri si servicii";
  const std::vector<std::pair<const char*, std::string>> cases = {
      {"cboCont", accounts},
      {"cboContdela", accounts},
      {"cboContla", accounts},
      {"cboCodTVA", "12: 0|1"},
      {"cboCodJurnal",
       "5: BK-Banca in lei|CS-Registru de casa in lei|JC-Jurnal de cumparari|JV-Jurnal de vanzari"},
      {"cboCodDeviza", currencies},
      {"cboCodDevizaDenumire", currencies},
      {"cboCodOperatieDeLa", operations},
      {"cboCodOperatieLa", operations},
      {"cboJurnalCumparare", "JC-Jurnal de cumparari"},
      {"cboJurnalVanzare", "JV-Jurnal de vanzari"},
      {"cboJurnalBanca", "BK-Banca in lei"},
      {"cboRegistruCasa", "CS-Registru de casa in lei"},
      {"cboFurnizori", "3-Furnizor|7-Ambii"},
      {"cboClienti", "5-Client|7-Ambii"},
      {"cboTerti", "2-|3-Furnizor|5-Client|7-Ambii"},
      {"cboOperatiiCumparare", "1-Achizitii de imobilizari|2-Achizitii de stocuri si servicii"},
      {"cboOperatiiVanzare", "3-Vanzari catre clienti"},
      {"cboOperatiiIncasari", "3-Vanzari catre clienti|4-Incasari de la clienti"},
      {"cboOperatiiPlati",
       "1-Achizitii de imobilizari|2-Achizitii de stocuri si servicii|5-Plati catre furnizori|"
       "6-Plati catre furnizori de imobilizari"},
      {"cboOpFinanciare", "7-Comisioane si servicii bancare"},
      {"cboOperatiiCumpVanz",
       "7: 1-Achizitii de imobilizari|2-Achizitii de stocuri si servicii|8-Diverse: amortizarea "
       "imobilizarilor|4-Incasari de la clienti"},
      {"cboTVACump", "5: 4426_21|4426_11|4426_19|4426_9"},
      {"cboTVAVanz", "5: 4427_21|4427_11|4427_19|4427_9"},
      {"cboTVA1Cumparare", "0|9,5"},
      {"cboTVA2Cumparare", "0|9,5"},
      {"cboTVA1Vanzare", "0"},
      {"cboTVA2Vanzare", "0"},
      {"cboContTVA", "12: 4426_21|4426_11|4426_19|4426_9"},
      {"cboCentruCost", "b-Birou"}};
  EXPECT_EQ(cases.size(), 30U);
  for (const auto& [combo, listed] : cases) {
    const bool two = std::string(combo).find("cboCod") == 0 && std::string(combo) != "cboCodJurnal";
    EXPECT_EQ(Listed(combo, two ? 2 : 4), listed) << combo;
  }
}

TEST_F(ComboLists, AnEmptyListSaysSoAndAnUnknownNameIsRefused) {
  ExecuteSQL("DELETE FROM Kv_CC");
  EXPECT_EQ(ComboEntries("cboCentruCost"),
            (std::vector<std::string>{"0-Nu exista inregistrari !"}));
  ExecuteSQL("UPDATE kv_cote SET PROCENT = NULL WHERE CONT = 'FARA TVA'");
  EXPECT_EQ(ComboEntries("cboTVA1Vanzare"), (std::vector<std::string>{""}));
  for (const char* name : {"", "cbocont", "cboAlta"}) {
    EXPECT_FALSE(ComboStatement(name)) << name;
    EXPECT_EQ(FailureOf([&] { ComboEntries(name); }), kInvalidArgument) << name;
  }
}

}  // namespace
}  // namespace tevra
