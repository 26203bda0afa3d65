// What a command does with messages and questions.
#include <sstream>

#include "app/batch/Messages.h"
#include "app/batch/Refusal.h"
#include "tests/batch/BatchTest.h"

namespace tevra::batch::test {

namespace {

TEST(BatchMessages, AnswerYesOnlyWithYesAndOnlyWhereItIsAsked) {
  std::ostringstream err;
  {
    const BatchMessages messages(err, true);
    EXPECT_EQ(ShowMessage({"Doriti ?", kYesNo | kQuestion, "", {}}), kYes);
    EXPECT_EQ(err.str(), "Doriti ?\nRaspuns: Da (--yes)\n");
    EXPECT_EQ(ShowMessage({"Doriti ?", kYesNoCancel, "", {}}), kYes);
    EXPECT_EQ(ShowMessage({"Reincercati ?", kRetryCancel, "", {}}), kCancel);
  }
  err.str("");
  const tevra::test::MessageRecorder before;
  {
    const BatchMessages messages(err, false);
    EXPECT_EQ(ShowMessage({"Gata", kInformation, "", {}}), kOk);
    EXPECT_THROW(ShowMessage({"Doriti ?", kYesNo | kQuestion, "", {}}), Refusal);
    EXPECT_EQ(err.str(), "Gata\nDoriti ?\n");
  }
  ShowMessage({"Gata", kInformation, "", {}});
  EXPECT_EQ(before.shown.size(), 1u) << "the handler from before is back";
}

}  // namespace

}  // namespace tevra::batch::test
