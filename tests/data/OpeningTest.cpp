// Which files open, which are refused, and in whose words.

#include <thread>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/data/FilePassword.h"
#include "platform/text/Invariant.h"
#include "tests/data/DataTest.h"

namespace fs = std::filesystem;

namespace tevra {
namespace {

using OpeningTest = DataTest;

TEST_F(OpeningTest, WhatIsNoCompanyFileIsRefusedByName) {
  Raw(folder_ / "plain.mdb", "CREATE TABLE T (A)");
  Make("text.mdb", std::string(5000, 'x'));
  Make("short.mdb", "SQLite format 3");
  Make("empty.mdb", "");
  fs::create_directory(folder_ / "folder.mdb");
  MakeAssets(Open());
  fs::copy_file(file_, folder_ / "cut.mdb");
  fs::resize_file(folder_ / "cut.mdb", fs::file_size(file_) - 4096);
  Make("pages.mdb", Content(file_).replace(100, 3000, 3000, '\x7f'));
  fs::copy_file(file_, folder_ / "stub.mdb");
  fs::resize_file(folder_ / "stub.mdb", 60);

  const std::vector<std::pair<std::string, std::string>> cases = {
      {"missing.mdb", "nu exista"},
      {"text.mdb", "nu este o baza de date"},
      {"plain.mdb", "nu este o baza de date"},
      {"short.mdb", "nu este o baza de date"},
      {"empty.mdb", "nu este o baza de date"},
      {"folder.mdb", "nu este o baza de date"},
      {"cut.mdb", "deteriorata"},
      {"stub.mdb", "nu este o baza de date"},
      {"pages.mdb", "deteriorata: "}};
  for (const auto& [name, words] : cases) {
    SCOPED_TRACE(name);
    const auto file = folder_ / name;
    const auto sizeBefore = fs::is_regular_file(file) ? fs::file_size(file) : 0;
    ExpectRefused(kDatabaseNotOpened, words, [&] { Connection connection(StringOf(file)); });
    ExpectRefused(kDatabaseNotOpened, file.string(),
                  [&] { Connection connection(StringOf(file)); });
    EXPECT_EQ(name != "missing.mdb", fs::exists(file));
    EXPECT_EQ(sizeBefore, fs::is_regular_file(file) ? fs::file_size(file) : 0);
    EXPECT_FALSE(fs::exists(file.string() + "-wal"));
  }
}

TEST_F(OpeningTest, NamesAreFoundWithoutCaseAndWithBackslashes) {
  fs::create_directory(folder_ / "Date");
  fs::rename(file_, folder_ / "Date" / "Kelnar01.mdb");
  std::string written = folder_.string() + "\\DATE\\\\KELNAR01.MDB";
  Connection connection("Data Source=" + written + ";Mode=ReadWrite|Share Deny None");
  EXPECT_EQ((folder_ / "Date" / "Kelnar01.mdb").string(), connection.Path());
}

TEST_F(OpeningTest, PasswordIsAskedAtEveryOpen) {
  Connection owner = Open();
  SetFilePassword(owner, "QX=7;'\"");  // whatever a connection string can carry but ";"
  SetFilePassword(owner, "QX=7 '\"");
  const std::string key = "Jet OLEDB:Database Password=";
  const std::vector<std::pair<std::string, bool>> cases = {{"", false},
                                                           {key, false},
                                                           {key + "qx=7 '\"", false},
                                                           {key + "QX=7", false},
                                                           {key + "QX=7 '\"", true}};
  for (const auto& [password, fits] : cases) {
    SCOPED_TRACE(password);
    const Refusal refusal = RefusalOf([&] { Open(password); });
    EXPECT_EQ(fits ? 0L : long{kDatabaseNotOpened}, refusal.number);
    EXPECT_EQ(fits ? "(no failure)" : "Not a valid password.", refusal.text);
  }
  EXPECT_EQ("",
            Raw(file_, "SELECT 1 FROM sys_parola WHERE AMPRENTA LIKE '%QX%' OR SARE LIKE '%QX%'"));

  SetFilePassword(owner, "nou");
  ExpectRefused(kDatabaseNotOpened, "Not a valid password.", [&] { Open(key + "QX=7 '\""); });
  EXPECT_TRUE(Open(key + "nou").IsOpen());
  SetFilePassword(owner, "");
  EXPECT_TRUE(Open().IsOpen());
}

TEST_F(OpeningTest, ClosedConnectionSaysSo) {
  Connection connection;
  EXPECT_EQ(kObjectRequired, FailureOf([&] { connection.Execute("SELECT 1"); }));
  EXPECT_EQ(kObjectRequired, FailureOf([&] { (void)Catalogue(connection).Tables(); }));
  EXPECT_EQ(kObjectRequired, FailureOf([&] { Recordset().MoveNext(); }));
}

TEST_F(OpeningTest, WriteProtectedFileCanBeReadOnly) {
  MakeAssets(Open());
  fs::permissions(file_, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                  fs::perm_options::remove);
  {
    Connection connection = Open();
    EXPECT_EQ(3, connection.QueryValue("SELECT COUNT(*) FROM T_IMO").AsLong());
    EXPECT_FALSE(fs::exists(file_.string() + "-wal"));
    Recordset rows = connection.OpenRecordset("SELECT * FROM T_IMO");
    rows.Set("DENUMIRE", "altul");
    ExpectRefused(kPermissionDenied, file_.string(), [&] { rows.Update(); });
    ExpectRefused(kPermissionDenied, file_.string(),
                  [&] { connection.Execute("DELETE FROM T_IMO"); });
    Transaction transaction(connection);
    EXPECT_EQ(kPermissionDenied, FailureOf([&] { connection.Execute("DELETE FROM T_LOC"); }));
  }
  ExpectRefused(kPermissionDenied, file_.string(), [&] { Open("Mode=Share Exclusive"); });
  ExpectRefused(kPermissionDenied, file_.string(), [&] { RequireSoleUse(file_); });
}

// A reader must see what others write meanwhile: only a file that nobody can write may be taken as
// still.
TEST_F(OpeningTest, ReaderOfAWritableFileSeesLaterChanges) {
  MakeAssets(Open());
  Connection reader = Open("Mode=Read");
  EXPECT_EQ(3, reader.QueryValue("SELECT COUNT(*) FROM T_IMO").AsLong());
  {
    Connection writer = Open();
    writer.Execute("DELETE FROM T_IMO WHERE COD = '100'");
  }
  EXPECT_EQ(2, reader.QueryValue("SELECT COUNT(*) FROM T_IMO").AsLong());
  ExpectRefused(kPermissionDenied, file_.string(), [&] { reader.Execute("DELETE FROM T_IMO"); });
}

TEST_F(OpeningTest, ExclusiveUseAndCommonUseExcludeEachOther) {
  {
    const Connection other = Open();
    ExpectRefused(kPermissionDenied, file_.string(), [&] { Open("Mode=Share Exclusive"); });
  }
  {
    Connection alone = Open("Mode=Share Exclusive");
    MakeAssets(alone);
    ExpectRefused(kDatabaseNotOpened, file_.string(), [&] { Open(); });
    ExpectRefused(kPermissionDenied, file_.string(), [&] { RequireSoleUse(file_); });
  }
  EXPECT_EQ(3, Open().QueryValue("SELECT COUNT(*) FROM T_IMO").AsLong());
}

// Opening a second time, or merely looking whether it is a company file, must leave the first
// connection's locks alone. Another process looks, since to one process its own locks are no
// hindrance.
TEST_F(OpeningTest, LookingAtAFileKeepsItsLocks) {
  const Connection first = Open();
  Open();
  CheckCompanyFile(file_);
  const pid_t child = fork();
  ASSERT_NE(-1, child);
  if (child == 0) {
    // Where the engine's readers hold their place: behind its two marks at 1 GiB.
    struct flock range {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    range.l_start = 0x40000002;
    range.l_len = 510;
    const int file = open(file_.c_str(), O_RDWR);
    _exit(file >= 0 && fcntl(file, F_GETLK, &range) == 0 && range.l_type != F_UNLCK ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(0, status) << "the file is no longer held";
}

// The engine's handle has no mutex of its own.
TEST_F(OpeningTest, AConnectionIsRefusedInAnotherThread) {
  Connection connection = Open();
  std::thread([&] {
    ExpectRefused(kBrokenInvariant, "alt fir", [&] { (void)connection.QueryValue("SELECT 1"); });
    ExpectRefused(kBrokenInvariant, "alt fir", [&] { connection.BeginTrans(); });
  }).join();
  EXPECT_EQ(1, connection.QueryValue("SELECT 1").AsLong());
}

}  // namespace
}  // namespace tevra
