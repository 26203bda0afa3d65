// A company file with a few small tables, in a folder that goes with the test.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "platform/data/Catalogue.h"
#include "platform/data/CompanyFile.h"
#include "platform/data/Connection.h"
#include "platform/data/Recordset.h"
#include "tests/system/Folder.h"
#include "tests/text/Expect.h"

namespace tevra {

/// `call` is refused with this number, in words that contain `part`.
template <typename Call>
void ExpectRefused(long number, const std::string& part, Call call) {
  const Refusal refusal = RefusalOf(call);
  EXPECT_EQ(number, refusal.number) << refusal.text;
  EXPECT_NE(std::string::npos, refusal.text.find(part)) << refusal.text << "\nlacks: " << part;
}

class DataTest : public FolderTest {
 protected:
  static FieldDef Field(const std::string& name, FieldType type,
                        const std::string& byDefault = "") {
    return {name, type, SizeOf(type), false, true, false, byDefault};
  }
  static FieldDef Text(const std::string& name, int size) {
    return {name, FieldType::Text, size, false, true, false, ""};
  }
  static FieldDef Counter(const std::string& name) {
    return {name, FieldType::Long, 4, true, true, true, ""};
  }

  static IndexDef Key(std::vector<std::string> fields) {
    return {"PrimaryKey", std::move(fields), true, true};
  }

  // Statements behind the back of the program, as another tool would run them; the first field of
  // the first row.
  static std::string Raw(const std::filesystem::path& file, const std::string& sql) {
    sqlite3* db = nullptr;
    sqlite3_open(file.c_str(), &db);
    std::string answer;
    const auto keep = [](void* to, int count, char** values, char**) {
      auto& kept = *static_cast<std::string*>(to);
      if (count > 0 && kept.empty() && values[0]) kept = values[0];
      return 0;
    };
    char* error = nullptr;
    sqlite3_exec(db, sql.c_str(), keep, &answer, &error);
    EXPECT_EQ(nullptr, error) << error << " in " << sql;
    sqlite3_free(error);
    sqlite3_close(db);
    return answer;
  }

  std::filesystem::path NewFile(const std::string& name) const {
    const auto file = folder_ / name;
    Raw(file, "PRAGMA application_id=" + std::to_string(kApplicationId) +
                  "; CREATE TABLE sys_x (X); DROP TABLE sys_x");
    return file;
  }

  void SetUp() override {
    FolderTest::SetUp();
    file_ = NewFile("Kelnar01.mdb");
  }

  static std::string StringOf(const std::filesystem::path& file, const std::string& more = "") {
    return "Provider=X;Data Source=" + file.string() + ";Lock Timeout=20;" + more;
  }

  Connection Open(const std::string& more = "") const { return Connection(StringOf(file_, more)); }

  // Assets with their class and place, as in the lists: T_IMO has a number of its own, T_LOC no
  // key.
  void MakeAssets(Connection connection) const {
    Transaction transaction(connection);
    Catalogue catalogue(connection);
    FieldDef sold = Field("IESIRE", FieldType::YesNo, "0");
    sold.required = true;
    catalogue.CreateTable(
        {"T_IMO",
         false,
         {Counter("NRCRT"), Text("COD", 20), Text("DENUMIRE", 50), Text("COD_GR", 11),
          Text("COD_LOC", 11), Field("VAL", FieldType::Double, "0"),
          Field("DATA_PF", FieldType::DateTime), sold, Field("DRF", FieldType::Integer, "12")},
         {Key({"NRCRT"}), {"COD", {"COD"}, false, false}}});
    catalogue.CreateTable(
        {"T_GR", false, {Text("COD_GR", 11), Field("DURATA", FieldType::Byte)}, {Key({"COD_GR"})}});
    catalogue.CreateTable({"T_LOC", false, {Text("COD", 11), Text("TITLU", 40)}, {}});
    connection.Execute("INSERT INTO T_GR VALUES ('2.1', 8), ('3.2', 4)");
    connection.Execute("INSERT INTO T_LOC VALUES ('A', 'Atelier'), ('B', 'Birou')");
    const std::string insert =
        "INSERT INTO T_IMO (COD, DENUMIRE, COD_GR, COD_LOC, VAL, DATA_PF) VALUES (?, ?, ?, ?, ?, "
        "?)";
    connection.Execute(insert, {"100", "Strung", "2.1", "A", 1500.5, DateTime(2005, 7, 1)});
    connection.Execute(insert, {"101", "Birou", "3.2", "B", 200.0, DateTime(2006, 2, 28)});
    connection.Execute(insert, {"102", "freza", "2.1", Value(), 99.25, Value()});
    transaction.Commit();
  }

  std::filesystem::path file_;
};

/// With the assets of MakeAssets, and a connection to them.
class AssetsTest : public DataTest {
 protected:
  void SetUp() override {
    DataTest::SetUp();
    connection_ = Open();
    MakeAssets(connection_);
  }

  /// Sets fields of the current row and writes it.
  static void Save(Recordset& rows, const std::vector<std::pair<std::string, Value>>& fields) {
    for (const auto& [field, value] : fields) rows.Set(field, value);
    rows.Update();
  }

  Connection connection_;
};

/// For static recordsets, and for those that are fetched as they are looked at: here at once, as a
/// screen does.
class RowsTest : public AssetsTest, public ::testing::WithParamInterface<bool> {
 protected:
  Recordset Rows(const std::string& sql, const Values& params = {}) {
    if (!GetParam()) return connection_.OpenRecordset(sql, params);
    Recordset rows = connection_.OpenKeyset(sql, params);
    if (!rows.Eof()) (void)rows.Get(0);
    return rows;
  }
};

inline std::string KindOf(const ::testing::TestParamInfo<bool>& info) {
  return info.param ? "Keyset" : "Static";
}

}  // namespace tevra
