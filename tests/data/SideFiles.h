// A company of many rows, and processes that are killed before their changes are in its file.
#pragma once

#include <functional>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/data/DataTest.h"

namespace tevra {

namespace fs = std::filesystem;

class SideFileTest : public DataTest {
 protected:
  static constexpr int kRows = 1500;

  void SetUp() override {
    DataTest::SetUp();
    MakeCompany(file_, "noastra", kRows);
  }

  static void MakeCompany(const fs::path& file, const std::string& name, int rows) {
    Connection company(StringOf(file));
    company.Execute("CREATE TABLE T_NUME (NUME TEXT(50))");
    company.Execute("CREATE TABLE T_LIN (ID INTEGER PRIMARY KEY, VAL INTEGER, NOTA TEXT(60))");
    company.Execute("CREATE INDEX I_VAL ON T_LIN (VAL)");
    company.Execute("INSERT INTO T_NUME VALUES (?)", {name});
    company.Execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
        "INSERT INTO T_LIN SELECT i, i, 'nota contabila ' || i FROM n",
        {rows});
  }

  // One transaction that changes pages everywhere in the file, in place.
  static void Change(Connection& company, int by) {
    company.Execute("UPDATE T_LIN SET VAL = VAL + ? WHERE ID % 3 = 0", {by});
  }

  static void Work(const fs::path& file, int by = 1) {
    Connection company(StringOf(file));
    Change(company, by);
  }

  static std::string StateOf(Connection& company) {
    return company.QueryValue("SELECT NUME FROM T_NUME").TextOrEmpty() + ' ' +
           company.QueryValue("SELECT COUNT(*) FROM T_LIN").TextOrEmpty() + ' ' +
           company.QueryValue("SELECT SUM(VAL * ID) FROM T_LIN").TextOrEmpty();
  }
  static std::string StateOf(const fs::path& file) {
    Connection company(StringOf(file));
    return StateOf(company);
  }

  // Another process runs `work` and is killed.
  static void InKilledProcess(const std::function<void()>& work) {
    const pid_t child = fork();
    ASSERT_NE(-1, child);
    if (child == 0) {
      try {
        work();
        kill(getpid(), SIGKILL);
      } catch (const Failure& failure) {
        fprintf(stderr, "%s\n", failure.what());
      }
      _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
  }

  // Committed by a process that is killed before anything is moved into the file.
  void LeaveChanges(int by = 1000) const {
    InKilledProcess([&] {
      Connection company = Open();
      Change(company, by);
      kill(getpid(), SIGKILL);
    });
  }

  std::vector<fs::path> Found(const std::string& begin) const {
    std::vector<fs::path> found;
    for (const auto& name : NamesIn(folder_)) {
      if (name.rfind(begin, 0) == 0) found.push_back(folder_ / name);
    }
    return found;
  }
  std::vector<fs::path> SetAside() const { return Found("Kelnar01.mdb-wal."); }

  // The file can be worked on, stays in order, and nothing lies beside it.
  void ExpectState(const std::string& state, const fs::path& file) const {
    EXPECT_EQ(state, StateOf(file));
    Work(file);
    EXPECT_EQ("ok", Raw(file, "PRAGMA integrity_check"));
    EXPECT_FALSE(fs::exists(file.string() + "-wal"));
  }
};

}  // namespace tevra
