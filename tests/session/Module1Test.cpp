// The shared road to the company database, over a fresh company.
#include <regex>

#include "platform/system/Clock.h"
#include "platform/system/StandardError.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "tests/Hostile.h"
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
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"Provider=X;Data Source=C:\\Date\\Kelnar01.mdb;Mode=Read", "C:\\DATE\\KELNAR01.MDB"},
      {"data source=/x/kelnar/a.mdb", "/X/KELNAR/A.MDB"},
      {"Data Source=;Mode=Read", ""},
      {"Data Source=", ""},
      {"Provider=X;Mode=Read", ""},
      {"Data Source = a.mdb", ""},
      {"", ""}};
  for (const auto& [text, source] : cases) EXPECT_EQ(getDataSource(text), source) << text;
}

TEST(ConnectionStrings, TheCompanyCodeStandsInTheFileName) {
  const struct {
    const char* path;
    const char* file;
    const char* code;
  } cases[] = {{"C:\\DATE", "Kelnar01.mdb", "01"},
               {"C:\\KELNAR99", "Kelnar7.mdb", "7"},
               {"C:\\Kelnar\\Kelnar 22.old\\", "kelnarAB.MDB", "AB"},
               {"/x/kelnar/data/", "Kelnar01.mdb", "01"},
               {"/x/kelnar55.mdb", "Kelnar02.mdb", "02"},
               {"/x/kelnar", "Kelnar.mdb", ""},
               {"/x/kelnar", "Alta01.mdb", ""}};
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
  } cases[] = {{Value(), 5, 5}, {Value(), "", ""}, {Value(), Value(), Value()},
               {"", 5, 0},      {"", "", 0},       {" ", 5, " "},
               {"0", 5, "0"},   {0, 5, 0},         {2.5, 5, 2.5}};
  for (const auto& c : cases) {
    EXPECT_EQ(Nz(c.value, c.byDefault), c.result) << c.value.TextOrEmpty();
  }
  EXPECT_EQ(Nz(Value()), Value(0));
  EXPECT_EQ(Nz(""), Value(0));
}

TEST(Messages, TheStandardFormIsWordForWord) {
  EXPECT_EQ(StandardErrorText({13, "Type mismatch"}, {"Form_Load", "Form", "frmLogin", 12}),
            "Eroare 13 - Type mismatch in procedura Form_Load din Form frmLogin Linia: 12");
  EXPECT_EQ(
      StandardErrorText({-2147467259, "x"}, {"AddNota", "Class Module", "cBLLNoteContabile"}),
      "Eroare -2147467259 - x in procedura AddNota din Class Module cBLLNoteContabile Linia: 0");
}

TEST(Messages, PassThroughWithTheirWordsAndComeBackWithTheAnswer) {
  test::MessageRecorder messages;
  SetApplicationTitle("Kelnar Tevra");
  messages.answers = {kNo, -1};
  EXPECT_EQ(MsgBoxEx("Stergeti ?", 36, "Confirmare", 0, {"", "Pastreaza"}), kNo);
  EXPECT_EQ(MsgBoxEx("Gata !"), -1);
  SetApplicationTitle("");
  std::string told;
  for (const MessageRequest& shown : messages.shown) {
    told += shown.prompt + "|" + std::to_string(shown.buttons) + "|" + shown.title + "\n";
  }
  EXPECT_EQ(told, "Stergeti ?|36|Confirmare\nGata !|0|Kelnar Tevra\n");
  EXPECT_EQ(messages.shown.at(0).captions[1], "Pastreaza");
}

class Module1 : public ::testing::Test {
 protected:
  test::TestCompany company_;
  test::MessageRecorder messages_;
};

