// Companies made and deleted in their directory, with the registry.
#include "platform/data/CompanyFile.h"
#include "platform/system/Clock.h"
#include "platform/text/Strings.h"
#include "session/ApplicationFiles.h"
#include "session/Companies.h"
#include "session/Module1.h"
#include "session/Version.h"
#include "tests/TestCompany.h"
#include "tests/session/RegistryRows.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

namespace fs = std::filesystem;

class Companies : public ::testing::Test {
 protected:
  Companies() {
    SetProgramDirectory(program_.Directory());
    CompanyRegistry::WriteDefault(Directory());
    // The first opening marks the file for shared use; what is compared later is the file after.
    company_.Open().Execute("UPDATE UTILIZATORI SET NUME = 'vechi'");
  }
  ~Companies() override { SetProgramDirectory({}); }

  std::string Directory() const { return company_.Directory().string(); }
  fs::path At(const std::string& name) const { return company_.Directory() / name; }
  CompanyRegistry Load() const { return CompanyRegistry::Load(Directory()); }
  Connection Open(const std::string& database) const {
    return Connection(CompanyConnectionString(Directory(), database));
  }
  std::string UserOf(const std::string& database) const {
    return Open(database).QueryValue("SELECT NUME FROM UTILIZATORI").TextOrEmpty();
  }

  /// Runs `call`, which must fail with this number, and expects that no file and no row changed.
  template <typename Call>
  void ExpectNothingDone(CompanyRegistry& registry, long number, const std::string& text,
                         Call call) const {
    const std::vector<std::string> names = NamesIn(Directory());
    const std::vector<Company> companies = registry.Companies();
    const std::string file = Content(At("Societat.XML"));
    const Refusal refusal = RefusalOf(call);
    EXPECT_EQ(refusal.number, number) << refusal.text;
    EXPECT_NE(refusal.text.find(text), std::string::npos) << refusal.text;
    EXPECT_EQ(NamesIn(Directory()), names) << refusal.text;
    EXPECT_EQ(registry.Companies(), companies) << refusal.text;
    EXPECT_EQ(Content(At("Societat.XML")), file) << refusal.text;
  }

  test::TestCompany program_;
  test::TestCompany company_;
};

TEST_F(Companies, AreMadeFromTheTemplateWithThisBuildsVersion) {
  const std::vector<std::pair<const char*, const char*>> versions = {
      {"UPDATE kv_info SET VERSIUNE = NULL", "Kelnar02.mdb"},
      {"UPDATE kv_info SET VERSIUNE = 30000", "Kelnar03.mdb"},
      {"DELETE FROM kv_info", "Kelnar04.mdb"}};
  CompanyRegistry registry = Load();
  for (const auto& [change, database] : versions) {
    Open("Kelnar.mdb").Execute(change);
    const std::string code = std::string(database).substr(6, 2);
    AdaugaSocietate(registry, Directory() + "/", code, "Firma " + code);
    EXPECT_EQ(Open(database).QueryValue("SELECT VERSIUNE FROM kv_info").TextOrEmpty(),
              std::to_string(kRevision))
        << change;
    EXPECT_EQ(registry.Rows().Get("NUMEBD").TextOrEmpty(), database) << "it is the current row";
  }
  AdaugaSocietate(registry, Directory(), "a", " Întreprinderea \"Unu\" ");
  EXPECT_EQ(Load().Companies(), registry.Companies());
  EXPECT_EQ(registry.Find("A"), (Company{"A", "Întreprinderea \"Unu\"", "KelnarA.mdb"}));
  EXPECT_EQ(UserOf("KelnarA.mdb"), "admin");
}

