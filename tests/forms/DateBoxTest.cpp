// The box for a date: what its user types, clicks and pastes, and what he expects of it.
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QtTest>
#include <random>

#include <gtest/gtest.h>

#include "platform/forms/DateBox.h"
#include "platform/system/Clock.h"
#include "tests/screens/Screens.h"

namespace tevra::test {
namespace {

class DateBoxOf : public ::testing::Test {
 protected:
  DateBoxOf() {
    clock::Set(DateTime(2026, 11, 23));
    auto* layout = new QHBoxLayout(&window_);
    box = new DateBox("box", &window_, "d/MM/yyyy");
    next = new QLineEdit(&window_);
    layout->addWidget(box);
    layout->addWidget(next);
    Activate(window_);
    box->setFocus();
  }
  ~DateBoxOf() override { clock::Reset(); }

  // As a user clicks: into the middle of day (0), month or year.
  void Click(int part) {
    auto* line = box->findChild<QLineEdit*>();
    const QString text = line->text();
    qsizetype start = 0;
    for (int i = 0; i < part; ++i) start = text.indexOf('/', start) + 1;
    const qsizetype end = part == 2 ? text.size() : text.indexOf('/', start);
    const auto wanted = static_cast<int>((start + end + 1) / 2);
    int x = 0;
    while (x < line->width() && line->cursorPositionAt({x, line->height() / 2}) < wanted) ++x;
    QTest::mouseClick(line, Qt::LeftButton, {}, {x, line->height() / 2});
  }
  void Press(Qt::Key key) { QTest::keyClick(box, key); }
  void Type(const char* text) { QTest::keyClicks(box, text); }
  void Paste(const QString& text) {
    QApplication::clipboard()->setText(text);
    QTest::keySequence(box, QKeySequence::Paste);
  }
  std::string Left() {
    next->setFocus();
    return box->text().toStdString();
  }
  void StartAt(const DateTime& date) {
    box->SetDate(date);
    box->setFocus();
    Press(Qt::Key_Home);
  }

  QWidget window_;
  DateBox* box;
  QLineEdit* next;
};

TEST_F(DateBoxOf, EightDigitsAreADateInWhicheverPartTheyBegan) {
  for (int part = 0; part < 3; ++part) {
    StartAt(DateTime(2019, 10, 31));
    Click(part);
    Type("05062023");
    EXPECT_EQ(box->Date(), DateTime(2023, 6, 5)) << part;
    Type("31122024");
    EXPECT_EQ(Left(), "31/12/2024") << part << ": a second date replaces the first";
  }
}

TEST_F(DateBoxOf, WhatIsHalfTypedCountsWhenTheBoxIsLeft) {
  struct Case {
    const char* typed;
    const char* meant;
    bool refused = false;
  };
  // Over 28.02.2025.
  const Case kCases[] = {
      {"3", "3/02/2025"},
      {"03.04", "3/04/2025"},
      {"0304", "3/04/2025"},
      {"3-4-26", "3/04/2026"},
      {"030426", "3/04/2026"},
      {"3,4,96", "3/04/1996"},
      {"3 4 2027", "3/04/2027"},
      {"3.", "3/02/2025"},
      {".5", "28/05/2025"},
      {"31", "28/02/2025", true},
      {"31.02.2024", "28/02/2025", true},
      {"30022024", "28/02/2025", true},
      {"00012024", "28/02/2025", true},
      {"15132024", "28/02/2025", true},
      {"3.4.2", "28/02/2025", true},
      {"3.4.202", "28/02/2025", true},
      {"01011700", "28/02/2025", true},
  };
  for (const Case& each : kCases) {
    StartAt(DateTime(2025, 2, 28));
    Type(each.typed);
    EXPECT_EQ(Left(), each.meant) << each.typed;
    EXPECT_EQ(!box->Refused().isEmpty(), each.refused) << each.typed;
  }
  StartAt(DateTime(2025, 2, 28));
  EXPECT_TRUE(box->Refused().isEmpty()) << "another value takes the sign away";
  Type("31/02/2024");
  EXPECT_EQ(box->Refused().toStdString(), "\"31/02/2024\" nu este o data; a ramas: 28/02/2025");
  EXPECT_EQ(box->toolTip(), box->Refused());
  Type("1");
  EXPECT_TRUE(box->toolTip().isEmpty());
}

TEST_F(DateBoxOf, APastedDateMayStandInAnyUsualForm) {
  for (const char* usual : {"31.12.2006", " 31/12/2006\n", "31-12-06", "31122006", "2006-12-31",
                            "2006/12/31", "31 decembrie 2006", "31 dec. 2006", "31 . 12 . 2006",
                            "2006-12-31 10:20:30", "31.12.2006 10:20"}) {
    StartAt(DateTime(2025, 2, 28));
    Click(2);
    Type("1");
    Paste(usual);
    EXPECT_EQ(box->Date(), DateTime(2006, 12, 31)) << usual;
    EXPECT_EQ(box->text(), "31/12/2006") << usual;
  }
  for (const char* none :
       {"31.02.2006", "12.2006", "miercuri", "31 brumar 2006", "311220067", "1"}) {
    StartAt(DateTime(2025, 2, 28));
    Paste(none);
    EXPECT_EQ(box->text(), "28/02/2025") << none;
    EXPECT_FALSE(box->Refused().isEmpty()) << none;
  }
  Paste(" ");
  QTest::keySequence(box, QKeySequence::Copy);
  EXPECT_EQ(QApplication::clipboard()->text(), "28/02/2025");
}

TEST_F(DateBoxOf, TheArrowsStepWhatIsTypedByThen) {
  StartAt(DateTime(2025, 2, 10));
  Type("15");
  Press(Qt::Key_Up);
  EXPECT_EQ(box->Date(), DateTime(2025, 2, 16));
  Press(Qt::Key_Right);
  Press(Qt::Key_Up);
  Press(Qt::Key_End);
  Press(Qt::Key_Down);
  EXPECT_EQ(Left(), "16/03/2024");
}

// ---- A user's expectation -----------------------------------------------------------------------

// What a user expects, told by regular expressions over all that he typed since he last came to a
// part of the date:
// - a date with day, month and a year of four digits is taken at once, also when he began to type
//   it in the month or the year; the next character begins another one;
// - what is less than that fills the parts from the one where he began;
// - a character too many begins anew: at the day, or at the year where he typed years only;
// - what comes to no date, when he goes away from it, changes nothing and is marked.
class Expected {
 public:
  explicit Expected(const QDate& date) : stands(date) {}

