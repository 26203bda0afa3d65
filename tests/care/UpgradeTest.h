// A company that an older build made, and the structure that it shall get.
#pragma once

#include "care/Upgrade.h"
#include "session/Login.h"
#include "tests/care/CareTest.h"

namespace tevra::test {

inline const TableDef* Find(const std::vector<TableDef>& tables, const std::string& name) {
  for (const TableDef& table : tables) {
    if (table.name == name) return &table;
  }
  return nullptr;
}

class UpgradeTest : public CareTest {
 protected:
  UpgradeTest() {
    Execute("INSERT INTO Kv_Linii (NDI, NRLINIE, CONT, DEBIT) VALUES (1, 1, '2131', 10.5)");
    Execute("INSERT INTO Kv_Linii (NDI, NRLINIE, CONT, CREDIT) VALUES (1, 2, '404', 10.5)");
    Age();
  }
  void Age() const { Execute("UPDATE kv_info SET VERSIUNE = 0"); }
  UpgradeResult Upgrade() const { return UpgradeStructure(SessionCompany(), false); }
  std::vector<TableDef> Tables() const { return Catalogue(company_.Open()).Tables(); }
  std::vector<TableDef> Template() const {
    return Catalogue(Connection("Data Source=" + (Folder() / "Kelnar.mdb").string() +
                                ";Mode=Read;PWD=" + kFilePassword))
        .Tables();
  }

  // The file has all that the template has; its fields may stand at other places.
  void ExpectTemplatesStructure() const {
    const auto tables = Tables();
    for (const TableDef& wanted : Template()) {
      if (wanted.system) continue;
      const TableDef* table = Find(tables, wanted.name);
      ASSERT_TRUE(table) << wanted.name;
      for (const FieldDef& field : wanted.fields) {
        const FieldDef* own = table->Find(field.name);
        ASSERT_TRUE(own) << wanted.name << "." << field.name;
        EXPECT_TRUE(*own == field) << wanted.name << "." << field.name;
      }
      EXPECT_TRUE(wanted.indexes == table->indexes) << wanted.name;
    }
    EXPECT_EQ(Catalogue(company_.Open()).Queries().size(), 7U);
    EXPECT_FALSE(StructuraDiferita());
  }
  std::string Row(const std::string& fields, const std::string& table) const {
    return company_.Rows("SELECT " + fields + " FROM " + table);
  }
};

}  // namespace tevra::test