TEST_F(Companies, TakeTheProgramsTemplateWhereThereIsNoneOrAnOlderOne) {
  CompanyRegistry registry = Load();
  Open("Kelnar.mdb").Execute("UPDATE kv_info SET VERSIUNE = ?", {kRevision - 1});
  Open("Kelnar.mdb").Execute("UPDATE UTILIZATORI SET NUME = 'demult'");
  AdaugaSocietate(registry, Directory(), "02", "A doua");
  EXPECT_EQ(UserOf("Kelnar02.mdb"), "admin");
  fs::remove(At("Kelnar.mdb"));
  fs::remove(At("Kelnar.mdb-wal"));
  AdaugaSocietate(registry, Directory(), "03", "A treia");
  EXPECT_NO_THROW(CheckCompanyFile(At("Kelnar.mdb")));
  fs::remove(At("Kelnar.mdb"));
  fs::remove(program_.Directory() / "Kelnar.mdb");
  ExpectNothingDone(registry, kFileNotFound, "Kelnar.mdb",
                    [&] { AdaugaSocietate(registry, Directory(), "04", "A patra"); });
}

TEST_F(Companies, AFileInTheWayIsOnlyReplacedWhenAskedAndKept) {
  clock::Set(DateTime(2026, 11, 23, 17, 45, 10));
  CompanyRegistry registry = Load();
  const std::string damaged = Content(company_.File()).substr(0, 5000);
  fs::copy_file(company_.File(), At("KELNAR02.mdb"));
  WriteFile(At("Kelnar03.mdb"), "nu este o societate");
  WriteFile(At("Kelnar03.mdb-wal"), "a ramas");
  WriteFile(At("Kelnar04.mdb"), "");
  WriteFile(At("Kelnar05.mdb"), damaged);
  for (const char* code : {"02", "03", "04", "05"}) {
    ExpectNothingDone(registry, kFileExists, "exista deja ! Adaugarea nu se poate efectua !",
                      [&] { AdaugaSocietate(registry, Directory(), code, "Noua"); });
    AdaugaSocietate(registry, Directory(), code, "Noua", ExistingFile::kReplace);
    EXPECT_FALSE(fs::exists(At(DatabaseOf(code) + "-wal"))) << code;
    EXPECT_EQ(UserOf(DatabaseOf(code)), "admin") << code;
  }
  EXPECT_TRUE(fs::exists(At("KELNAR02.mdb"))) << "a file keeps its spelling";
  EXPECT_FALSE(fs::exists(At("Kelnar02.mdb")));
  const fs::path kept = At("Salv_Tevra");
  EXPECT_EQ(NamesIn(kept),
            (std::vector<std::string>{"Inlocuit_KELNAR02_23.11.2026_17.45.10.mdb",
                                      "Inlocuit_Kelnar03_23.11.2026_17.45.10.mdb",
                                      "Inlocuit_Kelnar03_23.11.2026_17.45.10.mdb-wal",
                                      "Inlocuit_Kelnar04_23.11.2026_17.45.10.mdb",
                                      "Inlocuit_Kelnar05_23.11.2026_17.45.10.mdb"}));
  EXPECT_EQ(UserOf("Salv_Tevra\\Inlocuit_KELNAR02_23.11.2026_17.45.10.mdb"), "vechi");
  EXPECT_TRUE(Content(kept / "Inlocuit_Kelnar05_23.11.2026_17.45.10.mdb") == damaged);
  // A second one of the same moment takes no name that is taken.
  StergeSocietate(registry, Directory(), RowOf(registry, "02"));
  fs::copy_file(company_.File(), At("KELNAR02.mdb"));
  AdaugaSocietate(registry, Directory(), "02", "Iar", ExistingFile::kReplace);
  EXPECT_TRUE(fs::exists(kept / "Inlocuit_KELNAR02_23.11.2026_17.45.10_2.mdb"));
  clock::Reset();
}

TEST_F(Companies, WhatWaitsInASideFileIsKeptToo) {
  CompanyRegistry registry = Load();
  {
    // As a program leaves it that is killed at its work.
    Connection user = company_.Open();
    user.Execute("UPDATE UTILIZATORI SET NUME = 'nou'");
    ASSERT_TRUE(fs::exists(At("Kelnar01.mdb-wal")));
    for (const char* ending : {"", "-wal"}) {
      fs::copy_file(At(std::string("Kelnar01.mdb") + ending),
                    At(std::string("Kelnar02.mdb") + ending));
    }
  }
  AdaugaSocietate(registry, Directory(), "02", "Noua", ExistingFile::kReplace);
  const std::vector<std::string> kept = NamesIn(At("Salv_Tevra"));
  ASSERT_EQ(kept.size(), 1U);
  EXPECT_EQ(UserOf("Salv_Tevra\\" + kept[0]), "nou");
  EXPECT_EQ(UserOf("Kelnar02.mdb"), "admin");
}