  void Type(QChar character) {
    refused = false;
    if (typed_.isEmpty() && character == '.') {
      part = stands.isValid() ? std::min(part + 1, 2) : 0;  // an empty box has no parts
      return;
    }
    if (typed_.isEmpty()) begin_ = part;
    const QString longer = typed_ + character;
    if (Matches(longer, begin_)) {
      typed_ = longer;
    } else if (begin_ > 0 && MayBeADate(longer)) {
      typed_ = longer;
      begin_ = 0;
    } else {
      const int again = begin_ == 2 ? 2 : 0;
      GoTo(again);
      const bool kept = refused;
      Type(character);
      refused = kept;
      return;
    }
    static const QRegularExpression kWhole(
        R"(^(\d\d|\d\.+)(\d\d\.*|\d\.+)\d{4}$|^\d\d\.+(\d\d\.*|\d\.+)\d{4}$)");
    if (begin_ == 0 && kWhole.match(typed_).hasMatch()) {
      GoAway();
      part = 0;
    }
  }

  // To another part, to another box, or by Enter.
  void GoAway() {
    if (typed_.isEmpty()) return;
    const QDate meant = Date();
    refused = !IsADate();
    stands = meant;
    typed_.clear();
  }
  void GoTo(int to) {
    GoAway();
    part = stands.isValid() ? to : 0;
  }
  void Drop() {
    if (!typed_.isEmpty()) part = begin_;
    typed_.clear();
  }
  void TakeBack() {
    if (typed_.isEmpty()) return;
    typed_.chop(1);
    if (typed_.isEmpty()) part = begin_;
  }
  bool IsTyping() const { return !typed_.isEmpty(); }
  // Where the arrows start from.
  int Begin() const { return begin_; }

  QDate Date() const { return IsADate() ? Meant() : stands; }

  QDate stands;  // without what is half typed
  int part = 0;
  bool refused = false;

