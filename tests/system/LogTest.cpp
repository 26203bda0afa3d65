// The log of failures: whole lines from several programs, nothing that a user typed.
#include <sstream>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/system/Log.h"
#include "platform/system/LogText.h"
#include "platform/system/StandardError.h"
#include "platform/system/UserFolders.h"
#include "platform/text/Dates.h"
#include "platform/text/FailureText.h"
#include "platform/text/Numbers.h"
#include "tests/system/Folder.h"

namespace tevra::log {
namespace {

namespace fs = std::filesystem;

class LogTest : public FolderTest {
 protected:
  fs::path File() const { return folder_ / "stare" / "tevra.log"; }
  static std::vector<std::string> Lines(const fs::path& file) {
    std::istringstream in(Content(file));
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }
};

TEST_F(LogTest, ALineTellsMomentAndProcess) {
  LogFile(File()).Append("prima");
  LogFile(File()).Append("a doua");
  const auto lines = Lines(File());
  ASSERT_EQ(lines.size(), 2U);
  const std::string process = " [" + std::to_string(getpid()) + "] ";
  EXPECT_EQ(lines[1].substr(19), process + "a doua");
  EXPECT_TRUE(DateTime::FromIso(lines[1].substr(0, 19))) << lines[1];
  struct stat status {};
  ASSERT_EQ(stat(File().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600U) << "nobody else reads it";
}

TEST_F(LogTest, AFullFileMovesAwayAndOldOnesGo) {
  const LogFile log(File(), 100);
  for (int i = 1; i <= 9; ++i) log.Append("linia " + std::to_string(i) + std::string(30, '.'));
  EXPECT_EQ(NamesIn(File().parent_path()),
            (std::vector<std::string>{"tevra.log", "tevra.log.1", "tevra.log.2"}));
  EXPECT_NE(Content(File()).find("linia 9"), std::string::npos);
  EXPECT_NE(Content(fs::path(File()) += ".1").find("linia 8"), std::string::npos);
  EXPECT_NE(Content(fs::path(File()) += ".2").find("linia 7"), std::string::npos);
  log.Append(std::string(500, 'x'));
  EXPECT_EQ(Lines(File()).size(), 1U) << "a line longer than the file has one of its own";
}

TEST_F(LogTest, ProgramsThatWriteAtOnceKeepTheirLinesWhole) {
  constexpr int kPrograms = 5;
  constexpr int kLines = 150;
  const auto writeAll = [&](std::uintmax_t bytes) {
    std::vector<pid_t> children;
    for (int i = 0; i < kPrograms; ++i) {
      children.push_back(fork());
      if (children.back() != 0) continue;
      const LogFile log(File(), bytes);
      for (int line = 0; line < kLines; ++line) log.Append("<" + std::string(40 + line, 'x') + ">");
      _exit(0);
    }
    for (const pid_t child : children) waitpid(child, nullptr, 0);
  };
  const auto expectWhole = [](const fs::path& file) {
    for (const std::string& line : Lines(file)) {
      EXPECT_EQ(line.find('<'), line.rfind('<')) << line;
      EXPECT_EQ(line.back(), '>') << line;
    }
  };
  writeAll(LogFile::kMostBytes);
  EXPECT_EQ(Lines(File()).size(), std::size_t{kPrograms} * kLines);
  expectWhole(File());
  writeAll(4096);
  for (const std::string& name : NamesIn(File().parent_path())) {
    expectWhole(File().parent_path() / name);
    if (name == "tevra.log.2") continue;
    EXPECT_LE(fs::file_size(File().parent_path() / name), 4096U) << name;
  }
}

TEST_F(LogTest, WhatCannotBeWrittenDisturbsNobody) {
  const fs::path other = WriteFile(folder_ / "altul", "al altcuiva");
  fs::create_directory(File().parent_path());
  fs::create_symlink(other, File());
  LogFile(File()).Append("prin legatura");
  EXPECT_EQ(Content(other), "al altcuiva");
  fs::remove(File());
  ASSERT_EQ(mkfifo(File().c_str(), 0600), 0);
  LogFile(File()).Append("in conducta");
  LogFile({}).Append("nicaieri");
  LogFile(other / "tevra.log").Append("sub un fisier");
  EXPECT_EQ(Content(other), "al altcuiva");
}

TEST_F(LogTest, TheUsersFoldersAreThoseOfTheDesktop) {
  setenv("HOME", "/acasa", 1);
  unsetenv("XDG_STATE_HOME");
  EXPECT_EQ(UsersLogFile(), "/acasa/.local/state/tevra/tevra.log");
  setenv("XDG_STATE_HOME", "relativ", 1);
  EXPECT_EQ(UsersLogFile(), "/acasa/.local/state/tevra/tevra.log");
  setenv("XDG_STATE_HOME", "/stare", 1);
  EXPECT_EQ(UsersLogFile(), "/stare/tevra/tevra.log");
  EXPECT_NE(paths::UserDataFolder(), paths::UserStateFolder());
}

TEST(LogText, StatementsLoseTheirLiteralsAndKeepTheirNames) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"SELECT * FROM I_IMO WHERE COD = 'C''001' AND DATAIN1 > 12",
       "SELECT * FROM I_IMO WHERE COD = ? AND DATAIN1 > ?"},
      {"UPDATE [tabela 1] SET A2=1.5E-3,B=\"parola\"", "UPDATE [tabela 1] SET A2=?,B=?"},
      {"WHERE D >= #12/31/2006# AND E# = 0x1F", "WHERE D >= ? AND E# = ?"},
      {"PAROLA = 'neinchisa AND TIP = 0", "PAROLA = ?"},
      {"DENUMIRE = 'Șurub' AND Ș1 = 7-5", "DENUMIRE = ? AND Ș1 = ?-?"},
      {"[neinchis 5", "[neinchis 5"},
      {"VALUES (?, ?)", "VALUES (?, ?)"},
      {"", ""}};
  for (const auto& [statement, clean] : cases) EXPECT_EQ(WithoutLiterals(statement), clean);
}

