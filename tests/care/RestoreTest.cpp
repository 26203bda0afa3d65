// A restore: which files may be restored, what becomes of the replaced one.
#include "care/Backup.h"
#include "care/Restore.h"
#include "platform/data/CompanyFile.h"
#include "platform/system/Clock.h"
#include "session/Version.h"
#include "tests/KilledWrites.h"
#include "tests/care/CareTest.h"
#include "tests/system/FileSizeLimit.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

class RestoreTest : public CareTest {
 protected:
  RestoreTest() {
    clock::Set(DateTime(2026, 7, 9, 8, 5, 59));
    fs::create_directory(Folder() / "Salv_Tevra");
    backup_ = BackUp(SessionCompany(), Folder() / "Salv_Tevra");
    backedUp_ = Dump(backup_);
    Execute("UPDATE I_IMO SET COD = '200'");
    RequireSoleUse(File());
  }
  ~RestoreTest() override { clock::Reset(); }

  void Change(const fs::path& file, const std::string& sql) const {
    Connection("Data Source=" + file.string() + ";PWD=" + kFilePassword).Execute(sql);
  }
  // The backup is refused with these words and its name, and nothing has changed.
  void ExpectRefused(const fs::path& backup, const std::string& words) const {
    const std::string before = Dump(File());
    const auto names = NamesIn(Folder());
    const Refusal refusal = RefusalOf([&] { RestoreBackup(backup, File()); });
    EXPECT_NE(refusal.text.find(words), std::string::npos) << refusal.text;
    EXPECT_NE(refusal.text.find(backup.filename().string()), std::string::npos) << refusal.text;
    EXPECT_EQ(Dump(File()), before);
    EXPECT_EQ(NamesIn(Folder()), names);
  }

  fs::path backup_;
  std::string backedUp_;
};

TEST_F(RestoreTest, PutsTheBackupBackAndKeepsTheReplacedFileUntilTheNextOne) {
  const std::string replaced = Dump(File());
  const fs::path first = RestoreBackup(backup_, File());
  EXPECT_EQ(Dump(File()), backedUp_);
  EXPECT_EQ(first, Folder() / "Kelnar01_Inlocuit_09.07.2026_08.05.59.mdb");
  EXPECT_EQ(Dump(first), replaced);
  EXPECT_EQ(Dump(backup_), backedUp_);

  // What was replaced can be put back, and is not lost by that.
  clock::Set(DateTime(2026, 7, 9, 9, 0));
  const fs::path second = RestoreBackup(first, File());
  EXPECT_EQ(Dump(File()), replaced);
  EXPECT_EQ(Dump(second), backedUp_);
  EXPECT_TRUE(fs::exists(first));
  const fs::path third = RestoreBackup(backup_, File());  // within the same second
  EXPECT_NE(third, second);
  EXPECT_EQ(NamesIn(Folder()), (std::vector<std::string>{"Kelnar.mdb", "Kelnar01.mdb",
                                                         third.filename(), "Salv_Tevra"}));
}

TEST_F(RestoreTest, SaysWhatTheFileIsAndWhetherItIsAnothers) {
  const CompanyContent content = Inspect(backup_);
  EXPECT_EQ(Description(content),
            "Firma Veche SRL, cod fiscal RO 12\nSalvata la 09.07.2026 08:05, structura " +
                std::to_string(kRevision) + "\n1 imobilizare, 0 inregistrari contabile");
  EXPECT_EQ(Inspect(File()).moment > DateTime(2026, 1, 1), true);  // of the file itself

  const auto other = [](const char* nameA, const char* codeA, const char* nameB,
                        const char* codeB) {
    CompanyContent a{"/x/Altceva.mdb", nameA, codeA, 1, {}, 0, 0};
    return OfAnotherCompany(a, {"/y/Kelnar01.mdb", nameB, codeB, 1, {}, 0, 0});
  };
  EXPECT_FALSE(other("Veche", "12", "Noua", "12"));  // renamed
  EXPECT_TRUE(other("A", "12", "A", "13"));
  EXPECT_FALSE(other("A", "12", "a", ""));
  EXPECT_TRUE(other("A", "12", "B", ""));
  EXPECT_TRUE(other("", "", "B", ""));
  EXPECT_TRUE(other("", "", "", ""));
  CompanyContent unnamed{"/x/_kelnar01_09.07.2026_08.05.mdb", "", "", 1, {}, 0, 0};
  EXPECT_FALSE(OfAnotherCompany(unnamed, {"/y/Kelnar01.mdb", "", "", 1, {}, 0, 0}));
}

