// Sets of conditions kept under names in the settings.
#include <gtest/gtest.h>

#include "platform/system/Settings.h"
#include "platform/text/Failure.h"
#include "platform/where/SavedConditions.h"

namespace tevra::test {
namespace {

class SavedConditionsTest : public ::testing::Test {
 protected:
  ~SavedConditionsTest() override { SetSettings(nullptr); }
  SavedConditions saved_{"Conditii/ADMIN/frmLinii"};
  const std::vector<Condition> october_{
      {"Kv_Linii.CONT", WhereOperator::kBegins, "6\"8,\n1"},
      {"Kv_Linii.DATAINR", WhereOperator::kBetween, "01.10.2026", "31.10.2026"},
      {"Kv_Linii.TERT", WhereOperator::kEqual, "7", "", "O'NEIL, \"FIII\""}};
  const std::vector<Condition> open_{{"Kv_Linii.LITM", WhereOperator::kEmpty}};
};

TEST_F(SavedConditionsTest, ComeBackAsTheyWere) {
  SetSettings(nullptr);
  saved_.Save("Octombrie, 2026", october_);
  saved_.Save("deschise", open_);
  EXPECT_EQ(saved_.Names(), (std::vector<std::string>{"deschise", "Octombrie, 2026"}));
  EXPECT_EQ(SavedConditions("Conditii/ADMIN/frmLinii").Of("OCTOMBRIE, 2026"), october_);
  EXPECT_TRUE(SavedConditions("Conditii/ION/frmLinii").Names().empty());
  saved_.Save("OCTOMBRIE, 2026", open_);
  EXPECT_EQ(saved_.Names(), (std::vector<std::string>{"deschise", "OCTOMBRIE, 2026"}));
  EXPECT_EQ(saved_.Of("octombrie, 2026"), open_);
  saved_.Remove("Deschise");
  saved_.Remove("necunoscut");
  EXPECT_FALSE(saved_.Has("deschise"));
  EXPECT_TRUE(saved_.Has("Octombrie, 2026"));
}

TEST_F(SavedConditionsTest, ADamagedSettingLosesOnlyWhatCannotBeRead) {
  SetSettings(nullptr);
  saved_.Save("bun", open_);
  const std::string key = "Conditii/ADMIN/frmLinii";
  const std::string good = *Settings().Get(key);
  Settings().Set(key, good + "bun,Kv_Linii.CONT,9,x,,\nscurt,2\n");
  EXPECT_EQ(saved_.Names(), std::vector<std::string>{"bun"});
  EXPECT_EQ(saved_.Of("bun"), open_);
  Settings().Set(key, good + "\"fara sfarsit");
  EXPECT_TRUE(saved_.Names().empty());
}

}  // namespace
}  // namespace tevra::test
