// Directories of before: the registry as a dBase table, databases of the older name and password.
#include <array>

#include <shapefil.h>

#include "platform/data/CompanyFile.h"
#include "platform/data/FilePassword.h"
#include "session/ApplicationFiles.h"
#include "session/Login.h"
#include "session/Module1.h"
#include "session/OlderFiles.h"
#include "tests/TestCompany.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

namespace fs = std::filesystem;

using Row = std::array<std::string, 3>;

class OlderFiles : public ::testing::Test {
 protected:
  OlderFiles() { SetProgramDirectory(company_.Directory()); }
  ~OlderFiles() override { SetProgramDirectory({}); }

  std::string Directory() const { return company_.Directory().string(); }
  fs::path At(const std::string& name) const { return company_.Directory() / name; }

  /// A table with the registry's fields, texts in the table's own bytes.
  void WriteTable(const std::vector<Row>& rows, const char* codePage = "LDID/100",
                  const char* lastField = "NUMEBD") const {
    DBFHandle table = DBFCreateEx(At("scris.dbf").c_str(), codePage);
    DBFAddField(table, "ANUL", FTInteger, 4, 0);
    DBFAddField(table, "COD", FTString, 2, 0);
    DBFAddField(table, "DENUMIRE", FTString, 50, 0);
    DBFAddField(table, lastField, FTString, 15, 0);
    for (int record = 0; record < static_cast<int>(rows.size()); ++record) {
      DBFWriteIntegerAttribute(table, record, 0, 2003);
      for (int i = 0; i < 3; ++i) {
        DBFWriteStringAttribute(
            table, record, i + 1,
            rows[static_cast<std::size_t>(record)][static_cast<std::size_t>(i)].c_str());
      }
    }
    if (rows.size() > 2) DBFMarkRecordDeleted(table, 2, 1);
    DBFClose(table);
    fs::remove(At("scris.cpg"));
    fs::rename(At("scris.dbf"), At("SOCIETAT.Dbf"));
  }

  /// A database of the older name, with this file password and a user by whom it is told.
  void MakeOlder(const std::string& name, const std::string& password) const {
    CopyCompanyFile(At("Kelnar.mdb"), At(name), [&](const fs::path& copy) {
      Connection connection(CompanyConnectionString(Directory(), copy.filename().string()));
      connection.Execute("UPDATE UTILIZATORI SET NUME = ?", {name.substr(0, 7)});
      SetFilePassword(connection, password);
    });
  }

  std::string UserOf(const std::string& database) const {
    Connection company(CompanyConnectionString(Directory(), database));
    return company.QueryValue("SELECT NUME FROM UTILIZATORI").TextOrEmpty();
  }

  /// A registry file of these companies.
  void WriteRegistry(const std::vector<Company>& companies) const {
    CompanyRegistry registry = CompanyRegistry::Empty(Directory());
    for (const Company& company : companies) registry.Add(company);
    registry.Save();
  }

  test::TestCompany company_;
};

TEST_F(OlderFiles, TheOlderRegistryIsConvertedOnce) {
  WriteTable({{"02", "  Ferma D\xc7nil\xc7 & \"fiii\" <SRL> ", "Kelnar02.mdb"},
              {"01", "Prima", "Kelnar01.mdb"},
              {"09", "Stearsa", "Kelnar09.mdb"},
              {"", "", ""},
              {"x", "", "KelnarX.mdb"}});
  const std::string table = Content(At("SOCIETAT.Dbf"));
  const LoadedCompanies loaded = LoadSocietati(Directory());
  ASSERT_FALSE(loaded.failure) << loaded.failure->Description();
  EXPECT_EQ(loaded.registry->Companies(),
            (std::vector<Company>{{"01", "Prima", "Kelnar01.mdb"},
                                  {"02", "Ferma Dănilă & \"fiii\" <SRL>", "Kelnar02.mdb"},
                                  {"x", "", "KelnarX.mdb"}}));
  EXPECT_TRUE(Content(At("SOCIETAT.Dbf")) == table);
  CompanyRegistry changed = *loaded.registry;
  changed.Remove(changed.Find("x").value());
  changed.Save();
  EXPECT_EQ(LoadSocietati(Directory()).registry->Companies().size(), 2U) << "never again";
}

