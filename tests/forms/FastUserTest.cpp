// A user who types and clicks faster than the event loop turns: nothing here lets events through
// between two of his steps.
#include <QComboBox>
#include <QListWidget>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

#include <gtest/gtest.h>

#include "platform/forms/Boxes.h"
#include "platform/forms/Form.h"
#include "platform/forms/FormsApplication.h"
#include "platform/forms/frmProgress.h"
#include "tests/TestCompany.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

// Tells in `heard` what was heard, and how the controls stood when the date was left.
class frmFast : public Form {
 public:
  using Form::GiveFocus;
  using Form::OnClick;
  using Form::OnLeave;
  frmFast() : Form("frmFast", "Repede") {
    auto* layout = new QVBoxLayout(this);
    for (QWidget* widget : std::initializer_list<QWidget*>{date, first, second, tick, combo, list,
                                                           button, plain, cancel}) {
      layout->addWidget(widget);
    }
    layout->addWidget(tabs);
    tabs->addTab(new TextBox("onFirst"), "&Unu");
    tabs->addTab(new TextBox("onSecond"), "&Doi");
    combo->addItems({"alfa", "beta"});
    list->addItems({"sus", "jos"});
    list->setCurrentRow(0);
    first->setChecked(true);
    SetCancelButton(cancel);
    OnLeave(date, "date_LostFocus", [this](Procedure&) {
      heard += "left(" + Standing() + ") ";
      return lets;
    });
    for (OptionButton* option : {first, second}) {
      connect(option, &OptionButton::Click, this,
              [this, option] { heard += option->objectName().toStdString() + " "; });
    }
    connect(tick, &CheckBox::Click, this, [this] { heard += "tick "; });
    OnClick(button, "button_Click", [this](Procedure&) { heard += "button "; });
    connect(cancel, &QPushButton::clicked, this, [this] { close(); });
  }
  std::string Standing() const {
    return QString("%1%2%3%4")
        .arg(second->isChecked())
        .arg(tick->isChecked())
        .arg(list->currentRow())
        .arg(tabs->currentIndex())
        .toStdString();
  }

  DateBox* date = new DateBox("date", this);
  OptionButton* first = new OptionButton("first", "&Prima", this);
  OptionButton* second = new OptionButton("second", "&A doua", this);
  CheckBox* tick = new CheckBox("tick", "&Bifa", this);
  QComboBox* combo = new QComboBox(this);
  QListWidget* list = new QListWidget(this);
  QPushButton* button = new QPushButton("&Salvare", this);
  QPushButton* plain = new QPushButton("Altul", this);
  QPushButton* cancel = new QPushButton("Iesire", this);
  QTabWidget* tabs = new QTabWidget(this);
  std::string heard;
  bool lets = true;
};

class FastUser : public ::testing::Test {
 protected:
  FastUser() {
    Activate(screen_);
    TypeADate();
  }
  void TypeADate() {
    screen_.date->setFocus();
    QTest::keyClicks(screen_.date, "05062023");
    screen_.heard.clear();
  }
  static void Click(QWidget* widget, QPoint at = QPoint(8, 8)) {
    QTest::mouseClick(widget, Qt::LeftButton, {}, at);
  }
  static QWidget* RowOf(QListWidget* list) { return list->viewport(); }
  QPoint SecondRow() { return screen_.list->visualItemRect(screen_.list->item(1)).center(); }
  QPoint SecondTab() { return screen_.tabs->tabBar()->tabRect(1).center(); }

  MessageRecorder messages_;
  frmFast screen_;
};

TEST_F(FastUser, ABoxIsLeftBeforeTheControlActsThatTheUserWentTo) {
  struct Case {
    const char* what;
    std::function<void()> act;
    const char* heard;
  };
  const Case kCases[] = {
      {"option", [&] { Click(screen_.second); }, "left(0000) second "},
      {"option again", [&] { Click(screen_.second); }, "left(1000) second "},
      {"first option by letter", [&] { QTest::keyClick(screen_.date, Qt::Key_P, Qt::AltModifier); },
       "left(1000) first "},
      {"tick", [&] { Click(screen_.tick); }, "left(0000) tick "},
      {"tick by letter", [&] { QTest::keyClick(screen_.date, Qt::Key_B, Qt::AltModifier); },
       "left(0100) tick "},
      {"button", [&] { Click(screen_.button); }, "left(0000) button "},
      {"button by letter", [&] { QTest::keyClick(screen_.date, Qt::Key_S, Qt::AltModifier); },
       "left(0000) button "},
      {"list", [&] { Click(RowOf(screen_.list), SecondRow()); }, "left(0000) "},
      {"tab", [&] { Click(screen_.tabs->tabBar(), SecondTab()); }, "left(0010) "},
      {"tab by letter", [&] { QTest::keyClick(screen_.date, Qt::Key_U, Qt::AltModifier); },
       "left(0011) "},
      {"Tab and Space",
       [&] {
         QTest::keyClick(screen_.date, Qt::Key_Tab);
         QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
         QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
       },
       "left(0010) tick "},
  };
  for (const Case& each : kCases) {
    TypeADate();
    each.act();
    EXPECT_EQ(screen_.heard, each.heard) << each.what;
    QCoreApplication::processEvents();
    EXPECT_EQ(screen_.heard, each.heard) << each.what << ", a moment later";
  }
}

