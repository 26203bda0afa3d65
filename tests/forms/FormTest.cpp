// Screens: how procedures fail, how boxes are left, how windows open.
#include <QComboBox>
#include <QVBoxLayout>
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/forms/Windows.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

class frmTried : public Form {
 public:
  frmTried() : Form("frmTried", "Incercare") {
    first = new TextBox("first", this);
    second = new TextBox("second", this);
    cmdOK = new QPushButton("&OK", this);
    cmdOK->setDefault(true);
    cmdIesire = new QPushButton("Iesire", this);
    SetCancelButton(cmdIesire);
    auto* layout = new QVBoxLayout(this);
    for (QWidget* widget : std::initializer_list<QWidget*>{first, second, cmdOK, cmdIesire}) {
      layout->addWidget(widget);
    }
    OnLeave(first, "first_Validate", [this](Procedure&) {
      ++left;
      return first->Text() != "gresit";
    });
    OnClick(cmdOK, "cmdOK_Click", [this](Procedure& procedure) {
      ++clicked;
      procedure.line = 4;
      if (first->Text() == "esec") throw Failure(11, "Division by zero");
    });
    OnClickShort(cmdIesire, "cmdIesire_Click", [this](Procedure&) {
      if (first->Text() == "esec") throw Failure(13, "Type mismatch");
      close();
    });
  }

  void Watch() { MarkSaved(); }

  TextBox* first;
  TextBox* second;
  QPushButton* cmdOK;
  QPushButton* cmdIesire;
  int left = 0;
  int clicked = 0;
  bool agrees = true;
  int unloaded = 0;

 protected:
  bool QueryUnload() override { return agrees; }
  void Form_Unload() override { ++unloaded; }
};

class FormOf : public ::testing::Test {
 protected:
  FormOf() {
    Activate(screen_);
    screen_.first->setFocus();
  }
  MessageRecorder messages_;
  frmTried screen_;
};

TEST_F(FormOf, AFailureIsToldInItsFormAndEndsTheProcedureOnly) {
  screen_.first->SetText("esec");
  QTest::mouseClick(screen_.cmdOK, Qt::LeftButton);
  QTest::mouseClick(screen_.cmdIesire, Qt::LeftButton);
  ASSERT_EQ(messages_.shown.size(), 2u);
  EXPECT_EQ(messages_.shown[0].prompt,
            "Eroare 11 - Division by zero in procedura cmdOK_Click din Form frmTried Linia: 4");
  EXPECT_EQ(messages_.shown[0].buttons, kCritical);
  EXPECT_EQ(messages_.shown[1].prompt, "13 - Type mismatch");
  EXPECT_EQ(messages_.shown[1].title, " cmdIesire_Click ");
  EXPECT_TRUE(screen_.isVisible());
}

