// Settings of the company in a table that older files do not have.
#include <gtest/gtest.h>

#include "platform/data/Catalogue.h"
#include "session/CompanySettings.h"
#include "session/TableRights.h"
#include "tests/TestCompany.h"

namespace tevra::test {
namespace {

constexpr CompanySetting kYear = CompanySetting::kDocumentWithYear;

TEST(CompanySettings, AreOffUntilSwitchedOn) {
  const TestCompany company;
  Connection file = company.Open();
  EXPECT_FALSE(IsOn(file, kYear));
  file.Execute("DROP TABLE kv_setari");
  EXPECT_FALSE(IsOn(file, kYear));
  SetOn(file, kYear, false);
  EXPECT_FALSE(Catalogue(file).HasTable("kv_setari"));
  for (const bool on : {true, false, true}) {
    SetOn(file, kYear, on);
    EXPECT_EQ(IsOn(file, kYear), on);
  }
  EXPECT_EQ(company.Rows("SELECT * FROM kv_setari"), "DocumentLunaCuAn D \n");
  for (const char* off : {"UPDATE kv_setari SET VALOARE = NULL", "DELETE FROM kv_setari"}) {
    file.Execute(off);
    EXPECT_FALSE(IsOn(file, kYear));
  }
  EXPECT_FALSE(MayChangeTable(2, "KV_SETARI"));
}

TEST(CompanySettings, BelongToTheCallersTransaction) {
  const TestCompany company;
  Connection file = company.Open();
  file.Execute("DROP TABLE kv_setari");
  {
    const Transaction transaction(file);
    SetOn(file, kYear, true);
  }
  EXPECT_FALSE(IsOn(file, kYear));
  EXPECT_FALSE(Catalogue(file).HasTable("kv_setari"));
}

}  // namespace
}  // namespace tevra::test
