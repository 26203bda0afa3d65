// Another file comes to stand under the name of a company file: while somebody works on it, or
// while the changes of somebody who was killed still wait beside it. Neither file may be harmed.

#include <optional>

#include <sys/wait.h>
#include <unistd.h>

#include "platform/data/Database.h"
#include "tests/data/SideFiles.h"

namespace tevra {
namespace {

enum class Way { Renamed, Truncated, Overwritten };
enum class Other { OtherCompany, OlderCopy, OlderCopyWorkedOn, Smaller };

struct Replacement {
  Way way;
  Other other;
};

class ReplacedFileTest : public SideFileTest, public ::testing::WithParamInterface<Replacement> {
 protected:
  void SetUp() override {
    SideFileTest::SetUp();
    replacement_ = folder_ / "alta.mdb";
    MakeReplacement();
    expected_ = StateOf(replacement_);
    content_ = Content(replacement_);
  }

  void MakeReplacement() const {
    switch (GetParam().other) {
      case Other::OtherCompany:
        MakeCompany(NewFile("alta.mdb"), "cealalta", kRows);
        break;
      case Other::OlderCopy:
      case Other::OlderCopyWorkedOn:
        fs::copy_file(file_, replacement_);
        Work(file_);
        if (GetParam().other == Other::OlderCopyWorkedOn) Work(replacement_, 7);
        break;
      case Other::Smaller:
        MakeCompany(NewFile("alta.mdb"), "mica", 5);
        break;
    }
  }

  void Replace() const {
    if (GetParam().way == Way::Renamed) {
      fs::rename(replacement_, file_);
      return;
    }
    const bool truncated = GetParam().way == Way::Truncated;
    std::fstream to(file_, std::ios::in | std::ios::out | std::ios::binary |
                               (truncated ? std::ios::trunc : std::ios::openmode{}));
    to << content_ << std::flush;
    ASSERT_TRUE(to.good());
    to.close();
    fs::resize_file(file_, content_.size());
  }

  void ExpectReplacementWhole() const { ExpectState(expected_, file_); }

  fs::path replacement_;
  std::string expected_;
  std::string content_;
};

TEST_P(ReplacedFileTest, ChangesOfTheFileOfBeforeAreSetAside) {
  LeaveChanges();
  const std::string waiting = Content(file_.string() + "-wal");
  ASSERT_FALSE(waiting.empty());
  Replace();
  ExpectReplacementWhole();
  ASSERT_EQ(1u, SetAside().size());
  EXPECT_EQ(waiting, Content(SetAside()[0]));
}

TEST_P(ReplacedFileTest, UncommittedChangesOfTheFileOfBeforeDoNoHarm) {
  InKilledProcess([&] {
    Connection company = Open();
    company.Execute("PRAGMA cache_size=20");
    company.BeginTrans();
    Change(company, 1000);
    kill(getpid(), SIGKILL);
  });
  ASSERT_GT(fs::file_size(file_.string() + "-wal"), 32u);
  Replace();
  ExpectReplacementWhole();
}

TEST_P(ReplacedFileTest, CommitIsRefusedWhenTheFileWasReplaced) {
  std::string before;
  {
    Connection other = Open();  // the last to close saves what the old file held
    StateOf(other);
    Connection company = Open();
    Change(company, 1000);  // waits in the side file
    before = StateOf(company);
    company.BeginTrans();
    Change(company, 5);
    Replace();
    ExpectRefused(kDatabaseNotOpened, file_.string(), [&] { company.CommitTrans(); });
    company.RollbackTrans();
    ExpectRefused(kDatabaseNotOpened, file_.string(), [&] { Change(company, 5); });
    ExpectRefused(kDatabaseNotOpened, file_.string(), [&] { company.BeginTrans(); });
    EXPECT_FALSE(fs::exists(file_.string() + "-shm")) << "others would share the old index";
  }
  EXPECT_EQ(1u, SetAside().size()) << "before anybody opens the new file";
  ExpectReplacementWhole();
  // What the old file held goes with its name only.
  const auto saved = Found("Kelnar01.mdb.2");
  ASSERT_EQ(GetParam().way == Way::Renamed ? 1u : 0u, saved.size());
  if (!saved.empty()) ExpectState(before, saved[0]);
}

// Too late to be refused, the commit is not told as done: it is in the changes set aside.
TEST_P(ReplacedFileTest, AFileReplacedWhileTheCommitIsWrittenIsNoticed) {
  {
    Connection company = Open();
    std::function<void()> replace = [&] { Replace(); };
    const auto runIt = [](void* call) {
      (*static_cast<std::function<void()>*>(call))();
      return 0;
    };
    sqlite3* db = detail::DatabaseOf(company)->db;
    const bool inTransaction = GetParam().other != Other::Smaller;
    sqlite3_commit_hook(db, runIt, &replace);
    ExpectRefused(kDatabaseNotOpened, "inlocuita", [&] {
      std::optional<Transaction> begun;
      if (inTransaction) begun.emplace(company);
      Change(company, 5);
      if (begun) begun->Commit();
    });
    EXPECT_EQ(0, company.TransactionDepth());
    sqlite3_commit_hook(db, nullptr, nullptr);
  }
  ExpectReplacementWhole();
  EXPECT_EQ(1u, SetAside().size());
}

TEST_P(ReplacedFileTest, WorkBegunOnAReplacedFileIsRefused) {
  {
    Connection company = Open();
    StateOf(company);
    Replace();
    ExpectRefused(kDatabaseNotOpened, file_.string(), [&] { Change(company, 5); });
  }
  ExpectReplacementWhole();
}

TEST_P(ReplacedFileTest, ClosingHarmsNoFileThatCameMeanwhile) {
  {
    Connection company = Open();
    Change(company, 1000);
    Replace();
  }
  ExpectReplacementWhole();
}

// One process still works on the file of before when another opens the one that came.
TEST_P(ReplacedFileTest, WhoOpensTheNewFileTakesNothingFromThoseWhoHoldTheOld) {
  Connection company = Open();
  Change(company, 1000);
  Replace();
  const pid_t child = fork();
  ASSERT_NE(-1, child);
  if (child == 0) {
    bool same = false;
    try {
      same = StateOf(file_) == expected_;
    } catch (const Failure& failure) {
      // Overwritten in place, the file is one that somebody has open.
      same = GetParam().way != Way::Renamed;
    }
    _exit(same ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(0, status);
  ExpectRefused(kDatabaseNotOpened, file_.string(), [&] { Change(company, 5); });
  company.Close();
  ExpectReplacementWhole();
}

std::string NameOf(const ::testing::TestParamInfo<Replacement>& info) {
  static const char* const kWays[] = {"Renamed", "Truncated", "Overwritten"};
  static const char* const kOthers[] = {"OtherCompany", "OlderCopy", "OlderCopyWorkedOn",
                                        "Smaller"};
  return std::string(kOthers[static_cast<int>(info.param.other)]) +
         kWays[static_cast<int>(info.param.way)];
}

std::vector<Replacement> AllReplacements() {
  std::vector<Replacement> all;
  for (const Way way : {Way::Renamed, Way::Truncated, Way::Overwritten}) {
    for (const Other other :
         {Other::OtherCompany, Other::OlderCopy, Other::OlderCopyWorkedOn, Other::Smaller}) {
      all.push_back({way, other});
    }
  }
  return all;
}

INSTANTIATE_TEST_SUITE_P(Replacements, ReplacedFileTest, ::testing::ValuesIn(AllReplacements()),
                         NameOf);

}  // namespace
}  // namespace tevra
