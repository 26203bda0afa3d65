// The commands of the reports over the sample company, each total against a statement of its own.

#include <map>

#include <gtest/gtest.h>

#include "platform/text/Strings.h"
#include "reports/DataEnv.h"
#include "tests/reports/Sample.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

const DateTime kFrom(2004, 3, 1);
const DateTime kTo(2007, 6, 30);

class DataEnvTest : public ::testing::Test {
 protected:
  DataEnvTest() { AddOddAssets(); }

  // Without a group, of a group in other letters, without amounts, bought on the period's two ends,
  // and twice the same.
  void AddOddAssets() {
    company_.AddAsset({{"COD", "u1"},
                       {"DATA_ACH", kFrom},
                       {"VAL_CUMP", 0.1},
                       {"VAL_CUMP_VAL", 0.2},
                       {"VAL_RAMASA", 0.1},
                       {"COTAL_LUNARA", 0.3}});
    company_.AddAsset({{"COD", "u2"},
                       {"DATA_ACH", kTo},
                       {"CONT", ""},
                       {"COD_LOC", "h1"},
                       {"COD_CC", "deb"},
                       {"VAL_CUMP", Value()},
                       {"VAL_CUMP_VAL", Value()},
                       {"VAL_RAMASA", Value()},
                       {"VAL_RAMASA_VAL", Value()}});
    for (int i = 0; i < 2; ++i) {
      company_.AddAsset({{"COD", "u3"},
                         {"DENUMIRE", "Scaun"},
                         {"DATA_ACH", kTo},
                         {"CONT", "2131"},
                         {"VAL_CUMP", 10.25},
                         {"VAL_CUMP_VAL", 2.5}});
    }
    company_.AddAsset({{"COD", "u4"},
                       {"CONT", "2131"},
                       {"BLOCATA", Value::YesNo(true)},
                       {"VAL_BLOCATA", 1200.0},
                       {"VAL_BLOCATA_VAL", 300.0},
                       {"VAL_CUMP", 5000.0},
                       {"VAL_CUMP_VAL", 1250.0},
                       {"COTAL_LUNARA", 1.0 / 12}});
    connection_.Execute(
        "INSERT INTO I_INV (COD, DATA_ACH, VAL_CUMP, COD_LOC) VALUES ('i1', ?, 7.5, "
        "'ADM')",
        {kFrom});  // a cost centre's code
  }

  /// Groups and totals of a command are those of "SELECT key, totals FROM source GROUP BY key".
  void ExpectTotals(const std::string& command, const std::string& key,
                    const std::vector<std::pair<std::string, std::string>>& totals,
                    const std::string& source, const Values& params = {}) {
    SCOPED_TRACE(command);
    environment_.Run(command, params);
    const ShapedRecordset rows = environment_.Rs(command);
    std::string list = "SELECT COUNT(*)";
    for (const auto& total : totals) list += ", SUM(" + total.second + ")";
    Recordset wanted = connection_.OpenRecordset(
        list + ", " + key + " FROM " + source + " GROUP BY " + key + " ORDER BY " + key, params);
    ASSERT_EQ(wanted.RecordCount(), rows.GroupCount());
    EXPECT_GT(rows.GroupCount(), 1u);
    std::size_t first = 0;
    for (std::size_t g = 0; g < rows.GroupCount(); ++g, wanted.MoveNext()) {
      const auto group = rows.GroupAt(g);
      EXPECT_EQ(0, CompareValues(wanted.Get(totals.size() + 1), group.key)) << Text(group.key);
      EXPECT_EQ(wanted.Get(0).Whole(), static_cast<std::int64_t>(group.rows)) << Text(group.key);
      EXPECT_EQ(first, group.first);
      first += group.rows;
      for (std::size_t t = 0; t < totals.size(); ++t) {
        ExpectAmount(wanted.Get(t + 1), group.totals.at(rows.TotalIndex(totals[t].first)));
      }
    }
    EXPECT_EQ(first, rows.RowCount());
    Recordset all = connection_.OpenRecordset(list + " FROM " + source, params);
    for (std::size_t t = 0; t < totals.size(); ++t) {
      ExpectAmount(all.Get(t + 1), rows.GrandTotal(rows.TotalIndex(totals[t].first)));
    }
  }

  static std::string Text(const Value& value) { return value.IsNull() ? "Null" : value.AsText(); }

