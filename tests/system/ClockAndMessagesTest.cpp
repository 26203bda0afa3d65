#include <ctime>

#include <gtest/gtest.h>

#include "platform/system/Clock.h"
#include "platform/system/MessageBox.h"

namespace tevra {
namespace {

TEST(Clock, AnswersTheMomentSet) {
  clock::Set(DateTime(2005, 1, 1, 8, 30, 0));
  EXPECT_EQ(DateTime(2005, 1, 1), clock::Today());
  EXPECT_EQ(DateTime(2005, 1, 1, 8, 30, 0), clock::Now());
  clock::Reset();
  const std::time_t before = std::time(nullptr);
  std::tm local{};
  localtime_r(&before, &local);
  const DateTime expected(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                          local.tm_min, local.tm_sec);
  EXPECT_GE(clock::Now(), expected);
  EXPECT_LT(clock::Now().Serial() - expected.Serial(), 1.0 / 24);
}

TEST(MessageBox, WithoutAHandlerTheHarmlessButtonAnswers) {
  const MessageHandler before = SetMessageHandler({});
  const struct {
    long buttons, answer;
  } cases[] = {{0, kOk},     {16, kOk}, {1, kCancel}, {2, kAbort},
               {3, kCancel}, {36, kNo}, {5, kCancel}, {4 + 16384, kNo}};
  for (const auto& c : cases) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(c.answer, ShowMessage({"Doriti ?", c.buttons, "Titlu", {}})) << c.buttons;
    ShowMessage({"Doriti ?", c.buttons, "", {}});
    EXPECT_EQ("Titlu: Doriti ?\nDoriti ?\n", testing::internal::GetCapturedStderr());
  }
  SetMessageHandler(before);
}

TEST(MessageBox, AHandlerAnswersAndMayBeReplacedWhileItRuns) {
  const MessageHandler before = SetMessageHandler([](const MessageRequest& request) {
    const std::string prompt = request.prompt;
    SetMessageHandler([](const MessageRequest&) { return long{kNo}; });
    return prompt == "intai" ? long{kYes} : long{kCancel};
  });
  EXPECT_EQ(kYes, ShowMessage({"intai", kYesNo, "", {}}));
  EXPECT_EQ(kNo, ShowMessage({"apoi", kYesNo, "", {}}));
  SetMessageHandler(before);
}

}  // namespace
}  // namespace tevra
