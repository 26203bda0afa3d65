// The statements that fill lists, boxes and grids.
#include "tests/dialect/Company.h"

namespace tevra::dialect {
namespace {

struct Case {
  const char* sql;
  Lines rows;
  Parameters parameters = {};
};

void Check(const std::vector<Case>& cases) {
  Company company;
  for (const Case& one : cases) {
    SCOPED_TRACE(one.sql);
    EXPECT_EQ(company.Rows(one.sql, one.parameters), one.rows);
  }
}

TEST(Lists, JoinCodesAndTitles) {
  Check({
      {"Select kv_pc.CONT & '-' & TITLU AS CONT_TITLU from kv_pc order by kv_pc.CONT",
       {"12-Scurt", "2131-Echipamente", "4111-CLIENTI interni", "6811-Amortizare", "758-"}},
      {"Select CONT, CONT & '-' & TITLU As CONT_TITLU from kv_PC WHERE LEN(CONT) >=3 order by CONT",
       {"2131|2131-Echipamente", "4111|4111-CLIENTI interni", "6811|6811-Amortizare", "758|758-"}},
      {"Select CONT, CONT & '-' & TITLU As CONT_TITLU from kv_PC WHERE LEFT(CONT,1) >=3 order by "
       "CONT",
       {"4111|4111-CLIENTI interni", "6811|6811-Amortizare", "758|758-"}},
      {"Select CONT, CONT & '-' &TITLU as CONT_TITLU from kv_pc Where Left(TITLU, 6) = 'Client' "
       "order by CONT",
       {"4111|4111-CLIENTI interni"}},
      {"Select CONT, CONT & '-' &TITLU as CONT_TITLU from kv_pc  where Left(CONT, 1) = '6' order "
       "by CONT",
       {"6811|6811-Amortizare"}},
      {"Select CONT & '-' & TITLU As CONT_TITLU from kv_PC where CONT = ?", {"758-"}, {"758"}},
      {"Select CONT & '_' & PROCENT AS CONT_PROCENT from kv_cote where  Left(CONT,4) = '4426' "
       "order by COD",
       {"4426_19", "4426.5_"}},
      {"Select CONT & '_' & PROCENT AS CONT_PROCENT from kv_cote order by CONT",
       {"_5", "4426_19", "4426.5_", "4427_9,5", "Tva deductibila_0"}},
      {"Select COD, CONT & '-' & PROCENT As CONT_PROCENT from kv_COTE Where Left(CONT, 4) = '4427' "
       "Order by COD",
       {"2|4427-9,5"}},
      {"Select PROCENT from kv_cote where  Ucase(CONT) in ('TVA DEDUCTIBILA', 'FARA TVA') order by "
       "COD",
       {"0.0"}},
      {"Select CONT & '-' & PROCENT As CONT_PROCENT from kv_COTE where COD = CLng('1')",
       {"4426-19"}},
      {"Select COD & '-' & TITLU AS COD_TITLU from kv_jur where Ucase(TIP) = 'C' order by COD",
       {"JC-Cumparari"}},
      {"Select COD & '-' & TITLU AS COD_TITLU from kv_jur order by COD",
       {"JC-Cumparari", "JV-Vanzari", "OD-"}},
      {"Select COD & '-' & NUME AS COD_NUME from kv_ter where Ucase(TIP) in ('F', 'M') and "
       "Ucase(UTILIZABIL) = "
       "'D' order by COD",
       {"1-Alfa", "2-beta"}},
      {"Select COD & '-' & TITLU AS COD_TILU from kv_cc where  Ucase(UTILIZABIL) = 'D' order by "
       "COD",
       {"10-Productie"}},
      {"Select COD, COD & '-' & TITLU As COD_TITLU from kv_cc Where UTILIZABIL = 'd' order by COD",
       {"10|10-Productie"}},
      {"Select COD_GR & '-' & DEN_GR As COD_DENUMIRE from I_CLASIFICARE where durnor<>0 order by "
       "COD_GR",
       {"2.1-Masini", "2.2-Utilaje"}},
  });
}

TEST(Lists, FindCodesAndLastNumbers) {
  Check({
      {"Select CODOPER from kv_jur WHERE CODOPER =Clng(' 5 ')", {"5"}},
      {"Select TERT from Kv_Linii WHERE TERT =Clng(?)", {"2"}, {"2"}},
      {"Select kv_jur.COD from kv_jur WHERE kv_jur.COD='jv'", {"JV"}},
      {"SELECT NUME from kv_ter where NUME = ?", {}, {"x' OR '1'='1"}},
      {"Select Max(NDI) from Kv_Linii", {"4"}},
      {"SELECT Count(*) FROM Kv_Linii", {"5"}},
      {"select MAX(NrLinie) from Kv_Linii WHERE NDI=1", {"2"}},
      {"Select Max(COD) from kv_val", {"NULL"}},
      {"SELECT MAX(DATA_CALCUL) FROM I_IMO WHERE NOT Data_Calcul IS NULL", {"2005-12-31 00:00:00"}},
      {"SELECT CONT_CHELT FROM I_CONTURIIM WHERE CONT='303' AND NOT CONT_CHELT IS NULL", {}},
      {"SELECT COD,Nume from Kv_Ter WHERE Tip='M' OR Tip='C' Order By Nume ", {"2|beta", "3|Gama"}},
      {"Select COD,NUME from kv_ter WHERE NUME like 'B%' order by NUME", {"2|beta"}},
      {"Select * from I_IMO where 1 = 0", {}},
      {"Select VAL_RAMASA, val_cump from i_imo where COD ='a1'", {"824.0|1200.0"}},
      {"Select NRCRT from I_IMO where Iesire=FALSE AND VAL_RAMASA > 0 and VAL_CUMP <= 1200 and "
       "Blocata=True",
       {"3"}},
      {"select DATVALIM from I_VALIM WHERE DATVALIM=cDATE('01.01.2004')", {"2004-01-01 00:00:00"}},
      {"SELECT I_VALIM.DATVALIM, I_VALIM.VALIM FROM I_VALIM, (select Max(i_valim.datvalim) as "
       "maxim from "
       "i_valim) AS q1 WHERE (I_VALIM.DATVALIM=q1.maxim)",
       {"2004-01-01 00:00:00|15000000.0"}},
  });
}

TEST(Lists, RatesOfACurrency) {
  Check({
      {"Select top 2 COD, DATA, CURS from kv_val2 WHERE COD='EUR' order by DATA desc",
       {"EUR|2005-01-03 00:00:00|3.7", "EUR|2005-01-01 10:30:00|3.8"}},
      {"select CURS from (Select top 1 CURS from kv_val2 WHERE COD=? order by DATA desc) where "
       "CURS > ?",
       {"3.7"},
       {"EUR", 1}},
      // The day's number finds the day at 00:00 alone; whether it is given as text or number.
      {"Select CURS from kv_val2 WHERE Clng(DATA) = '38353' AND COD='EUR' AND DATA=CDate(38353)",
       {"3.9"}},
      {"Select CURS from kv_val2 WHERE Clng(DATA) = ? AND COD='USD'", {"3.0"}, {"38353"}},
      {"Select CURS from kv_val2 WHERE Clng(DATA) = ? AND COD='USD'", {"3.0"}, {38353}},
  });
}

TEST(Lists, AssetsKeepTheirRowsWithoutPartners) {
  const std::string assets =
      "select A.NRCRT,A.COD,B.titlu as loc,C.nume as furniz,D.titlu as CC from kv_CC D RIGHT JOIN "
      "(kv_ter C "
      "RIGHT JOIN (I_localizare B RIGHT JOIN i_imo A ON B.cod = A.cod_loc) ON C.cod = "
      "A.cod_furnizor) ON "
      "D.cod = A.cod_cc ";
  Company company;
  EXPECT_EQ(
      company.Rows(assets + "order by A.nrcrt desc "),
      (Lines{"3|c3|Hala 1|Alfa|Productie", "2|b2|NULL|NULL|NULL", "1|A1|Hala 1|beta|Productie"}));
  EXPECT_EQ(company.Rows(assets + " where denumire like ? order by nrcrt desc, denumire", {"STR%"}),
            (Lines{"3|c3|Hala 1|Alfa|Productie", "1|A1|Hala 1|beta|Productie"}));
  EXPECT_EQ(company.Columns(assets), "NRCRT|COD|loc|furniz|CC");
}

TEST(Lists, InventoryKeepsItsRowsAndAddsTheRateToItsAccount) {
  const std::string objects =
      "select A.*,B.titlu as CC,C.titlu as LOC,D.NUME as FURNIZ,E.CONT+E.PROCENT as TVA from kv_PC "
      " F RIGHT "
      "JOIN (kv_cote E RIGHT JOIN (kv_ter D RIGHT JOIN (I_localizare C RIGHT JOIN (kv_CC B RIGHT "
      "JOIN i_inv A "
      "ON B.cod = A.cod_cc) ON C.cod = A.cod_loc) ON D.cod = A.cod_furnizor) ON E.cod = "
      "A.cod_tva_cump) ON "
      "F.cont = A.cont ";
  Company company;
  const std::string names = company.Columns(objects);
  EXPECT_EQ(names.substr(0, names.find("|cod_loc")), "nrcrt|cod|denumire|cod_cc");
  EXPECT_EQ(names.substr(names.find("|CC")), "|CC|LOC|FURNIZ|TVA");
  const std::string few = "select A.nrcrt" + objects.substr(objects.find(",B.titlu"));
  EXPECT_EQ(
      company.Rows(few + "order by A.nrcrt desc,A.denumire "),
      (Lines{"3|Vechi|NULL|Gama|NULL", "2|NULL|NULL|NULL|NULL", "1|Productie|Hala 1|Alfa|4445.0"}));
  EXPECT_EQ(company.Rows(few + "where A.pers like 'i%' order by nrcrt desc, DENUMIRE").size(), 1u);
}

TEST(Lists, LinesWithTheirThirdParties) {
  Company company;
  EXPECT_EQ(company.Rows("select NDI, NRLINIE, kv_ter.NUME from KV_LINII LEFT OUTER JOIN kv_ter ON "
                         "kv_linii.TERT = kv_ter.COD order by DATAINR DESC, NDI DESC, NRLINIE"),
            (Lines{"3|1|beta", "2|1|Alfa", "1|1|Alfa", "1|2|NULL", "4|1|NULL"}));
  const std::string search =
      " SELECT Kv_Linii.NDI,Kv_Ter.Nume, Kv_CC.Titlu  FROM (kv_LINII  left JOIN  kv_ter ON "
      "kv_ter.COD = "
      "kv_LINII.TERT) LEFT JOIN kv_CC ON kv_LINII.CODCC = kv_CC.COD Where ";
  EXPECT_EQ(
      company.Rows(
          search + "Kv_Linii.DataInr >= ? AND Kv_Linii.Debit <> ? ORDER BY DATAINR DESC, NDI DESC",
          {"2005-01-01 00:00:00", 0}),
      (Lines{"2|Alfa|NULL", "1|Alfa|Productie"}));
  EXPECT_EQ(company.Columns(search + "1=1"), "NDI|NUME|TITLU");
  EXPECT_EQ(
      company.Rows("Select TERT, SUM(DEBIT), SUM(CREDIT) from kv_Linii GROUP BY TERT, CONT HAVING "
                   "(Left(CONT,1) = '4' AND (TERT IS NOT NULL))"),
      (Lines{"1|120.0|30.0", "2|0.0|9.0", "88|0.0|8.0"}));
}

TEST(Lists, AssetsBeforeTheNewDurations) {
  Check({
      {"SELECT I_CLASIFICARE.COD_GR, I_CLASIFICARE.DURNOR_NOU AS DURNOR_NOU, I_IMO.DENUMIRE FROM "
       "I_CLASIFICARE "
       "INNER JOIN I_IMO ON I_CLASIFICARE.COD_GR = I_IMO.COD_GR WHERE (((I_IMO.VAL_RAMASA)>0)) "
       "ORDER BY NRCRT",
       {"2.2|6.0|Strung", "2.1|0.0|strung mare"}},
      {"Select I_IMO.NRCRT,I_CONTURIIM.CONT_AMO  FROM I_IMO INNER JOIN I_CONTURIIM ON I_IMO.CONT = "
       "I_CONTURIIM.CONT  where VAL_RAMASA > 0 and VAL_CUMP <= ? ORDER BY NRCRT",
       {"1|2813", "3|2813"},
       {1200.0}},
  });
}

}  // namespace
}  // namespace tevra::dialect
