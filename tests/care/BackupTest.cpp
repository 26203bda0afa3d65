// Backups: their names, what is in them, and which of them go.
#include "care/Backup.h"
#include "care/BackupName.h"
#include "care/Maintenance.h"
#include "platform/data/CompanyFile.h"
#include "platform/system/Clock.h"
#include "tests/KilledWrites.h"
#include "tests/care/CareTest.h"
#include "tests/system/FileSizeLimit.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

class BackupTest : public CareTest {
 protected:
  BackupTest() { clock::Set(DateTime(2026, 7, 9, 8, 5, 59)); }
  ~BackupTest() override { clock::Reset(); }
};

TEST(BackupNames, HoldTheCompanyTheDatabaseAndTheMinute) {
  const DateTime moment(2026, 7, 9, 8, 5, 59);
  EXPECT_EQ(BackupName("Firma Veche SRL", "Kelnar01.mdb", moment),
            "Firma Vech_Kelnar01_09.07.2026_08.05.mdb");
  EXPECT_EQ(BackupName("ăâ", "Kelnar01.mdb", moment), "ăâ_Kelnar01_09.07.2026_08.05.mdb");
  EXPECT_EQ(BackupName("", "Kelnar01.mdb", moment), "_Kelnar01_09.07.2026_08.05.mdb");
  EXPECT_EQ(BackupName("../a\\b:*?\"<", "K.mdb", moment), ".._a_b_____K_09.07.2026_08.05.mdb");

  const auto read = [](const char* name) { return MomentOfBackup(name, "Firma", "Kelnar01.mdb"); };
  EXPECT_EQ(read("Firma_Kelnar01_09.07.2026_08.05.mdb"), DateTime(2026, 7, 9, 8, 5));
  for (const char* other :
       {"Firma_Kelnar01_09.07.2026_08.05.59.mdb", "Firma_Kelnar02_09.07.2026_08.05.mdb",
        "FIRMA_Kelnar01_09.07.2026_08.05.mdb", "Firma_Kelnar01_31.02.2026_08.05.mdb",
        "Firma_Kelnar01_09.07.2026_08.05.mdb.bak", "Firma_Kelnar01_09.07.2026_8.05.mdb",
        "Inlocuit_Kelnar01_09.07.2026_08.05.mdb", "Kelnar01.mdb", ""}) {
    EXPECT_FALSE(read(other)) << other;
  }
  EXPECT_EQ(MomentInName("Inlocuit_Kelnar01_09.07.2026_08.05.59.mdb"), moment);
  EXPECT_EQ(MomentInName("x09.07.2026_08.05.mdb"), DateTime(2026, 7, 9, 8, 5));
  EXPECT_EQ(MomentInName("Import_Kelnar01_09.07.2026_08.05.59_12.mdb"), moment);
  EXPECT_FALSE(MomentInName("Kelnar01.mdb"));
  EXPECT_FALSE(MomentInName("x09.07_2026.08.05.mdb"));
}

TEST_F(BackupTest, IsMadeWhileOthersWorkAndSaysSo) {
  MessageRecorder messages;
  Connection user = company_.Open();
  user.Execute("UPDATE I_IMO SET COD = '101'");  // still in the side file
  const fs::path copy = Salvare();
  EXPECT_EQ(copy, Folder() / "Salv_Tevra" / "Firma Vech_Kelnar01_09.07.2026_08.05.mdb");
  EXPECT_EQ(Dump(copy), Dump(user));
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].prompt, "Salvare cu succes a bazei de date Kelnar01.mdb");
  EXPECT_EQ(messages.shown[0].buttons, kInformation);

  user.Execute("UPDATE I_IMO SET COD = '102'");
  EXPECT_EQ(Salvare(), copy);  // the later one of a minute counts
  EXPECT_EQ(Dump(copy), Dump(user));
  EXPECT_EQ(NamesIn(copy.parent_path()), std::vector{copy.filename().string()});
}