TEST_F(FastUser, EnterLeavesTheBoxBeforeTheDefaultButtonActs) {
  screen_.button->setDefault(true);
  QTest::keyClicks(screen_.date, "31/12");
  QTest::keyClick(screen_.date, Qt::Key_Return);
  EXPECT_EQ(screen_.heard, "left(0000) button ");
  EXPECT_EQ(screen_.date->Date(), DateTime(2023, 12, 31));
  EXPECT_EQ(screen_.date->text(), "31.12.2023") << "half typed, it is settled";
}

TEST_F(FastUser, ABoxThatKeepsTheFocusStopsWhatTheUserWentTo) {
  screen_.lets = false;
  Click(screen_.second);
  Click(screen_.tick);
  Click(RowOf(screen_.list), SecondRow());
  Click(screen_.tabs->tabBar(), SecondTab());
  QTest::keyClick(screen_.date, Qt::Key_A, Qt::AltModifier);
  EXPECT_EQ(screen_.Standing(), "0000");
  EXPECT_EQ(screen_.heard, "left(0000) left(0000) left(0000) left(0000) left(0000) ");
  EXPECT_TRUE(screen_.date->hasFocus());
  // A key that was meant for the next box does not come into this one.
  screen_.heard.clear();
  QTest::keyClick(screen_.date, Qt::Key_Tab);
  QTest::keyClick(screen_.second, Qt::Key_Space);
  EXPECT_FALSE(screen_.second->isChecked());
  EXPECT_EQ(screen_.date->text(), "05.06.2023");
}

TEST_F(FastUser, AHandlerThatPutsTheFocusElsewhereStopsTheClick) {
  screen_.OnLeave(screen_.date, "date_LostFocus", [this](Procedure&) {
    screen_.GiveFocus(screen_.first);
    return true;
  });
  Click(screen_.tick);
  EXPECT_FALSE(screen_.tick->isChecked());
  EXPECT_TRUE(screen_.first->hasFocus());
}

TEST_F(FastUser, GivingUpAsksNothingOfTheBox) {
  screen_.lets = false;
  Click(screen_.cancel);
  EXPECT_FALSE(screen_.isVisible());
  EXPECT_EQ(screen_.heard, "");
}

// ---- Work behind the event ----------------------------------------------------------------------

TEST_F(FastUser, AButtonsWorkRunsBehindItsEventAndBeforeTheNext) {
  bool inEvent = true;
  screen_.OnClick(screen_.plain, "plain_Click", [&](Procedure&) {
    inEvent = IsInEvent();
    screen_.heard += screen_.tick->isChecked() ? "late " : "at once ";
  });
  Click(screen_.plain);
  Click(screen_.tick);
  EXPECT_EQ(screen_.heard, "left(0000) at once tick ");
  EXPECT_FALSE(inEvent);
}

// A message from a handler: its own button must work while the first click is being worked on.
TEST_F(FastUser, AModalScreenOfAClickHearsItsButtons) {
  screen_.OnClick(screen_.plain, "plain_Click", [&](Procedure&) {
    frmFast modal;
    modal.OnClick(modal.plain, "plain_Click", [&](Procedure&) { modal.close(); });
    QTimer::singleShot(0, &modal, [&] { Click(modal.plain); });
    modal.ShowModal();
    screen_.heard += "behind ";
  });
  Click(screen_.plain);
  EXPECT_EQ(screen_.heard, "left(0000) behind ");
}

// The same when the message comes of leaving a box, in the middle of the click that leaves it; the
// click went to the message.
TEST_F(FastUser, AModalScreenOfALeaveHandlerTakesTheClick) {
  screen_.OnLeave(screen_.date, "date_LostFocus", [&](Procedure&) {
    frmFast modal;
    QTimer::singleShot(0, &modal, [&] { Click(modal.cancel); });
    modal.ShowModal();
    return true;
  });
  Click(screen_.tick);
  EXPECT_FALSE(screen_.tick->isChecked());
  Click(screen_.tick);
  EXPECT_TRUE(screen_.tick->isChecked());
}

TEST_F(FastUser, AScreenClosedInAnEventIsAskedBehindIt) {
  class Asking : public frmFast {
   public:
    bool QueryUnload() override {
      asked += IsInEvent() ? "in " : "behind ";
      return asked.size() > 8;
    }
    std::string asked;
  };
  Asking asking;
  asking.show();
  Click(asking.cancel);
  EXPECT_EQ(asking.asked, "behind ");
  EXPECT_TRUE(asking.isVisible());
  QTest::keyClick(&asking, Qt::Key_Escape);
  EXPECT_EQ(asking.asked, "behind behind ");
  EXPECT_FALSE(asking.isVisible());
}

// The user may give up work that runs in the middle of an event.
TEST_F(FastUser, TheWindowOfLongWorkHearsItsButtonInTheMiddleOfAnEvent) {
  bool wentOn = true;
  const auto work = [&] {
    frmProgress window("Lucrare", {}, nullptr);
    bool wanted = false;
    QObject::connect(window.cmdRenunta, &QPushButton::clicked, &window,
                     [&] { AfterEvent(&window, [&] { wanted = true; }); });
    const Progress progress = window.Asked();
    QTimer::singleShot(0, &window, [&] { Click(window.cmdRenunta); });
    QElapsedTimer time;
    time.start();
    constexpr int kLongest = 5000;
    while (!wanted && time.elapsed() < kLongest) {
      wentOn = progress(1, 10);
      QTest::qSleep(10);
    }
    EXPECT_TRUE(wanted);
  };
  QObject::connect(screen_.plain, &QPushButton::clicked, &screen_, work);
  Click(screen_.plain);
  EXPECT_FALSE(wentOn);
}

}  // namespace
}  // namespace tevra::test