TEST_F(Companies, ADatabaseIsTakenOverAsItIs) {
  CompanyRegistry registry = Load();
  company_.Open().Execute("UPDATE kv_info SET DENUMIRE = 'Numele din baza', VERSIUNE = 7");
  for (const char* code : {"02", "03"}) fs::copy_file(company_.File(), At(DatabaseOf(code)));
  const std::string before = Content(At("Kelnar02.mdb"));
  AdaugaSocietate(registry, Directory(), "02", " Numele meu ", ExistingFile::kTakeOver);
  AdaugaSocietate(registry, Directory(), "03", "", ExistingFile::kTakeOver);
  EXPECT_TRUE(Content(At("Kelnar02.mdb")) == before);
  EXPECT_EQ(Load().Find("02")->denumire, "Numele meu");
  EXPECT_EQ(Load().Find("03")->denumire, "Numele din baza");
  EXPECT_FALSE(fs::exists(At("Salv_Tevra")));
  WriteFile(At("Kelnar04.mdb"), "nu este o societate");
  Connection odd(CompanyConnectionString(Directory(), "Kelnar03.mdb"));
  odd.Execute("DROP TABLE UTILIZATORI");
  odd.Close();
  StergeSocietate(registry, Directory(), RowOf(registry, "02"));
  fs::rename(At("Kelnar03.mdb"), At("Kelnar05.mdb"));
  for (const char* code : {"02", "04"}) {
    ExpectNothingDone(registry, kDatabaseNotOpened, DatabaseOf(code), [&] {
      AdaugaSocietate(registry, Directory(), code, "Nume", ExistingFile::kTakeOver);
    });
  }
  ExpectNothingDone(registry, kStatementError, "UTILIZATORI", [&] {
    AdaugaSocietate(registry, Directory(), "05", "Nume", ExistingFile::kTakeOver);
  });
}

TEST_F(Companies, WhatCannotBeMadeLeavesEverythingAsItWas) {
  CompanyRegistry registry = Load();
  fs::copy_file(company_.File(), At("Kelnar02.mdb"));
  registry.Add({"07", "Alta", "kelnar08.mdb"});
  registry.Save();
  fs::create_directory(At("Kelnar03.mdb"));
  const auto add = [&](const char* code, const char* name) {
    return [&registry, code, name, this] {
      AdaugaSocietate(registry, Directory(), code, name, ExistingFile::kReplace);
    };
  };
  {
    Connection user = Open("Kelnar02.mdb");
    ExpectNothingDone(registry, kPermissionDenied, "Kelnar02.mdb", add("02", "A doua"));
  }
  EXPECT_EQ(UserOf("Kelnar02.mdb"), "vechi");
  ExpectNothingDone(registry, kDatabaseNotOpened, "Kelnar03.mdb", add("03", "A treia"));
  ExpectNothingDone(registry, kFileExists, "Kelnar08.mdb", add("08", "A opta"));
  ExpectNothingDone(registry, 457, "01", add("01", "Iar"));
  ExpectNothingDone(registry, kInvalidArgument, "", add("../9", "Nume"));
  ExpectNothingDone(registry, kInvalidArgument, "", add("09", "Nume\x01"));
  WriteFile(At("Salv_Tevra"), "nu este un director");
  ExpectNothingDone(registry, kPermissionDenied, "Salv_Tevra", add("02", "A doua"));
  fs::remove(At("Salv_Tevra"));
  WriteFile(At("Kelnar.mdb"), "nu este al nostru");
  ExpectNothingDone(registry, kDatabaseNotOpened, "Kelnar.mdb", add("02", "A doua"));
  EXPECT_EQ(Content(At("Kelnar.mdb")), "nu este al nostru");
  fs::remove(At("Kelnar.mdb"));
  fs::permissions(At("Societat.XML"), fs::perms::owner_read);
  ExpectNothingDone(registry, kPermissionDenied, "Societat.XML", add("02", "A doua"));
  EXPECT_EQ(UserOf("Kelnar02.mdb"), "vechi");
}