TEST_F(BackupTest, OnlyTheOlderOnesOfThisCompanyGo) {
  const fs::path folder = Folder() / "Salv_Tevra";
  const std::vector<std::string> others{
      "Firma Vech_Kelnar01_01.01.2020_08.05.00.mdb", "Firma Vech_Kelnar02_01.01.2020_08.05.mdb",
      "Firma Noua_Kelnar01_01.01.2020_08.05.mdb", "Inlocuit_Kelnar01_01.01.2020_08.05.00.mdb"};
  for (const auto& name : others) WriteFile(folder / name, "altceva");
  const auto own = [](const char* moment) {
    return "Firma Vech_Kelnar01_" + std::string(moment) + ".mdb";
  };
  // By the moment in the name: text order would keep another one.
  for (const char* moment : {"31.01.2024_23.59", "01.03.2026_00.00", "30.12.2025_10.00"}) {
    WriteFile(folder / own(moment), "vechi");
  }
  fs::create_directory(folder / own("01.01.2019_00.00"));
  const CompanyFile company = SessionCompany();
  const fs::path newest = BackUp(company, folder);
  EXPECT_EQ(RemoveOlderBackups(company, newest, 2), 2);
  std::vector<std::string> left = others;
  left.insert(left.end(), {own("01.01.2019_00.00"), own("01.03.2026_00.00"), newest.filename()});
  std::sort(left.begin(), left.end());
  EXPECT_EQ(NamesIn(folder), left);

  // A clock that went back: what was just made is no old backup.
  clock::Set(DateTime(2020, 1, 1));
  EXPECT_EQ(RemoveOlderBackups(company, BackUp(company, folder), 1), 2);
  EXPECT_TRUE(fs::exists(folder / own("01.01.2020_00.00")));
  EXPECT_EQ(RemoveOlderBackups(company, folder / own("01.01.2020_00.00"), 5), 0);
}

TEST_F(BackupTest, AFailureLeavesNoHalfAndKeepsTheEarlierOne) {
  const CompanyFile company = SessionCompany();
  const fs::path folder = Folder() / "copii";
  EXPECT_EQ(FailureOf([&] { BackUp(company, folder); }), kPathNotFound);
  fs::create_directory(folder);
  const fs::path earlier = BackUp(company, folder);
  const std::string content = Content(earlier);
  Execute("UPDATE I_IMO SET COD = '200'");
  {
    const FileSizeLimit full(fs::file_size(File()) / 2);
    const Refusal refusal = RefusalOf([&] { BackUp(company, folder); });
    EXPECT_NE(refusal.number, 0);
    EXPECT_NE(refusal.text.find("Firma Vech"), std::string::npos) << refusal.text;
  }
  EXPECT_EQ(Content(earlier), content);
  EXPECT_THROW(BackUp(company, folder, [](int, int) { return false; }), GivenUp);
  fs::permissions(earlier, fs::perms::owner_read);
  EXPECT_EQ(FailureOf([&] { BackUp(company, folder); }), kPermissionDenied);
  EXPECT_EQ(Content(earlier), content);
  EXPECT_EQ(NamesIn(folder), std::vector{earlier.filename().string()});
  EXPECT_EQ(Codes(), "200 \n");
}

TEST_F(BackupTest, ReportsItsPagesAndCopiesOneState) {
  Connection user = company_.Open();
  {
    Transaction rows(user);
    for (int i = 0; i < 20000; ++i) user.Execute("INSERT INTO Kv_CC (COD) VALUES (?)", {1000 + i});
    rows.Commit();
  }
  int last = 0;
  int total = 0;
  bool written = false;
  const fs::path copy = BackUp(SessionCompany(), Folder(), [&](int done, int of) {
    EXPECT_GE(done, last);
    last = done;
    total = of;
    if (!written) user.Execute("DELETE FROM Kv_CC");
    written = true;
    return true;
  });
  EXPECT_GT(total, 100);
  EXPECT_EQ(last, total);
  EXPECT_NE(Dump(copy).find("\n20999|"), std::string::npos);
}

TEST_F(BackupTest, AKilledOneLeavesTheEarlierOne) {
  const CompanyFile company = SessionCompany();
  const fs::path folder = Folder() / "copii";
  fs::create_directory(folder);
  const fs::path earlier = BackUp(company, folder);
  const std::string content = Content(earlier);
  Execute("UPDATE I_IMO SET COD = '200'");
  const std::string now = Dump(File());
  WriteCounter counter;
  const auto work = [&] { BackUp(company, folder); };
  const int writes = counter.WritesOf(work);
  ASSERT_GT(writes, 50);
  for (int killed = 1; killed <= writes; killed += 1 + writes / 200) {
    std::ofstream(earlier, std::ios::binary) << content;
    EXPECT_TRUE(counter.KilledIn(killed, work)) << killed;
    EXPECT_EQ(Content(earlier), content) << killed;
  }
  work();
  EXPECT_EQ(Dump(earlier), now);
  EXPECT_EQ(Dump(File()), now);
}

}  // namespace
}  // namespace tevra::test
