// The built template against expected_catalogue.txt, and what its columns promise.
#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "platform/data/Catalogue.h"
#include "platform/data/Recordset.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

struct ExpectedTable {
  std::string key;                  // "NDI,NRLINIE", "-" for none
  std::vector<std::string> fields;  // "COD Text(20)"
};

struct ExpectedCatalogue {
  std::map<std::string, ExpectedTable> tables;
  std::map<std::string, std::vector<std::string>> queries;
};

// Lines of the file: "TABLE key FIELD,FIELD", "TABLE.FIELD Type", "query NAME FIELD FIELD".
ExpectedCatalogue ReadExpected() {
  ExpectedCatalogue expected;
  std::ifstream file(TEVRA_EXPECTED_CATALOGUE);
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::string table;
    if (const auto key = line.find(" key "); key != std::string::npos) {
      table = line.substr(0, key);
      expected.tables[table].key = line.substr(key + 5);
    } else if (line.rfind("query ", 0) == 0) {
      std::istringstream words(line.substr(6));
      std::string name;
      words >> name;
      for (std::string field; words >> field;) expected.queries[name].push_back(field);
    } else {
      const auto dot = line.find('.');
      expected.tables.at(line.substr(0, dot)).fields.push_back(line.substr(dot + 1));
    }
  }
  return expected;
}

std::string Written(const FieldDef& field) {
  static const std::map<FieldType, std::string> names = {
      {FieldType::YesNo, "Yes/No"}, {FieldType::Byte, "Byte"},     {FieldType::Integer, "Integer"},
      {FieldType::Long, "Long"},    {FieldType::Double, "Double"}, {FieldType::DateTime, "Date"}};
  const auto found = names.find(field.type);
  return field.name + " " +
         (found != names.end() ? found->second : "Text(" + std::to_string(field.size) + ")");
}

std::vector<std::string> WrittenFields(const TableDef& table) {
  std::vector<std::string> fields;
  for (const FieldDef& field : table.fields) fields.push_back(Written(field));
  return fields;
}

// The fields of the key; one that may be Null with a question mark.
std::string KeyOf(const TableDef& table) {
  std::string key;
  for (const IndexDef& index : table.indexes) {
    if (!index.primary) continue;
    for (const std::string& field : index.fields) {
      key += (key.empty() ? "" : ",") + field + (table.Find(field)->required ? "" : "?");
    }
  }
  return key.empty() ? "-" : key;
}

std::string InBrackets(const std::string& name) {
  return name.find(' ') == std::string::npos ? name : "[" + name + "]";
}

class TemplateCatalogue : public ::testing::Test {
 protected:
  test::TestCompany company_;
  Connection connection_ = company_.Open();
  Catalogue catalogue_{connection_};
};

TEST_F(TemplateCatalogue, HasEveryFieldExpectedAndNoOther) {
  auto expected = ReadExpected().tables;
  ASSERT_EQ(expected.size(), 31U);
  for (const TableDef& table : catalogue_.Tables()) {
    if (table.system) continue;
    const std::string name = InBrackets(table.name);
    SCOPED_TRACE(name);
    const auto found = expected.find(name);
    if (found == expected.end()) {
      ADD_FAILURE() << "not expected";
      continue;
    }
    std::vector<std::string> fields = WrittenFields(table);
    // Rows of these move whole from one table to another, so their columns have an order.
    if (name != "Kv_Linii" && name.rfind("tmp_", 0) != 0) {
      std::sort(fields.begin(), fields.end());
      std::sort(found->second.fields.begin(), found->second.fields.end());
    }
    EXPECT_EQ(fields, found->second.fields);
    EXPECT_EQ(KeyOf(table), found->second.key);
    expected.erase(found);
  }
  for (const auto& [name, table] : expected) ADD_FAILURE() << name << " is missing";
}