  // The engine's own sum has the traces of binary fractions.
  static void ExpectAmount(const Value& wanted, const Value& shown) {
    ASSERT_EQ(wanted.IsNull(), shown.IsNull());
    if (wanted.IsNull()) return;
    EXPECT_NEAR(wanted.AsDouble(), shown.AsDouble(), 0.0001);
  }

  test::SampleCompany company_{DateTime(2006, 10, 31)};
  Connection connection_ = company_.Open();
  DataEnv environment_;
};

TEST_F(DataEnvTest, ChargesAddUp) {
  const std::string charge =
      "CASE WHEN BLOCATA <> 0 THEN VAL_BLOCATA ELSE VAL_CUMP - VALCHELEI END * COTAL_LUNARA";
  const std::string chargeVal =
      "CASE WHEN BLOCATA <> 0 THEN VAL_BLOCATA_VAL ELSE VAL_CUMP_VAL - VALCHEVAL END * "
      "COTAL_LUNARA";
  const std::string parts = "VAL_AMOR_CUMULATA + VAL_RAMASA";
  const auto check = [&](const std::string& command, const std::string& key,
                         const std::string& rate, bool currency) {
    const std::string tail = currency ? "_VAL" : "";
    ExpectTotals(command, key,
                 {{"TVALL", rate},
                  {"TVALAMOR", "VAL_AMOR_CUMULATA" + tail},
                  {"TVALRAMASAA", "VAL_RAMASA" + tail},
                  {"TVALCUMPP", "VAL_AMOR_CUMULATA" + tail + " + VAL_RAMASA" + tail}},
                 "I_IMO");
  };
  check("CH_Cont_Grouping", "CONT", charge, false);
  check("CH_GR_Grouping", "COD_GR_NOU", charge, false);
  check("CH_LOC_Grouping", "COD_LOC", "(" + parts + ") * COTAL_LUNARA", false);
  check("CH_CC_Grouping", "COD_CC", charge, false);
  check("CH_CONT_VAL_Grouping", "CONT", chargeVal, true);
  check("CH_GR_VAL_Grouping", "COD_GR_NOU", chargeVal, true);
  check("CH_LOC_VAL_Grouping", "COD_LOC", chargeVal, true);
  check("CH_CC_VAL_Grouping", "COD_CC", chargeVal, true);
}

TEST_F(DataEnvTest, PurchasesOfAPeriodAddUp) {
  for (const auto& [name, key] : std::map<std::string, std::string>{
           {"", "CONT"}, {"_Loc", "COD_LOC"}, {"_GR", "COD_GR_NOU"}, {"_CC", "COD_CC"}}) {
    for (const std::string currency : {"", "_Val"}) {
      const std::string value = "VAL_CUMP" + UCase(currency);
      // Two that are the same in all that is shown are one line.
      ExpectTotals("Achizitii" + name + currency + "_Grouping", key, {{"TVAL", value}},
                   "(SELECT DISTINCT COD, DATA_ACH, DENUMIRE, " + value + ", " + key +
                       " FROM I_IMO WHERE DATA_ACH BETWEEN ? AND ?)",
                   {kFrom, kTo});
    }
  }
  const ShapedRecordset rows = environment_.Rs("Achizitii_Grouping");
  const std::size_t date = rows.FieldIndex("DATA_ACH");
  EXPECT_EQ(Value(kFrom), rows.ValueAt(rows.GroupAt(0).first, date)) << "without an account";
  EXPECT_EQ(Value(kTo), rows.ValueAt(rows.GroupAt(1).first, date)) << "of the empty one";
}

TEST_F(DataEnvTest, InventoryOfAPeriodAddsUp) {
  const auto check = [&](const std::string& command, const std::string& key,
                         const std::string& titles) {
    ExpectTotals(command, key, {{"tvalcump", "VAL_CUMP"}, {"tvalcumpval", "VAL_CUMP_VAL"}},
                 "(SELECT I_INV.*, (SELECT TITLU FROM " + titles +
                     " T WHERE T.COD = I_INV.COD_LOC) AS TITLU FROM I_INV WHERE DATA_ACH >= ? AND "
                     "DATA_ACH <= ?)",
                 {kFrom, DateTime(2026, 12, 31)});
  };
  check("CH_INV_PERS_Grouping", "PERS", "I_LOCALIZARE");
  check("CH_INV_LOC_Grouping", "TITLU", "I_LOCALIZARE");
  check("CH_INV_CONT_Grouping", "CONT", "I_LOCALIZARE");
  check("CH_INV_CC_Grouping", "TITLU", "KV_CC");
}

