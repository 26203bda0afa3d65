#include <chrono>
#include <functional>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/system/Paths.h"
#include "platform/system/TemporaryFile.h"
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

TEST_F(ReplaceFile, TakesTheSideFilesOfAFailureWithIt) {
  EXPECT_EQ(61, FailureOf([&] {
              paths::ReplaceFile(folder_ / "a.mdb", [](const fs::path& temporary) {
                for (const char* side : {"-wal", "-shm", "-journal"}) {
                  Write(fs::path(temporary) += side);
                }
                throw Failure(61, "midway");
              });
            }));
  EXPECT_EQ(0U, NamesIn(folder_).size());
}

// A process of its own is killed while it writes; another one still writes.
TEST_F(ReplaceFile, SweepsWhatKilledProgramsLeft) {
  const auto write = [&](const std::function<void(const fs::path&)>& midway) {
    paths::ReplaceFile(folder_ / "a.mdb", [&](const fs::path& temporary) {
      Write(fs::path(temporary) += "-journal");
      midway(temporary);
      Write(temporary);
    });
  };
  const pid_t child = fork();
  if (child == 0) {
    write([](const fs::path&) { raise(SIGKILL); });
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  Make(".tevra-0123456789abcdef.tmp");
  const auto old = Make(".tevra-fedcba9876543210.tmp-wal");
  fs::last_write_time(old, fs::file_time_type::clock::now() - std::chrono::hours(2));
  Make(".tevra-1.txt");
  fs::last_write_time(Make("tevra-1.tmp"), fs::last_write_time(old));
  ASSERT_EQ(6U, NamesIn(folder_).size());
  paths::ReplaceFile(folder_ / "b.xml", Write);
  const std::vector<std::string> left{".tevra-0123456789abcdef.tmp", ".tevra-1.txt", "b.xml",
                                      "tevra-1.tmp"};
  EXPECT_EQ(left, NamesIn(folder_));
  write([&](const fs::path& temporary) {
    paths::SweepTemporaryFiles(folder_);
    EXPECT_TRUE(fs::exists(temporary) && fs::exists(fs::path(temporary) += "-journal"));
    fs::remove(fs::path(temporary) += "-journal");
  });
  EXPECT_EQ(left.size() + 1, NamesIn(folder_).size());
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
