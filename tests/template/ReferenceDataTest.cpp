// What a new company starts with: the rows of expected_rows.txt, the company's rows.
#include <fstream>

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

TEST_F(ReferenceData, RowsAreThereAndWhole) {
  std::ifstream file(TEVRA_EXPECTED_ROWS);
  int rows = 0;
  for (std::string line; std::getline(file, line);) {
    const std::size_t arrow = line.find(" => ");
    if (line.empty() || line[0] == '#') continue;
    EXPECT_EQ(Row(line.substr(0, arrow)), line.substr(arrow + 4)) << line;
    ++rows;
  }
  EXPECT_GT(rows, 50);
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
  const int year = connection_.QueryValue("SELECT DATAIN FROM kv_par").AsDateTime().Year();
  EXPECT_GE(year, 2024);
  const auto of = [](int which) {
    return "01.01." + std::to_string(which) + "|31.12." + std::to_string(which) + "|";
  };
  EXPECT_EQ(Row("SELECT DATAIN, DATASN, DATAIN1, DATASN1, DATAIC, DATASC FROM kv_par") + "|",
            of(year) + of(year + 1) + of(year));
  EXPECT_EQ(Row("SELECT VERSIUNE, DENUMIRE FROM kv_info"), std::to_string(kRevision) + "|-");
}

}  // namespace
}  // namespace tevra
