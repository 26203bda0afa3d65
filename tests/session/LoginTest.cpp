// What a login checks and does: the first start, the list of companies, users and versions.
#include <chrono>
#include <cstdlib>

#include "platform/data/CompanyFile.h"
#include "platform/system/Settings.h"
#include "session/ApplicationFiles.h"
#include "session/KeptFile.h"
#include "session/Login.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "session/Version.h"
#include "tests/Hostile.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

namespace fs = std::filesystem;

constexpr auto kReadOnly = fs::perms::owner_read | fs::perms::owner_exec;

/// A program's folder with the template, an empty folder of the user's data, empty settings.
class Login : public ::testing::Test {
 protected:
  Login() {
    fs::remove(program_.File());
    SetProgramDirectory(Program());
    setenv("XDG_DATA_HOME", data_.Path().c_str(), 1);
    SetSettings(nullptr);
    CurrentSession() = {};
  }
  ~Login() override {
    SetProgramDirectory({});
    SetSettings(nullptr);
    fs::permissions(Program(), fs::perms::owner_all);
  }

  fs::path Program() const { return program_.Directory(); }
  std::string Directory() const { return Program().string(); }
  fs::path UserData() const { return data_.Path() / "tevra"; }

  test::TestCompany program_;
  TemporaryFolder data_;
};

std::string VersionOf(const fs::path& directory, const std::string& database) {
  Connection company(CompanyConnectionString(directory.string(), database));
  return company.QueryValue("SELECT VERSIUNE FROM kv_info").TextOrEmpty();
}

TEST_F(Login, ThePathIsKeptWithOneSeparator) {
  EXPECT_EQ(GetDatabasesPath(), "");
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"/srv/date", "/srv/date\\"}, {"/srv/date\\\\", "/srv/date\\"},
      {"C:\\Date/", "C:\\Date\\"},  {"/", "\\"},
      {"/a b/;x ", "/a b/;x \\"},   {"  ", ""}};
  for (const auto& [written, kept] : cases) {
    SaveDatabasesPath(written);
    EXPECT_EQ(Settings().Get(kDatabasesPath), kept);
    EXPECT_EQ(CurrentSession().databasesPath, kept);
    Settings().Set(kDatabasesPath, written);
    EXPECT_EQ(GetDatabasesPath(), kept) << "also when something else stored it";
  }
}

TEST_F(Login, TheFirstStartMakesTheFirstCompanyBesideTheProgram) {
  Connection(CompanyConnectionString(Directory(), "Kelnar.mdb"))
      .Execute("UPDATE kv_info SET VERSIUNE = NULL");
  ASSERT_TRUE(PrepareFirstStart());
  EXPECT_EQ(GetDatabasesPath(), Directory() + "\\");
  EXPECT_EQ(CurrentSession().databasesPath, Directory() + "\\");
  EXPECT_EQ(VersionOf(Program(), "Kelnar01.mdb"), std::to_string(kRevision));
  EXPECT_FALSE(fs::exists(UserData()));

  const LoadedCompanies loaded = LoadSocietati(GetDatabasesPath());
  EXPECT_FALSE(loaded.failure);
  EXPECT_EQ(loaded.registry->Companies(),
            (std::vector<Company>{{"01", "SOCIETATE", "Kelnar01.mdb"}}));
}

TEST_F(Login, TheFirstStartOfAnInstalledProgramUsesTheUsersData) {
  const fs::path user = UserData();
  fs::permissions(Program(), kReadOnly);
  EXPECT_EQ(ApplicationDirectory(), user);
  ASSERT_TRUE(PrepareFirstStart());
  EXPECT_EQ(NamesIn(user), (std::vector<std::string>{"Kelnar.mdb", "Kelnar01.mdb"}));
  EXPECT_EQ(GetDatabasesPath(), user.string() + "\\");

  // A company that lies there already is not made anew.
  Connection(CompanyConnectionString(user.string(), "Kelnar01.mdb"))
      .Execute("UPDATE kv_info SET VERSIUNE = 30000");
  ASSERT_TRUE(PrepareFirstStart());
  EXPECT_EQ(VersionOf(user, "Kelnar01.mdb"), "30000");

  fs::permissions(Program(), fs::perms::owner_all);
  fs::create_directories(Program() / "bin");
  fs::create_directories(Program() / "share" / "tevra");
  fs::rename(Program() / "Kelnar.mdb", Program() / "share" / "tevra" / "Kelnar.mdb");
  SetProgramDirectory(Program() / "bin");
  EXPECT_EQ(ApplicationDirectory(), user);
  setenv("XDG_DATA_HOME", "un/loc", 1);
  setenv("HOME", data_.Path().c_str(), 1);
  EXPECT_EQ(ApplicationDirectory(), data_.Path() / ".local" / "share" / "tevra");
  EXPECT_TRUE(PrepareFirstStart());
}

