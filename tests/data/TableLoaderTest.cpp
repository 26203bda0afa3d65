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
  const struct {
    const char* field;
    const char* cell;
    Value value;
  } cases[] = {
      {"COD_FURNIZOR", "2147483647", 2147483647},
      {"COD_FURNIZOR", "-2147483648", std::int64_t{-2147483648}},
      {"COD_FURNIZOR", " 7 ", 7},
      {"COD_FURNIZOR", "5.0", 5},
      {"COD_FURNIZOR", "", Value()},
      {"COD_FURNIZOR", "\"12\"", 12},
      {"DNFANI", "-32768", -32768},
      {"VAL_CUMP", "1234.56", 1234.56},
      {"VAL_CUMP", "-0.01", -0.01},
      {"VAL_CUMP", "0.1", 0.1},
      {"VAL_CUMP", "1e3", 1000.0},
      {"VAL_CUMP", "12", 12.0},
      {"VAL_CUMP", "", Value()},
      {"DATA_ACH", "2006-12-31", DateTime(2006, 12, 31)},
      {"DATA_ACH", "31.12.2006", DateTime(2006, 12, 31)},
      {"DATA_ACH", "2006-02-01", DateTime(2006, 2, 1)},
      {"DATA_ACH", "01.02.2006", DateTime(2006, 2, 1)},
      {"DATA_ACH", "2006-12-31 10:20:30", DateTime(2006, 12, 31, 10, 20, 30)},
      {"DATA_ACH", "29.02.2024", DateTime(2024, 2, 29)},
      {"DATA_ACH", "", Value()},
      {"BLOCATA", "-1", Value::YesNo(true)},
      {"BLOCATA", "1", Value::YesNo(true)},
      {"BLOCATA", "da", Value::YesNo(true)},
      {"BLOCATA", "TRUE", Value::YesNo(true)},
      {"BLOCATA", "0", Value::YesNo(false)},
      {"BLOCATA", "Nu", Value::YesNo(false)},
      {"BLOCATA", "False", Value::YesNo(false)},
      {"BLOCATA", "", Value::YesNo(false)},
      {"DENUMIRE", " doua blancuri  ", " doua blancuri  "},
      {"DENUMIRE", "\"a \"\"b\"\", c\"", "a \"b\", c"},
      {"DENUMIRE", "\"x\r\ny\"", "x\r\ny"},
      {"DENUMIRE", "O'Neil; DROP TABLE I_IMO", "O'Neil; DROP TABLE I_IMO"},
      {"DENUMIRE", "1.50", "1.50"},
      {"DENUMIRE", "", Value()},
      {"DENUMIRE", "\"\"", Value()},
      {"COD",
       "\xC8\x99"
       "2345678901234567890",
       "\xC8\x99"
       "2345678901234567890"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.field) + " " + c.cell);
    connection_.Execute("DELETE FROM I_IMO");
    const LoadResult result =
        Load("I_IMO", std::string("DOCUMENT,") + c.field + "\nd," + c.cell + "\n");
    EXPECT_EQ(result.rows, 1);
    EXPECT_EQ(Refused(result), std::vector<std::string>());
    EXPECT_EQ(Query(std::string("SELECT ") + c.field + " FROM I_IMO"), c.value);
  }
}

TEST_F(TableLoader, ValuesThatAreRefusedNameTheirFieldOnce) {
  const struct {
    const char* field;
    const char* cell;
    const char* reason;
  } cases[] = {
      {"COD_FURNIZOR", "2147483648", "COD_FURNIZOR: Overflow"},
      {"COD_FURNIZOR", "2.5", "COD_FURNIZOR: Type mismatch: 2.5"},
      {"COD_FURNIZOR", "sapte", "COD_FURNIZOR: Type mismatch: sapte"},
      {"COD_FURNIZOR", "0x10", "COD_FURNIZOR: Type mismatch: 0x10"},
      {"COD_FURNIZOR", " ", "COD_FURNIZOR: Type mismatch"},
      {"DNFANI", "32768", "DNFANI: Overflow"},
      {"VAL_CUMP", "\"1,5\"", "VAL_CUMP: Type mismatch: 1,5"},
      {"VAL_CUMP", "\"1.234,56\"", "VAL_CUMP: Type mismatch: 1.234,56"},
      {"VAL_CUMP", "1 000", "VAL_CUMP: Type mismatch: 1 000"},
      {"VAL_CUMP", "nan", "VAL_CUMP: Type mismatch: nan"},
      {"VAL_CUMP", "inf", "VAL_CUMP: Type mismatch: inf"},
      {"VAL_CUMP", "1e999", "VAL_CUMP: Overflow: 1e999"},
      {"DATA_ACH", "31.02.2006", "DATA_ACH: Type mismatch: 31.02.2006"},
      {"DATA_ACH", "2006-02-30", "DATA_ACH: Type mismatch: 2006-02-30"},
      {"DATA_ACH", "12/31/2006", "DATA_ACH: Type mismatch: 12/31/2006"},
      {"DATA_ACH", "38000", "DATA_ACH: Type mismatch: 38000"},
      {"BLOCATA", "2", "BLOCATA: Type mismatch: 2"},
      {"BLOCATA", "0.5", "BLOCATA: Type mismatch: 0.5"},
      {"BLOCATA", "x", "BLOCATA: Type mismatch: x"},
      {"COD", "123456789012345678901", "Value not accepted: COD: 21 characters, at most 20"},
      {"DENUMIRE", "a\xFF", "Value not accepted: DENUMIRE: not a text"},
      {"DENUMIRE", "\xC8", "Value not accepted: DENUMIRE: not a text"},
  };
  for (const auto& c : cases) {
    const LoadResult result =
        Load("I_IMO", std::string("DOCUMENT,") + c.field + "\nd," + c.cell + "\n");
    EXPECT_EQ(result.rows, 0);
    ASSERT_EQ(result.refused.size(), 1U) << c.field << " " << c.cell;
    EXPECT_EQ(result.refused[0].line, 2);
    const std::string& reason = result.refused[0].reason;
    EXPECT_EQ(reason.rfind(c.reason, 0), 0U) << reason;
    EXPECT_EQ(reason.find(c.field), reason.rfind(c.field)) << reason;
  }
  EXPECT_EQ(Count("I_IMO"), 0);
}

