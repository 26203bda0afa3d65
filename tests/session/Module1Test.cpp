// The shared road to the company database, over a fresh company.
#include "platform/system/Clock.h"
#include "platform/system/StandardError.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

TEST(ConnectionStrings, AreWordForWord) {
  const std::string tail =
      ";Mode=ReadWrite|Share Deny None;Persist Security Info=False; Jet OLEDB:Database "
      "Password=QXT2746";
  EXPECT_EQ(CompanyConnectionString("C:\\DATE", "Kelnar01.mdb"),
            "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\DATE\\Kelnar01.mdb" + tail);
  EXPECT_EQ(CompanyConnectionString("/srv/Date/", "Kelnar7.mdb"),
            "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=/srv/Date/\\Kelnar7.mdb" + tail);
  CurrentSession().connectionString = CompanyConnectionString("C:\\DATE", "Kelnar01.mdb");
  EXPECT_EQ(GetShapeConnection(), "Provider=MSDataShape.1;Data Source=C:\\DATE\\Kelnar01.mdb" +
                                      tail + ";Data Provider=Microsoft.Jet.OLEDB.4.0");
}

TEST(ConnectionStrings, DataSourceComesBackInCapitals) {
  const struct {
    const char* text;
    const char* source;
  } cases[] = {
      {"Provider=X;Data Source=C:\\Date\\Kelnar01.mdb;Mode=Read", "C:\\DATE\\KELNAR01.MDB"},
      {"data source=/x/kelnar/a.mdb", "/X/KELNAR/A.MDB"},
      {"Data Source=;Mode=Read", ""},
      {"Data Source=", ""},
      {"Provider=X;Mode=Read", ""},
      {"Data Source = a.mdb", ""},
      {"", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(getDataSource(c.text), c.source) << c.text;
}

TEST(ConnectionStrings, TheCompanyCodeStandsInTheFileName) {
  const struct {
    const char* path;
    const char* file;
    const char* code;
  } cases[] = {
      {"C:\\DATE", "Kelnar01.mdb", "01"},
      {"C:\\KELNAR99", "Kelnar7.mdb", "7"},
      {"C:\\Kelnar\\Kelnar 22.old\\", "kelnarAB.MDB", "AB"},
      {"/x/kelnar/data/", "Kelnar01.mdb", "01"},
      {"/x/kelnar55.mdb", "Kelnar02.mdb", "02"},
      {"/x/kelnar", "Kelnar.mdb", ""},
      {"/x/kelnar", "Alta01.mdb", ""},
  };
  for (const auto& c : cases) {
    CurrentSession().connectionString = CompanyConnectionString(c.path, c.file);
    EXPECT_EQ(GetCodSocietate(), c.code) << c.path << " " << c.file;
  }
  for (const char* text : {"", "Data Source=Kelnar", "Data Source=Kelnar1"}) {
    CurrentSession().connectionString = text;
    EXPECT_EQ(GetCodSocietate(), "") << text;
  }
}

TEST(NullValues, AnEmptyTextIsZeroEvenWithADefault) {
  const struct {
    Value value, byDefault, result;
  } cases[] = {
      {Value(), 5, 5},
      {Value(), "", ""},
      {Value(), Value(), Value()},
      {"", 5, 0},
      {"", "", 0},
      {" ", 5, " "},
      {"0", 5, "0"},
      {0, 5, 0},
      {2.5, 5, 2.5},
      {Value::YesNo(false), 5, Value::YesNo(false)},
      {DateTime(2026, 1, 31), 5, DateTime(2026, 1, 31)},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Nz(c.value, c.byDefault), c.result) << c.value.TextOrEmpty();
  }
  EXPECT_EQ(Nz(Value()), Value(0));
  EXPECT_EQ(Nz(""), Value(0));
  EXPECT_EQ(Nz("404"), Value("404"));
}

TEST(Messages, TheStandardFormIsWordForWord) {
  const Failure failure(13, "Type mismatch");
  EXPECT_EQ(StandardErrorText(failure, {"Form_Load", "Form", "frmLogin", 12}),
            "Eroare 13 - Type mismatch in procedura Form_Load din Form frmLogin Linia: 12");
  EXPECT_EQ(
      StandardErrorText({-2147467259, "x"}, {"AddNota", "Class Module", "cBLLNoteContabile"}),
      "Eroare -2147467259 - x in procedura AddNota din Class Module cBLLNoteContabile Linia: 0");
  EXPECT_EQ(StandardErrorText(failure, {"pSort", "User Control", "extTDBGrid", 1}),
            "Eroare 13 - Type mismatch in procedura pSort din User Control extTDBGrid Linia: 1");
}

TEST(Messages, PassThroughWithTheirWordsAndComeBackWithTheAnswer) {
  test::MessageRecorder messages;
  SetApplicationTitle("Kelnar Tevra");
  messages.answers = {kNo, -1};
  EXPECT_EQ(MsgBoxEx("Stergeti ?", 36, "Confirmare", 0, {"", "Pastreaza"}), kNo);
  EXPECT_EQ(MsgBoxEx("Gata !"), -1);
  SetApplicationTitle("");
  ASSERT_EQ(messages.shown.size(), 2U);
  EXPECT_EQ(messages.shown[0].prompt, "Stergeti ?");
  EXPECT_EQ(messages.shown[0].buttons, 36);
  EXPECT_EQ(messages.shown[0].title, "Confirmare");
  EXPECT_EQ(messages.shown[0].captions[1], "Pastreaza");
  EXPECT_EQ(messages.shown[1].prompt, "Gata !");
  EXPECT_EQ(messages.shown[1].buttons, 0);
  EXPECT_EQ(messages.shown[1].title, "Kelnar Tevra");
}

class Module1 : public ::testing::Test {
 protected:
  test::TestCompany company_;
  test::MessageRecorder messages_;
};

TEST_F(Module1, ARecordsetOutlivesItsConnection) {
  Recordset users;
  {
    Recordset opened = OpenRecordset("Select * from UTILIZATORI where TIP = ?", {0});
    users = opened;
  }
  EXPECT_TRUE(users.IsConnected());
  users.AddNew();
  users.Set("NUME", "ana");
  users.Set("TIP", 2);
  users.Update();
  EXPECT_EQ(GetRecordCount("UTILIZATORI"), 2);
  EXPECT_EQ(GetTextDataCombo("Select NUME from UTILIZATORI where TIP = 2"), "ana");
  CloseRecordset(users);
  EXPECT_FALSE(users.IsOpen());
  EXPECT_NO_THROW(CloseRecordset(users));
  EXPECT_EQ(FailureOf([] { OpenRecordset("Select NIMIC from UTILIZATORI"); }), kStatementError);
}

TEST_F(Module1, StatementsTellHowManyRowsTheyTouched) {
  const struct {
    const char* sql;
    std::int64_t rows;
  } cases[] = {
      {"INSERT INTO Kv_CC (COD, TITLU) VALUES ('1', 'a'), ('2', 'b'), ('3', 'c')", 3},
      {"UPDATE kv_cc SET UTILIZABIL = 'D' WHERE COD <> '1'", 2},
      {"UPDATE kv_cc SET UTILIZABIL = 'D' WHERE COD = '9'", 0},
      {"DELETE * FROM kv_cc", 3},
  };
  for (const auto& c : cases) EXPECT_EQ(ExecuteSQL(c.sql), c.rows) << c.sql;
  EXPECT_EQ(ExecuteSQL("INSERT INTO Kv_CC (COD, TITLU) VALUES (?, ?)", {"4", "d'Artagnan\"; --"}),
            1);
  EXPECT_EQ(GetTextDataCombo("Select TITLU from Kv_CC where COD = ?", {"4"}), "d'Artagnan\"; --");
  EXPECT_EQ(FailureOf([] { ExecuteSQL("DELETE FROM NIMIC"); }), kStatementError);
  EXPECT_EQ(FailureOf([] { ExecuteSQL("INSERT INTO Kv_CC (COD) VALUES ('4')"); }),
            kValueNotAccepted);
}

TEST_F(Module1, ADisconnectedRecordsetChangesInMemoryOnly) {
  for (const bool shape : {false, true}) {
    Recordset journals = getDisconectedRecordset("Select * from KV_JUR order by COD", shape);
    ASSERT_TRUE(journals.IsOpen());
    EXPECT_FALSE(journals.IsConnected());
    EXPECT_EQ(journals.RecordCount(), 5U);
    journals.Set("TITLU", "Alt titlu");
    journals.Update();
    journals.MoveLast();
    journals.Delete();
    journals.AddNew();
    journals.Set("COD", "ZZ");
    journals.Update();
    journals.MoveFirst();
    EXPECT_EQ(journals.Get("TITLU"), Value("Alt titlu"));
    EXPECT_EQ(journals.RecordCount(), 5U);
    EXPECT_EQ(GetTextDataCombo("Select TITLU from KV_JUR order by COD"), "Banca in lei");
    EXPECT_EQ(GetTextDataCombo("Select COD from KV_JUR order by COD desc"), "OD");
  }
  EXPECT_EQ(
      getDisconectedRecordset("Select * from KV_JUR where TIP = ?", false, {"V"}).RecordCount(),
      1U);
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(Module1, AFailedDisconnectedRecordsetIsToldAndComesBackClosed) {
  const std::string place = " in procedura getDisconectedRecordset din Module Module1 Linia: ";
  EXPECT_FALSE(getDisconectedRecordset("Select * from NIMIC").IsOpen());
  std::filesystem::remove(company_.File());
  EXPECT_FALSE(getDisconectedRecordset("Select * from KV_JUR").IsOpen());
  ASSERT_EQ(messages_.shown.size(), 2U);
  for (const auto& [shown, number] :
       {std::pair{messages_.shown[0].prompt, "Eroare -2147217900 - "},
        std::pair{messages_.shown[1].prompt, "Eroare -2147467259 - "}}) {
    EXPECT_EQ(shown.rfind(number, 0), 0U) << shown;
    const std::size_t found = shown.find(place);
    ASSERT_NE(found, std::string::npos) << shown;
    const std::string line = shown.substr(found + place.size());
    EXPECT_FALSE(line.empty());
    EXPECT_EQ(line.find_first_not_of("0123456789"), std::string::npos) << shown;
  }
}

TEST_F(Module1, AnOpenConnectionStaysWhereItIs) {
  Connection connection;
  OpenConnection(connection);
  EXPECT_EQ(connection.QueryValue("Select Count(*) from KV_JUR").AsLong(), 5);
  connection.BeginTrans();
  OpenConnection(connection);
  EXPECT_EQ(connection.TransactionDepth(), 1);
  connection.RollbackTrans();
  CloseConnection(connection);
  EXPECT_FALSE(connection.IsOpen());
  EXPECT_NO_THROW(CloseConnection(connection));
}

TEST_F(Module1, TheFirstFieldOfTheFirstRowAsText) {
  const struct {
    const char* sql;
    const char* text;
  } cases[] = {
      {"Select TITLU, COD from KV_JUR order by COD", "Banca in lei"},
      {"Select COD from KV_JUR where COD = 'XX'", ""},
      {"Select CONT from KV_JUR where COD = 'JC'", ""},
      {"Select CURS from kv_val2 where COD = 'EUR' order by DATA desc", "5,0871"},
      {"Select PROCENT from kv_cote where COD = 1", "21"},
      {"Select DATVALIM from I_VALIM order by DATVALIM", "01.01.2000"},
  };
  for (const auto& c : cases) EXPECT_EQ(GetTextDataCombo(c.sql), c.text) << c.sql;
}

TEST_F(Module1, TheNextNumberIsTheGreatestPlusOneByTheTablesOwnNumber) {
  for (const char* table : {"kv_linii", "kv_Linii", "kv_Banca", "kv_Casa", "kv_Div", "I_INV",
                            "I_IMO", "kv_Ter", "Kv_CC"}) {
    EXPECT_EQ(GetNextNumber(table), 1) << table;
  }
  ExecuteSQL("INSERT INTO Kv_Linii (NDI, NRLINIE) VALUES (7, 3), (12, 40)");
  ExecuteSQL("INSERT INTO kv_Banca (NRLINIE) VALUES (5)");
  ExecuteSQL("INSERT INTO kv_Casa (NRLINIE) VALUES (6)");
  ExecuteSQL("INSERT INTO kv_Div (NRLINIE) VALUES (7)");
  ExecuteSQL("INSERT INTO I_INV (NRCRT, COD) VALUES (3, '900')");
  ExecuteSQL("INSERT INTO I_IMO (NRCRT, COD) VALUES (9, '800')");
  ExecuteSQL("INSERT INTO kv_Ter (COD) VALUES (-5), (2147483646)");
  const struct {
    const char* table;
    long next;
  } cases[] = {{"kv_linii", 13},
               {"kv_Linii", 13},
               {"kv_Banca", 6},
               {"kv_Casa", 7},
               {"kv_Div", 8},
               {"I_INV", 4},
               {"I_IMO", 10},
               {"kv_Ter", 2147483647},
               {"kv_cote", 11},
               {"kv_oper", 15},
               // Written otherwise, the table is any other one and its COD counts.
               {"KV_LINII", 1},
               {"i_inv", 901},
               {"I_Imo", 801}};
  for (const auto& c : cases) EXPECT_EQ(GetNextNumber(c.table), c.next) << c.table;
  ExecuteSQL("UPDATE kv_Ter SET COD = 2147483647 WHERE COD > 0");
  EXPECT_EQ(FailureOf([] { GetNextNumber("kv_Ter"); }), kOverflow);
  EXPECT_EQ(FailureOf([] { GetNextNumber("KV_JUR"); }),
            kTypeMismatch);  // codes that are no numbers
  EXPECT_EQ(FailureOf([] { GetNextNumber("kv_banca"); }), kStatementError);  // has no COD
}

TEST_F(Module1, TheTypeOfAUserIsFoundByNameAlone) {
  ExecuteSQL("UPDATE UTILIZATORI SET TIP = 1");
  ExecuteSQL("INSERT INTO UTILIZATORI (NUME, TIP) VALUES (?, 2), (?, NULL), (?, 2)",
             {"O'Neil", "gol", "%"});
  const struct {
    const char* user;
    int type;
  } cases[] = {{"admin", 1},     {"ADMIN", 1},
               {"O'Neil", 2},    {"gol", 0},
               {"nimeni", 0},    {"", 0},
               {"a%", 0},        {"x' OR '1'='1", 0},
               {"admin' --", 0}, {"'; DELETE FROM UTILIZATORI; --", 0},
               {"admin ", 0}};
  for (const auto& c : cases) EXPECT_EQ(TipUtilizator(c.user), c.type) << c.user;
  EXPECT_EQ(GetRecordCount("UTILIZATORI"), 4);
}

class Parameters : public Module1 {
 protected:
  Parameters() { clock::Set(DateTime(2026, 11, 22, 9, 30, 0)); }
  ~Parameters() override { clock::Reset(); }

  static std::string Loaded() {
    LoadParametri();
    const Session& s = CurrentSession();
    return s.contFurnizori + "|" + s.contClienti + "|" + s.codDeviza + "|" + s.contObiecteInventar +
           "|" + Value(s.dataIn).AsText() + "|" + Value(s.dataSn).AsText();
  }
};

TEST_F(Parameters, AreReadWithEmptyTextsAndTodayWhereTheyAreNull) {
  const std::string nothing = "||||22.11.2026|22.11.2026";
  ExecuteSQL("UPDATE kv_par SET DATAIN = ?, DATASN = ?",
             {DateTime(2025, 1, 1), DateTime(2025, 12, 31)});
  EXPECT_EQ(Loaded(), "404|4111|EUR|303|01.01.2025|31.12.2025");
  ExecuteSQL("UPDATE kv_par SET CONTCLIENTI = NULL, CODDeviza = '', DATASN = NULL");
  EXPECT_EQ(Loaded(), "404|||303|01.01.2025|22.11.2026");
  ExecuteSQL(
      "UPDATE kv_par SET CONTFURNIZORI = NULL, CODDeviza = NULL, CONTObiecteInventar = NULL, "
      "DATAIN = NULL");
  EXPECT_EQ(Loaded(), nothing);
  ExecuteSQL("UPDATE kv_par SET CONTFURNIZORI = '401'");
  EXPECT_EQ(Loaded(), "401" + nothing);
  ExecuteSQL("DELETE FROM kv_par");
  EXPECT_EQ(Loaded(), nothing);
}

}  // namespace
}  // namespace tevra
