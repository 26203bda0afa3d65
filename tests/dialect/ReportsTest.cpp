// The statements under the reports and the monthly postings: aliases that are columns too, and
// aliases used within the sums of their own list.
#include "tests/dialect/Company.h"

namespace tevra::dialect {
namespace {

struct Charges {
  const char* name;
  const char* sql;
  const char* firstRow;  // of asset 1; its stored VAL_CUMP is 1200 lei, its parts add up to 1024
};

const std::vector<Charges> kCharges = {
    {"account, lei",
     "SELECT NRCRT, COD, CONT, DENUMIRE, iif(BLOCATA, VAL_BLOCATA * COTAL_LUNARA, (VAL_CUMP - "
     "VALCHELEI) * "
     "cotal_lunara) AS VAL_AMOR, VAL_AMOR_CUMULATA, VAL_RAMASA, VAL_AMOR_CUMULATA + VAL_RAMASA AS "
     "VAL_CUMP, "
     "SUM(VAL_CUMP) AS TVALCUMP, SUM(VAL_AMOR) AS TVALAM, SUM(VAL_AMOR_CUMULATA) AS TVALAMO, "
     "SUM(VAL_RAMASA) AS "
     "TVALRAMASA, COTAL_LUNARA FROM I_IMO GROUP BY COD, CONT, DENUMIRE, NRCRT, VAL_AMOR_CUMULATA, "
     "VAL_RAMASA, "
     "VAL_CUMP, VALCHELEI, COTAL_LUNARA, BLOCATA, VAL_BLOCATA ORDER BY NRCRT",
     "1|A1|2131|Strung|275.0|200.0|824.0|1024.0|1200.0|275.0|200.0|824.0|0.25"},
    {"account, currency",
     "SELECT NRCRT, COD, CONT, DENUMIRE, iif(BLOCATA,VAL_BLOCATA_VAL*COTAL_LUNARA, (VAL_CUMP_VAL - "
     "VALCHEVAL) * "
     "cotal_lunara) AS VAL_AMOR, VAL_AMOR_CUMULATA_VAL AS VAL_AMOR_CUMULATA, VAL_RAMASA_VAL AS "
     "VAL_RAMASA, "
     "VAL_AMOR_CUMULATA_VAL + VAL_RAMASA_VAL AS VAL_CUMPV, SUM(VAL_CUMPV) AS TVALCUMP, "
     "SUM(VAL_AMOR) AS TVALAM, "
     "SUM(VAL_AMOR_CUMULATA_VAL) AS TVALAMO, SUM(VAL_RAMASA_VAL) AS TVALRAMASA, COTAL_LUNARA FROM "
     "I_IMO GROUP BY "
     "COD, CONT, DENUMIRE, NRCRT, VAL_AMOR_CUMULATA_VAL, VAL_RAMASA_VAL, VALCHEVAL, VAL_CUMP_VAL, "
     "COTAL_LUNARA,BLOCATA,VAL_BLOCATA_VAL ORDER BY NRCRT",
     "1|A1|2131|Strung|140.0|64.0|448.0|512.0|512.0|140.0|64.0|448.0|0.25"},
    {"classification, lei",
     "SELECT NRCRT, COD, DENUMIRE, iif (BLOCATA,VAL_BLOCATA * COTAL_LUNARA,(VAL_CUMP - VALCHELEI) "
     "* COTAL_LUNARA) "
     "AS VAL_AMOR, VAL_AMOR_CUMULATA + VAL_RAMASA AS VAL_CUMP, VAL_AMOR_CUMULATA, VAL_RAMASA, "
     "SUM(VAL_AMOR) AS "
     "TVALAM, SUM(VAL_CUMP) AS TVALCUMP, SUM(VAL_AMOR_CUMULATA) AS TVALAMO, SUM(VAL_RAMASA) AS "
     "TVALRAMASA, "
     "COTAL_LUNARA, COD_GR_NOU AS COD_GR FROM I_IMO GROUP BY COD, DENUMIRE, NRCRT, "
     "VAL_AMOR_CUMULATA, VAL_RAMASA, "
     "VAL_CUMP, VALCHELEI, COTAL_LUNARA, COD_GR_NOU, BLOCATA, VAL_BLOCATA ORDER BY NRCRT",
     "1|A1|Strung|275.0|1024.0|200.0|824.0|275.0|1200.0|200.0|824.0|0.25|NULL"},
    {"classification, currency",
     "SELECT NRCRT, COD, DENUMIRE, IIF(BLOCATA, VAL_BLOCATA_VAL * COTAL_LUNARA, (VAL_CUMP_VAL - "
     "VALCHEVAL) * "
     "COTAL_LUNARA) AS VAL_AMOR, VAL_AMOR_CUMULATA_VAL AS VAL_AMOR_CUMULATA, VAL_RAMASA_VAL AS "
     "VAL_RAMASA, "
     "VAL_AMOR_CUMULATA_VAL + VAL_RAMASA_VAL AS VAL_CUMP_VAL, SUM(VAL_CUMP_VAL) AS TVALCUMP, "
     "SUM(VAL_AMOR) AS "
     "TVALAM, SUM(VAL_AMOR_CUMULATA_VAL) AS TVALAMO, SUM(VAL_RAMASA_VAL) AS TVALRAMASA, "
     "COTAL_LUNARA, COD_GR_NOU "
     "AS COD_GR FROM I_IMO GROUP BY COD, DENUMIRE, NRCRT, VAL_AMOR_CUMULATA_VAL, VAL_RAMASA_VAL, "
     "VAL_CUMP_VAL, "
     "VALCHEVAL, COTAL_LUNARA, COD_GR_NOU, BLOCATA, VAL_BLOCATA_VAL ORDER BY NRCRT",
     "1|A1|Strung|140.0|64.0|448.0|512.0|600.0|140.0|64.0|448.0|0.25|NULL"},
    {"location, currency",
     "SELECT NRCRT, COD, DENUMIRE, VAL_AMOR_CUMULATA_VAL AS VAL_AMOR_CUMULATA, VAL_RAMASA_VAL AS "
     "VAL_RAMASA, "
     "VAL_AMOR_CUMULATA_VAL + VAL_RAMASA_VAL AS VAL_CUMP_VAL, "
     "IIF(BLOCATA,VAL_BLOCATA_VAL*COTAL_LUNARA,"
     "(VAL_CUMP_VAL - VALCHEVAL) * COTAL_LUNARA) AS VAL_AMOR, SUM(VAL_CUMP_VAL) AS TVALCUMP, "
     "SUM(VAL_AMOR) AS "
     "TVALAM, SUM(VAL_AMOR_CUMULATA_VAL) AS TVALAMO, SUM(VAL_RAMASA_VAL) AS TVALRAMASA, "
     "COTAL_LUNARA, COD_LOC "
     "FROM I_IMO GROUP BY COD, DENUMIRE, NRCRT, VAL_AMOR_CUMULATA_VAL, VAL_RAMASA_VAL, "
     "VAL_CUMP_VAL, VALCHEVAL, "
     "COTAL_LUNARA, COD_LOC, BLOCATA, VAL_BLOCATA_VAL ORDER BY NRCRT",
     "1|A1|Strung|64.0|448.0|512.0|140.0|600.0|140.0|64.0|448.0|0.25|H1"},
    {"location, lei",
     "SELECT NRCRT, COD, DENUMIRE, VAL_AMOR_CUMULATA, VAL_RAMASA, VAL_AMOR_CUMULATA + VAL_RAMASA "
     "AS VAL_CUMP, "
     "(VAL_AMOR_CUMULATA + VAL_RAMASA) * COTAL_LUNARA AS VAL_AMOR, SUM(VAL_CUMP) AS TVALCUMP, "
     "SUM(VAL_AMOR) AS "
     "TVALAM, SUM(VAL_AMOR_CUMULATA) AS TVALAMO, SUM(VAL_RAMASA) AS TVALRAMASA, COTAL_LUNARA, "
     "COD_LOC FROM I_IMO "
     "GROUP BY COD, DENUMIRE, NRCRT, VAL_AMOR_CUMULATA, VAL_RAMASA, VAL_CUMP, COTAL_LUNARA, "
     "COD_LOC ORDER BY NRCRT",
     "1|A1|Strung|200.0|824.0|1024.0|256.0|1200.0|256.0|200.0|824.0|0.25|H1"},
    {"cost centre, lei",
     "SELECT NRCRT, COD, DENUMIRE, VAL_AMOR_CUMULATA + VAL_RAMASA AS VAL_CUMP, "
     "IIF(BLOCATA,VAL_BLOCATA*COTAL_LUNARA,"
     " (VAL_CUMP - VALCHELEI) * COTAL_LUNARA) AS VAL_AMOR, VAL_AMOR_CUMULATA, VAL_RAMASA, "
     "SUM(VAL_AMOR) AS TVALAM, "
     "SUM(VAL_AMOR_CUMULATA) AS TVALAMO, SUM(VAL_RAMASA) AS TVALRAMASA, SUM(VAL_CUMP) AS TVALCUMP, "
     "COTAL_LUNARA, "
     "COD_CC FROM I_IMO GROUP BY COD, DENUMIRE, NRCRT, VAL_AMOR_CUMULATA, VAL_RAMASA, VAL_CUMP, "
     "VALCHELEI, "
     "COTAL_LUNARA, COD_CC,BLOCATA,VAL_BLOCATA ORDER BY NRCRT",
     "1|A1|Strung|1024.0|275.0|200.0|824.0|275.0|200.0|824.0|1200.0|0.25|10"},
};

TEST(Reports, ChargesTakeColumnsBeforeAliases) {
  Company company;
  for (const Charges& charges : kCharges) {
    SCOPED_TRACE(charges.name);
    const Lines rows = company.Rows(charges.sql);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows.front(), charges.firstRow);
  }
  // Without the depreciation so far there is no sum of both; what is blocked counts its own value.
  const Lines rows = company.Rows(kCharges.front().sql);
  EXPECT_EQ(rows[1], "2|b2|2999|Freza|275.0|NULL|824.0|NULL|1200.0|275.0|NULL|824.0|0.25");
  EXPECT_EQ(rows[2],
            "3|c3|2131|strung mare|125.0|200.0|824.0|1024.0|1200.0|125.0|200.0|824.0|0.25");
}

TEST(Reports, PostingsReadTheChargesOfAssetsWithAccounts) {
  Company company;
  const std::string source =
      "SELECT NRCRT, COD,COD_CC, CONT, DENUMIRE, blocata, IIF(BLOCATA=-1,VAL_BLOCATA * "
      "COTAL_LUNARA,(VAL_CUMP - "
      "VALCHELEI) * cotal_lunara) AS VAL_AMOR, VAL_AMOR_CUMULATA, VAL_RAMASA, VAL_AMOR_CUMULATA + "
      "VAL_RAMASA AS "
      "VAL_CUMP, SUM(VAL_CUMP) AS TVALCUMP, SUM(VAL_AMOR) AS TVALAM, SUM(VAL_AMOR_CUMULATA) AS "
      "TVALAMO, "
      "SUM(VAL_RAMASA) AS TVALRAMASA, COTAL_LUNARA FROM I_IMO GROUP BY COD,COD_CC, CONT, DENUMIRE, "
      "NRCRT, "
      "VAL_AMOR_CUMULATA, VAL_RAMASA, VAL_CUMP, VALCHELEI, COTAL_LUNARA,VAL_BLOCATA,BLOCATA ORDER "
      "BY NRCRT";
  EXPECT_EQ(
      company.Rows(
          "SELECT COD_CC,VAL_AMOR, I.Cont_AMO as ContDebit, I.Cont_Chelt  as ContChelt FROM (" +
          source + ") S INNER JOIN I_ConturiIM I ON S.CONT=I.CONT  ORDER BY S.NRCRT"),
      (Lines{"10|275.0|2813|6811", "10|125.0|2813|6811"}));
}

TEST(Reports, PurchasesOfAPeriod) {
  Company company;
  const Parameters period = {"2005-06-30 00:00:00", "2005-07-01 00:00:00"};
  EXPECT_EQ(
      company.Rows(
          "SELECT COD, DATA_ACH, DENUMIRE, VAL_CUMP, CONT FROM I_IMO WHERE (DATA_ACH >= ?) AND "
          "(DATA_ACH <= ?) GROUP BY COD, DATA_ACH, DENUMIRE, VAL_CUMP, CONT ORDER BY DATA_ACH DESC",
          period),
      (Lines{"c3|2005-07-01 00:00:00|strung mare|1200.0|2131",
             "A1|2005-06-30 23:59:59|Strung|1200.0|2131"}));
  EXPECT_EQ(
      company.Rows(
          "SELECT COD, DATA_ACH, VAL_CUMP_VAL AS VAL_CUMP, COD_GR_NOU AS COD_GR FROM I_IMO WHERE "
          "(DATA_ACH >= ? AND DATA_ACH <= ?) GROUP BY COD, DATA_ACH, DENUMIRE, VAL_CUMP_VAL, "
          "COD_GR_NOU ORDER BY DATA_ACH DESC",
          period),
      (Lines{"c3|2005-07-01 00:00:00|600.0|NULL", "A1|2005-06-30 23:59:59|600.0|NULL"}));
}

TEST(Reports, InventoryOfAPeriodKeepsObjectsWithoutAPlace) {
  Company company;
  const std::string objects =
      "SELECT A.nrcrt, A.cod, A.cod_loc, SUM(A.val_cump) AS tval_cump, SUM(A.val_cump_val) AS "
      "tval_cump_val, "
      "B.titlu FROM %s B RIGHT JOIN i_inv A ON B.COD = A.cod_loc WHERE (a.data_ach >= ?) AND "
      "(a.data_ach<=?) GROUP "
      "BY A.nrcrt, A.cod, A.denumire, A.cont, A.cod_loc, A.data_ach, A.data_pf, A.pers, "
      "A.val_cump, "
      "A.val_cump_val, B.titlu";
  const auto over = [&](const std::string& table) {
    return std::string(objects).replace(objects.find("%s"), 2, table);
  };
  const Parameters year = {"2005-01-01 00:00:00", "2005-12-31 00:00:00"};
  EXPECT_EQ(company.Rows(over("I_LOCALIZARE"), year),
            (Lines{"1|s1|H1|100.0|10.0|Hala 1", "2|s2|NULL|200.0|20.0|NULL"}));
  EXPECT_EQ(company.Rows(over("KV_CC"), {"2006-01-01 00:00:00", "2006-12-31 00:00:00"}),
            (Lines{"3|m1|10|300.0|30.0|Productie"}));
  EXPECT_EQ(
      company.Rows(
          "SELECT nrcrt, pers, SUM(val_cump) AS tval_cump FROM i_inv WHERE (data_ach >= ?) AND "
          "(data_Ach <= ?) GROUP BY nrcrt, pers, val_cump",
          year),
      (Lines{"1|Ion|100.0", "2|NULL|200.0"}));
}

// A name that is column and alias: the column counts in the sums, groups and order.
TEST(Reports, AliasesYieldToColumnsEverywhere) {
  Company company;
  EXPECT_EQ(
      company.Rows("SELECT 0-NDI AS NRLINIE, NDI AS X FROM Kv_Linii ORDER BY NRLINIE DESC, X DESC"),
      (Lines{"-1|1", "-4|4", "-3|3", "-2|2", "-1|1"}));
  EXPECT_EQ(company.Rows("SELECT 1 AS CONT, COUNT(*) AS N FROM Kv_Linii GROUP BY CONT ORDER BY N"),
            (Lines{"1|1", "1|2", "1|2"}));
  EXPECT_EQ(company.Rows("SELECT CONT AS DOC FROM Kv_Linii WHERE DOC = 'X'"), (Lines{"401"}));
  EXPECT_EQ(
      company.Rows(
          "SELECT SUM(B) AS C, NDI * 2 AS A, A + A AS B FROM Kv_Linii GROUP BY NDI ORDER BY C"),
      (Lines{"8|2|4", "8|4|8", "12|6|12", "16|8|16"}));
}

}  // namespace
}  // namespace tevra::dialect
