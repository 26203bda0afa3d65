#include <gtest/gtest.h>

#include "platform/system/MessageBox.h"

namespace tevra {
namespace {

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
