// The sample company in a folder of its own, as calculated at a month's end.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <vector>

#include <gtest/gtest.h>

#include "engine/Module3.h"
#include "platform/data/TableLoader.h"
#include "tests/TestCompany.h"

namespace tevra::test {

class SampleCompany : public TestCompany {
 public:
  explicit SampleCompany(const DateTime& calculated) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(TEVRA_SAMPLE)) {
      if (entry.path().extension() == ".csv") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    Connection connection = Open();
    for (const std::filesystem::path& file : files) {
      std::ifstream csv(file, std::ios::binary);
      EXPECT_GT(LoadTable(connection, csv, file.stem().string().substr(3)).rows, 0) << file;
    }
    RunMonth(connection, calculated);
  }
};

}  // namespace tevra::test
