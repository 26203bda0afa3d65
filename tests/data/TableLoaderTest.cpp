// Rows of CSV files into the tables of a fresh company: all of them or none.
#include <sstream>

#include "platform/data/Recordset.h"
#include "platform/data/TableLoader.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

class TableLoader : public ::testing::Test {
 protected:
  LoadResult Load(const std::string& table, const std::string& csv,
                  bool quotedEmptyIsText = false) {
    std::istringstream in(csv);
    return LoadTable(connection_, in, table, quotedEmptyIsText);
  }

  Value Query(const std::string& sql) { return connection_.QueryValue(sql); }
  long Count(const std::string& table) { return Query("SELECT COUNT(*) FROM " + table).AsLong(); }

  /// A file of one row, the field's cell behind another one.
  static std::string Row(const std::string& field, const std::string& cell) {
    return "DOCUMENT," + field + "\nd," + cell + "\n";
  }

  /// "line:reason" of each refused row.
  static std::vector<std::string> Refused(const LoadResult& result) {
    std::vector<std::string> lines;
    for (const RefusedRow& row : result.refused) {
      lines.push_back(std::to_string(row.line) + ":" + row.reason);
    }
    return lines;
  }

  test::TestCompany company_;
  Connection connection_ = company_.Open();
};

TEST_F(TableLoader, ValuesOfEachTypeThatAreTaken) {
  const Value yes = Value::YesNo(true);
  const Value no = Value::YesNo(false);
  const DateTime date(2006, 2, 1);
  const std::string hostile = "O'Neil; DROP TABLE I_IMO";
  const std::string longest = "Ș2345678901234567890";
  const std::vector<std::pair<std::string, std::vector<std::pair<std::string, Value>>>> cases = {
      {"COD_FURNIZOR", {{"2147483647", 2147483647}, {" 7 ", 7}, {"5.0", 5}, {"\"12\"", 12}}},
      {"COD_FURNIZOR", {{"-2147483648", std::int64_t{-2147483648}}, {"", Value()}}},
      {"DNFANI", {{"-32768", -32768}}},
      {"VAL_CUMP", {{"1234.56", 1234.56}, {"-0.01", -0.01}, {"1e3", 1000.0}, {"12", 12.0}}},
      {"DATA_ACH", {{"2006-02-01", date}, {"01.02.2006", date}, {"", Value()}}},
      {"DATA_ACH", {{"2006-02-01 10:20:30", DateTime(2006, 2, 1, 10, 20, 30)}}},
      {"DATA_ACH", {{"29.02.2024", DateTime(2024, 2, 29)}}},
      {"BLOCATA", {{"-1", yes}, {"1", yes}, {"da", yes}, {"TRUE", yes}}},
      {"BLOCATA", {{"0", no}, {"Nu", no}, {"False", no}, {"", no}}},
      {"DENUMIRE", {{" doua blancuri  ", " doua blancuri  "}, {"1.50", "1.50"}, {"", Value()}}},
      {"DENUMIRE", {{"\"a \"\"b\"\", c\"", "a \"b\", c"}, {"\"\"", Value()}}},
      {"DENUMIRE", {{"\"x\r\ny\"", "x\r\ny"}, {hostile, hostile}}},
      {"COD", {{longest, longest}}}};
  for (const auto& [field, cells] : cases) {
    for (const auto& [cell, value] : cells) {
      connection_.Execute("DELETE FROM I_IMO");
      const LoadResult result = Load("I_IMO", Row(field, cell));
      EXPECT_EQ(result.rows, 1) << cell;
      EXPECT_EQ(Query("SELECT " + field + " FROM I_IMO"), value) << field << " " << cell;
    }
  }
}

