// The backups before works: their names, their content, and which of them go.
#include "care/AutomaticBackups.h"
#include "platform/system/Clock.h"
#include "tests/care/CareTest.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

class AutomaticBackups : public CareTest {
 protected:
  AutomaticBackups() { clock::Set(DateTime(2026, 7, 9, 8, 5, 59)); }
  ~AutomaticBackups() override { clock::Reset(); }
  static fs::path Made() { return BackUpBefore(SessionCompany(), kBeforeImport); }
};

TEST_F(AutomaticBackups, EachHasItsOwnName) {
  const fs::path first = Made();
  const std::string content = Dump(File());
  Execute("DELETE FROM I_IMO");
  const fs::path second = Made();
  EXPECT_EQ(first, BackupFolder() / "Import_Kelnar01_09.07.2026_08.05.59.mdb");
  EXPECT_EQ(second, BackupFolder() / "Import_Kelnar01_09.07.2026_08.05.59_2.mdb");
  EXPECT_EQ(Dump(first), content);
  EXPECT_EQ(Dump(second), Dump(File()));
  EXPECT_EQ(RemoveOlderBackups(SessionCompany(), second, 1), 0);
}

TEST_F(AutomaticBackups, OneThatFailsSaysSo) {
  WriteFile(BackupFolder(), "in calea directorului");
  const Refusal refusal = RefusalOf([] { Made(); });
  EXPECT_EQ(refusal.number, kPermissionDenied);
  EXPECT_TRUE(refusal.text.starts_with("Salvarea dinaintea lucrarii nu a reusit")) << refusal.text;
}

TEST_F(AutomaticBackups, TheNewestAndTheLastOfEachMonthStay) {
  const std::vector<std::string> others{
      "Firma Vech_Kelnar01_01.01.2020_08.05.mdb",    "Import_Kelnar02_01.01.2020_08.05.00.mdb",
      "Import_Kelnar01_01.01.2020_08.05.mdb",        "Inlocuit_Kelnar01_01.01.2020_08.05.00.mdb",
      "Import_Kelnar01_31.02.2020_08.05.00.mdb",     "Import_Kelnar01_01.01.2020_08.05.00_a.mdb",
      "Import_Kelnar01_01.01.2020_08.05.00.mdb.bak", "Import_Kelnar01_01.01.2020_08.05.002.mdb"};
  for (const std::string& name : others) WriteFile(BackupFolder() / name, "altceva");
  fs::create_directory(BackupFolder() / "Import_Kelnar01_02.01.2020_08.05.00.mdb");
  const auto make = [](const std::string& work, const std::string& moment) {
    const std::string name = work + "_Kelnar01_" + moment + ".mdb";
    WriteFile(BackupFolder() / name, "salvare");
    return name;
  };
  std::vector<std::string> stay = others;
  stay.emplace_back("Import_Kelnar01_02.01.2020_08.05.00.mdb");
  for (int day = 10; day < 23; ++day) {  // 13 of a month, whatever the work
    const char* const works[] = {kBeforeImport, kBeforeUpgrade, kBeforeReclassification};
    stay.push_back(make(works[day % 3], std::to_string(day) + ".06.2026_10.00.00"));
  }
  stay.push_back(make("Import", "09.06.2026_10.00.00"));
  make("Import", "08.06.2026_23.00.00");
  stay.push_back(make("Import", "31.12.2025_10.00.00_10"));
  make("Import", "31.12.2025_10.00.00_9");
  make("Import", "31.12.2025_10.00.00");
  stay.push_back(make("Reclasificare", "01.12.2024_10.00.00"));
  stay.push_back(Made().filename());
  std::sort(stay.begin(), stay.end());
  EXPECT_EQ(NamesIn(BackupFolder()), stay);

  // A clock that went back: what was just made is no old backup.
  clock::Set(DateTime(2019, 1, 1));
  for (int i = 0; i < 2; ++i) {
    const fs::path made = Made();
    EXPECT_TRUE(fs::exists(made)) << i;
  }
}

}  // namespace
}  // namespace tevra::test
