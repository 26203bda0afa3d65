// What a new company starts with: reference tables by count and by rows that would show a shift of
// columns or a lost digit, the company's rows, its first user.
#include "platform/data/Recordset.h"
#include "session/Version.h"
#include "tests/TestCompany.h"

namespace tevra {
namespace {

class ReferenceData : public ::testing::Test {
 protected:
  /// The fields of the one row that a statement gives, "|" between them; dates and numbers as users
  /// write them, "-" for Null.
  std::string Row(const std::string& sql) {
    Recordset row = connection_.OpenRecordset(sql);
    if (row.Eof()) return "(no row)";
    if (row.RecordCount() > 1) return "(many rows)";
    std::string text;
    for (std::size_t i = 0; i < row.FieldCount(); ++i) {
      if (i > 0) text += "|";
      text += row.Get(i).IsNull() ? "-" : row.Get(i).AsText();
    }
    return text;
  }

  test::TestCompany company_;
  Connection connection_ = company_.Open();
};

TEST_F(ReferenceData, EveryTableHasItsRows) {
  const struct {
    const char* table;
    int rows;
  } cases[] = {{"I_CLASIFICARE", 505},
               {"kv_PC", 646},
               {"I_CONTURIIM", 20},
               {"kv_cote", 11},
               {"I_COEFAD", 1},
               {"I_VALIM", 7},
               {"I_GRADE", 10},
               {"KV_JUR", 5},
               {"kv_oper", 14},
               {"kv_val", 40},
               {"kv_val2", 28},
               {"UTILIZATORI", 1},
               {"kv_par", 1},
               {"kv_info", 1},
               {"I_IMO", 0},
               {"I_INV", 0},
               {"Kv_Linii", 0},
               {"kv_Ter", 0},
               {"Kv_CC", 0},
               {"I_LOCALIZARE", 0},
               {"I_PLANAMO", 0},
               {"tmp_Linii", 0},
               {"[Terti - Asocieri CS]", 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(connection_.QueryValue("SELECT COUNT(*) FROM " + std::string(c.table)).AsLong(),
              c.rows)
        << c.table;
  }
}

TEST_F(ReferenceData, RowsAreWhole) {
  const struct {
    const char* sql;
    const char* row;
  } cases[] = {
      {"SELECT * FROM I_CLASIFICARE WHERE COD_GR = '1.1.1'",
       "1.1.1|Cladiri industriale|50|1.1.1|40|60|40"},
      {"SELECT * FROM I_CLASIFICARE WHERE COD_GR = '1.1.1.1'",
       "1.1.1.1|Cladiri ind. alim., mat. constr., metale|40|1.1.1.1|28|42|28"},
      // A class without a duration of 1998, and an old code that is longer than its new one.
      {"SELECT * FROM I_CLASIFICARE WHERE COD_GR_NOU = '2.1.16.1.21'",
       "2.1.16.1.21|Generatoare curent continuu, alternativ|-|2.1.16.1.21|12|18|12"},
      {"SELECT * FROM I_CLASIFICARE WHERE COD_GR = '2.17.1.1.1'",
       "2.17.1.1.1|Pompe centrifuge lichide slab corozive|8|2.1.17.1.11|5|9|5"},
      {"SELECT COUNT(*), COUNT(DURNOR), COUNT(DISTINCT COD_GR_NOU) FROM I_CLASIFICARE",
       "505|447|505"},
      {"SELECT COUNT(*) FROM I_CLASIFICARE WHERE DURNOR_NOU <> LIM_INF OR LIM_SUP < LIM_INF", "0"},
      {"SELECT CONT, TITLU, DEBITN FROM kv_PC WHERE CONT = '2131'",
       "2131|Echip. tehnologice (masini, utilaje)|-"},
      {"SELECT CONT, TITLU FROM kv_PC WHERE CONT = '121'", "121|Profit sau pierdere"},
      {"SELECT CONT, TITLU FROM kv_PC WHERE CONT = '933'",
       "933|Costul productiei in curs de executie"},
      {"SELECT * FROM I_CONTURIIM WHERE CONT = '2131'",
       "2131|Echipamente tehnologice|6811|2813|6583|7583|-"},
      {"SELECT * FROM I_CONTURIIM WHERE CONT = '2111'", "2111|Terenuri|-|-|6583|7583|-"},
      {"SELECT * FROM I_CONTURIIM WHERE CONT = '303'", "303|Obiecte de inventar|603|-|-|-|-"},
      {"SELECT * FROM kv_cote WHERE COD = 0", "0|FARA TVA|0"},
      {"SELECT * FROM kv_cote WHERE CONT = '4426' AND PROCENT = 21", "1|4426|21"},
      {"SELECT * FROM kv_cote WHERE CONT = '4427' AND PROCENT = 5", "10|4427|5"},
      {"SELECT coef1, coef2, coef3 FROM I_COEFAD", "1,5|2|2,5"},
      {"SELECT * FROM I_VALIM WHERE DATVALIM = (SELECT MAX(DATVALIM) FROM I_VALIM)",
       "01.01.2026|5000"},
      {"SELECT * FROM I_VALIM WHERE VALIM = 1500", "01.07.2005|1500"},
      {"SELECT * FROM I_GRADE WHERE SUP = 100", "90|100|100"},
      {"SELECT COD, TITLU, CONT, TIP FROM KV_JUR WHERE COD = 'BK'", "BK|Banca in lei|5121|B"},
      {"SELECT COD, CONT, TIP FROM KV_JUR WHERE COD = 'JC'", "JC|-|C"},
      {"SELECT COD, CONT, TIP FROM KV_JUR WHERE COD = 'JV'", "JV|-|V"},
      {"SELECT COD, CONT, TIP FROM KV_JUR WHERE COD = 'OD'", "OD|-|D"},
      {"SELECT * FROM kv_oper WHERE COD = 11", "11|Furnizori de imobilizari|F|C|404"},
      {"SELECT * FROM kv_val WHERE COD = 'EUR'", "EUR|Euro"},
      // Says that the amounts are in new lei.
      {"SELECT * FROM kv_val WHERE COD = 'ROL'", "ROL|LEI VECHI"},
      {"SELECT * FROM kv_val2 WHERE COD = 'USD' AND DATA = CDate('08/01/2026')",
       "USD|08.01.2026|4,3558"},
      {"SELECT * FROM kv_val2 WHERE COD = 'EUR' AND DATA = CDate('31/05/2013')",
       "EUR|31.05.2013|4,3794"},
      {"SELECT * FROM UTILIZATORI", "admin|1|0"},
  };
  for (const auto& c : cases) EXPECT_EQ(Row(c.sql), c.row) << c.sql;
}

TEST_F(ReferenceData, EveryAccountThatIsReferredToIsInTheChart) {
  for (const std::string source :
       {"I_CONTURIIM.CONT", "I_CONTURIIM.CONT_CHELT", "I_CONTURIIM.CONT_AMO",
        "I_CONTURIIM.CONT_CH_EX", "I_CONTURIIM.CONT_VEN_EX", "KV_JUR.CONT", "kv_oper.CONT",
        "kv_par.CONTFURNIZORI", "kv_par.CONTCLIENTI", "kv_par.CONTObiecteInventar"}) {
    const auto dot = source.find('.');
    const std::string sql = "SELECT COUNT(*) FROM " + source.substr(0, dot) + " WHERE " +
                            source.substr(dot + 1) + " NOT IN (SELECT CONT FROM kv_PC)";
    EXPECT_EQ(Row(sql), "0") << sql;
  }
}

TEST_F(ReferenceData, TheCompanysRowsAreReady) {
  EXPECT_EQ(Row("SELECT CONTFURNIZORI, CONTCLIENTI, CODDeviza, CONTObiecteInventar FROM kv_par"),
            "404|4111|EUR|303");
  EXPECT_EQ(Row("SELECT COUNT(*) FROM kv_val INNER JOIN kv_par ON kv_val.COD = kv_par.CODDeviza"),
            "1");
  Recordset par = connection_.OpenRecordset("SELECT * FROM kv_par");
  const int year = par.Get("DATAIN").AsDateTime().Year();
  EXPECT_GE(year, 2024);
  EXPECT_EQ(par.Get("DATAIN"), Value(DateTime(year, 1, 1)));
  EXPECT_EQ(par.Get("DATASN"), Value(DateTime(year, 12, 31)));
  EXPECT_EQ(par.Get("DATAIN1"), Value(DateTime(year + 1, 1, 1)));
  EXPECT_EQ(par.Get("DATASN1"), Value(DateTime(year + 1, 12, 31)));
  EXPECT_EQ(par.Get("DATAIC"), Value(DateTime(year, 1, 1)));
  EXPECT_EQ(par.Get("DATASC"), Value(DateTime(year, 12, 31)));
  EXPECT_EQ(Row("SELECT VERSIUNE, DENUMIRE FROM kv_info"), std::to_string(kRevision) + "|-");
}

}  // namespace
}  // namespace tevra
