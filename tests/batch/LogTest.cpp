// What the command line leaves in the log, and what it never does.
#include "app/batch/Batch.h"
#include "platform/system/Log.h"
#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

namespace {

class BatchLog : public BatchTest {
 protected:
  BatchLog() {
    before_ = log::SetSink([this](const std::string& line) { lines_.push_back(line); });
  }
  ~BatchLog() override { log::SetSink(before_); }

  std::vector<std::string> lines_;
  log::Sink before_;
};

TEST_F(BatchLog, AFailureIsThereWithItsStatement) {
  company_.Open().Execute("DROP TABLE kv_par");
  const Result result = RunAsAdmin({"assets", "--verbose"});
  EXPECT_EQ(result.code, kRefused);
  ASSERT_EQ(lines_.size(), 1U);
  EXPECT_NE(lines_[0].find("no such table"), std::string::npos) << lines_[0];
  EXPECT_NE(lines_[0].find("Kv_PAR"), std::string::npos) << lines_[0];
  EXPECT_NE(lines_[0].find("SELECT * FROM"), std::string::npos) << lines_[0];
  EXPECT_EQ(lines_[0].substr(lines_[0].rfind(" | ")), " | assets");
  EXPECT_NE(result.err.find("jurnal: " + lines_[0] + "\n"), std::string::npos) << result.err;
  EXPECT_EQ(RunAsAdmin({"assets"}).err.find("jurnal"), std::string::npos);
  EXPECT_EQ(lines_.size(), 2U) << "also where it is not shown";
}

TEST_F(BatchLog, APasswordOrATypedValueIsNotThere) {
  company_.AddAsset({{"COD", "Tainic"}, {"TIP_AM", "L"}, {"VAL_CUMP", 4711.0}});
  const std::string wrong = File("gresita", "Tainic\n");
  const std::string csv = File("x.csv", "COD,VAL_CUMP\nTainic,4711x\n");
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{"assets", "--user", "admin", "--password-file", wrong},
       "Parola nu este corecta ! | assets"},
      {{"assets", "--user", "Tainic", "--password-file", wrong},
       "Utilizatorul ? nu exista ! | assets"},
      {{"asset", "Tainic4711", "31.12.2006"}, "numarul de inventar ? nu exista"},
      {{"calculate", "31.12.2006"}, "94 Invalid use of Null: "},
      {{"calculate", "4711"}, "Data \"?\" nu este corecta"},
      {{"load", csv, "I_IMO"}, "Nici un rand nu a fost incarcat ! | load"},
      {{"plan", "4711"}, "Imobilizarea cu numarul curent ? nu exista"},
      {{"create", "02", "Tainic\xff"}, "caractere nepermise ! | create"}};
  for (const auto& [arguments, part] : cases) {
    lines_.clear();
    const bool login = arguments.front() != "create" && arguments.size() < 4;
    EXPECT_EQ((login ? RunAsAdmin(arguments) : Run(arguments)).code, kRefused) << part;
    ASSERT_EQ(lines_.size(), 1U) << part;
    EXPECT_NE(lines_[0].find(part), std::string::npos) << lines_[0];
    for (const char* typed : {"Tainic", "4711"}) {
      EXPECT_EQ(lines_[0].find(typed), std::string::npos) << lines_[0];
    }
  }
}

}  // namespace

}  // namespace tevra::batch::test