// A name that the registry's file cannot hold shows only when the registry is written, behind the
// new database.
TEST_F(Companies, AFailureBehindTheReplacementPutsTheOldDatabaseBack) {
  CompanyRegistry registry = Load();
  fs::copy_file(company_.File(), At("Kelnar02.mdb"));
  WriteFile(At("Kelnar03.mdb"), "nu este o societate");
  WriteFile(At("Kelnar03.mdb-wal"), "a ramas");
  for (const char* code : {"02", "03", "04"}) {
    ExpectNothingDone(registry, kValueNotAccepted, "", [&] {
      AdaugaSocietate(registry, Directory(), code, "A doua\xEF\xBF\xBF", ExistingFile::kReplace);
    });
  }
  EXPECT_EQ(UserOf("Kelnar02.mdb"), "vechi");
  EXPECT_EQ(Content(At("Kelnar03.mdb")) + Content(At("Kelnar03.mdb-wal")),
            "nu este o societatea ramas");
}

TEST_F(Companies, ThoseThatOtherProgramsEnteredMeanwhileStay) {
  CompanyRegistry mine = Load();
  Recordset grid = mine.Rows();
  CompanyRegistry theirs = Load();
  for (const char* code : {"02", "03"}) AdaugaSocietate(theirs, Directory(), code, "A lor");
  AdaugaSocietate(mine, Directory(), "04", "A mea");
  StergeSocietate(theirs, Directory(), RowOf(theirs, "02"));
  StergeSocietate(theirs, Directory(), RowOf(Load(), "04"));
  grid.MoveFirst();
  grid.Find("COD = '03'");
  grid.Set("DENUMIRE", "Alt nume");
  grid.Update();
  SaveRegistry(mine, Directory());
  AdaugaSocietate(theirs, Directory(), "05", "A lor");
  SaveRegistry(mine, Directory());
  EXPECT_EQ(Load().Companies(), (std::vector<Company>{{"01", "SOCIETATE", "Kelnar01.mdb"},
                                                      {"03", "Alt nume", "Kelnar03.mdb"},
                                                      {"05", "A lor", "Kelnar05.mdb"}}));
  EXPECT_EQ(grid.RecordCount(), 3U) << "the grid's rows follow";
  EXPECT_EQ(FailureOf([&] { AdaugaSocietate(theirs, Directory(), "05", "Iar"); }), 457);
}

TEST_F(Companies, AreDeletedWithTheirFileAndRow) {
  CompanyRegistry registry = Load();
  AdaugaSocietate(registry, Directory(), "02", "A doua");
  AdaugaSocietate(registry, Directory(), "3b", "A treia");
  fs::rename(At("Kelnar3B.mdb"), At("KELNAR3b.MDB"));
  WriteFile(At("KELNAR3b.MDB-journal"), "");
  for (const char* code : {"4", "5", "6"})
    registry.Add({code, "Fara fisier bun", DatabaseOf(code)});
  registry.Save();
  WriteFile(At("Kelnar5.mdb"), "stricata");
  fs::create_directory(At("Kelnar6.mdb"));
  {
    Connection user = Open("Kelnar02.mdb");
    ExpectNothingDone(registry, kPermissionDenied, "Kelnar02.mdb",
                      [&] { StergeSocietate(registry, Directory(), RowOf(registry, "02")); });
  }
  EXPECT_EQ(UserOf("Kelnar02.mdb"), "admin");
  for (const char* code : {"02", "3b", "4", "5", "6"})
    StergeSocietate(registry, Directory(), RowOf(registry, code));
  EXPECT_EQ(Load().Companies(), (std::vector<Company>{{"01", "SOCIETATE", "Kelnar01.mdb"}}));
  EXPECT_EQ(registry.Companies(), Load().Companies());
  EXPECT_EQ(NamesIn(Directory()), (std::vector<std::string>{"Kelnar.mdb", "Kelnar01.mdb",
                                                            "Kelnar6.mdb", "Societat.XML"}));
  ExpectNothingDone(registry, kItemNotFound, "02",
                    [&] { StergeSocietate(registry, Directory(), RowOf(registry, "02")); });
}