TEST_F(TableLoader, ValuesThatAreRefusedNameTheirFieldOnce) {
  const struct {
    const char* field;
    const char* reason;
    const char* cells;
  } cases[] = {
      {"COD_FURNIZOR", "COD_FURNIZOR: Overflow", "2147483648"},
      {"COD_FURNIZOR", "COD_FURNIZOR: Type mismatch", "2.5|sapte|0x10| "},
      {"DNFANI", "DNFANI: Overflow", "32768"},
      {"VAL_CUMP", "VAL_CUMP: Type mismatch", "\"1,5\"|\"1.234,56\"|1 000|nan|inf"},
      {"VAL_CUMP", "VAL_CUMP: Overflow: 1e999", "1e999"},
      {"DATA_ACH", "DATA_ACH: Type mismatch", "31.02.2006|2006-02-30|12/31/2006|38000"},
      {"BLOCATA", "BLOCATA: Type mismatch", "2|-2|0.5|x"},
      {"COD", "Valoare neacceptata: COD: 21 caractere, cel mult 20", "123456789012345678901"},
      {"DENUMIRE", "Valoare neacceptata: DENUMIRE: nu este un text", "a\xFF|\xC8"}};
  for (const auto& c : cases) {
    for (const auto& cell : Parts(c.cells)) {
      const auto refused = Refused(Load("I_IMO", Row(c.field, cell)));
      ASSERT_EQ(refused.size(), 1U) << c.field << " " << cell;
      EXPECT_EQ(refused[0].rfind("2:" + std::string(c.reason), 0), 0U) << refused[0];
      EXPECT_EQ(refused[0].find(c.field), refused[0].rfind(c.field)) << refused[0];
    }
  }
  EXPECT_EQ(Count("I_IMO"), 0);
}

TEST_F(TableLoader, OneRefusedRowLeavesTheTableAsItWas) {
  connection_.Execute("INSERT INTO Kv_CC (COD, TITLU) VALUES ('A', 'Atelier')");
  const LoadResult result = Load("kv_cc",
                                 "\xEF\xBB\xBF"
                                 "cod, Titlu \r\n"
                                 "B,\"Birou\r\nmic\"\r\n"
                                 "C\r\n"
                                 "\r\n"
                                 "D,a,b\r\n"
                                 "a,dublu\r\n"
                                 "E,\"x\"y\r\n"
                                 "F,bun\r\n"
                                 "f,de doua ori\r\n"
                                 ",fara cod\r\n"
                                 "G,\"neinchis\r\n"
                                 "H,inghitit\r\n");
  const std::vector<std::string> expected = {
      "4:Valoare neacceptata: 1 celule sub 2 coloane",
      "6:Valoare neacceptata: 3 celule sub 2 coloane",
      "7:Valoare neacceptata: Kv_CC.COD: exista deja in tabela",
      "8:Type mismatch: text dupa ghilimelele de inchidere",
      "10:Valoare neacceptata: Kv_CC.COD: exista deja in tabela",
      "11:Valoare neacceptata: COD: valoarea este obligatorie",
      "12:Type mismatch: ghilimele neinchise"};
  EXPECT_EQ(Refused(result), expected);
  EXPECT_EQ(result.rows, 0);
  EXPECT_EQ(Count("Kv_CC"), 1);
  EXPECT_EQ(connection_.TransactionDepth(), 0);
}

TEST_F(TableLoader, AnOuterTransactionOfTheCallerGoesOn) {
  connection_.BeginTrans();
  connection_.Execute("INSERT INTO Kv_CC (COD) VALUES ('A')");
  EXPECT_EQ(Load("Kv_CC", "COD\nB\nA\n").refused.size(), 1U);
  EXPECT_EQ(Load("Kv_CC", "COD\nC\n").rows, 1);
  connection_.CommitTrans();
  EXPECT_EQ(Query("SELECT MAX(COD) FROM Kv_CC"), Value("C"));
  EXPECT_EQ(Count("Kv_CC"), 2);
}

TEST_F(TableLoader, AFileOrTableIsRefusedAsAWhole) {
  for (const auto& table :
       Parts("NIMIC|qryContLinii|sys_parola|SYS_PAROLA|sqlite_sequence|sqlite_master")) {
    EXPECT_EQ(FailureOf([&] { Load(table, "COD\n1\n"); }), kItemNotFound) << table;
  }
  EXPECT_EQ(FailureOf([&] { Load("sys_parola", "SARE,PASI,AMPRENTA\na,1,b\n"); }), kItemNotFound);
  const std::vector<std::pair<const char*, long>> files = {
      {"COD,CULOARE\n1,2\n", kItemNotFound},
      {"COD,\n1,2\n", kItemNotFound},
      {"COD;TITLU\n1;2\n", kItemNotFound},
      {"rowid\n1\n", kItemNotFound},
      {"COD,TITLU,cod\n1,2,3\n", kValueNotAccepted},
      {"", kValueNotAccepted},
      {"\n\r\n", kValueNotAccepted},
      {"\"COD\n1\n", kTypeMismatch}};
  for (const auto& [csv, number] : files) {
    EXPECT_EQ(FailureOf([&, &text = csv] { Load("Kv_CC", text); }), number) << csv;
  }
  EXPECT_EQ(Load("Kv_CC", "COD,TITLU\n").rows, 0);
  EXPECT_EQ(Count("Kv_CC"), 0);
}

