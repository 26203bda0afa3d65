// Rows of CSV files into tables: all or none, and who may.
#include <sstream>

#include "app/batch/Batch.h"
#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

namespace {

class LoadTest : public BatchTest {
 protected:
  long Count(const std::string& table) const {
    return company_.Open().QueryValue("SELECT COUNT(*) FROM " + table).AsLong();
  }
};

TEST_F(LoadTest, WritesRowsOfEveryType) {
  const std::string csv =
      File("imo.csv",
           "\xEF\xBB\xBF"
           "COD,DENUMIRE,DATA_ACH,DATA_PF,VAL_CUMP,CURS,DNFANI,BLOCATA,CONT\r\n"
           "A1,\"Strung \"\"mic\"\", vechi\",2006-12-31,31.12.2006,1234.56,,5,-1,2131\r\n"
           "A2,Țeavă,,,0.1,2,,Nu,\r\n");
  const Result result = RunAsAdmin({"load", csv, "i_imo"});
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_EQ(result.out, "2 randuri incarcate in I_IMO\n");
  Connection connection = company_.Open();
  const auto field = [&](const std::string& name, const char* code) {
    return connection.QueryValue("SELECT " + name + " FROM I_IMO WHERE COD = ?", {code});
  };
  EXPECT_EQ(field("DENUMIRE", "A1"), Value("Strung \"mic\", vechi"));
  EXPECT_EQ(field("DATA_ACH", "A1"), Value(DateTime(2006, 12, 31)));
  EXPECT_EQ(field("DATA_PF", "A1"), Value(DateTime(2006, 12, 31)));
  EXPECT_EQ(field("VAL_CUMP", "A1"), Value(1234.56));
  EXPECT_EQ(field("BLOCATA", "A1"), Value::YesNo(true));
  EXPECT_EQ(field("CURS", "A1"), Value()) << "an empty cell is Null";
  EXPECT_EQ(field("VAL_RAMASA", "A1"), Value(0.0)) << "an absent column takes the default";
  EXPECT_EQ(field("VAL_CUMP", "A2"), Value(0.1));
  EXPECT_EQ(field("CONT", "A2"), Value());
}

TEST_F(LoadTest, ReadsTheStandardInputBehindThePassword) {
  const Result result = Run({"--user", "admin", "load", "-", "I_IMO"}, "1\nCOD,VAL_CUMP\nX,5\n");
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_EQ(Count("I_IMO"), 1);
}

TEST_F(LoadTest, TellsEveryRefusedRowAndLoadsNone) {
  const std::string csv = File("imo.csv",
                               "COD,VAL_CUMP,DATA_ACH,DNFANI\n"
                               "1,10,31.12.2006,5\n"
                               "2,zece,31.12.2006,5\n"
                               "3,10,31.02.2006,5\n"
                               "4,10,,40000\n"
                               "5,\"1.234,56\",,5\n"
                               "123456789012345678901,10,,5\n"
                               "7,10\n"
                               "8,10,,5\n");
  const std::string before = ReadFile(company_.File());
  const Result result = RunAsAdmin({"load", csv, "I_IMO"});
  EXPECT_EQ(result.code, kRefused);
  EXPECT_EQ(result.out, "");
  const struct {
    int line;
    std::string reason;
  } kRefusedRows[] = {{3, "zece"},     {4, "31.02.2006"}, {5, "DNFANI"},
                      {6, "1.234,56"}, {7, "COD"},        {8, "2 cells"}};
  std::istringstream lines(result.err);
  std::string line;
  for (const auto& row : kRefusedRows) {
    ASSERT_TRUE(std::getline(lines, line)) << result.err;
    EXPECT_EQ(line.rfind(csv + ", linia " + std::to_string(row.line) + ": ", 0), 0U) << line;
    EXPECT_NE(line.find(row.reason, csv.size()), std::string::npos) << line;
  }
  std::getline(lines, line);
  EXPECT_EQ(line, "Nici un rand nu a fost incarcat !");
  EXPECT_EQ(Count("I_IMO"), 0);
  EXPECT_TRUE(ReadFile(company_.File()) == before);
}

TEST_F(LoadTest, RefusesAFileOrTableAsAWhole) {
  const std::string good = File("bun.csv", "COD\n1\n");
  const struct {
    std::vector<std::string> arguments;
    std::string text;
  } kCases[] = {
      {{"/nu/exista.csv", "I_IMO"}, "Fisierul \"/nu/exista.csv\" nu exista !\n"},
      {{Directory().string(), "I_IMO"}, "nu poate fi citit !\n"},
      {{good, "I_NUEXISTA"}, "Tabela I_NUEXISTA nu exista in Kelnar01.mdb !\n"},
      {{good, "sys_parola"}, "Tabela sys_parola nu exista in Kelnar01.mdb !\n"},
      {{good, "sqlite_master"}, "Tabela sqlite_master nu exista in Kelnar01.mdb !\n"},
      {{File("coloana.csv", "COD,CULOARE\n1,2\n"), "I_IMO"}, "CULOARE"},
      {{File("doua.csv", "COD,cod\n1,2\n"), "I_IMO"}, "doua.csv"},
      {{File("gol.csv", ""), "I_IMO"}, "gol.csv"},
  };
  for (const auto& c : kCases) {
    ExpectRefused({"load", c.arguments[0], c.arguments[1]}, c.text);
  }
}

TEST_F(LoadTest, ObeysTheRightsOfTheUser) {
  company_.Open().Execute("INSERT INTO UTILIZATORI (NUME, PAROLA, TIP) VALUES ('unu', '1', 1)");
  company_.Open().Execute("INSERT INTO UTILIZATORI (NUME, PAROLA, TIP) VALUES ('doi', '1', 2)");
  const std::string users = File("u.csv", "NUME,PAROLA,TIP\nAna,1,0\n");
  const std::string coefficients = File("c.csv", "coef1\n1.5\n");
  const std::string assets = File("i.csv", "COD\n1\n");
  const struct {
    const char* user;
    std::string file;
    const char* table;
    bool allowed;
  } kCases[] = {
      {"doi", users, "UTILIZATORI", false},
      {"unu", users, "utilizatori", false},
      {"doi", coefficients, "i_coefad", false},
      {"unu", coefficients, "I_COEFAD", true},
      {"doi", File("p.csv", "CODDeviza\nEUR\n"), "kv_par", false},
      {"doi", File("n.csv", "DENUMIRE\nX\n"), "kv_info", false},
      {"doi", assets, "I_IMO", true},
      {"admin", users, "UTILIZATORI", true},
  };
  for (const auto& c : kCases) {
    const Result result = Run({"--user", c.user, "load", c.file, c.table}, "1\n");
    EXPECT_EQ(result.code, c.allowed ? kDone : kRefused) << c.user << ' ' << c.table << result.err;
    const bool told = result.err.find("nu are dreptul sa modifice tabela") != std::string::npos;
    EXPECT_EQ(told, !c.allowed) << result.err;
  }
}

}  // namespace

}  // namespace tevra::batch::test