TEST_F(TemplateCatalogue, ExchangeTablesHaveTheColumnsOfTheirOriginalsInOrder) {
  for (const auto& [copy, original] :
       std::map<std::string, std::string>{{"tmp_Ter", "kv_Ter"},
                                          {"tmp_PC", "kv_PC"},
                                          {"tmp_Linii", "Kv_Linii"},
                                          {"tmp_CC", "Kv_CC"},
                                          {"tmp_Jurnale", "KV_JUR"}}) {
    SCOPED_TRACE(copy);
    EXPECT_EQ(WrittenFields(catalogue_.Table(copy)), WrittenFields(catalogue_.Table(original)));
    EXPECT_NO_THROW(connection_.Execute("INSERT INTO " + copy + " SELECT * FROM " + original));
    // A file may bring a code twice or not at all; the merge must get to see it.
    const std::string sql = "INSERT INTO " + copy + " SELECT * FROM " + original + " LIMIT 1";
    EXPECT_NO_THROW(connection_.Execute(sql));
    const auto first = catalogue_.Table(copy).fields.front().name;
    EXPECT_NO_THROW(connection_.Execute("INSERT INTO " + copy + " (" + first + ") VALUES (NULL)"));
  }
}

// A million lines are neither sorted nor read whole for these.
TEST_F(TemplateCatalogue, LinesAreFoundByTheirIndexes) {
  const std::vector<std::pair<std::string, std::string>> statements = {
      {"SELECT * FROM Kv_Linii ORDER BY DATAINR DESC, NDI DESC, NRLINIE", "Kv_Linii.DATAINR"},
      {"SELECT * FROM Kv_Linii WHERE CONT = '2131' ORDER BY DATAINR DESC, NDI DESC, NRLINIE",
       "Kv_Linii.CONT"},
      {"SELECT * FROM Kv_Linii WHERE CONT = '2131' AND DATAINR >= '2026'", "Kv_Linii.CONT"},
      {"SELECT * FROM Kv_Linii WHERE TERT = 7 AND DATAINR >= '2026'", "Kv_Linii.TERT"},
      {"SELECT * FROM Kv_Linii WHERE DATAINR >= '2026'", "Kv_Linii.DATAINR"},
      {"SELECT MAX(NDI) FROM Kv_Linii", "autoindex_Kv_Linii"},
      {"SELECT MAX(NRLINIE) FROM Kv_Linii WHERE NDI = 5", "autoindex_Kv_Linii"},
      {"SELECT COUNT(*) FROM Kv_Linii WHERE DOC = 'IMO07'", "Kv_Linii.DOC"},
      {"DELETE FROM Kv_LINII WHERE DOC = 'IMO07'", "Kv_Linii.DOC"}};
  for (const auto& [statement, index] : statements) {
    std::string plan;
    for (Recordset steps = connection_.OpenRecordset("EXPLAIN QUERY PLAN " + statement);
         !steps.Eof(); steps.MoveNext()) {
      plan += steps.Get("detail").AsText() + "\n";
    }
    EXPECT_NE(plan.find(index), std::string::npos) << statement << ": " << plan;
    EXPECT_EQ(plan.find("TEMP B-TREE"), std::string::npos) << statement << ": " << plan;
  }
}

TEST_F(TemplateCatalogue, SavedQueriesAreThere) {
  const auto expected = ReadExpected().queries;
  ASSERT_EQ(expected.size(), 7U);
  std::vector<std::string> names;
  for (const QueryDef& query : catalogue_.Queries()) names.push_back(query.name);
  EXPECT_EQ(names.size(), expected.size());
  for (const auto& [name, fields] : expected) {
    SCOPED_TRACE(name);
    Recordset query = connection_.OpenRecordset("SELECT * FROM " + name);
    for (const std::string& field : fields) EXPECT_TRUE(query.FindField(field)) << field;
  }
}