TEST_F(Login, AFirstStartThatCannotBeLeavesNothing) {
  WriteFile(data_.Path() / "tevra", "un fisier");
  fs::permissions(Program(), kReadOnly);
  EXPECT_EQ(FailureOf([] { PrepareFirstStart(); }), kPermissionDenied);
  EXPECT_EQ(GetDatabasesPath(), "");
  fs::permissions(Program(), fs::perms::owner_all);
  fs::remove(Program() / "Kelnar.mdb");
  fs::remove(UserData());
  EXPECT_FALSE(PrepareFirstStart());
  EXPECT_EQ(GetDatabasesPath(), "");
  EXPECT_FALSE(fs::exists(UserData()));
}

TEST_F(Login, ListingMakesWhatIsMissingAndKeepsWhatIsThere) {
  const LoadedCompanies first = LoadSocietati(Directory() + "/");
  EXPECT_FALSE(first.failure);
  EXPECT_EQ(VersionOf(Program(), "Kelnar01.mdb"), std::to_string(kRevision));

  CompanyRegistry registry = *first.registry;
  registry.Add({"A2", "Fara baza de date", "KelnarA2.mdb"});
  registry.Save();
  const std::string text = Content(Program() / "Societat.XML");
  fs::rename(Program() / "Kelnar01.mdb", Program() / "KELNAR01.MDB");
  const LoadedCompanies second = LoadSocietati(Directory());
  EXPECT_FALSE(second.failure);
  EXPECT_EQ(second.registry->Companies().size(), 2U);
  EXPECT_EQ(Content(Program() / "Societat.XML"), text);
  EXPECT_FALSE(fs::exists(Program() / "Kelnar01.mdb"));

  // What killed programs left long ago goes.
  for (const fs::path& folder : {Program(), Program() / kBackupFolder}) {
    const fs::path left = WriteFile(folder / ".tevra-1.tmp", "x");
    fs::last_write_time(left, fs::file_time_type::clock::now() - std::chrono::hours(2));
    EXPECT_FALSE(LoadSocietati(Directory()).failure);
    EXPECT_FALSE(fs::exists(left)) << left;
  }

  fs::permissions(Program(), kReadOnly);
  EXPECT_FALSE(LoadSocietati(Directory()).failure) << "nothing to write, nothing to fail";
}

TEST_F(Login, ARegistryThatCannotBeReadIsToldAndStays) {
  CompanyRegistry::WriteDefault(Directory());
  const fs::path file = Program() / "Societat.XML";
  const std::string whole = Content(file);
  std::string lacking = whole;
  lacking.replace(lacking.find("name='NUMEBD'"), 13, "name='NUMELE'");
  for (const std::string& text :
       {std::string(), whole.substr(0, whole.size() / 2), whole.substr(0, whole.size() - 2),
        std::string("<html/>"), std::string("\x00\xff\x01", 3), lacking}) {
    WriteFile(file, text);
    const LoadedCompanies loaded = LoadSocietati(Directory());
    ASSERT_TRUE(loaded.failure) << text;
    EXPECT_EQ(loaded.failure->Number(), kDatabaseNotOpened) << text;
    EXPECT_NE(loaded.failure->Description().find("Societat.XML"), std::string::npos);
    EXPECT_EQ(loaded.line, 2);
    EXPECT_FALSE(loaded.registry);
    EXPECT_TRUE(Content(file) == text);
    EXPECT_TRUE(fs::exists(Program() / "Kelnar01.mdb")) << "the steps behind it go on";
  }
}

