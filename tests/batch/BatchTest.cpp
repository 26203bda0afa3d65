#include "tests/batch/BatchTest.h"

#include <sstream>

#include "app/batch/Batch.h"
#include "app/batch/commands/Report.h"

namespace tevra::batch::test {

Result RunProgram(const std::vector<std::string>& arguments, const std::string& typed) {
  std::vector<const char*> argv{"tevra-batch"};
  for (const std::string& argument : arguments) argv.push_back(argument.c_str());
  std::istringstream in(typed);
  std::ostringstream out;
  std::ostringstream err;
  const int code =
      RunBatch(static_cast<int>(argv.size()), argv.data(), in, out, err, &kReportWriters);
  return {code, out.str(), err.str()};
}

// The first opening marks the file for shared use; what is compared later is the file after that.
BatchTest::BatchTest() {
  company_.Open();
  File("parola", "1\n");
}

std::string BatchTest::File(const std::string& name, const std::string& content) const {
  return WriteFile(Directory() / name, content).string();
}

Result BatchTest::Run(const std::vector<std::string>& arguments, const std::string& typed) const {
  std::vector<std::string> all{"--dir", Directory().string()};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return RunProgram(all, typed);
}

Result BatchTest::RunAsAdmin(std::vector<std::string> arguments, const std::string& typed) const {
  arguments.insert(arguments.end(),
                   {"--user", "admin", "--password-file", (Directory() / "parola").string()});
  return Run(arguments, typed);
}

void BatchTest::ExpectRefused(const std::vector<std::string>& arguments,
                              const std::string& text) const {
  const std::string before = Content(company_.File());
  const Result result = RunAsAdmin(arguments);
  EXPECT_EQ(result.code, kRefused) << text;
  EXPECT_EQ(result.out, "") << text;
  EXPECT_NE(result.err.find(text), std::string::npos)
      << "not \"" << text << "\" but " << result.err;
  EXPECT_TRUE(Content(company_.File()) == before) << text;
}

}  // namespace tevra::batch::test