TEST_F(TableLoader, AColumnWithoutWhichThereIsNoRow) {
  EXPECT_EQ(Refused(Load("Kv_CC", "TITLU\nx\n")),
            (std::vector<std::string>{"2:Valoare neacceptata: COD: valoarea este obligatorie"}));
  // A whole key would be numbered by the engine if nobody asked.
  EXPECT_EQ(Refused(Load("kv_cote", "CONT,PROCENT\n4426,21\n")),
            (std::vector<std::string>{"2:Valoare neacceptata: COD: valoarea este obligatorie"}));
  EXPECT_EQ(Load("kv_cote", "COD,CONT\n,4426\n").refused.size(), 1U);
  EXPECT_EQ(Count("kv_cote"), 11);
}

TEST_F(TableLoader, NumbersOfAssetsComeFromTheFileOrTheTable) {
  EXPECT_EQ(Load("I_IMO", "NRCRT,COD\n40,A\n,B\n7,C\n,D\n").rows, 4);
  std::string numbers;
  for (Recordset row = connection_.OpenRecordset("SELECT NRCRT FROM I_IMO ORDER BY COD");
       !row.Eof(); row.MoveNext()) {
    numbers += row.Get(0).AsText() + " ";
  }
  EXPECT_EQ(numbers, "40 41 7 42 ");
  EXPECT_EQ(
      Refused(Load("I_IMO", "NRCRT\n40\n")),
      (std::vector<std::string>{"2:Valoare neacceptata: I_IMO.NRCRT: exista deja in tabela"}));
  EXPECT_EQ(Load("I_IMO", "COD\nE\n").rows, 1);
  EXPECT_EQ(Query("SELECT NRCRT FROM I_IMO WHERE COD = 'E'"), Value(43));
}

TEST_F(TableLoader, AbsentColumnsTakeTheDefaultAndEmptyCellsAreNull) {
  EXPECT_EQ(Load("I_IMO", "COD,VAL_CUMP\n1,\n").rows, 1);
  EXPECT_EQ(Query("SELECT VAL_CUMP FROM I_IMO"), Value());
  EXPECT_EQ(Query("SELECT VAL_RAMASA FROM I_IMO"), Value(0.0));
  EXPECT_EQ(Query("SELECT BLOCATA FROM I_IMO"), Value::YesNo(false));
  EXPECT_EQ(Query("SELECT DENUMIRE FROM I_IMO"), Value());
  EXPECT_EQ(Load("kv_Ter", "COD,NUME\n1,a\n").rows, 1);
  EXPECT_EQ(Load("kv_Ter", "COD,CT\n2,\n").rows, 1);
  EXPECT_EQ(Query("SELECT CT FROM kv_Ter WHERE COD = 1"), Value("RO"));
  EXPECT_EQ(Query("SELECT CT FROM kv_Ter WHERE COD = 2"), Value());
  // A quoted empty cell is a text only where that is asked for.
  EXPECT_EQ(Load("I_IMO", "COD,DENUMIRE,VAL_CUMP\n7,\"\",\"\"\n8,,\n", true).rows, 2);
  EXPECT_EQ(Query("SELECT DENUMIRE FROM I_IMO WHERE COD = '7'"), Value(""));
  EXPECT_EQ(Query("SELECT VAL_CUMP FROM I_IMO WHERE COD = '7'"), Value());
  EXPECT_EQ(Query("SELECT DENUMIRE FROM I_IMO WHERE COD = '8'"), Value());
  // A table without a key, and one with blanks in its name.
  EXPECT_EQ(Load("tmp_CC", "COD\nA\nA\n\"\"\n").rows, 3);
  EXPECT_EQ(Load("Terti - Asocieri CS", "ID_TertSucursala\n5\n").rows, 1);
}

TEST_F(TableLoader, AVeryLongCellIsToldInFewWords) {
  const std::string longCell(100000, '9');
  const LoadResult result = Load("I_IMO", "COD,COD_FURNIZOR,DATA_ACH\n1," + longCell + "x,\n2,,\"" +
                                              longCell + "\"\n\"" + longCell + "\",,\n");
  ASSERT_EQ(result.refused.size(), 3U);
  for (const RefusedRow& row : result.refused)
    EXPECT_LT(row.reason.size(), 200U) << row.reason.substr(0, 200);
  EXPECT_EQ(result.refused[2].reason, "Valoare neacceptata: COD: 100000 caractere, cel mult 20");
}

}  // namespace
}  // namespace tevra