TEST_F(OlderFiles, TextsAreReadByTheTablesCodePage) {
  const std::vector<std::pair<const char*, std::string>> cases = {
      {"LDID/100", "\u0102\u0103\u00ce\u00ee"},
      {"LDID/200", "\u0102\u0103\u00ce\u00ee"},
      {"LDID/0", "\u0102\u0103\u00ce\u00ee"},  // none named: written under DOS
      {"LDID/3", "\u0102\u0103\u00ce\u00ee"}};
  for (const auto& [codePage, text] : cases) {
    const bool windows = codePage != std::string("LDID/100") && codePage != std::string("LDID/0");
    WriteTable({{"01", windows ? "\xc3\xe3\xce\xee" : "\xc6\xc7\xd7\x8c", "Kelnar01.mdb"},
                {"02", std::string("a\x07") + "b\x7f", "Kelnar02.mdb"}},
               codePage);
    fs::remove(At("Societat.XML"));
    ConvertOlderRegistry(Directory());
    const auto companies = CompanyRegistry::Load(Directory()).Companies();
    ASSERT_EQ(companies.size(), 2U);
    EXPECT_EQ(companies[0].denumire, text) << codePage;
    EXPECT_EQ(companies[1].denumire, "a?b?") << codePage;
  }
}

TEST_F(OlderFiles, ATableThatIsDamagedIsToldAndNoRegistryWritten) {
  WriteTable({{"01", "Prima", "Kelnar01.mdb"}, {"02", "A doua", "Kelnar02.mdb"}});
  const std::string whole = Content(At("SOCIETAT.Dbf"));
  const auto with = [&](std::size_t at, char byte) {
    std::string changed = whole;
    changed[at] = byte;
    return changed;
  };
  constexpr std::size_t kRecords = 4, kRecordLength = 10, kWidthOfLastField = 32 + 3 * 32 + 16;
  std::string renamed = whole;
  renamed.replace(renamed.find("NUMEBD"), 6, "NUMELE");
  for (const std::string& table :
       {std::string(), std::string("nu este o tabela dBase, nici pe departe"), whole.substr(0, 40),
        whole.substr(0, whole.size() - 20), with(kRecords + 3, '\xff'), with(kRecords + 3, '\x7f'),
        with(kRecordLength, 9), with(kRecordLength, 0), with(kWidthOfLastField, '\xff'), renamed}) {
    WriteFile(At("SOCIETAT.Dbf"), table);
    const LoadedCompanies loaded = LoadSocietati(Directory());
    ASSERT_TRUE(loaded.failure);
    EXPECT_EQ(loaded.failure->Number(), kDatabaseNotOpened) << loaded.failure->Description();
    EXPECT_NE(loaded.failure->Description().find("SOCIETAT.Dbf"), std::string::npos);
    EXPECT_EQ(loaded.line, 1);
    EXPECT_FALSE(fs::exists(At("Societat.XML")));
    EXPECT_TRUE(Content(At("SOCIETAT.Dbf")) == table);
  }
}

TEST_F(OlderFiles, DatabasesOfTheOlderNameAreMovedOnce) {
  MakeOlder("Tevra02.mdb", "ZRP3618");
  MakeOlder("TEVRA3.MDB", "");
  MakeOlder("Tevra04.mdb", kFilePassword);
  WriteFile(At("kelnar04.MDB"), "a ramas");
  fs::copy_file(company_.File(), At("Kelnar3.mdb"));
  WriteRegistry({{"01", "Prima", "Kelnar01.mdb"},
                 {"02", "A doua", "Tevra02.mdb"},
                 {"3", "A treia", "tevra3.mdb"},
                 {"04", "A patra", "Tevra04.mdb"}});
  const std::string older = Content(At("Tevra02.mdb"));
  const LoadedCompanies loaded = LoadSocietati(Directory());
  ASSERT_FALSE(loaded.failure) << loaded.failure->Description();
  const std::vector<Company> companies = {{"01", "Prima", "Kelnar01.mdb"},
                                          {"02", "A doua", "Kelnar02.MDB"},
                                          {"04", "A patra", "Kelnar04.MDB"},
                                          {"3", "A treia", "Kelnar3.MDB"}};
  EXPECT_EQ(loaded.registry->Companies(), companies);
  EXPECT_EQ(CompanyRegistry::Load(Directory()).Companies(), companies);
  EXPECT_EQ(loaded.registry->Rows().RecordCount(), 4U) << "no filter is left";
  EXPECT_EQ(UserOf("Kelnar02.MDB"), "Tevra02");
  EXPECT_EQ(UserOf("Kelnar04.MDB"), "Tevra04");
  EXPECT_EQ(UserOf("Kelnar3.MDB"), "TEVRA3.");
  EXPECT_EQ(NamesIn(Directory()),
            (std::vector<std::string>{"Kelnar.mdb", "Kelnar01.mdb", "Kelnar02.MDB", "Kelnar3.mdb",
                                      "Salv_Tevra", "Societat.XML", "TEVRA3.MDB", "Tevra02.mdb",
                                      "Tevra04.mdb", "kelnar04.MDB"}));
  const std::vector<std::string> kept = NamesIn(At("Salv_Tevra"));
  ASSERT_EQ(kept.size(), 2U) << "what stood there is not lost";
  EXPECT_EQ(UserOf("Salv_Tevra\\" + kept[0]), "admin");
  EXPECT_EQ(Content(At("Salv_Tevra") / kept[1]), "a ramas");
  EXPECT_TRUE(Content(At("Tevra02.mdb")) == older);
  // The password is today's and no other.
  EXPECT_EQ(
      FailureOf([&] { Connection("Data Source=" + At("Kelnar02.MDB").string() + ";PWD=ZRP3618"); }),
      kDatabaseNotOpened);

  // Work in the new database is not overwritten by the next listing.
  Connection(CompanyConnectionString(Directory(), "Kelnar02.MDB"))
      .Execute("UPDATE UTILIZATORI SET NUME = 'lucru'");
  EXPECT_FALSE(LoadSocietati(Directory()).failure);
  EXPECT_EQ(UserOf("Kelnar02.MDB"), "lucru");
}