TEST_F(Companies, ARowWithoutACodeOfItsOwnTakesNobodysFile) {
  CompanyRegistry registry = Load();
  Recordset rows = registry.Rows();
  const auto add = [&](const Value& code, const char* name, const char* database) {
    rows.AddNew();
    rows.Set("COD", code);
    rows.Set("DENUMIRE", name);
    rows.Set("NUMEBD", database);
    rows.Update();
  };
  add(Value(), "Fara cod", "Kelnar.mdb");
  add("/.", "Alt drum", "x.mdb");
  AdaugaSocietate(registry, Directory(), "02", "Prima");
  add("02", "A doua", "AltaBD.mdb");
  const std::vector<std::string> names = NamesIn(Directory());
  StergeSocietate(registry, Directory(), {"", "Fara cod", "Kelnar.mdb"});
  StergeSocietate(registry, Directory(), {"/.", "Alt drum", "x.mdb"});
  StergeSocietate(registry, Directory(), {"02", "A doua", "AltaBD.mdb"});
  EXPECT_EQ(NamesIn(Directory()), names);
  EXPECT_EQ(Load().Companies(), (std::vector<Company>{{"01", "SOCIETATE", "Kelnar01.mdb"},
                                                      {"02", "Prima", "Kelnar02.mdb"}}));
}

TEST_F(Companies, ANameChangedHereDoesNotBringBackACompanyThatIsGone) {
  CompanyRegistry mine = Load();
  for (const char* code : {"02", "03", "04"}) AdaugaSocietate(mine, Directory(), code, "Noua");
  CompanyRegistry theirs = Load();
  StergeSocietate(theirs, Directory(), RowOf(theirs, "02"));
  Recordset rows = theirs.Rows();
  rows.Find("COD = '03'");
  rows.Set("DENUMIRE", "Numele lor");
  rows.Update();
  SaveRegistry(theirs, Directory());
  Recordset grid = mine.Rows();
  for (const char* code : {"02", "04"}) {
    grid.MoveFirst();
    grid.Find(std::string("COD = '") + code + "'");
    grid.Set("DENUMIRE", "Numele meu");
    grid.Update();
  }
  SaveRegistry(mine, Directory());
  EXPECT_EQ(Load().Companies(), (std::vector<Company>{{"01", "SOCIETATE", "Kelnar01.mdb"},
                                                      {"03", "Numele lor", "Kelnar03.mdb"},
                                                      {"04", "Numele meu", "Kelnar04.mdb"}}));
}

TEST_F(Companies, ADeletionThatFailsKeepsTheRowAndTheFile) {
  CompanyRegistry registry = Load();
  AdaugaSocietate(registry, Directory(), "02", "A doua");
  registry.Add({"09", "A noua", "kelnar02.MDB"});
  registry.Save();
  const auto erase = [&](const char* code) {
    return
        [&registry, code, this] { StergeSocietate(registry, Directory(), RowOf(registry, code)); };
  };
  fs::permissions(At("Societat.XML"), fs::perms::owner_read);
  ExpectNothingDone(registry, kPermissionDenied, "Societat.XML", erase("02"));
  fs::permissions(At("Societat.XML"), fs::perms::owner_read | fs::perms::owner_write);
  fs::permissions(At("Kelnar02.mdb"), fs::perms::owner_read);
  ExpectNothingDone(registry, kPermissionDenied, "Kelnar02.mdb", erase("02"));
  fs::permissions(At("Kelnar02.mdb"), fs::perms::owner_read | fs::perms::owner_write);
  StergeSocietate(registry, Directory(), RowOf(registry, "02"));
  EXPECT_EQ(UserOf("Kelnar02.mdb"), "admin") << "another company still names the database";
}

}  // namespace
}  // namespace tevra
