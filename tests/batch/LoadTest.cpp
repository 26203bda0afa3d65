// Rows of CSV files into tables: all or none, and who may.
#include <sstream>

#include "app/batch/Batch.h"
#include "platform/data/Recordset.h"
#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

namespace {

class LoadTest : public BatchTest {
 protected:
  long Count(const std::string& table) const {
    return company_.Open().QueryValue("SELECT COUNT(*) FROM " + table).AsLong();
  }
};

TEST_F(LoadTest, WritesTheRows) {
  const std::string csv = File("imo.csv",
                               "\xEF\xBB\xBF"
                               "COD,DENUMIRE,DATA_ACH,VAL_CUMP,BLOCATA\r\n"
                               "A1,\"Strung \"\"mic\"\", vechi\",31.12.2006,1234.56,-1\r\n"
                               "A2,Țeavă,,0.1,Nu\r\n");
  const Result result = RunAsAdmin({"load", csv, "i_imo"});
  EXPECT_EQ(result.code, kDone) << result.err;
  EXPECT_EQ(result.out, "2 randuri incarcate in I_IMO\n");
  Recordset row = company_.Open().OpenRecordset("SELECT * FROM I_IMO WHERE COD = 'A1'");
  EXPECT_EQ(row.Get("DENUMIRE"), Value("Strung \"mic\", vechi"));
  EXPECT_EQ(row.Get("DATA_ACH"), Value(DateTime(2006, 12, 31)));
  EXPECT_EQ(row.Get("VAL_CUMP"), Value(1234.56));
  EXPECT_EQ(row.Get("BLOCATA"), Value::YesNo(true));
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
  const std::string before = Content(company_.File());
  const Result result = RunAsAdmin({"load", csv, "I_IMO"});
  EXPECT_EQ(result.code, kRefused);
  EXPECT_EQ(result.out, "");
  std::istringstream lines(result.err);
  std::string line;
  for (const char* told :
       {"3: VAL_CUMP: Type mismatch: zece", "4: DATA_ACH: ", "5: DNFANI: ", "6: VAL_CUMP: ",
        "7: Valoare neacceptata: COD: ", "8: Valoare neacceptata: 2 celule"}) {
    std::getline(lines, line);
    EXPECT_EQ(line.rfind(csv + ", linia " + told, 0), 0U) << line;
  }
  std::getline(lines, line);
  EXPECT_EQ(line, "Nici un rand nu a fost incarcat !");
  EXPECT_EQ(Count("I_IMO"), 0);
  EXPECT_TRUE(Content(company_.File()) == before);
}

TEST_F(LoadTest, RefusesAFileOrTableAsAWhole) {
  const std::string good = File("bun.csv", "COD\n1\n");
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{"/nu/exista.csv", "I_IMO"}, "Fisierul \"/nu/exista.csv\" nu exista !\n"},
      {{Directory().string(), "I_IMO"}, "nu poate fi citit !\n"},
      {{good, "I_NUEXISTA"}, "Tabela I_NUEXISTA nu exista in Kelnar01.mdb !\n"},
      {{File("coloana.csv", "COD,CULOARE\n1,2\n"), "I_IMO"}, "CULOARE"},
      {{File("doua.csv", "COD,cod\n1,2\n"), "I_IMO"}, "doua.csv"},
      {{File("gol.csv", ""), "I_IMO"}, "gol.csv"}};
  for (const auto& [arguments, text] : cases) {
    ExpectRefused({"load", arguments[0], arguments[1]}, text);
  }
}

TEST_F(LoadTest, ObeysTheRightsOfTheUser) {
  company_.Open().Execute(
      "INSERT INTO UTILIZATORI (NUME, PAROLA, TIP) VALUES ('unu', '1', 1), ('doi', '1', 2)");
  const std::string users = File("u.csv", "NUME,PAROLA,TIP\nAna,1,0\n");
  const std::string coefficients = File("c.csv", "coef1\n1.5\n");
  const std::string assets = File("i.csv", "COD\n1\n");
  const struct {
    const char* user;
    std::string file;
    const char* table;
    bool allowed;
  } kCases[] = {{"doi", users, "UTILIZATORI", false},
                {"unu", users, "utilizatori", false},
                {"doi", coefficients, "i_coefad", false},
                {"unu", coefficients, "I_COEFAD", true},
                {"doi", File("p.csv", "CODDeviza\nEUR\n"), "kv_par", false},
                {"doi", File("n.csv", "DENUMIRE\nX\n"), "kv_info", false},
                {"doi", assets, "I_IMO", true},
                {"admin", users, "UTILIZATORI", true}};
  for (const auto& c : kCases) {
    const Result result = Run({"--user", c.user, "load", c.file, c.table}, "1\n");
    EXPECT_EQ(result.code, c.allowed ? kDone : kRefused) << c.user << ' ' << c.table << result.err;
    const bool told = result.err.find("nu are dreptul sa modifice tabela") != std::string::npos;
    EXPECT_EQ(told, !c.allowed) << result.err;
  }
}

}  // namespace

}  // namespace tevra::batch::test