TEST_F(OlderFiles, ADatabaseThatCannotBeMovedKeepsItsRowAndTheOthersGoOn) {
  MakeOlder("Tevra02.mdb", "alta");
  MakeOlder("Tevra03.mdb", "ZRP3618");
  MakeOlder("Tevra01.mdb", "ZRP3618");
  MakeOlder("Tevra06.mdb", "ZRP3618");
  WriteFile(At("Tevra04.mdb"), "nu este o societate");
  fs::copy_file(company_.File(), At("Kelnar06.mdb"));
  const std::vector<Company> bad = {
      {"02", "Alta parola", "Tevra02.mdb"}, {"04", "Straina", "Tevra04.mdb"},
      {"05", "Lipseste", "Tevra05.mdb"},    {"06", "Folosita", "Tevra06.mdb"},
      {"07", "Fara cod", "Tevra.mdb"},      {"08", "Iesire", "Tevra/../x.mdb"},
      {"09", "A alteia", "Tevra01.mdb"}};
  std::vector<Company> all = bad;
  all.push_back({"01", "Prima", "Kelnar01.mdb"});
  all.push_back({"03", "Buna", "Tevra03.mdb"});
  WriteRegistry(all);
  Connection user(CompanyConnectionString(Directory(), "Kelnar06.mdb"));
  const std::string first = Content(company_.File());
  const LoadedCompanies loaded = LoadSocietati(Directory());
  ASSERT_TRUE(loaded.failure);
  EXPECT_EQ(loaded.failure->Description(), "Tevra02.mdb: Not a valid password.");
  EXPECT_EQ(loaded.line, 3);
  for (const Company& company : bad) EXPECT_EQ(loaded.registry->Find(company.cod), company);
  EXPECT_EQ(loaded.registry->Find("03")->numeBd, "Kelnar03.MDB");
  EXPECT_EQ(CompanyRegistry::Load(Directory()).Companies(), loaded.registry->Companies());
  EXPECT_TRUE(Content(company_.File()) == first) << "another company's database stays";
  EXPECT_EQ(NamesIn(Directory()),
            (std::vector<std::string>{"Kelnar.mdb", "Kelnar01.mdb", "Kelnar03.MDB", "Kelnar06.mdb",
                                      "Kelnar06.mdb-shm", "Kelnar06.mdb-wal", "Societat.XML",
                                      "Tevra01.mdb", "Tevra02.mdb", "Tevra03.mdb", "Tevra04.mdb",
                                      "Tevra06.mdb"}));
}

TEST_F(OlderFiles, ARegistryThatCannotBeWrittenNamesTheOlderDatabasesStill) {
  MakeOlder("Tevra02.mdb", "ZRP3618");
  WriteRegistry({{"01", "Prima", "Kelnar01.mdb"}, {"02", "A doua", "Tevra02.mdb"}});
  fs::permissions(At("Societat.XML"), fs::perms::owner_read);
  const LoadedCompanies loaded = LoadSocietati(Directory());
  ASSERT_TRUE(loaded.failure);
  EXPECT_EQ(loaded.failure->Number(), kPermissionDenied);
  EXPECT_EQ(loaded.registry->Find("02")->numeBd, "Tevra02.mdb");
}

}  // namespace
}  // namespace tevra
