// Backup, restore and compaction from the command line.
#include <filesystem>

#include "platform/data/CompanyFile.h"
#include "tests/batch/BatchTest.h"

namespace fs = std::filesystem;

namespace tevra::batch::test {
namespace {

using tevra::NamesIn;

class BackupTest : public BatchTest {
 protected:
  BackupTest() {
    company_.Open().Execute("UPDATE kv_info SET DENUMIRE = 'Firma'");
    company_.AddAsset({{"COD", "100"}});
  }
  std::string Codes() const { return company_.Rows("SELECT COD FROM I_IMO"); }
  fs::path OnlyBackup(const fs::path& folder) const {
    const auto names = NamesIn(folder);
    EXPECT_EQ(names.size(), 1U);
    return folder / names.at(0);
  }
};

TEST_F(BackupTest, SavesChangesAndRestoresAnyStructure) {
  company_.Open().Execute("UPDATE kv_info SET VERSIUNE = 0");
  const Result saved = RunAsAdmin({"backup"});
  EXPECT_EQ(saved.code, 0) << saved.err;
  const fs::path backup = OnlyBackup(Directory() / "Salv_Tevra");
  EXPECT_EQ(saved.out, "Salvare cu succes a bazei de date Kelnar01.mdb: " + backup.string() + "\n");
  company_.Open().Execute("DELETE FROM I_IMO");
  const Result restored = RunAsAdmin({"restore", backup.string()});
  EXPECT_EQ(restored.code, 0) << restored.err;
  EXPECT_NE(restored.out.find("\nFirma\nSalvata la "), std::string::npos) << restored.out;
  EXPECT_NE(restored.out.find("\nBaza de date inlocuita: " + Directory().string()),
            std::string::npos)
      << restored.out;
  EXPECT_EQ(Codes(), "100 \n");
  const Result compacted = RunAsAdmin({"compact"});
  EXPECT_EQ(compacted.code, 0) << compacted.err;
  EXPECT_EQ(Codes(), "100 \n");
}

TEST_F(BackupTest, KeepsTheLastOnesInAChosenFolder) {
  const fs::path folder = Directory() / "copii";
  ExpectRefused({"backup", "--to", folder.string()}, "nu exista !");
  fs::create_directory(folder);
  for (const char* old : {"_Kelnar01_01.01.2020_10.00.mdb", "_Kelnar01_02.01.2020_10.00.mdb"}) {
    tevra::WriteFile(folder / old, "vechi");
  }
  const Result result = RunAsAdmin({"backup", "--to", folder.string(), "--keep", "2"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_NE(result.out.find("Salvari mai vechi sterse: 1\n"), std::string::npos) << result.out;
  EXPECT_EQ(NamesIn(folder).size(), 2U);
  for (const char* wrong : {"0", "-1", "doua", "1.5"}) {
    EXPECT_EQ(RunAsAdmin({"backup", "--keep", wrong}).code, 2) << wrong;
  }
}

TEST_F(BackupTest, RestoresOverADamagedOrMissingCompanyForItsUsers) {
  const fs::path backup = Directory() / "copie.mdb";
  CopyCompanyFile(company_.File(), backup);
  const std::vector<std::string> restore{"restore", backup.string()};
  std::string damaged = Content(company_.File());
  damaged.replace(100, 4000, std::string(4000, 'x'));
  tevra::WriteFile(company_.File(), damaged);
  const Result refused = Run({"--user", "admin", "restore", backup.string()}, "gresita\n");
  EXPECT_EQ(refused.code, 1);
  EXPECT_NE(refused.err.find("Parola nu este corecta !"), std::string::npos) << refused.err;
  EXPECT_EQ(Content(company_.File()), damaged);
  EXPECT_EQ(RunAsAdmin({"assets"}).code, 1);
  EXPECT_EQ(RunAsAdmin(restore).code, 0);
  EXPECT_EQ(Codes(), "100 \n");
  EXPECT_EQ(Run({"rebuild"}).code, 0);  // a list that names the company
  fs::remove(company_.File());
  EXPECT_EQ(RunAsAdmin(restore).code, 0);
  EXPECT_EQ(Codes(), "100 \n");
}

TEST_F(BackupTest, UpgradesAnOlderStructureThatOtherCommandsRefuse) {
  {
    Connection old = company_.Open();
    old.Execute("UPDATE kv_info SET VERSIUNE = 1");
    old.Execute("DROP TABLE kv_setari");
  }
  EXPECT_EQ(RunAsAdmin({"assets"}).code, 1);
  const Result tried = RunAsAdmin({"upgrade", "--dry-run"});
  EXPECT_EQ(tried.code, 0) << tried.err;
  EXPECT_EQ(tried.out, "tabela noua: kv_setari\nNu s-a scris nimic (--dry-run).\n");
  EXPECT_EQ(RunAsAdmin({"assets"}).code, 1);
  const Result done = RunAsAdmin({"upgrade"});
  EXPECT_EQ(done.code, 0) << done.err;
  EXPECT_NE(done.out.find("Actualizarea bazei de date Kelnar01.mdb s-a incheiat !"),
            std::string::npos);
  EXPECT_EQ(NamesIn(Directory() / "Salv_Tevra").size(), 1U);
  EXPECT_EQ(RunAsAdmin({"assets"}).code, 0);
}

TEST_F(BackupTest, RefusesOthersFilesAndUsersWithoutTheRight) {
  const fs::path other = Directory() / "alta.mdb";
  CopyCompanyFile(Directory() / "Kelnar.mdb", other);
  ExpectRefused({"restore", other.string()}, "altei societati");
  const std::string letter = File("scrisoare.mdb", "Stimate domn");
  ExpectRefused({"restore", letter}, letter);
  ExpectRefused({"restore", "nimic.mdb"}, "Fisierul: nimic.mdb nu exista!");
  company_.Open().Execute("UPDATE UTILIZATORI SET TIP = 2");
  for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
           {"backup"}, {"compact"}, {"restore", other.string()}}) {
    ExpectRefused(command, "nu are dreptul");
  }
  company_.Open().Execute("UPDATE UTILIZATORI SET TIP = 1");
  EXPECT_EQ(RunAsAdmin({"--yes", "restore", other.string()}).code, 0);
  EXPECT_EQ(Codes(), "");
}

}  // namespace
}  // namespace tevra::batch::test
