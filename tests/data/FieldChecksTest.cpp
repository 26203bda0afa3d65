// What the checks of the fields accept and refuse: the same as those of files made earlier, value
// by value.
#include <random>

#include "tests/data/DataTest.h"

namespace tevra {
namespace {

// The checks as earlier versions wrote them; files with them are in use.
std::string EarlierCheck(const FieldDef& field) {
  const auto whole = [](const char* least, const char* greatest) {
    return std::string("typeof(x) IN ('integer', 'null') AND x BETWEEN ") + least + " AND " +
           greatest;
  };
  switch (field.type) {
    case FieldType::YesNo:
      return "x IN (-1, 0)";
    case FieldType::Byte:
      return whole("0", "255");
    case FieldType::Integer:
      return whole("-32768", "32767");
    case FieldType::Long:
      return whole("-2147483648", "2147483647");
    case FieldType::Double:
      return "typeof(x) IN ('real', 'null')";
    case FieldType::DateTime:
      return "x IS strftime('%Y-%m-%d %H:%M:%S', x, '+0 days')";
    case FieldType::Text:
      return "typeof(x) IN ('text', 'null') AND length(x) <= " + std::to_string(field.size) +
             (field.allowZeroLength ? "" : " AND \"x\" <> ''");
  }
  return {};
}

class FieldChecksTest : public DataTest {
 protected:
  void SetUp() override {
    DataTest::SetUp();
    sqlite3_open(":memory:", &db_);
  }
  void TearDown() override {
    sqlite3_close(db_);
    DataTest::TearDown();
  }

  // Two tables of one field: with the check of today, and with the earlier one.
  void Begin(const FieldDef& field) {
    const std::string collation = field.type == FieldType::Text ? " COLLATE NOCASE" : "";
    Run("DROP TABLE IF EXISTS T_Nou; DROP TABLE IF EXISTS T_Vechi");
    Run(CreateTableSql({"T_Nou", false, {field}, {}}));
    Run("CREATE TABLE T_Vechi (x " + DeclaredType(field) + collation + " CHECK (" +
        EarlierCheck(field) + "))");
  }

  void Run(const std::string& sql) {
    char* error = nullptr;
    sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &error);
    EXPECT_EQ(nullptr, error) << error << " in " << sql;
    sqlite3_free(error);
  }

  bool Accepts(const char* table, const std::string& literal) {
    const std::string sql = std::string("INSERT INTO ") + table + " VALUES (" + literal + ")";
    return sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
  }

  // Whether a value is accepted, by both.
  bool Accepted(const std::string& literal) {
    const bool accepted = Accepts("T_Nou", literal);
    EXPECT_EQ(Accepts("T_Vechi", literal), accepted) << literal;
    return accepted;
  }

