#include "platform/system/Paths.h"
#include "tests/system/Folder.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

namespace fs = std::filesystem;

class ReplaceFile : public FolderTest {
 protected:
  static void Write(const fs::path& path) { std::ofstream(path) << "new"; }
};

TEST_F(ReplaceFile, MakesAndReplaces) {
  const auto file = folder_ / "Societat.XML";
  fs::path seen;
  paths::ReplaceFile(file, [&](const fs::path& temporary) {
    seen = temporary;
    EXPECT_TRUE(fs::exists(temporary));
    EXPECT_FALSE(fs::exists(file));
    Write(temporary);
  });
  EXPECT_EQ(folder_, seen.parent_path());
  EXPECT_EQ("new", Content(file));
  fs::permissions(file, fs::perms(0640));
  paths::ReplaceFile(file, [](const fs::path& temporary) { std::ofstream(temporary) << "newer"; });
  EXPECT_EQ("newer", Content(file));
  EXPECT_EQ(fs::perms(0640), fs::status(file).permissions());
  EXPECT_EQ(1U, NamesIn(folder_).size());
}

TEST_F(ReplaceFile, AFailureMidwayLeavesTheOldFile) {
  const auto file = Make("Societat.XML", "old");
  const auto full = std::make_error_code(std::errc::no_space_on_device);
  EXPECT_EQ(53, FailureOf([&] {
              paths::ReplaceFile(file, [](const fs::path& temporary) {
                Write(temporary);
                throw Failure(53, "midway");
              });
            }));
  EXPECT_EQ(61, FailureOf([&] {
              paths::ReplaceFile(file, [&](const fs::path& temporary) {
                throw fs::filesystem_error("copy", temporary, full);
              });
            }));
  EXPECT_EQ("old", Content(file));
  EXPECT_EQ(1U, NamesIn(folder_).size());
}

TEST_F(ReplaceFile, RefusesWhatMayNotBeWritten) {
  const auto file = Make("a.xml", "old");
  fs::permissions(file, fs::perms::owner_read);
  EXPECT_EQ(70, FailureOf([&] { paths::ReplaceFile(file, Write); }));
  EXPECT_EQ("old", Content(file));
  fs::create_directory(folder_ / "Export");
  EXPECT_EQ(70, FailureOf([&] { paths::ReplaceFile(folder_ / "Export", Write); }));
  const fs::path lost = folder_ / std::string(80, 'd') / "Societat.XML";
  EXPECT_EQ(76, FailureOf([&] { paths::ReplaceFile(lost, Write); }));
  EXPECT_EQ("Path not found: ..." + std::string(44, 'd') + "/Societat.XML",
            DescriptionOf([&] { paths::ReplaceFile(lost, Write); }));
  EXPECT_EQ(2U, NamesIn(folder_).size());
}

TEST_F(ReplaceFile, ALinkStaysALink) {
  const auto file = Make("real.xml", "old");
  fs::create_symlink(file, folder_ / "link.xml");
  paths::ReplaceFile(folder_ / "link.xml", Write);
  EXPECT_TRUE(fs::is_symlink(folder_ / "link.xml"));
  EXPECT_EQ("new", Content(file));
}

}  // namespace
}  // namespace tevra
