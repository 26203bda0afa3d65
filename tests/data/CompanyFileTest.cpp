// Copies of company files: whole or not at all, and never over what is no company file or in use.

#include <algorithm>

#include "platform/data/Database.h"
#include "platform/data/EngineHandle.h"
#include "tests/data/DataTest.h"

namespace fs = std::filesystem;

namespace tevra {
namespace {

class CompanyFileTest : public DataTest {
 protected:
  void SetUp() override {
    DataTest::SetUp();
    MakeAssets(Open());
    target_ = folder_ / "Copie.mdb";
  }
  static std::string Codes(const fs::path& file) {
    return Raw(file, "SELECT group_concat(COD) FROM T_IMO");
  }

  // Nothing but these files lies in the folder.
  void ExpectFiles(const std::vector<std::string>& expected) {
    EXPECT_EQ(expected, NamesIn(folder_));
  }

  fs::path target_;
};

TEST_F(CompanyFileTest, WhatIsWrittenButNotYetInTheFileIsCopiedToo) {
  Connection user = Open();
  user.Execute("DELETE FROM T_IMO WHERE COD = '100'");
  CopyCompanyFile(file_, target_);
  user.Close();
  ExpectFiles({"Copie.mdb", "Kelnar01.mdb"});
  EXPECT_EQ("101,102", Codes(target_));
  CheckCompanyFile(target_);
}

// Another program ended without putting its changes into the file; or the file was removed by hand
// and its changes stayed, which are no changes of the new file.
TEST_F(CompanyFileTest, AnExistingCopyIsReplacedWithItsSideFiles) {
  for (const bool removed : {false, true}) {
    CopyCompanyFile(file_, target_);
    {
      Connection other(StringOf(target_));
      other.Execute("DELETE FROM T_IMO");
      fs::copy_file(target_.string() + "-wal", folder_ / "wal");
      fs::copy_file(target_, folder_ / "main");
    }
    fs::rename(folder_ / "main", target_);
    fs::rename(folder_ / "wal", target_.string() + "-wal");
    if (removed) fs::remove(target_);
    CopyCompanyFile(file_, target_);
    ExpectFiles({"Copie.mdb", "Kelnar01.mdb"});
    EXPECT_EQ("100,101,102", Codes(target_));
  }
}

TEST_F(CompanyFileTest, ACopyGoesOverNothingThatIsInUseOrForeign) {
  CopyCompanyFile(file_, target_);
  {
    Connection user(StringOf(target_));
    user.Execute("DELETE FROM T_IMO WHERE COD = '100'");
    ExpectRefused(kPermissionDenied, target_.string(), [&] { CopyCompanyFile(file_, target_); });
  }
  EXPECT_EQ("101,102", Codes(target_));
  fs::permissions(target_, fs::perms::owner_read);
  ExpectRefused(kPermissionDenied, target_.string(), [&] { CopyCompanyFile(file_, target_); });
  fs::permissions(target_, fs::perms::owner_all);
  EXPECT_EQ("101,102", Codes(target_));

  const auto foreign = Make("scrisoare.mdb", "Stimate domn");
  ExpectRefused(kDatabaseNotOpened, foreign.string(), [&] { CopyCompanyFile(file_, foreign); });
  EXPECT_EQ("Stimate domn", Content(foreign));
  ExpectRefused(kDatabaseNotOpened, foreign.string(), [&] { CopyCompanyFile(foreign, target_); });
  ExpectRefused(kDatabaseNotOpened, "nimic.mdb",
                [&] { CopyCompanyFile(folder_ / "nimic.mdb", target_); });
  ExpectRefused(kPathNotFound, "x.mdb", [&] { CopyCompanyFile(file_, folder_ / "nu" / "x.mdb"); });
  ExpectRefused(kDatabaseNotOpened, file_.string(), [&] { CopyCompanyFile(file_, file_); });
  EXPECT_EQ("101,102", Codes(target_));
  ExpectFiles({"Copie.mdb", "Kelnar01.mdb", "scrisoare.mdb"});
}

TEST_F(CompanyFileTest, ADamagedFileIsNotCopied) {
  CopyCompanyFile(file_, target_);
  const auto size = fs::file_size(file_);
  const auto whole = Content(file_);
  for (const std::uintmax_t at : {std::uintmax_t{100}, size / 8192 * 4096, size - 4096}) {
    SCOPED_TRACE(at);
    {
      std::fstream damage(file_, std::ios::in | std::ios::out | std::ios::binary);
      damage.seekp(static_cast<std::streamoff>(at));
      damage << std::string(2000, '\x7f');
    }
    ExpectRefused(kDatabaseNotOpened, "deteriorata: " + file_.string(),
                  [&] { CopyCompanyFile(file_, target_); });
    std::ofstream(file_, std::ios::binary) << whole;
  }
  fs::resize_file(file_, size - 4096);
  ExpectRefused(kDatabaseNotOpened, file_.string(), [&] { CopyCompanyFile(file_, target_); });
  EXPECT_EQ("100,101,102", Codes(target_));
  ExpectFiles({"Copie.mdb", "Kelnar01.mdb"});
}

// Who waited at the door while a copy was put in place holds the file of before.
TEST_F(CompanyFileTest, AReplacedFileIsNoticed) {
  CopyCompanyFile(file_, target_);
  const Connection user = Open();
  EXPECT_FALSE(detail::HasBeenReplaced(detail::DatabaseOf(user)->db));
  fs::rename(target_, file_);
  EXPECT_TRUE(detail::HasBeenReplaced(detail::DatabaseOf(user)->db));
}

TEST_F(CompanyFileTest, AWriteProtectedFileCanBeTheSource) {
  fs::permissions(file_, fs::perms::owner_read);
  CopyCompanyFile(file_, target_);
  EXPECT_EQ("100,101,102", Codes(target_));
  Connection(StringOf(target_)).Execute("DELETE FROM T_IMO");
  ExpectFiles({"Copie.mdb", "Kelnar01.mdb"});
}

TEST_F(CompanyFileTest, SoleUseLeavesTheFileWholeAndKeepsOthersOut) {
  {
    Connection user = Open();
    user.Execute("DELETE FROM T_IMO WHERE COD = '100'");
    Recordset rows = user.OpenRecordset("SELECT * FROM T_LOC");
    user.Close();
    ExpectRefused(kPermissionDenied, file_.string(),
                  [&] { RequireSoleUse(file_); });  // rows hold it
  }
  RequireSoleUse(file_);
  ExpectFiles({"Kelnar01.mdb"});
  {
    const SoleUse alone(file_);
    ExpectRefused(kDatabaseNotOpened, file_.string(), [&] { Open(); });
    ExpectRefused(kPermissionDenied, file_.string(), [&] { const SoleUse second(file_); });
  }
  EXPECT_EQ("101,102", Codes(file_));
}

}  // namespace
}  // namespace tevra