TEST_F(TableLoader, BytesHoldPercentages) {
  EXPECT_EQ(Load("Kv_Linii", "NDI,NRLINIE,COTATVA\n1,1,255\n1,2,0\n").rows, 2);
  EXPECT_EQ(Refused(Load("Kv_Linii", "NDI,NRLINIE,COTATVA\n2,1,256\n2,2,-1\n2,3,21\n")).size(), 2U);
  EXPECT_EQ(Count("Kv_Linii"), 2);
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
      "4:Value not accepted: 1 cells under 2 columns",
      "6:Value not accepted: 3 cells under 2 columns",
      "7:Value not accepted: Kv_CC.COD: already in the table",
      "8:Type mismatch: text behind a closed quote",
      "10:Value not accepted: Kv_CC.COD: already in the table",
      "11:Value not accepted: COD: a value is required",
      "12:Type mismatch: a quote is not closed",
  };
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
  const struct {
    const char* table;
    const char* csv;
    long number;
  } cases[] = {
      {"NIMIC", "COD\n1\n", kItemNotFound},
      {"qryContLinii", "CONT\n1\n", kItemNotFound},
      {"sys_parola", "SARE\n1\n", kItemNotFound},
      {"SYS_PAROLA", "SARE\n1\n", kItemNotFound},
      {"sqlite_sequence", "name\n1\n", kItemNotFound},
      {"sqlite_master", "name\n1\n", kItemNotFound},
      {"Kv_CC", "COD,CULOARE\n1,2\n", kItemNotFound},
      {"Kv_CC", "COD,\n1,2\n", kItemNotFound},
      {"Kv_CC", "COD;TITLU\n1;2\n", kItemNotFound},
      {"Kv_CC", "rowid\n1\n", kItemNotFound},
      {"Kv_CC", "COD,TITLU,cod\n1,2,3\n", kValueNotAccepted},
      {"Kv_CC", "", kValueNotAccepted},
      {"Kv_CC", "\n\r\n", kValueNotAccepted},
      {"Kv_CC", "\"COD\n1\n", kTypeMismatch},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FailureOf([&] { Load(c.table, c.csv); }), c.number) << c.table << " " << c.csv;
  }
  EXPECT_EQ(Load("Kv_CC", "COD,TITLU\n").rows, 0);
  EXPECT_EQ(Count("Kv_CC"), 0);
}

TEST_F(TableLoader, AColumnWithoutWhichThereIsNoRow) {
  EXPECT_EQ(Refused(Load("Kv_CC", "TITLU\nx\n")),
            (std::vector<std::string>{"2:Value not accepted: COD: a value is required"}));
  // A whole key would be numbered by the engine if nobody asked.
  EXPECT_EQ(Refused(Load("kv_cote", "CONT,PROCENT\n4426,21\n")),
            (std::vector<std::string>{"2:Value not accepted: COD: a value is required"}));
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
  EXPECT_EQ(Refused(Load("I_IMO", "NRCRT\n40\n")),
            (std::vector<std::string>{"2:Value not accepted: I_IMO.NRCRT: already in the table"}));
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
}

TEST_F(TableLoader, AQuotedEmptyCellIsATextOnlyWhenAskedFor) {
  EXPECT_EQ(Load("I_IMO", "COD,DENUMIRE,VAL_CUMP\n1,\"\",\"\"\n2,,\n", true).rows, 2);
  EXPECT_EQ(Query("SELECT DENUMIRE FROM I_IMO WHERE COD = '1'"), Value(""));
  EXPECT_EQ(Query("SELECT VAL_CUMP FROM I_IMO WHERE COD = '1'"), Value());
  EXPECT_EQ(Query("SELECT DENUMIRE FROM I_IMO WHERE COD = '2'"), Value());
}

TEST_F(TableLoader, TablesWithoutAKeyAndWithBlanksInTheName) {
  EXPECT_EQ(Load("tmp_CC", "COD\nA\nA\n\"\"\n").rows, 3);
  EXPECT_EQ(
      Load("Terti - Asocieri CS", "ID_TertSucursala,ID_TertCentru,CodSucursala\n5,7,02\n").rows, 1);
  EXPECT_EQ(Query("SELECT CodSucursala FROM [Terti - Asocieri CS] WHERE ID_TertSucursala = 5"),
            Value("02"));
}

TEST_F(TableLoader, AVeryLongCellIsToldInFewWords) {
  const std::string longCell(100000, '9');
  const LoadResult result = Load("I_IMO", "COD,COD_FURNIZOR,DATA_ACH\n1," + longCell + "x,\n2,,\"" +
                                              longCell + "\"\n\"" + longCell + "\",,\n");
  ASSERT_EQ(result.refused.size(), 3U);
  for (const RefusedRow& row : result.refused)
    EXPECT_LT(row.reason.size(), 200U) << row.reason.substr(0, 200);
  EXPECT_EQ(result.refused[2].reason, "Value not accepted: COD: 100000 characters, at most 20");
}

}  // namespace
}  // namespace tevra