 private:
  static QRegularExpression Form(int begin) {
    static const QString kTwo = R"((\d{1,2}))";
    static const QString kNext = R"((?:\.+|(?<=\d\d)))";
    static const QString kYear = R"((\d{1,4}))";
    if (begin == 0) {
      return QRegularExpression("^" + kTwo + "(?:" + kNext + kTwo + "(?:" + kNext + kYear +
                                ")?)?\\.*$");
    }
    if (begin == 1) {
      return QRegularExpression("^" + kTwo + "(?:" + kNext + kYear + "|\\.*)$");
    }
    return QRegularExpression("^" + kYear + "$");
  }
  static bool Matches(const QString& typed, int begin) {
    return Form(begin).match(typed).hasMatch();
  }
  static bool MayBeADate(const QString& typed) {
    const auto match = Form(0).match(typed);
    if (!match.hasMatch()) return false;
    const QString month = match.captured(2);
    const bool ended = month.size() == 2 || !match.captured(3).isEmpty() || typed.endsWith('.');
    const int day = match.captured(1).toInt();
    if (day < 1 || day > 31) return false;
    return month.isEmpty() || !ended || (month.toInt() >= 1 && month.toInt() <= 12);
  }
  QDate Meant() const {
    if (typed_.isEmpty()) return stands;
    const QDate over = stands.isValid() ? stands : QDate(2026, 11, 23);
    const auto match = Form(begin_).match(typed_);
    QString texts[3];
    for (int i = begin_; i < 3; ++i) texts[i] = match.captured(i - begin_ + 1);
    int year = texts[2].isEmpty() ? over.year() : texts[2].toInt();
    if (texts[2].size() == 2) year += year < 30 ? 2000 : 1900;
    if (texts[2].size() == 1 || texts[2].size() == 3) return {};
    const int month = texts[1].isEmpty() ? over.month() : texts[1].toInt();
    if (!texts[0].isEmpty()) return QDate(year, month, texts[0].toInt());
    return QDate(year, month, std::min(over.day(), QDate(year, month, 1).daysInMonth()));
  }
  bool IsADate() const {
    return typed_.isEmpty() || (Meant().isValid() && Meant() > QDate(1752, 9, 14));
  }