TEST_F(RestoreTest, RefusesWhatIsNoUsableBackup) {
  ExpectRefused(WriteFile(Folder() / "Salv_Tevra" / "scrisoare.mdb", "Stimate domn"),
                "nu este o baza de date a unei societati");
  ExpectRefused(Folder() / "Salv_Tevra" / "nimic.mdb", "nu exista");
  ExpectRefused(File(), "chiar baza de date");
  const fs::path copy = Folder() / "Salv_Tevra" / "copie.mdb";
  CopyCompanyFile(backup_, copy);
  Change(copy, "UPDATE kv_info SET VERSIUNE = " + std::to_string(kRevision + 1));
  ExpectRefused(copy, "a unui program mai nou");
  Change(copy, "UPDATE kv_info SET VERSIUNE = NULL");
  Change(copy, "DROP TABLE UTILIZATORI");
  ExpectRefused(copy, "ii lipseste tabela UTILIZATORI");
}

TEST_F(RestoreTest, RefusesABackupThatIsStillBeingWritten) {
  const fs::path copy = Folder() / "Salv_Tevra" / "copie.mdb";
  const std::string whole = Content(backup_);
  for (std::size_t length = 1024; length < whole.size(); length += 61 * 1024) {
    WriteFile(copy, whole.substr(0, length));
    ExpectRefused(copy, "");
  }
  WriteFile(copy, whole);
  {
    sqlite3* writer = nullptr;
    ASSERT_EQ(sqlite3_open(copy.c_str(), &writer), SQLITE_OK);
    sqlite3_exec(writer, "BEGIN EXCLUSIVE; DELETE FROM I_CLASIFICARE", nullptr, nullptr, nullptr);
    ExpectRefused(copy, "folosita de alt program");
    sqlite3_close(writer);
  }
  RestoreBackup(copy, File());
  EXPECT_EQ(Dump(File()), backedUp_);
}

TEST_F(RestoreTest, ChangesNothingWhileTheFileIsOpenOrTheDiskIsFull) {
  const std::string before = Dump(File());
  const auto names = NamesIn(Folder());
  {
    const Connection user = company_.Open();
    const Refusal refusal = RefusalOf([&] { RestoreBackup(backup_, File()); });
    EXPECT_EQ(refusal.number, kPermissionDenied);
    EXPECT_NE(refusal.text.find(File().string()), std::string::npos) << refusal.text;
  }
  {
    const FileSizeLimit full(fs::file_size(File()) / 2);
    EXPECT_NE(FailureOf([&] { RestoreBackup(backup_, File()); }), 0);
  }
  EXPECT_THROW(RestoreBackup(backup_, File(), [](int, int) { return false; }), GivenUp);
  EXPECT_EQ(Dump(File()), before);
  EXPECT_EQ(NamesIn(Folder()), names);
}

TEST_F(RestoreTest, ReplacesADamagedFileAndAMissingOne) {
  std::string damaged = Content(File());
  damaged.replace(100, 4000, std::string(4000, 'x'));
  fs::path kept;
  for (const std::string& content : {damaged, std::string("altceva")}) {
    WriteFile(File(), content);
    if (content != damaged) WriteFile(File().string() + "-wal", "rest");
    kept = RestoreBackup(backup_, File());
    EXPECT_EQ(Content(kept), content);
    EXPECT_FALSE(fs::exists(File().string() + "-wal"));
    EXPECT_EQ(Dump(File()), backedUp_);
  }
  EXPECT_EQ(Content(kept.string() + "-wal"), "rest");

  fs::remove(File());
  EXPECT_EQ(RestoreBackup(backup_, File()), "");
  EXPECT_EQ(Dump(File()), backedUp_);
  EXPECT_TRUE(fs::exists(kept));
}

TEST_F(RestoreTest, AKilledOneLeavesTheOldOrTheNewFile) {
  const std::string before = Dump(File());
  const fs::path old = Folder() / "vechi";
  fs::copy_file(File(), old);
  WriteCounter counter;
  const auto work = [&] { RestoreBackup(backup_, File()); };
  const int writes = counter.WritesOf(work);
  ASSERT_GT(writes, 50);
  for (int killed = 1; killed <= writes; killed += 1 + writes / 200) {
    fs::copy_file(old, File(), fs::copy_options::overwrite_existing);
    EXPECT_TRUE(counter.KilledIn(killed, work)) << killed;
    const std::string now = Dump(File());
    EXPECT_TRUE(now == before || now == backedUp_) << killed;
    EXPECT_EQ(Dump(backup_), backedUp_);
  }
  work();
  EXPECT_EQ(Dump(File()), backedUp_);
}

}  // namespace
}  // namespace tevra::test
