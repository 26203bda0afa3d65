// The export's screen, worked as by its user.
#include <QLabel>
#include <QtTest>

#include "exchange/frmExport.h"
#include "session/Session.h"
#include "tests/exchange/ExchangeTest.h"

namespace tevra::test {
namespace {

class ExportScreen : public ::testing::Test {
 protected:
  ExportScreen() {
    clock::Set(DateTime(2006, 12, 31, 14, 5, 9));
    CurrentSession().dataIn = DateTime(2006, 1, 1);
    CurrentSession().dataSn = DateTime(2006, 12, 31);
    Connection file = company_.Open();
    AddLine(file, 1, 1, DateTime(2006, 6, 30), Value(), Value());
  }
  ~ExportScreen() override { clock::Reset(); }

  void Press(QPushButton* button) {
    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
  }

  TestCompany company_;
  MessageRecorder messages_;
};

TEST_F(ExportScreen, WritesThePeriodAndAsksBeforeItIsWrittenAgain) {
  frmExport screen;
  screen.show();
  EXPECT_EQ(screen.dtDataDeLa->Date(), DateTime(2006, 1, 1));
  EXPECT_EQ(screen.dtPanaLa->Date(), DateTime(2006, 12, 31));
  Press(screen.cmdExport);
  messages_.answers = {kNo};
  Press(screen.cmdExport);
  EXPECT_EQ(ExportsIn(company_).size(), 1U);
  clock::Set(DateTime(2006, 12, 31, 14, 5, 10));
  messages_.answers = {kYes};
  Press(screen.cmdExport);
  std::vector<std::string> shown;
  for (const MessageRequest& each : messages_.shown) {
    shown.push_back(each.prompt + "|" + std::to_string(each.buttons));
  }
  const std::string question = "Ati mai facut export in intervalul: 01.01.2006 - 31.12.2006|4";
  EXPECT_EQ(shown, (std::vector<std::string>{"Export cu succes|64", question, question,
                                             "Export cu succes|64"}));
  EXPECT_EQ(ExportsIn(company_).size(), 2U);
}

TEST_F(ExportScreen, NamesTheProcedureThatFailed) {
  frmExport screen;
  screen.show();
  Connection file = company_.Open();
  file.Execute("ALTER TABLE Kv_CC RENAME TO x");
  Press(screen.cmdExport);
  file.Execute("ALTER TABLE x RENAME TO Kv_CC");
  file.Execute("CREATE TRIGGER x BEFORE UPDATE ON Kv_Linii BEGIN SELECT RAISE(ABORT, 'gata'); END");
  Press(screen.cmdExport);
  std::filesystem::remove_all(ExportRoot());
  WriteFile(ExportRoot(), "no folder");
  Press(screen.cmdExport);
  ASSERT_EQ(messages_.shown.size(), 3U);
  const char* const procedures[] = {"Recordset2XMLNode", "GenerateXML", "cmdExport_Click"};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NE(messages_.shown[i].prompt.find(std::string(" in procedura ") + procedures[i] +
                                             " din Form frmExport Linia: "),
              std::string::npos)
        << messages_.shown[i].prompt;
  }
}

}  // namespace
}  // namespace tevra::test
