#include "platform/system/Paths.h"
#include "tests/system/Folder.h"

namespace tevra {
namespace {

using Paths = FolderTest;

TEST_F(Paths, FindsEachPartWithoutCase) {
  Make("Firma/Kelnar01.mdb");
  Make("Firma/EXPORT/tmp.xml");
  Make("Twice/abc.TXT");
  Make("Twice/ABC.txt");
  Make("Țara/fișa.txt");
  const std::string root = folder_.string();
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"\\Firma\\Kelnar01.mdb", "/Firma/Kelnar01.mdb"},
      {"/firma\\KELNAR01.MDB", "/Firma/Kelnar01.mdb"},
      {"\\\\firma//export\\TMP.XML", "/Firma/EXPORT/tmp.xml"},
      {"\\FIRMA\\", "/Firma"},
      {"\\FIRMA\\Export\\new.xml", "/Firma/EXPORT/new.xml"},
      {"\\FIRMA\\No\\New.xml", "/Firma/No/New.xml"},
      {"/twice/abc.TXT", "/Twice/abc.TXT"},
      {"/twice/aBc.txt", "/Twice/ABC.txt"},
      {"/firma/../twice/./ABC.TXT", "/Firma/../Twice/./ABC.txt"},
      {"/țara/FIȘA.TXT", "/Țara/fișa.txt"}};
  for (const auto& [written, found] : cases) {
    EXPECT_EQ(root + found, paths::Resolve(root + written).string());
  }
  EXPECT_EQ("", paths::Resolve("").string());
  EXPECT_EQ("/", paths::Resolve("\\\\").string());
  EXPECT_EQ("no such/Thing", paths::Resolve("no such\\Thing\\").string());
}

TEST_F(Paths, RelativeNamesStartAtTheCurrentFolder) {
  Make("Kelnar.mdb");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder_);
  EXPECT_EQ("Kelnar.mdb", paths::Resolve("KELNAR.MDB").string());
  EXPECT_EQ("./Kelnar.mdb", paths::Resolve(".\\KELNAR.MDB").string());
  std::filesystem::current_path(before);
}

TEST_F(Paths, TellsFilesFromFolders) {
  Make("Salv_Tevra/a.mdb");
  const std::string root = folder_.string();
  EXPECT_TRUE(paths::FileExists(root + "\\salv_tevra\\A.MDB"));
  EXPECT_FALSE(paths::FolderExists(root + "\\salv_tevra\\A.MDB"));
  EXPECT_TRUE(paths::FolderExists(root + "\\SALV_TEVRA\\"));
  EXPECT_FALSE(paths::FileExists(root + "\\SALV_TEVRA"));
  EXPECT_FALSE(paths::FileExists(root + "\\none"));
  EXPECT_FALSE(paths::FileExists(""));
}

TEST_F(Paths, AFileWithoutWriteBitsIsReadOnlyForEverybody) {
  const auto file = Make("a.mdb");
  EXPECT_FALSE(paths::IsReadOnly(file));
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  EXPECT_TRUE(paths::IsReadOnly(file));
  EXPECT_FALSE(paths::IsReadOnly(folder_ / "none"));
}

}  // namespace
}  // namespace tevra