TEST_F(FormOf, ABoxThatRefusesKeepsTheFocusAndStopsTheButton) {
  screen_.first->SetText("gresit");
  QTest::keyClick(screen_.first, Qt::Key_Tab);
  QCoreApplication::processEvents();
  EXPECT_EQ(screen_.left, 1);
  EXPECT_TRUE(screen_.first->hasFocus());
  QTest::mouseClick(screen_.cmdOK, Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_EQ(screen_.left, 2);
  EXPECT_EQ(screen_.clicked, 0);
  EXPECT_TRUE(screen_.first->hasFocus());
  EXPECT_FALSE(screen_.cmdOK->isDown());
  // Enter and a letter leave the box as well.
  QTest::keyClick(screen_.first, Qt::Key_Return);
  EXPECT_EQ(screen_.left, 3);
  EXPECT_EQ(screen_.clicked, 0);
  screen_.first->SetText("bun");
  QTest::keyClick(screen_.first, Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(screen_.left, 4);
  EXPECT_EQ(screen_.clicked, 1);
  QTest::keyClick(screen_.first, Qt::Key_Tab);
  QCoreApplication::processEvents();
  EXPECT_EQ(screen_.left, 5);
  EXPECT_TRUE(screen_.second->hasFocus());
}

TEST_F(FormOf, AnotherWindowOrAPopupIsNoLeaving) {
  screen_.first->SetText("gresit");
  for (const Qt::FocusReason reason :
       {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
    QFocusEvent out(QEvent::FocusOut, reason);
    QApplication::sendEvent(screen_.first, &out);
  }
  QCoreApplication::processEvents();
  EXPECT_EQ(screen_.left, 0);
}

TEST_F(FormOf, AnotherScreenOfTheFrameIsNoLeavingUntilTheUserIsBackInAnotherBox) {
  QWidget frame;
  frmTried screen;
  frmTried other;
  for (frmTried* each : {&screen, &other}) each->setParent(&frame);
  Activate(frame);
  screen.first->setFocus();
  screen.first->SetText("gresit");
  other.second->setFocus(Qt::MouseFocusReason);
  QCoreApplication::processEvents();
  EXPECT_EQ(screen.left, 0);
  EXPECT_TRUE(other.second->hasFocus());
  screen.second->setFocus(Qt::MouseFocusReason);
  QCoreApplication::processEvents();
  EXPECT_EQ(screen.left, 1);
  EXPECT_TRUE(screen.first->hasFocus());
}

TEST_F(FormOf, EscapeGivesUpWithoutAskingTheBox) {
  screen_.first->SetText("gresit");
  QTest::keyClick(screen_.first, Qt::Key_Escape);
  EXPECT_EQ(screen_.left, 0);
  EXPECT_FALSE(screen_.isVisible());
  EXPECT_EQ(screen_.unloaded, 1);
}

TEST_F(FormOf, ClosingMayBeRefusedAndUnloadsOnce) {
  screen_.agrees = false;
  EXPECT_FALSE(screen_.close());
  EXPECT_EQ(screen_.unloaded, 0);
  screen_.agrees = true;
  EXPECT_TRUE(screen_.close());
  screen_.close();
  EXPECT_EQ(screen_.unloaded, 1);
}

// ---- Unsaved changes ----------------------------------------------------------------------------

// A box of each kind, a hidden one and one that is no data.
class frmKept : public Form {
 public:
  frmKept() : Form("frmKept", "Pastrata") {
    text = new TextBox("text", this);
    number = new NumberBox("number", "Standard", this);
    date = new DateBox("date", this);
    tick = new CheckBox("tick", "Da", this);
    combo = new QComboBox(this);
    combo->addItems({"unu", "doi"});
    hidden = new TextBox("hidden", this);
    hidden->hide();
    search = new TextBox("search", this);
    auto* layout = new QVBoxLayout(this);
    for (QWidget* box : std::initializer_list<QWidget*>{text, number, date, tick, combo}) {
      layout->addWidget(box);
    }
    number->SetNumber(1234.5678);
    Save();
  }
  void Save() {
    for (QWidget* box : std::initializer_list<QWidget*>{text, number, date, tick, combo, hidden}) {
      MarkSaved(box);
    }
  }

  TextBox* text;
  NumberBox* number;
  DateBox* date;
  CheckBox* tick;
  QComboBox* combo;
  TextBox* hidden;
  TextBox* search;
};

TEST(UnsavedChanges, AreWhatDiffersFromWhatWasSavedHoweverItIsWritten) {
  frmKept screen;
  int edited = 0;
  QObject::connect(&screen, &Form::Edited, &screen, [&] { ++edited; });
  const auto changes = [&](const std::function<void()>& change) {
    change();
    return screen.HasChanges();
  };
  EXPECT_FALSE(changes([&] { screen.search->SetText("strung"); }));
  EXPECT_EQ(edited, 0);
  EXPECT_TRUE(changes([&] { screen.text->SetText("a"); }));
  EXPECT_TRUE(screen.HasChanges(screen.text));
  EXPECT_FALSE(screen.HasChanges(screen.number));
  EXPECT_FALSE(changes([&] { screen.text->SetText(""); }));
  EXPECT_EQ(edited, 2);
  EXPECT_TRUE(changes([&] { screen.number->SetText("1.234,5"); }));
  EXPECT_FALSE(changes([&] { screen.number->SetText("1.234,57"); })) << "as it was shown";
  EXPECT_FALSE(changes([&] { screen.number->SetText("1234,5678"); })) << "as it was held";
  EXPECT_TRUE(changes([&] { screen.number->SetText(""); }));
  screen.number->SetNumber(0);
  screen.Save();
  EXPECT_FALSE(changes([&] { screen.number->SetText("0"); }));
  const auto day = screen.date->Date();
  EXPECT_TRUE(changes([&] { screen.date->SetDate(DateTime(2020, 2, 29)); }));
  EXPECT_FALSE(changes([&] { screen.date->SetDate(day); }));
  EXPECT_TRUE(changes([&] { screen.tick->setChecked(true); }));
  EXPECT_FALSE(changes([&] { screen.tick->setChecked(false); }));
  EXPECT_TRUE(changes([&] { screen.combo->setCurrentIndex(1); }));
  EXPECT_FALSE(changes([&] { screen.combo->setCurrentIndex(0); }));
  EXPECT_TRUE(changes([&] { screen.hidden->SetText("derivat"); }));
  EXPECT_FALSE(changes([&] { screen.Save(); }));
}

TEST(UnsavedChanges, AreAskedForOnceAndNeverInsideTheClosing) {
  MessageRecorder messages;
  frmKept screen;
  screen.show();
  screen.text->SetText("a");
  messages.answers = {kNo, kYes};
  EXPECT_FALSE(screen.close());
  EXPECT_FALSE(screen.close());
  EXPECT_TRUE(messages.shown.empty());
  QCoreApplication::processEvents();
  ASSERT_EQ(messages.shown.size(), 1u);
  EXPECT_EQ(
      messages.shown[0].prompt,
      "Modificarile din ecranul \"Pastrata\" nu au fost salvate ! Doriti sa inchideti ecranul "
      "fara salvare ?");
  EXPECT_EQ(messages.shown[0].buttons, kYesNo | kQuestion | kDefaultStep);
  EXPECT_TRUE(screen.isVisible());
  EXPECT_EQ(screen.text->Text(), "a");
  screen.close();
  QCoreApplication::processEvents();
  EXPECT_EQ(messages.shown.size(), 2u);
  EXPECT_FALSE(screen.isVisible());
}

TEST_F(FormOf, AScreenThatStaysOpenAfterAYesAsksAgain) {
  screen_.Watch();
  screen_.second->SetText("a");
  screen_.agrees = false;
  screen_.DropChangesAndClose();
  EXPECT_TRUE(screen_.isVisible());
  screen_.agrees = true;
  messages_.answers = {kNo};
  screen_.close();
  QCoreApplication::processEvents();
  EXPECT_EQ(messages_.shown.size(), 1u);
  EXPECT_TRUE(screen_.isVisible());
}

TEST(Windows, OneWindowAScreenOrANewOneEachTime) {
  QPointer<frmTried> one = &windows::Open<frmTried>();
  EXPECT_EQ(&windows::Open<frmTried>(), one);
  one->close();
  frmTried& another = windows::Open<frmTried>();
  EXPECT_NE(&another, one.data());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(one.isNull());
  EXPECT_EQ(&windows::Open<frmTried>(), &another);
  frmTried& second = windows::OpenNew<frmTried>();
  EXPECT_NE(&second, &another);
  second.close();
  another.close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST(Windows, OneWindowForEachThing) {
  const auto open = [](const char* key) {
    return &windows::OpenFor<frmTried>(key, [] { return new frmTried; });
  };
  QPointer<frmTried> one = open("1");
  EXPECT_EQ(open("1"), one);
  QPointer<frmTried> two = open("2");
  EXPECT_NE(two, one);
  one->close();
  frmTried* again = open("1");
  EXPECT_NE(again, one);
  EXPECT_EQ(open("2"), two);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(one.isNull());
  EXPECT_EQ(open("1"), again);
  again->close();
  two->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace
}  // namespace tevra::test
