// The register's statements over a real company.
#include <gtest/gtest.h>

#include "platform/data/Recordset.h"
#include "platform/text/Numbers.h"
#include "register/AssetList.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

class AssetList : public ::testing::Test {
 protected:
  std::string Codes(const std::string& sql, const Values& params = {}) {
    Recordset rows = company_.Open().OpenKeyset(sql, params);
    std::string codes;
    for (; !rows.Eof(); rows.MoveNext()) codes += rows.Get("COD").AsText() + " ";
    return codes;
  }
  std::string Found(const char* term) {
    return Codes(AssetSearchStatement(), {std::string(term) + "%"});
  }

  TestCompany company_;
};

TEST_F(AssetList, EveryAssetIsThereOnceWithWhatNamesItHas) {
  Connection file = company_.Open();
  file.Execute("DELETE * FROM kv_Ter");
  file.Execute("INSERT INTO kv_Ter (COD, NUME) VALUES (7, 'Furnizor')");
  file.Execute("INSERT INTO I_LOCALIZARE (COD, TITLU) VALUES ('H1', 'Hala')");
  file.Execute("INSERT INTO Kv_CC (COD, TITLU) VALUES ('C1', 'Sectia')");
  company_.AddAsset({{"COD", "1"}, {"COD_FURNIZOR", 7}, {"COD_LOC", "H1"}, {"COD_CC", "c1"}});
  company_.AddAsset({{"COD", "2"}, {"COD_FURNIZOR", 99}, {"COD_LOC", "LIPSA"}});
  company_.AddAsset({{"COD", "3"}});
  Recordset rows = file.OpenKeyset(AssetListStatement() + kNewestFirst);
  ASSERT_EQ(rows.RecordCount(), 3u);
  EXPECT_EQ(rows.Get("COD"), Value("3"));
  EXPECT_TRUE(rows.Get("loc").IsNull());
  rows.MoveNext();
  EXPECT_TRUE(rows.Get("furniz").IsNull());
  rows.MoveNext();
  EXPECT_EQ(rows.Get("loc"), Value("Hala"));
  EXPECT_EQ(rows.Get("furniz"), Value("Furnizor"));
  EXPECT_EQ(rows.Get("CC"), Value("Sectia"));
  EXPECT_EQ(Codes(kAssetsByNumber), "1 2 3 ");
}

TEST_F(AssetList, ASearchFindsNamesThatBeginSo) {
  for (const char* name : {"Strung", "STRUNG 'O''Neil'", "Presa strung", "Str_ng", "O'Neil"}) {
    company_.AddAsset({{"COD", name}, {"DENUMIRE", name}});
  }
  EXPECT_EQ(Found("str"), "Str_ng STRUNG 'O''Neil' Strung ");
  EXPECT_EQ(Found("O'N"), "O'Neil ");
  EXPECT_EQ(Found("x'; DELETE * FROM I_IMO --"), "");
  EXPECT_EQ(Found("rung"), "");
}

TEST_F(AssetList, TotalsCountNullAsNothingAndLoseNoBani) {
  company_.AddAsset({{"COD", "1"}, {"VAL_CUMP", 0.1}, {"VAL_RAMASA", 1e12}});
  company_.AddAsset({{"COD", "2"}, {"VAL_CUMP", 0.2}, {"VAL_RAMASA", -3.0}});
  company_.AddAsset({{"COD", "3"}, {"VAL_CUMP", Value()}, {"VAL_RAMASA", 0.5}});
  Connection file = company_.Open();
  const auto listed = [&file] {
    return file.OpenKeyset(AssetListStatement() + kNewestFirst, {},
                           {kTotalledFields.begin(), kTotalledFields.end()});
  };
  const Recordset rows = listed();
  EXPECT_EQ(rows.Total("VAL_CUMP"), 0.3);
  EXPECT_EQ(rows.Total("VAL_CUMP_VAL"), 0.0);
  EXPECT_EQ(rows.Total("VAL_RAMASA"), 999999999997.5);
  file.Execute("DELETE * FROM I_IMO");
  for (const char* field : kTotalledFields) EXPECT_EQ(listed().Total(field), 0.0) << field;
}

TEST_F(AssetList, AListingRoundsAfterEachAssetButForTheValueInCurrency) {
  std::vector<double> totals(kTotalledFields.size());
  for (int i = 0; i < 3; ++i) AddListedAsset(totals, {0.5, 0.5, 1.5, 2.5, Value(), -0.5});
  // 0.5 to 0, and again; 1.5 to 2, 3.5 to 4, 5.5 to 6; 2.5 to 2, 4.5 to 4, 6.5 to 6.
  EXPECT_EQ(totals, (std::vector<double>{0, 1.5, 6, 6, 0, 0}));
}

}  // namespace
}  // namespace tevra::test
