// Runs commands of tevra-batch in this process on a company of its own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/TestCompany.h"

namespace tevra::batch::test {

struct Result {
  int code = 0;
  std::string out;
  std::string err;
};

/// Runs the program with these arguments; `typed` stands on the standard input.
Result RunProgram(const std::vector<std::string>& arguments, const std::string& typed = {});

class BatchTest : public ::testing::Test {
 protected:
  BatchTest();

  std::filesystem::path Directory() const { return company_.Directory(); }

  /// A file in the company's directory; returns its path.
  std::string File(const std::string& name, const std::string& content) const;

  /// With --dir before the arguments.
  Result Run(const std::vector<std::string>& arguments, const std::string& typed = {}) const;

  /// With --dir, and the login of admin.
  Result RunAsAdmin(std::vector<std::string> arguments, const std::string& typed = {}) const;

  /// Expects exit code 1, nothing on the output, `text` in the message, and the company file
  /// unchanged.
  void ExpectRefused(const std::vector<std::string>& arguments, const std::string& text) const;

  tevra::test::TestCompany company_;
};

}  // namespace tevra::batch::test
