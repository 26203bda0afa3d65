// The daily check of a company's file, and the backup to go back to.
#include "care/FileHealth.h"
#include "care/Restore.h"
#include "platform/data/CompanyFile.h"
#include "platform/data/FileCheck.h"
#include "platform/system/Clock.h"
#include "tests/care/CareTest.h"
#include "tests/data/Damage.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

class FileHealth : public CareTest {
 protected:
  FileHealth() { clock::Set(DateTime(2026, 7, 9, 8, 5)); }
  ~FileHealth() override { clock::Reset(); }

  fs::path Backup(const std::string& name) const {
    const fs::path file = MakeBackupFolder() / name;
    CopyCompanyFile(File(), file);
    return file;
  }
  void Check() const {
    Connection company = company_.Open();
    Transaction transaction(company);
    RequireSoundOnceADay(company);
    transaction.Commit();
  }
};

TEST_F(FileHealth, TheNewestBackupInOrderCounts) {
  EXPECT_EQ(NewestSoundBackup(SessionCompany()), std::nullopt);
  EXPECT_EQ(SoundBackupText(SessionCompany()),
            "In " + BackupFolder().string() + " nu este nici o salvare buna.");
  const fs::path older = Backup("Firma Vech_Kelnar01_31.12.2025_10.00.mdb");
  const fs::path sound = Backup("actualizare_KELNAR01_01.02.2026_10.00.59.mdb");
  WriteFile(BackupFolder() / "Firma Vech_Kelnar01_03.02.2026_10.00.mdb",
            Content(sound).substr(0, 9000));
  WriteFile(BackupFolder() / "Firma Vech_Kelnar01_04.02.2026_10.00.mdb", "scrisoare");
  const fs::path broken = Backup("Firma Vech_Kelnar01_02.02.2026_10.00.mdb");
  DamageTable("Data Source=" + broken.string() + ";PWD=" + kFilePassword, "I_CLASIFICARE");
  Backup("Inlocuit_Kelnar01_05.02.2026_10.00.00.mdb");
  Backup("Firma Vech_Kelnar02_06.02.2026_10.00.mdb");
  Backup("Kelnar01_vechi.mdb");
  EXPECT_EQ(NewestSoundBackup(SessionCompany()), sound);
  fs::remove(sound);
  EXPECT_EQ(SoundBackupText(SessionCompany()), "Cea mai noua salvare buna: " + older.string());
}

TEST_F(FileHealth, AFileIsReadOnceADay) {
  const fs::path backup = Backup("x_Kelnar01_01.02.2026_10.00.mdb");
  Check();
  DamageTable(company_.ConnectionString(), "I_CLASIFICARE");
  Check();
  clock::Set(DateTime(2026, 7, 10));
  const std::string damaged = Content(File());
  const Refusal refusal = RefusalOf([&] { Check(); });
  EXPECT_EQ(refusal.number, kDatabaseNotOpened);
  EXPECT_EQ(refusal.text.rfind("Baza de date este deteriorata: " + File().string() + " (", 0), 0U);
  const std::string end = "Nu s-a schimbat nimic. Cea mai noua salvare buna: " + backup.string();
  ASSERT_GT(refusal.text.size(), end.size());
  EXPECT_EQ(refusal.text.substr(refusal.text.size() - end.size()), end);
  EXPECT_EQ(Content(File()), damaged);
  EXPECT_EQ(SoundBackupHint(Failure(refusal.number, refusal.text)), "") << "it is there already";
  EXPECT_EQ(SoundBackupHint(Failure(kDatabaseNotOpened, DamageText(File().string(), "x"))),
            "\nCea mai noua salvare buna: " + backup.string());
  EXPECT_EQ(SoundBackupHint(Failure(kDatabaseNotOpened, DamageText("alta.mdb", "x"))), "");
  EXPECT_EQ(SoundBackupHint(Failure(kPermissionDenied, File().string())), "");
}

}  // namespace
}  // namespace tevra::test