TEST_F(DataEnvTest, RunAgainShowsFreshData) {
  DataEnv& environment = CurrentDataEnv();
  EXPECT_EQ(&environment, &CurrentDataEnv());
  EXPECT_EQ(26u, environment.CommandNames().size());
  EXPECT_FALSE(environment.IsOpen("CH_Cont_Grouping"));
  environment.Close("CH_Cont_Grouping");
  EXPECT_EQ(kObjectRequired, FailureOf([&] { environment.Requery("CH_Cont_Grouping"); }));

  environment.Run("achizitii_GROUPING", {kTo, kTo});
  const ShapedRecordset before = environment.Rs("Achizitii_Grouping");
  EXPECT_EQ(2u, before.RowCount());
  connection_.Execute("UPDATE I_IMO SET DATA_ACH = ? WHERE COD = 'u1'", {kTo});
  EXPECT_EQ(2u, environment.Rs("Achizitii_Grouping").RowCount());
  environment.Requery("Achizitii_Grouping");
  EXPECT_EQ(3u, environment.Rs("Achizitii_Grouping").RowCount());
  EXPECT_EQ(2u, before.RowCount()) << "a preview of before keeps its rows";

  EXPECT_EQ(kStatementError, FailureOf([&] { environment.Run("Achizitii_Grouping"); }));
  EXPECT_TRUE(environment.IsOpen("Achizitii_Grouping")) << "a failure leaves the rows of before";
  environment.Close("Achizitii_Grouping");
  EXPECT_FALSE(environment.IsOpen("Achizitii_Grouping"));
  EXPECT_EQ(kObjectRequired, FailureOf([&] { environment.Rs("Achizitii_Grouping").RowCount(); }));
}

TEST_F(DataEnvTest, PlainCommandsGiveTheirTables) {
  for (const auto& [command, table] :
       std::map<std::string, std::string>{{"IMO", "I_IMO"},
                                          {"Furnizori", "KV_TER"},
                                          {"CentreCost", "KV_CC"},
                                          {"PC", "KV_PC"},
                                          {"TVA", "KV_COTE"},
                                          {"PLANAMO", "I_PLANAMO"}}) {
    environment_.Run(command);
    const Recordset rows = environment_.PlainRs(command);
    EXPECT_EQ(connection_.QueryValue("SELECT COUNT(*) FROM " + table).AsLong(),
              static_cast<long>(rows.RecordCount()))
        << command;
    EXPECT_EQ(kObjectRequired, FailureOf([&, name = command] { environment_.Rs(name); }));
  }
  EXPECT_EQ(8u, environment_.PlainRs("planamo").FieldCount());
  EXPECT_EQ(kObjectRequired, FailureOf([&] { environment_.PlainRs("CH_CC_Grouping"); }));
  environment_.Run("CH_CC_Grouping");
  environment_.CloseAll();
  for (const std::string& name : environment_.CommandNames())
    EXPECT_FALSE(environment_.IsOpen(name));
}

TEST_F(DataEnvTest, AnEmptyCompanyHasEmptyReports) {
  connection_.Execute("DELETE * FROM I_IMO");
  connection_.Execute("DELETE * FROM I_INV");
  for (const std::string& name : environment_.CommandNames()) {
    if (name.find("_Grouping") == std::string::npos) continue;
    const bool period = environment_.CommandText(name).find('?') != std::string::npos;
    environment_.Run(name, period ? Values{kFrom, kTo} : Values{});
    EXPECT_EQ(0u, environment_.Rs(name).GroupCount()) << name;
    EXPECT_TRUE(environment_.Rs(name).GrandTotal(0).IsNull()) << name;
  }
}

TEST_F(DataEnvTest, WrongNamesAreRefused) {
  for (const std::string name : {"", "CH_Cont", "CH_Cont_Grouping ", "I_IMO"}) {
    EXPECT_EQ(kItemNotFound, FailureOf([&] { environment_.Run(name); })) << name;
    EXPECT_EQ(kItemNotFound, FailureOf([&] { environment_.Close(name); })) << name;
    EXPECT_EQ(kItemNotFound, FailureOf([&] { environment_.Rs(name); })) << name;
  }
}

}  // namespace
}  // namespace tevra
