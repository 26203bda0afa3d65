// Damage is found where nobody reads, and an index of other content by the full check alone.
#include "platform/data/FileCheck.h"
#include "tests/data/Damage.h"
#include "tests/data/SideFiles.h"

namespace tevra {
namespace {

class FileCheck : public SideFileTest {
 protected:
  std::vector<std::string> Damage(CheckDepth depth) const {
    Connection company(StringOf(file_));
    return FindDamage(company, depth);
  }
};

TEST_F(FileCheck, FindsNothingInAFileInOrder) {
  EXPECT_EQ(Damage(CheckDepth::kQuick), std::vector<std::string>{});
  EXPECT_EQ(Damage(CheckDepth::kFull), std::vector<std::string>{});
}

TEST_F(FileCheck, FindsAPageThatIsNone) {
  DamageTable(StringOf(file_), "T_LIN");
  for (const CheckDepth depth : {CheckDepth::kQuick, CheckDepth::kFull}) {
    const std::vector<std::string> faults = Damage(depth);
    ASSERT_GT(faults.size(), 1U);
    EXPECT_EQ(faults[0].rfind("Page ", 0), 0U) << faults[0];
    for (const std::string& fault : faults) EXPECT_EQ(fault.find('\n'), fault.npos) << fault;
  }
  Connection company(StringOf(file_));
  ExpectRefused(kDatabaseNotOpened, "Baza de date este deteriorata: " + file_.string() + " (",
                [&] { RequireIntact(company); });
  EXPECT_EQ(company.QueryValue("SELECT NUME FROM T_NUME"), Value("noastra"));
}

TEST_F(FileCheck, ComparesIndexesOnlyWhenItIsFull) {
  Raw(file_,
      "PRAGMA writable_schema=ON; UPDATE sqlite_master SET sql = 'CREATE INDEX I_VAL ON T_LIN "
      "(NOTA)' WHERE name = 'I_VAL'");
  EXPECT_EQ(Damage(CheckDepth::kQuick), std::vector<std::string>{});
  EXPECT_EQ(Damage(CheckDepth::kFull).size(), 20U) << "and no more of them";
}

TEST(FileCheckTexts, TellDamageFromOtherFailures) {
  EXPECT_TRUE(TellsDamage(DamagedFile(DamageText("Kelnar01.mdb", "pagina 7"))));
  EXPECT_FALSE(TellsDamage(Failure(kDatabaseNotOpened, "Baza de date este folosita: x")));
}

}  // namespace
}  // namespace tevra
