// The statements that change rows: postings, inventory, exchange, redenomination.
#include "tests/dialect/Company.h"

namespace tevra::dialect {
namespace {

TEST(Changes, UpdateOverAJoinSetsTheTableOfItsFields) {
  Company company;
  EXPECT_EQ(company.Run(
                "UPDATE I_CLASIFICARE INNER JOIN I_IMO ON I_CLASIFICARE.COD_GR = I_IMO.COD_GR SET "
                "I_IMO.COD_GR_NOU = [I_CLASIFICARE].[COD_GR_NOU]"),
            2);
  EXPECT_EQ(company.Rows("select NRCRT, COD_GR_NOU from I_IMO order by NRCRT"),
            (Lines{"1|2.2.9", "2|NULL", "3|2.1.1"}));
}

TEST(Changes, UpdateOverAJoinWithAStatementMovesItsParameters) {
  Company company;
  company.Engine(
      "INSERT INTO [Terti - Asocieri CS] VALUES (1, 101, '02'), (1, 201, '03'), (1, 101, '02')");
  company.Engine(
      "INSERT INTO tmp_Linii (NDI, TERT, DOC) VALUES (1, 1, 'x'), (2, 9, 'x'), (3, NULL, 'x'), (4, "
      "1, 'y')");
  EXPECT_EQ(
      company.Run(
          "update tmp_Linii t inner join (select * from [Terti - Asocieri CS] where "
          "CODSucursala=?) A on t.Tert=A.ID_TertSucursala and 1=? set t.Tert=A.ID_TertCentru+?, "
          "t.Doc='n' & ? where t.Doc=?",
          {"02", 1, 5, "7", "X"}),
      1);
  EXPECT_EQ(company.Rows("select NDI, TERT, DOC from tmp_Linii order by NDI"),
            (Lines{"1|106|n7", "2|9|x", "3|NULL|x", "4|1|y"}));
}

TEST(Changes, DeletesWithAndWithoutAList) {
  Company company;
  EXPECT_EQ(company.Run("delete * from i_imo where nrcrt = 2"), 1);
  EXPECT_EQ(company.Run("Delete * from I_PLANAMO"), 2);
  EXPECT_EQ(company.Run("DELETE FROM Kv_LINII WHERE DOC=?", {"IMO07"}), 3);
  EXPECT_EQ(company.Run("Delete from kv_ter where COD = clng(' 3' )"), 1);
  EXPECT_EQ(company.Run("DELETE FROM Kv_LINII WHERE DOC=?", {"a'1"}), 1);
}

TEST(Changes, RedenominationDividesWholeOldLei) {
  Company company;
  company.Engine(
      "UPDATE I_IMO SET VAL_CUMP = 12345, VAL_RAMASA = 2.5, CURS = 3.5, VAL_BLOCATA = NULL");
  company.Engine("INSERT INTO I_IMO (NRCRT, VAL_CUMP) VALUES (4, 7)");
  EXPECT_EQ(
      company.Run(
          "UPDATE I_IMO SET VAL_CUMP=Round(VAL_CUMP,0)/10000,VAL_RAMASA=Round(VAL_RAMASA,0)/10000,"
          "CURS=Round(CURS,0)/10000,VAL_BLOCATA=Round(VAL_BLOCATA,0)/10000 WHERE DATA_ACH < "
          "CDATE('01/07/2005')"),
      2);
  EXPECT_EQ(
      company.Rows("select VAL_CUMP, VAL_RAMASA, CURS, VAL_BLOCATA from I_IMO order by NRCRT"),
      (Lines{"1.2345|0.0002|0.0004|NULL", "1.2345|0.0002|0.0004|NULL", "12345.0|2.5|3.5|NULL",
             "7.0|NULL|NULL|NULL"}));
  company.Run("INSERT INTO I_VALIM (DATVALIM,VALIM) VALUES (CDATE('01/07/2005'), 1500)");
  EXPECT_EQ(company.Rows("select * from I_VALIM where VALIM=1500"),
            (Lines{"2005-07-01 00:00:00|1500.0"}));
}

TEST(Changes, AnAssetGoesIntoTheInventory) {
  Company company;
  company.Run(
      "Insert into I_INV ( NRCRT, COD, DENUMIRE, CONT, COD_FURNIZOR, DATA_ACH, VAL_CUMP, CURS, "
      "OBS1, "
      "Blocata )  VALUES ( 9, CStr('A1'),Cstr('Masa (veche)'), 303, Cstr('7'), "
      "CDate('31.12.2004'), "
      "CDBL('1.234,56'), CDBL('0'), Cstr(''),True)");
  EXPECT_EQ(
      company.Rows(
          "select cod, denumire, cont, cod_furnizor, data_ach, val_cump, curs, OBS1, Blocata from "
          "I_INV where nrcrt=9"),
      (Lines{"A1|Masa (veche)|303|7|2004-12-31 00:00:00|1234.56|0.0||-1"}));
  EXPECT_EQ(company.Run("UPDATE I_INV SET Blocata=TRUE WHERE NrCrt=1"), 1);
  EXPECT_EQ(company.Rows("SELECT Blocata FROm I_INV WHERE NRCRT=1"), (Lines{"-1"}));
}

TEST(Changes, LinesOfAPeriodAreMarkedOnce) {
  Company company;
  const std::string period =
      "DataInr>=CDate('01.01.2005') and DataInr<=CDate('31.01.2005') AND (CODIE<>'I' OR CODIE IS "
      "NULL) ";
  EXPECT_EQ(company
                .Rows("select top 2 * from [Kv_Linii] where DataInr>=CDate('1.1.2005') and "
                      "DataInr<=CDate('31/01/2005') and CodIE='E'")
                .size(),
            2u);
  EXPECT_EQ(company.Run("update Kv_Linii set CodIE='E' WHERE " + period), 3);
  EXPECT_EQ(company.Run("delete from Kv_Linii WHERE CodSucursala='02' AND CodIE='I' AND "
                        "DataInr>=CDate('01.02.2005') AND DataInr<=CDate('01.02.2005')"),
            1);
}

TEST(Changes, ImportMergesReferenceTables) {
  Company company;
  company.Engine("INSERT INTO tmp_CC VALUES ('10', 'alt titlu', 'D'), ('30', 'Nou', 'D')");
  EXPECT_EQ(company.Run(
                "INSERT INTO KV_CC select * from tmp_CC where COD not in (select Cod from Kv_CC)"),
            1);

  company.Engine(
      "INSERT INTO tmp_PC (CONT, DEBITN, CODBUG) VALUES ('6811', 5, 'x'), ('999', 5, 'x')");
  company.Run(
      "update tmp_PC set Creare=NULL,DebitN=0, CreditN=0, CodBug=NULL,DebitN_1=0, CreditN_1=0, "
      "SoldN=0");
  EXPECT_EQ(company.Run(
                "INSERT INTO kv_PC  SELECT tmp_PC.*  FROM tmp_PC LEFT JOIN kv_PC ON tmp_PC.CONT = "
                "kv_PC.CONT  WHERE kv_PC.CONT Is Null"),
            1);
  EXPECT_EQ(company.Rows("select CONT, DEBITN, CODBUG from kv_pc where CONT='999'"),
            (Lines{"999|0.0|NULL"}));

  company.Run(
      "INSERT INTO kv_pc (CONT, TITLU, DEBITN, CREDITN, CODBUG) VALUES ('1','O''Neil',0,0,'' )");
  EXPECT_EQ(company.Run(
                "Update kv_PC Set DEBITN =CDbl('1.000,5'), CREDITN = CDbl('-2') Where CONT = '1'"),
            1);
  EXPECT_EQ(company.Rows("select TITLU, DEBITN, CREDITN from kv_pc where CONT='1'"),
            (Lines{"O'Neil|1000.5|-2.0"}));
}

TEST(Changes, ImportMapsThirdPartiesOfTheSameName) {
  Company company;
  company.Engine("INSERT INTO tmp_Ter (COD, NUME) VALUES (2, 'ALFA'), (3, 'Gama'), (7, 'Noua')");
  EXPECT_EQ(
      company.Run(
          "INSERT INTO [Terti - Asocieri CS] ( ID_TertSucursala, ID_TertCentru, CodSucursala )  "
          "SELECT tmp_Ter.COD, kv_ter.COD, '02' FROM tmp_Ter INNER JOIN kv_ter ON tmp_Ter.Nume = "
          "kv_ter.Nume  WHERE (((tmp_Ter.COD) Not In (select COD from Kv_ter  where "
          "Kv_Ter.Nume=tmp_Ter.Nume)))"),
      1);
  EXPECT_EQ(company.Rows("select * from [Terti - Asocieri CS]"), (Lines{"2|1|02"}));
  EXPECT_EQ(
      company.Run(
          "delete from tmp_Ter where COD in  (SELECT tmp_Ter.COD  FROM tmp_Ter INNER JOIN kv_ter "
          "ON "
          "tmp_Ter.Nume = kv_ter.Nume  WHERE (((tmp_Ter.COD) Not In (select COD from Kv_ter where "
          "Kv_Ter.Nume=tmp_Ter.Nume))))"),
      1);
  company.Engine("DELETE FROM kv_ter WHERE NUME IS NULL");
  EXPECT_EQ(
      company.Rows(
          " SELECT COD  FROM tmp_Ter  WHERE (((tmp_Ter.NUME) Not In (select Nume from Kv_ter)))"),
      (Lines{"7"}));
}

TEST(Changes, ImportedNotesMovePastTheOwn) {
  Company company;
  company.Engine("INSERT INTO tmp_Linii (NDI, NRLINIE) VALUES (1, 1), (1, 2)");
  EXPECT_EQ(company.Run("update tmp_Linii   set CODSucursala='02',CodIE='I', NDI=NDI+4"), 2);
  EXPECT_EQ(
      company.Run("update tmp_Linii t set t.DOC='a' & NDI, t.CONT=NRLINIE where t.NRLINIE=2;"), 1);
  EXPECT_EQ(company.Rows("select DOC, CONT from tmp_Linii"), (Lines{"NULL|NULL", "a5|2"}));
  EXPECT_EQ(company.Run("insert into Kv_Linii select * from tmp_Linii"), 2);
  EXPECT_EQ(company.Rows("select NDI, CodSucursala from Kv_Linii where NDI>4"),
            (Lines{"5|02", "5|02"}));
}

TEST(Changes, AFieldIsCopiedByItsName) {
  Company company;
  company.Engine("ALTER TABLE [Terti - Asocieri CS] ADD COLUMN [CodSucursala-1] TEXT(9)");
  company.Engine("INSERT INTO [Terti - Asocieri CS] (CodSucursala) VALUES ('02')");
  EXPECT_EQ(company.Run("UPDATE [Terti - Asocieri CS] SET [CodSucursala-1]=[CodSucursala]"), 1);
  EXPECT_EQ(company.Rows("select [CodSucursala-1] from [Terti - Asocieri CS]"), (Lines{"02"}));
  EXPECT_EQ(company.Run("Update I_CLASIFICARE Set DURNOR_NOU = LIM_INF WHERE LIM_INF IS NOT NULL"),
            2);
}

}  // namespace
}  // namespace tevra::dialect
