// A temporary folder that goes with the test.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>
#include <stdlib.h>

namespace tevra {

class FolderTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (std::filesystem::temp_directory_path() / "tevra-XXXXXX").string();
    ASSERT_NE(nullptr, mkdtemp(pattern.data()));
    folder_ = pattern;
  }

  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::filesystem::path Make(const std::string& name, const std::string& content = "x") const {
    const auto path = folder_ / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path) << content;
    return path;
  }

  static std::string Content(const std::filesystem::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::filesystem::path folder_;
};

}  // namespace tevra