TEST_F(Module1, ADisconnectedRecordsetChangesInMemoryOnly) {
  for (const bool shape : {false, true}) {
    Recordset journals = getDisconectedRecordset("Select * from KV_JUR order by COD", shape);
    ASSERT_TRUE(journals.IsOpen());
    EXPECT_FALSE(journals.IsConnected());
    EXPECT_EQ(journals.RecordCount(), 5U);
    journals.Set("TITLU", "Alt titlu");
    journals.Update();
    EXPECT_EQ(journals.Get("TITLU"), Value("Alt titlu"));
    journals.MoveLast();
    journals.Delete();
    EXPECT_EQ(GetTextDataCombo("Select TITLU from KV_JUR order by COD"), "Banca in lei");
    EXPECT_EQ(GetRecordCount("KV_JUR"), 5);
  }
  const std::string sql = "Select * from KV_JUR where TIP = ?";
  EXPECT_EQ(getDisconectedRecordset(sql, false, {"V"}).RecordCount(), 1U);
  EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(Module1, AFailedDisconnectedRecordsetIsToldAndComesBackClosed) {
  EXPECT_FALSE(getDisconectedRecordset("Select * from NIMIC").IsOpen());
  std::filesystem::remove(company_.File());
  EXPECT_FALSE(getDisconectedRecordset("Select * from KV_JUR").IsOpen());
  ASSERT_EQ(messages_.shown.size(), 2U);
  const std::string place = " in procedura getDisconectedRecordset din Module Module1 Linia: \\d+";
  for (const auto& [shown, number] :
       {std::pair{messages_.shown[0].prompt, "Eroare -2147217900 - "},
        std::pair{messages_.shown[1].prompt, "Eroare -2147467259 - "}}) {
    EXPECT_TRUE(std::regex_match(shown, std::regex(number + (".+" + place)))) << shown;
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
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"Select TITLU, COD from KV_JUR order by COD", "Banca in lei"},
      {"Select COD from KV_JUR where COD = 'XX'", ""},
      {"Select CONT from KV_JUR where COD = 'JC'", ""},
      {"Select CURS from kv_val2 where COD = 'EUR' order by DATA desc", "5,0871"},
      {"Select PROCENT from kv_cote where COD = 1", "21"},
      {"Select DATVALIM from I_VALIM order by DATVALIM", "01.01.2000"}};
  for (const auto& [sql, text] : cases) EXPECT_EQ(GetTextDataCombo(sql), text) << sql;
}

TEST_F(Module1, TheNextNumberIsTheGreatestPlusOneByTheTablesOwnNumber) {
  for (const char* table : {"kv_linii", "kv_Banca", "I_IMO", "kv_Ter"}) {
    EXPECT_EQ(GetNextNumber(table), 1) << table;
  }
  ExecuteSQL("INSERT INTO Kv_Linii (NDI, NRLINIE) VALUES (7, 3), (12, 40)");
  ExecuteSQL("INSERT INTO kv_Banca (NRLINIE) VALUES (5)");
  ExecuteSQL("INSERT INTO kv_Casa (NRLINIE) VALUES (6)");
  ExecuteSQL("INSERT INTO kv_Div (NRLINIE) VALUES (7)");
  ExecuteSQL("INSERT INTO I_INV (NRCRT, COD) VALUES (3, '900')");
  ExecuteSQL("INSERT INTO I_IMO (NRCRT, COD) VALUES (9, '800')");
  ExecuteSQL("INSERT INTO kv_Ter (COD) VALUES (-5), (2147483646)");
  // Written otherwise than the first ten, a table is any other one and its COD counts.
  const std::vector<std::pair<const char*, long>> cases = {
      {"kv_linii", 13}, {"kv_Linii", 13}, {"kv_Banca", 6}, {"kv_Casa", 7},  {"kv_Div", 8},
      {"I_INV", 4},     {"I_IMO", 10},    {"kv_cote", 11}, {"kv_oper", 15}, {"kv_Ter", 2147483647},
      {"KV_LINII", 1},  {"i_inv", 901},   {"I_Imo", 801}};
  for (const auto& [table, next] : cases) EXPECT_EQ(GetNextNumber(table), next) << table;
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
  const std::vector<std::pair<const char*, int>> cases = {
      {"admin", 1},     {"ADMIN", 1},
      {"O'Neil", 2},    {"gol", 2},
      {"nimeni", 2},    {"", 2},
      {"a%", 2},        {"x' OR '1'='1", 2},
      {"admin' --", 2}, {"'; DELETE FROM UTILIZATORI; --", 2},
      {"admin ", 2}};  // who has no type has the least rights
  for (const auto& [user, type] : cases) EXPECT_EQ(TipUtilizator(user), type) << user;
  EXPECT_EQ(GetRecordCount("UTILIZATORI"), 4);
}

