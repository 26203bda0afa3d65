// Company files that cannot be opened or written: told by name, and left as they are.
#include "app/batch/Batch.h"
#include "platform/data/FilePassword.h"
#include "tests/batch/BatchTest.h"
#include "tests/system/FileSizeLimit.h"

namespace fs = std::filesystem;

namespace tevra::batch::test {

namespace {

using DamagedFilesTest = BatchTest;

TEST_F(DamagedFilesTest, AreToldByName) {
  const std::string whole = Content(company_.File());
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "Fisierul nu este o baza de date a unei societati"},
      {"<html>nu este o baza de date</html>" + std::string(200, ' '),
       "Fisierul nu este o baza de date a unei societati"},
      {whole.substr(0, 40), "Fisierul nu este o baza de date a unei societati"},
      {whole.substr(0, whole.size() / 2), "Baza de date este deteriorata"}};
  for (const auto& [content, reason] : cases) {
    WriteFile(company_.File(), content);
    ExpectRefused({"calculate", "31.12.2006"}, "Eroare -2147467259 - " + reason);
    ExpectRefused({"assets"}, company_.File().string());
  }
}

TEST_F(DamagedFilesTest, AMissingFileOfTheRegistryIsNamed) {
  ASSERT_EQ(Run({"create", "02", "A doua"}).code, kDone);
  fs::remove(Directory() / "Kelnar02.mdb");
  ExpectRefused({"--company", "02", "assets"}, (Directory() / "Kelnar02.mdb").string());
}

TEST_F(DamagedFilesTest, AFileOfAnotherPasswordIsRefused) {
  Connection connection = company_.Open();
  SetFilePassword(connection, "alta");
  connection.Close();
  ExpectRefused({"assets"}, "Not a valid password. (Kelnar01.mdb)");
}

TEST_F(DamagedFilesTest, AWriteProtectedFileIsReadAndNotWritten) {
  company_.AddAsset({{"COD", "1"}, {"TIP_AM", "F"}, {"VAL_CUMP", 100.0}});
  const std::string csv = File("x.csv", "COD\n5\n");
  fs::permissions(company_.File(), fs::perms::owner_read);
  EXPECT_EQ(RunAsAdmin({"assets"}).code, kDone);
  ExpectRefused({"load", csv, "I_IMO"}, company_.File().string());
  ExpectRefused({"calculate", "31.12.2006"}, "Eroare la CALCUL !\nEroare 70 - ");
  fs::permissions(company_.File(), fs::perms::owner_all);
}

TEST_F(DamagedFilesTest, AFullDiskLeavesAllRowsOut) {
  std::string rows = "COD,DENUMIRE\n";
  for (int i = 0; i < 30000; ++i) rows += std::to_string(i) + "," + std::string(50, 'x') + "\n";
  const std::string csv = File("mare.csv", rows);
  {
    const FileSizeLimit limit(fs::file_size(company_.File()) + 65536);
    ExpectRefused({"load", csv, "I_IMO"}, "Eroare ");
  }
  EXPECT_EQ(company_.Open().QueryValue("SELECT COUNT(*) FROM I_IMO").AsLong(), 0);
}

TEST_F(DamagedFilesTest, AFullDiskLeavesNoHalfMadeCompany) {
  const std::vector<std::string> before = NamesIn(Directory());
  Result result;
  {
    const FileSizeLimit limit(65536);
    result = Run({"create", "02", "A doua"});
  }
  EXPECT_EQ(result.code, kRefused);
  EXPECT_NE(result.err.find("Kelnar"), std::string::npos) << result.err;
  EXPECT_EQ(NamesIn(Directory()), before);
}

}  // namespace

}  // namespace tevra::batch::test