  sqlite3* db_ = nullptr;
};

TEST_F(FieldChecksTest, ValuesOfEveryKind) {
  std::vector<std::string> values = Parts(
      "NULL|0|-1|1|255|256|-32768|-32769|32767|32768|2147483647|2147483648|-2147483648|"
      "-2147483649|9223372036854775807|1.0|1.5|-0.0|1e300|9e999|-9e999|'1'|' 1 '|'1.5'|"
      "'1e2'|'0x10'|''|' '|'abc'|'ABCDE'|'abcdef'|'ăîșțâ'|'ăîșțâz'|x''|x'31'|x'616263'|"
      "'2026-01-31 00:00:00'|2460000.5|TRUE");
  values.emplace_back("'a' || char(0) || 'bcdefgh'");
  FieldDef filled = Text("x", 5);
  filled.allowZeroLength = false;
  int accepted = 0;
  for (const FieldDef& field :
       {Field("x", FieldType::YesNo), Field("x", FieldType::Byte), Field("x", FieldType::Integer),
        Field("x", FieldType::Long), Field("x", FieldType::Double), Field("x", FieldType::DateTime),
        Text("x", 5), filled}) {
    SCOPED_TRACE(DeclaredType(field));
    Begin(field);
    for (const std::string& value : values) accepted += Accepted(value) ? 1 : 0;
  }
  EXPECT_GT(accepted, 80);
}

TEST_F(FieldChecksTest, Moments) {
  Begin(Field("x", FieldType::DateTime));
  for (const char* moment :
       {"2026-11-30 00:00:00", "2024-02-29 23:59:59", "2000-02-29 00:00:00", "0000-01-01 00:00:00",
        "9999-12-31 23:59:59", "-4712-01-01 00:00:00"}) {
    EXPECT_TRUE(Accepted("'" + std::string(moment) + "'")) << moment;
  }
  for (const std::string& other :
       Parts("2026-02-29 00:00:00|1900-02-29 00:00:00|2026-04-31 00:00:00|2026-00-10 00:00:00|"
             "2026-13-01 00:00:00|2026-01-00 00:00:00|2026-01-32 00:00:00|2026-01-01 24:00:00|"
             "2026-01-01 23:60:00|2026-01-01 23:59:60|2026-01-01|2026-01-01 00:00|"
             "2026-01-01 00:00:00.0|2026-01-01T00:00:00|2026-01-01 00:00:00 | 2026-01-01 00:00:00|"
             "2026-01-01 00:00:00Z|2026-01-01 00:00:00+00:00|26-01-01 00:00:00|now||"
             "-0001-01-01 00:00:00|-0999-12-31 00:00:00|-999-12-31 00:00:00|10000-01-01 00:00:00|"
             "2460000.5|00:00:00|2026-1-1 00:00:00")) {
    EXPECT_FALSE(Accepted("'" + other + "'")) << other;
  }
}

// Texts that are nearly moments: each character may be another one, go or come twice.
TEST_F(FieldChecksTest, NearlyMoments) {
  Begin(Field("x", FieldType::DateTime));
  Run("BEGIN");
  std::mt19937 random(29);
  const auto below = [&](unsigned count) { return static_cast<int>(random() % count); };
  const std::string characters = "0123456789-: .+TZ/";
  int accepted = 0;
  for (int i = 0; i < 10000; ++i) {
    char text[40];
    std::snprintf(text, sizeof text, "%s%04d-%02d-%02d %02d:%02d:%02d", below(20) ? "" : "-",
                  below(2) ? 1996 + below(9) : below(10000), below(14), below(33), below(25),
                  below(61), below(61));
    std::string moment = text;
    const std::size_t at = random() % moment.size();
    const int change = below(8);
    if (change == 0) moment[at] = characters[random() % characters.size()];
    if (change == 1) moment.erase(at, 1);
    if (change == 2) moment.insert(at, 1, moment[at]);
    accepted += Accepted("'" + moment + "'") ? 1 : 0;
  }
  EXPECT_GT(accepted, 3000);
}

TEST_F(FieldChecksTest, AFileWithTheEarlierChecksGoesOnWorking) {
  Raw(file_,
      "CREATE TABLE T_V (\"N\" TEXT(3) COLLATE NOCASE CHECK (typeof(\"N\") IN ('text', 'null') AND "
      "length(\"N\") <= 3 AND \"N\" <> ''), \"D\" DATETIME CHECK (\"D\" IS strftime('%Y-%m-%d "
      "%H:%M:%S', \"D\", '+0 days')), \"V\" DOUBLE CHECK (typeof(\"V\") IN ('real', 'null')));"
      "INSERT INTO T_V VALUES ('a', '2024-02-29 00:00:00', 1.5)");
  Connection connection = Open();
  Catalogue catalogue(connection);
  FieldDef name = Text("N", 3);
  name.allowZeroLength = false;
  const std::vector<FieldDef> fields = {name, Field("D", FieldType::DateTime),
                                        Field("V", FieldType::Double)};
  EXPECT_TRUE(catalogue.Table("T_V").fields == fields);
  const auto refusals = [&] {
    ExpectRefused(kValueNotAccepted, "N", [&] { connection.Execute("UPDATE T_V SET N = ''"); });
    ExpectRefused(kValueNotAccepted, "D",
                  [&] { connection.Execute("UPDATE T_V SET D = '2026-02-29 00:00:00'"); });
    ExpectRefused(kValueNotAccepted, "V", [&] { connection.Execute("UPDATE T_V SET V = 'x'"); });
  };
  refusals();
  catalogue.AlterField("T_V", Text("N", 5));  // the table is written anew, with the checks of today
  EXPECT_EQ("a|2024-02-29 00:00:00|1.5", Raw(file_, "SELECT N || '|' || D || '|' || V FROM T_V"));
  connection.Execute("UPDATE T_V SET N = ''");
  catalogue.AlterField("T_V", Text("N", 3));
  name.size = 4;
  connection.Execute("UPDATE T_V SET N = 'b'");
  catalogue.AlterField("T_V", name);
  refusals();
  EXPECT_FALSE(catalogue.Table("T_V").fields[0].allowZeroLength);
}

}  // namespace
}  // namespace tevra