  QString typed_;
  int begin_ = 0;
};

class FuzzedDateBox : public DateBoxOf {
 protected:
  int Any(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

  void TypeOne(QChar character, const QString& key) {
    done_ += (key == "digit" ? QString(character) : key) + " ";
    QTest::keyClick(box, character.toLatin1() == '.' ? "./-, "[Any(5)] : character.toLatin1());
    user_.Type(character);
  }
  void TypeADate() {
    const QDate date = QDate(1990, 1, 1).addDays(Any(20000));
    static const char* const kForms[] = {"ddMMyyyy", "d.M.yyyy", "dd.MM.yyyy",
                                         "d.M.yy",   "ddMM",     "MMyyyy"};
    for (const QChar each : date.toString(kForms[Any(6)])) TypeOne(each, each);
  }
  void Go(Qt::Key key, int to) {
    Press(key);
    user_.GoTo(to);
  }
  // Stepping is the toolkit's own; what was typed counts before.
  void Step() {
    const int section = user_.IsTyping() ? -1 : user_.part;
    user_.GoAway();
    const QDate before = user_.stands;
    Press(Any(2) ? Qt::Key_Up : Qt::Key_Down);
    user_.stands = Stands();
    user_.refused = !box->Refused().isEmpty();
    if (section >= 0 && section < 2 && before.isValid()) {
      EXPECT_EQ(user_.stands.year(), before.year());
    }
    Press(Qt::Key_Home);
    user_.GoTo(0);
  }
  void PasteOne() {
    static const char* const kTexts[] = {"12.03.2021", "2020-02-29", "31.02.2020", "abc", ""};
    static const QDate kDates[] = {{2021, 3, 12}, {2020, 2, 29}, {}, {}, {}};
    const int which = Any(5);
    Paste(kTexts[which]);
    user_.Drop();
    if (kDates[which].isValid()) {
      user_.refused = false;
      user_.stands = kDates[which];
      user_.part = 0;
    } else if (*kTexts[which]) {
      user_.refused = true;
    }
  }
  void LeaveAndComeBack() {
    QTest::keyClick(box, Qt::Key_Tab);
    EXPECT_TRUE(next->hasFocus());
    QTest::keyClick(next, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(box->hasFocus());
    user_.GoTo(0);
  }
  void ClickOne() {
    const int part = Any(3);
    done_ += QString::number(part) + "in" + box->text() + " ";
    Click(part);
    user_.GoTo(part);
  }
  QDate Stands() const {
    const auto date = box->Date();
    return date ? QDate(date->Year(), date->Month(), date->Day()) : QDate();
  }
  void DoSomething() {
    const int what = Any(100);
    if (what < 30) return TypeOne(QChar('0' + Any(10)), "digit");
    if (what < 50) return TypeADate();
    if (what < 58) return TypeOne('.', ".");
    struct Act {
      int below;
      const char* name;
      std::function<void()> act;
    };
    const Act kActs[] = {
        {66, "click", [&] { ClickOne(); }},
        {70, "back",
         [&] {
           Press(Qt::Key_Backspace);
           user_.TakeBack();
         }},
        {73, "home", [&] { Go(Qt::Key_Home, 0); }},
        {76, "end", [&] { Go(Qt::Key_End, 2); }},
        {80, "leave", [&] { LeaveAndComeBack(); }},
        {84, "escape",
         [&] {
           Press(Qt::Key_Escape);
           user_.Drop();
         }},
        {88, "paste", [&] { PasteOne(); }},
        {92, "step", [&] { Step(); }},
        {95, "enter",
         [&] {
           Press(Qt::Key_Return);
           user_.GoTo(0);
           Press(Qt::Key_Home);
         }},
        {97, "delete",
         [&] {
           Press(Qt::Key_Delete);
           if (user_.IsTyping()) return user_.Drop();
           if (optional_) user_.stands = {}, user_.refused = false;
         }},
        {100, "letter", [&] { Press(Qt::Key_X); }},
    };
    for (const Act& each : kActs) {
      if (what >= each.below) continue;
      done_ += QString(each.name) + " ";
      return each.act();
    }
  }

  std::mt19937 random_;
  Expected user_{QDate(2026, 11, 23)};
  QString done_;
  bool optional_ = true;
};

TEST_F(FuzzedDateBox, DoesWhatItsUserExpects) {
  const int walks = std::max(60, qEnvironmentVariableIntValue("TEVRA_WALKS"));
  constexpr int kSteps = 60;
  for (int walk = 0; walk < walks; ++walk) {
    random_.seed(static_cast<unsigned>(walk));
    if (walk == walks / 2) {
      box->SetRequired();
      optional_ = false;
    }
    const QDate start = QDate(2000, 1, 1).addDays(Any(15000));
    StartAt(DateTime(start.year(), start.month(), start.day()));
    user_ = Expected(start);
    done_ = start.toString("dd.MM.yyyy: ");
    for (int step = 0; step < kSteps; ++step) {
      DoSomething();
      ASSERT_EQ(Stands().toString("dd.MM.yyyy").toStdString(),
                user_.Date().toString("dd.MM.yyyy").toStdString())
          << walk << ", " << done_.toStdString();
      ASSERT_EQ(!box->Refused().isEmpty(), user_.refused) << walk << ", " << done_.toStdString();
      if (!user_.IsTyping()) {
        ASSERT_EQ(box->text().trimmed().toStdString(),
                  user_.stands.toString("d/MM/yyyy").toStdString())
            << walk << ", " << done_.toStdString();
      }
    }
  }
}

TEST(MonthBox, TakesAMonthInAnyForm) {
  QWidget window;
  DateBox box("box", &window, "MM/yyyy");
  box.SetRequired();
  QLineEdit next(&window);
  next.move(0, 60);
  Activate(window);
  struct Case {
    const char* typed;
    const char* meant;
    bool refused = false;
  };
  // Over 12.2025.
  const Case kCases[] = {
      {"3", "03/2025"},        {"032026", "03/2026"},   {"3.26", "03/2026"},
      {"3/2026", "03/2026"},   {".2024", "12/2024"},    {"15.08.2024", "08/2024"},
      {"15082024", "08/2024"}, {"13", "12/2025", true}, {"13.2024", "12/2025", true}};
  for (const Case& each : kCases) {
    box.SetDate(DateTime(2025, 12, 31));
    box.setFocus();
    QTest::keyClicks(&box, each.typed);
    next.setFocus();
    EXPECT_EQ(box.text().toStdString(), each.meant) << each.typed;
    EXPECT_EQ(!box.Refused().isEmpty(), each.refused) << each.typed;
  }
  for (const char* pasted : {"02.2024", "29.02.2024"}) {
    box.SetDate(DateTime(2025, 12, 31));
    QApplication::clipboard()->setText(pasted);
    box.setFocus();
    QTest::keySequence(&box, QKeySequence::Paste);
    EXPECT_EQ(box.text(), "02/2024") << pasted;
  }
}

}  // namespace
}  // namespace tevra::test