Failure Caught(const std::function<void()>& call) {
  try {
    call();
  } catch (const Failure& failure) {
    return failure;
  }
  return {0, ""};
}

TEST(LogText, AFailureKeepsWhatHelpsAndLosesWhatWasTyped) {
  const std::vector<std::pair<Failure, std::string>> cases = {
      {Caught([] { CDbl("secretul"); }), "13 Type mismatch"},
      {Caught([] { CDate("31.02.2006"); }), "13 Type mismatch"},
      {{kTypeMismatch, "VAL_CUMP: Type mismatch: 12x", "UPDATE I_IMO SET VAL_CUMP = ?"},
       "13 VAL_CUMP: Type mismatch | UPDATE I_IMO SET VAL_CUMP = ?"},
      {Caught([] { CDbl("1e999"); }), "6 Overflow"},
      {{kOverflow, "Overflow: VAL_AMOR", "NRCRT 7, COD secret"}, "6 Overflow: VAL_AMOR | NRCRT 7"},
      {{kInvalidArgument, "Codul are doua litere: secret"}, "5 Codul are doua litere"},
      {{kBadCriteria, "The condition cannot be read: COD = 'x"},
       "3001 The condition cannot be read"},
      {{kStatementError, "near \"secret\": syntax error", "SELECT 'secret'\nFROM X"},
       "-2147217900 near ?: syntax error | SELECT ? FROM X"},
      {FileFailure(kPermissionDenied, "/date/Kelnar01.mdb"),
       "70 Permission denied: /date/Kelnar01.mdb | /date/Kelnar01.mdb"},
      {{kValueNotAccepted, "Valoare neacceptata: COD: exista deja in tabela", "INSERT INTO T"},
       "-2147217887 Valoare neacceptata: COD: exista deja in tabela | INSERT INTO T"}};
  for (const auto& [failure, line] : cases) EXPECT_EQ(FailureLine(failure), line);
}

TEST(Log, TakesWhatIsCaughtToBeShown) {
  std::vector<std::string> lines;
  const Sink before = SetSink([&](const std::string& line) { lines.push_back(line); });
  try {
    throw Failure(kDiskFull, "Disk full", "UPDATE T SET A = 5");
  } catch (const std::exception&) {
    CaughtFailure({"cmdSalvare_Click", "Form", "frmFisaImo", 7});
  }
  try {
    throw std::runtime_error("altceva");
  } catch (const std::exception&) {
    CaughtFailure();
  }
  SetSink(before);
  Note("nimanui");
  EXPECT_EQ(lines, (std::vector<std::string>{
                       "61 Disk full | UPDATE T SET A = ? | Form frmFisaImo, cmdSalvare_Click, "
                       "line 7",
                       "51 Internal error: altceva"}));
}

}  // namespace
}  // namespace tevra::log
