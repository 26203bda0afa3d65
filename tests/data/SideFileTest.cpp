// Changes wait beside a company file when it is opened, or come from others while it is open.

#include "tests/data/SideFiles.h"

namespace tevra {
namespace {

// Whoever is killed loses nothing that he committed.
TEST_F(SideFileTest, ChangesOfAKilledProcessAreThereAtTheNextOpening) {
  const std::string before = StateOf(file_);
  for (const bool moved : {false, true}) {
    SCOPED_TRACE(moved ? "partly moved into the file" : "all waiting");
    InKilledProcess([&] {
      Connection company = Open();
      Change(company, 1);
      if (moved) company.Execute("PRAGMA wal_checkpoint(PASSIVE)");
      Change(company, 2);
      kill(getpid(), SIGKILL);
    });
    const fs::path copy = folder_ / (moved ? "copie2.mdb" : "copie1.mdb");
    fs::copy_file(file_, copy);
    fs::copy_file(file_.string() + "-wal", copy.string() + "-wal");
    const fs::path link = folder_ / (moved ? "legatura2.mdb" : "legatura1.mdb");
    fs::create_symlink(copy, link);
    Connection company(StringOf(link));
    const std::string after = StateOf(company);
    EXPECT_NE(before, after);
    EXPECT_EQ(after, StateOf(file_));
    Change(company, 3);
    company.Close();
    EXPECT_EQ("ok", Raw(copy, "PRAGMA integrity_check"));
    EXPECT_EQ("ok", Raw(file_, "PRAGMA integrity_check"));
  }
  EXPECT_TRUE(SetAside().empty());
}

TEST_F(SideFileTest, WhateverOpensTheFileLooksAtTheChangesFirst) {
  const fs::path copy = folder_ / "veche.mdb";
  fs::copy_file(file_, copy);
  const std::string before = StateOf(file_);
  const std::vector<std::pair<std::string, std::function<void()>>> openings = {
      {"to read", [&] { Open("Mode=Read"); }},
      {"alone", [&] { Open("Mode=Share Exclusive"); }},
      {"sole use", [&] { RequireSoleUse(file_); }},
      {"copy of it", [&] { CopyCompanyFile(file_, folder_ / "copie.mdb"); }},
      {"copy to it", [&] { CopyCompanyFile(copy, file_); }}};
  for (const auto& [name, open] : openings) {
    SCOPED_TRACE(name);
    Work(file_);  // the copy is an older one
    LeaveChanges();
    fs::copy_file(copy, file_, fs::copy_options::overwrite_existing);
    open();
    ExpectState(before, file_);
  }
  EXPECT_EQ(openings.size(), SetAside().size());
}

// Changes that bear no mark are used if the file is in order with them.
TEST_F(SideFileTest, ChangesOfAnotherProgramAreTried) {
  const auto unmarked = [&](const std::string& name, int rows) {
    const fs::path file = NewFile(name);
    Raw(file,
        "PRAGMA journal_mode=WAL; CREATE TABLE T_LIN (ID INTEGER PRIMARY KEY, VAL INTEGER); "
        "CREATE INDEX I_VAL ON T_LIN (VAL); WITH n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
        "FROM n WHERE i < " +
            std::to_string(rows) + ") INSERT INTO T_LIN SELECT i, i FROM n");
    return file;
  };
  const fs::path company = unmarked("a.mdb", 2000);
  const fs::path other = unmarked("b.mdb", 4000);
  const auto leave = [&] {
    InKilledProcess([&] {
      sqlite3* db = nullptr;
      sqlite3_open(company.c_str(), &db);
      sqlite3_exec(db, "UPDATE T_LIN SET VAL = VAL + 5000 WHERE ID % 3 = 0", nullptr, nullptr,
                   nullptr);
      kill(getpid(), SIGKILL);
    });
  };
  const std::string sum = "SELECT SUM(VAL) FROM T_LIN";
  leave();
  EXPECT_EQ(2001000 + 666 * 5000, Connection(StringOf(company)).QueryValue(sum).AsLong());
  leave();
  fs::copy_file(other, company, fs::copy_options::overwrite_existing);
  EXPECT_EQ(4000 * 4001 / 2, Connection(StringOf(company)).QueryValue(sum).AsLong());
  EXPECT_EQ(1u, Found("a.mdb-wal.").size());
  EXPECT_EQ("ok", Raw(company, "PRAGMA integrity_check"));
}

TEST_F(SideFileTest, ADamagedFileIsRefusedAndItsChangesStay) {
  LeaveChanges();
  {
    std::fstream damage(file_, std::ios::in | std::ios::out | std::ios::binary);
    damage.seekp(4096);
    damage << std::string(4096, '\x7f');
  }
  const std::string file = Content(file_);
  const std::string waiting = Content(file_.string() + "-wal");
  ExpectRefused(kDatabaseNotOpened, "deteriorata: " + file_.string(), [&] { Open(); });
  EXPECT_EQ(file, Content(file_));
  EXPECT_EQ(waiting, Content(file_.string() + "-wal"));
}

// An idle connection shares its index with whoever opens the name of its file.
TEST_F(SideFileTest, AnIdleConnectionDoesNotDisturbTheFileThatCame) {
  const fs::path other = NewFile("alta.mdb");
  MakeCompany(other, "cealalta", kRows);
  Connection idle = Open();
  StateOf(idle);
  fs::rename(other, file_);
  {
    Connection company = Open();
    Change(company, 5);
    const std::string state = StateOf(company);
    ExpectRefused(kDatabaseNotOpened, file_.string(), [&] { Change(idle, 7); });
    idle.Close();
    Change(company, 5);
    EXPECT_NE(state, StateOf(company));
    EXPECT_EQ(StateOf(company), StateOf(file_));
  }
  EXPECT_EQ("ok", Raw(file_, "PRAGMA integrity_check"));
  EXPECT_EQ(std::vector<std::string>{"Kelnar01.mdb"}, NamesIn(folder_));
}

TEST_F(SideFileTest, ALinkThatLeadsElsewhereIsNoticed) {
  const fs::path other = NewFile("alta.mdb");
  MakeCompany(other, "cealalta", kRows);
  const fs::path link = folder_ / "legatura.mdb";
  fs::create_symlink(file_, link);
  std::string state;
  {
    Connection company(StringOf(link));
    Change(company, 5);
    state = StateOf(company);
    fs::remove(link);
    fs::create_symlink(other, link);
    ExpectRefused(kDatabaseNotOpened, link.string(), [&] { Change(company, 7); });
  }
  EXPECT_EQ(std::vector<std::string>({"Kelnar01.mdb", "alta.mdb", "legatura.mdb"}),
            NamesIn(folder_));
  ExpectState(state, file_);
}

// Two who work in turns see each other's commits moved into the file, and nothing is amiss.
TEST_F(SideFileTest, CommitsOfOthersAreNoReplacement) {
  Connection first = Open();
  Connection second = Open();
  for (int i = 0; i < 10; ++i) {
    Change(first, 1);
    if (i % 3 == 0) second.Execute("PRAGMA wal_checkpoint(TRUNCATE)");
    InKilledProcess([&] {
      Connection third = Open();
      Change(third, 1);
      if (i % 2 == 0) third.Execute("PRAGMA wal_checkpoint(PASSIVE)");
      kill(getpid(), SIGKILL);
    });
    Change(second, 1);
  }
  second.Execute("PRAGMA wal_checkpoint(TRUNCATE)");
  Change(first, 1);
  EXPECT_EQ(StateOf(first), StateOf(second));
  first.Close();
  second.Close();
  EXPECT_EQ(std::vector<std::string>{"Kelnar01.mdb"}, NamesIn(folder_));
}

TEST_F(SideFileTest, ASideFileRemovedByHandIsNoLossUntilOthersHaveTheirOwn) {
  const std::string side = file_.string() + "-wal";
  {
    Connection alone = Open();
    Change(alone, 1);
    fs::remove(side);
    Change(alone, 1);
  }
  EXPECT_EQ("2", Raw(file_, "SELECT VAL - ID FROM T_LIN WHERE ID = 3"));
  Connection company = Open();
  Change(company, 1);
  fs::copy_file(side, folder_ / "alta");
  fs::rename(folder_ / "alta", side);
  ExpectRefused(kDatabaseNotOpened, file_.string(), [&] { Change(company, 1); });
}

TEST_F(SideFileTest, AFileReplacedByItsOwnCopyKeepsItsChanges) {
  std::string state;
  {
    Connection company = Open();
    Change(company, 1);
    state = StateOf(company);
    fs::copy_file(file_, folder_ / "copie.mdb");
    fs::rename(folder_ / "copie.mdb", file_);
    ExpectRefused(kDatabaseNotOpened, file_.string(), [&] { Change(company, 1); });
  }
  ExpectState(state, file_);
}

TEST_F(SideFileTest, ATransactionThatChangesNothingWritesNothing) {
  Connection company = Open();
  Change(company, 1);
  const auto size = fs::file_size(file_.string() + "-wal");
  company.BeginTrans();
  StateOf(company);
  company.CommitTrans();
  EXPECT_EQ(size, fs::file_size(file_.string() + "-wal"));
}

// Another program changes the file without a side file and is killed within its transaction.
void LeaveJournal(const fs::path& file) {
  const pid_t child = fork();
  ASSERT_NE(-1, child);
  if (child == 0) {
    sqlite3* db = nullptr;
    sqlite3_open(file.c_str(), &db);
    sqlite3_exec(db,
                 "PRAGMA journal_mode=DELETE; PRAGMA cache_size=2; BEGIN; "
                 "UPDATE T_LIN SET VAL = VAL + 7, NOTA = NOTA || ' schimbata'",
                 nullptr, nullptr, nullptr);
    kill(getpid(), SIGKILL);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));
  ASSERT_TRUE(fs::exists(file.string() + "-journal"));
}

TEST_F(SideFileTest, AJournalOfTheFileIsWrittenBack) {
  const std::string before = StateOf(file_);
  LeaveJournal(file_);
  ExpectState(before, file_);
  EXPECT_TRUE(Found("Kelnar01.mdb-journal").empty());
}

TEST_F(SideFileTest, AJournalOfAnotherFileIsSetAside) {
  const fs::path other = NewFile("alta.mdb");
  MakeCompany(other, "alta", kRows);
  const fs::path older = folder_ / "veche.mdb";
  fs::copy_file(file_, older);
  for (int i = 0; i < 3; ++i) Work(file_);
  const std::string journal = file_.string() + "-journal";
  for (const fs::path& source : {other, older}) {
    SCOPED_TRACE(source);
    const std::string before = StateOf(file_);
    LeaveJournal(source);
    fs::rename(source.string() + "-journal", journal);
    ExpectState(before, file_);
    EXPECT_FALSE(fs::exists(journal));
  }
  EXPECT_EQ(2U, Found("Kelnar01.mdb-journal.").size());
}

TEST_F(SideFileTest, AFileDamagedWithAndWithoutAJournalIsRefused) {
  const fs::path other = NewFile("alta.mdb");
  MakeCompany(other, "alta", kRows);
  LeaveJournal(other);
  fs::rename(other.string() + "-journal", file_.string() + "-journal");
  std::fstream file(file_, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(4096);
  file.write(std::string(4096, 'x').c_str(), 4096);
  file.close();
  const std::string damaged = Content(file_);
  ExpectRefused(kDatabaseNotOpened, "", [&] { Open(); });
  EXPECT_TRUE(damaged == Content(file_));
  EXPECT_TRUE(fs::exists(file_.string() + "-journal"));
}

}  // namespace
}  // namespace tevra