TEST_F(Login, ADirectoryThatDoesNotServeIsToldWithItsFirstFailure) {
  struct Case {
    std::string directory;
    long number;
    int line;
  };
  // A folder stands where the registry would: nobody can write it, an administrator neither.
  const fs::path taken = Program() / "ocupat";
  fs::create_directories(taken / "Societat.XML");
  for (const Case& c : {Case{"/nu/exista", kPathNotFound, 1}, Case{"", kPathNotFound, 1},
                        Case{(Program() / "Kelnar.mdb").string(), kPathNotFound, 1},
                        Case{taken.string(), kPermissionDenied, 1}}) {
    const LoadedCompanies loaded = LoadSocietati(c.directory);
    ASSERT_TRUE(loaded.failure) << c.directory;
    EXPECT_EQ(loaded.failure->Number(), c.number) << c.directory;
    EXPECT_EQ(loaded.line, c.line) << c.directory;
    EXPECT_FALSE(loaded.registry) << c.directory;
  }
  fs::remove(Program() / "Kelnar.mdb");
  const LoadedCompanies loaded = LoadSocietati(Directory());
  EXPECT_EQ(loaded.failure->Number(), kFileNotFound) << "no template anywhere";
  EXPECT_EQ(loaded.line, 6);
  EXPECT_TRUE(loaded.registry);
}

class LoginChecks : public ::testing::Test {
 protected:
  test::TestCompany company_;
};

TEST_F(LoginChecks, NameAndPasswordAreComparedAsTypedWithoutCase) {
  ExecuteSQL(
      "INSERT INTO UTILIZATORI (NUME, PAROLA, TIP) VALUES (?, ?, 2), ('gol', '', 0), "
      "('nul', NULL, 0)",
      {"O'Neil", "p'\"A"});
  const std::vector<std::tuple<const char*, const char*, bool, bool>> cases = {
      {"admin", "1", true, true},      {"ADMIN", "1", true, true},
      {"admin", "2", true, false},     {"admin", "", true, false},
      {"admin ", "1", false, false},   {" admin", "1", false, false},
      {"O'Neil", "p'\"a", true, true}, {"o'neil", "1", true, false},
      {"gol", "", true, true},         {"nul", "", true, false},
      {"", "", false, false},          {"nimeni", "1", false, false}};
  for (const auto& [user, password, exists, valid] : cases) {
    EXPECT_EQ(ExistaUtilizator(user), exists) << user;
    EXPECT_EQ(ParolaValida(user, password), valid) << user << " " << password;
  }
  for (const std::string& text : test::HostileTexts()) {
    EXPECT_FALSE(ExistaUtilizator(text)) << text.substr(0, 30);
    EXPECT_FALSE(ParolaValida(text, text)) << text.substr(0, 30);
    EXPECT_FALSE(ParolaValida("admin", text)) << text.substr(0, 30);
  }
  EXPECT_EQ(GetRecordCount("UTILIZATORI"), 4);
  fs::remove(company_.File());
  EXPECT_EQ(FailureOf([] { ExistaUtilizator("admin"); }), kDatabaseNotOpened);
  EXPECT_EQ(FailureOf([] { ParolaValida("admin", "1"); }), kDatabaseNotOpened);
}

TEST_F(LoginChecks, EveryOtherVersionNeedsTheUpgrade) {
  const std::vector<std::pair<std::string, bool>> cases = {
      {"UPDATE kv_info SET VERSIUNE = " + std::to_string(kRevision), false},
      {"UPDATE kv_info SET VERSIUNE = " + std::to_string(kRevision + 1), true},
      {"UPDATE kv_info SET VERSIUNE = " + std::to_string(kRevision - 1), true},
      {"UPDATE kv_info SET VERSIUNE = NULL", true},
      {"DELETE FROM kv_info", true}};
  for (const auto& [change, differs] : cases) {
    ExecuteSQL(change);
    EXPECT_EQ(StructuraDiferita(), differs) << change;
    SetVersiune("KELNAR01.mdb");
    EXPECT_FALSE(StructuraDiferita()) << change;
    EXPECT_EQ(GetRecordCount("kv_info"), 1) << change;
  }
  EXPECT_EQ(FailureOf([] { SetVersiune("Kelnar99.mdb"); }), kDatabaseNotOpened);
}

}  // namespace
}  // namespace tevra