TEST_F(TemplateCatalogue, SavedQueriesGiveARowForEachLineThatUsesTheValue) {
  connection_.Execute(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, JURNAL, DATAINR, CONT, CODBUG, TERT, CODOPER, COD, "
      "CURS, MARCA) VALUES "
      "(1, 1, 'OD', '2026-01-31 00:00:00', '6811', 'CC1', NULL, 8, 'LEI', 1, NULL), "
      "(1, 2, 'OD', '2026-01-31 00:00:00', '6811', NULL, NULL, NULL, 'lei', 1, 'M0'), "
      "(2, 1, 'JC', '2026-02-10 00:00:00', '404', 'CC1', 7, 1, 'EUR', 5.0871, 'M1'), "
      "(2, 2, 'JC', '2026-02-10 00:00:00', '4426', 'CC2', 7, 1, 'USD', 4.3558, NULL), "
      "(3, 1, NULL, '2026-12-31 00:00:00', '121', NULL, 0, 0, NULL, NULL, NULL), "
      "(3, 2, NULL, '2026-12-30 00:00:00', '121.01', NULL, NULL, NULL, '', 0, NULL), "
      "(4, 1, 'OD', '2026-03-31 00:00:00', '1021', NULL, NULL, NULL, 'LEI', 1, NULL), "
      "(4, 2, 'OD', '2026-03-31 00:00:00', NULL, NULL, NULL, NULL, 'LEI', 1, NULL)");
  const struct {
    const char* sql;
    std::vector<std::string> values;
  } cases[] = {
      {"SELECT CONT FROM qryContLinii ORDER BY CONT",
       {"1021", "121", "121.01", "404", "4426", "6811", "6811"}},
      {"SELECT JURNAL FROM qryJurnalLinii ORDER BY JURNAL", {"JC", "JC", "OD", "OD", "OD", "OD"}},
      {"SELECT CODBUG FROM qryCentreCostLinii ORDER BY CODBUG", {"CC1", "CC1", "CC2"}},
      {"SELECT TERT FROM qryTertiLinii ORDER BY TERT", {"0", "7", "7"}},
      {"SELECT CODOPER FROM qryCodOperLinii ORDER BY CODOPER", {"0", "1", "1", "8"}},
      {"SELECT DATAINR FROM qryInchidere ORDER BY DATAINR", {"30.12.2026", "31.12.2026"}},
      {"SELECT CURS FROM qryLiniiValuta ORDER BY CURS", {"4,3558", "5,0871"}},
      {"SELECT TERT FROM qryLiniiValuta ORDER BY CURS", {"7", "7"}},
      {"SELECT MARCA FROM qryLiniiValuta ORDER BY CURS", {"", "M1"}}};
  for (const auto& c : cases) {
    std::vector<std::string> values;
    for (Recordset rows = connection_.OpenRecordset(c.sql); !rows.Eof(); rows.MoveNext()) {
      values.push_back(rows.Get(0).TextOrEmpty());
    }
    EXPECT_EQ(values, c.values) << c.sql;
  }
}

TEST_F(TemplateCatalogue, ANewRowHasZerosForNumbersAndNullForTextsCodesAndDates) {
  const std::vector<std::string> codes = {"COD_FURNIZOR", "COD_TVA_CUMP", "COD_TVA_VANZ",
                                          "ID_Client", "COD_CLIENT"};
  for (const std::string table : {"I_IMO", "I_INV"}) {
    Recordset row = connection_.OpenRecordset("SELECT * FROM " + table);
    row.AddNew();
    row.Set("COD", "1");
    row.Update();
    row = connection_.OpenRecordset("SELECT * FROM " + table);
    for (std::size_t i = 0; i < row.FieldCount(); ++i) {
      const FieldDef& field = row.Field(i).def;
      if (field.name == "NRCRT" || field.name == "COD") continue;
      SCOPED_TRACE(table + "." + field.name);
      const bool code = std::find(codes.begin(), codes.end(), field.name) != codes.end();
      if (code || field.type == FieldType::Text || field.type == FieldType::DateTime) {
        EXPECT_TRUE(row.Get(i).IsNull());
      } else {
        ASSERT_FALSE(row.Get(i).IsNull());
        EXPECT_EQ(row.Get(i).AsDouble(), 0);
      }
    }
  }
}

TEST_F(TemplateCatalogue, KeysAreUniqueWithoutCase) {
  for (const char* sql :
       {"INSERT INTO kv_PC (CONT) VALUES ('121')", "INSERT INTO KV_JUR (COD) VALUES ('jc')",
        "INSERT INTO UTILIZATORI (NUME) VALUES ('ADMIN')",
        "INSERT INTO I_VALIM (DATVALIM, VALIM) VALUES ('2026-01-01 00:00:00', 1)"}) {
    EXPECT_EQ(FailureOf([&] { connection_.Execute(sql); }), kValueNotAccepted) << sql;
  }
  // Two rates of one day are no mistake of the file's, nor are two objects of one inventory number.
  EXPECT_NO_THROW(connection_.Execute("INSERT INTO kv_val2 SELECT * FROM kv_val2"));
  EXPECT_NO_THROW(connection_.Execute("INSERT INTO I_IMO (COD) VALUES ('1'), ('1')"));
}

}  // namespace
}  // namespace tevra