TEST_F(Module1, ExistenceIsAskedByTheKeysOwnTable) {
  ExecuteSQL(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, CONT, JURNAL, CODBUG, TERT, CODOPER) "
      "VALUES (1, 1, '371', 'XY', 'c9', 12, 77), (1, 2, NULL, NULL, NULL, NULL, NULL)");
  ExecuteSQL("INSERT INTO Kv_CC (COD) VALUES ('c1')");
  ExecuteSQL("INSERT INTO I_LOCALIZARE (COD) VALUES ('O''Hara')");
  ExecuteSQL("UPDATE KV_JUR SET CODOPER = 5 WHERE COD = 'JC'");
  // What is there in the key's own table, and what at most another one has.
  const struct {
    const char* key;
    std::vector<const char*> found;
    std::vector<const char*> missing;
  } cases[] = {{"UTILIZATOR", {"admin", "ADMIN"}, {"admin ", ""}},
               {"CodJurnal", {"BK", "bk"}, {"XY", "5121"}},
               {"CodClasificare", {"1.1.2"}, {"N1.1.2"}},
               {"Cont", {"1011"}, {"10110"}},
               {"OperTert", {"404", "4111"}, {"4426", "891"}},
               {"OperTVA", {"4426"}, {"404"}},
               {"CodValuta", {"eur"}, {"LEI"}},
               {"CodCentruCost", {"C1"}, {"c9"}},
               {"CodOperLinii", {"77", " 77 ", "77,4"}, {"5", "-77", "1.077"}},
               {"CodOperJurnale", {"5", "005"}, {"77"}},
               {"ContLinii", {"371"}, {"1011", "5121"}},
               {"JurnalLinii", {"xy"}, {"BK"}},
               {"CentreCostLinii", {"c9"}, {"c1"}},
               {"TertiLinii", {"12", "1,2E1"}, {"1"}},
               {"ContOperatiuni", {"891", "404"}, {"5121"}},
               {"ContJurnale", {"5121"}, {"404"}},
               {"SI", {"", "orice"}, {}},
               {"CodLocalizare", {"o'hara"}, {"O'Hara'"}},
               {"CodConturiImob", {"201"}, {"6811"}},
               {"Data", {"01.06.2001", "1/6/2001", "2001-06-01"}, {"06.01.2001", "02.06.2001"}}};
  EXPECT_EQ(std::size(cases), 20U);
  for (const auto& c : cases) {
    for (const char* value : c.found) EXPECT_TRUE(ExistaInTabela(value, c.key)) << c.key << value;
    for (const char* value : c.missing) {
      EXPECT_FALSE(ExistaInTabela(value, c.key)) << c.key << " " << value;
    }
    if (std::string(c.key) == "SI") continue;
    const bool converted =
        std::string("CodOperLinii CodOperJurnale TertiLinii Data").find(c.key) != std::string::npos;
    for (const std::string& value : test::HostileTexts()) {
      bool found = false;
      const long number = FailureOf([&] { found = ExistaInTabela(value, c.key); });
      EXPECT_EQ(number, converted ? long{kTypeMismatch} : 0L) << c.key << value.substr(0, 30);
      EXPECT_FALSE(found) << c.key << value.substr(0, 30);
    }
  }
  EXPECT_EQ(FailureOf([] { ExistaInTabela("99999999999", "TertiLinii"); }), kOverflow);
  EXPECT_EQ(GetRecordCount("UTILIZATORI"), 1);
  EXPECT_TRUE(messages_.shown.empty());

  for (const char* key : {"", "utilizator", "cont", "ALTCEVA"}) {
    EXPECT_FALSE(ExistaInTabela("admin", key));
  }
  ASSERT_EQ(messages_.shown.size(), 4U);
  EXPECT_EQ(messages_.shown[0].prompt, "EROARE");
  EXPECT_EQ(messages_.shown[0].buttons, 16);
  std::filesystem::remove(company_.File());
  EXPECT_EQ(FailureOf([] { ExistaInTabela("1", "Cont"); }), kDatabaseNotOpened);
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
