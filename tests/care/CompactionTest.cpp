// Compaction: the same content in less space, and the old file when it does not succeed.
#include <sqlite3.h>

#include "care/Maintenance.h"
#include "platform/data/CompanyFile.h"
#include "tests/KilledWrites.h"
#include "tests/care/CareTest.h"
#include "tests/system/FileSizeLimit.h"

namespace fs = std::filesystem;

namespace tevra::test {
namespace {

class CompactionTest : public CareTest {
 protected:
  CompactionTest() {
    Connection company = company_.Open();
    {
      Transaction rows(company);
      for (int i = 0; i < 3000; ++i) {
        company.Execute("INSERT INTO Kv_CC (COD, TITLU) VALUES (?, 'Un centru de cost')", {i});
      }
      rows.Commit();
    }
    company.Execute("DELETE FROM Kv_CC WHERE Len(COD) > 2");
    company.Close();
    RequireSoleUse(File());
    before_ = Dump(File());
  }
  std::string Structure() const {
    std::string text;
    for (const QueryDef& query : Catalogue(company_.Open()).Queries()) text += query.sql;
    return text + std::to_string(Catalogue(company_.Open()).Table("Kv_Linii").indexes.size());
  }

  std::string before_;
};

TEST_F(CompactionTest, KeepsEverythingButTheWaste) {
  MessageRecorder messages;
  const std::string structure = Structure();
  const auto size = fs::file_size(File());
  WriteFile(Folder() / "CompactKelnar01.mdb", "ramas de data trecuta");
  fs::permissions(File(), fs::perms::owner_read | fs::perms::owner_write);
  Compactare();
  EXPECT_LT(fs::file_size(File()), size - 50000);
  EXPECT_EQ(Dump(File()), before_);
  EXPECT_EQ(Structure(), structure);
  EXPECT_EQ(fs::status(File()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_NE(FailureOf([&] { Connection("Data Source=" + File().string() + ";PWD=alta"); }), 0);
  EXPECT_EQ(NamesIn(Folder()), (std::vector<std::string>{"Kelnar.mdb", "Kelnar01.mdb"}));
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].prompt,
            "Compactarea bazei de date Kelnar01.mdb s-a realizat cu succes !");
  EXPECT_EQ(messages.shown[0].buttons, kInformation);
  // A number that was given is not given again.
  Execute("DELETE FROM I_IMO");
  CompactFile(File());
  EXPECT_EQ(company_.AddAsset({{"COD", "1"}}), 2);
}

TEST_F(CompactionTest, AnOpenListStopsIt) {
  MessageRecorder messages;
  {
    const Connection user = company_.Open();
    EXPECT_EQ(FailureOf([] { Compactare(); }), kPermissionDenied);
  }
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].prompt, "Eroare la compactarea bazei de date");
  fs::create_directory(Folder() / "CompactKelnar01.mdb");
  EXPECT_EQ(FailureOf([&] { CompactFile(File()); }), kPermissionDenied);
  fs::remove(Folder() / "CompactKelnar01.mdb");
  EXPECT_EQ(Dump(File()), before_);
}

TEST_F(CompactionTest, AFailureOrTheUserLeavesTheFileAsItWas) {
  const std::string content = Content(File());
  {
    MessageRecorder messages;
    const FileSizeLimit full(60000);
    EXPECT_NE(FailureOf([] { Compactare(); }), 0);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_NE(messages.shown[0].prompt.find("CompactKelnar01.mdb"), std::string::npos)
        << messages.shown[0].prompt;
  }
  EXPECT_EQ(Content(File()), content);
  int told = 0;
  EXPECT_THROW(CompactFile(File(), [&](int, int) { return ++told < 3; }), GivenUp);
  EXPECT_EQ(told, 3);
  EXPECT_EQ(Content(File()), content);

  std::string damaged = content;
  damaged.replace(fs::file_size(File()) / 8192 * 4096, 3000, std::string(3000, '\x7f'));
  WriteFile(File(), damaged);
  const Refusal refusal = RefusalOf([&] { CompactFile(File()); });
  EXPECT_NE(refusal.text.find(File().string()), std::string::npos) << refusal.text;
  EXPECT_EQ(Content(File()), damaged);
  EXPECT_EQ(NamesIn(Folder()), (std::vector<std::string>{"Kelnar.mdb", "Kelnar01.mdb"}));
}

TEST_F(CompactionTest, AKilledOneLeavesTheOldOrTheNewFile) {
  const fs::path old = Folder() / "vechi";
  fs::copy_file(File(), old);
  WriteCounter counter;
  const auto work = [&] { CompactFile(File()); };
  const int writes = counter.WritesOf(work);
  ASSERT_GT(writes, 50);
  for (int killed = 1; killed <= writes; killed += 1 + writes / 200) {
    fs::copy_file(old, File(), fs::copy_options::overwrite_existing);
    EXPECT_TRUE(counter.KilledIn(killed, work)) << killed;
    EXPECT_EQ(Dump(File()), before_) << killed;
  }
  work();
  EXPECT_EQ(Dump(File()), before_);
  EXPECT_FALSE(fs::exists(Folder() / "CompactKelnar01.mdb"));
}

}  // namespace
}  // namespace tevra::test
