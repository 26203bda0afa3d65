// The box of messages: buttons, answers, keys.
#include <QApplication>
#include <QClipboard>
#include <QTimer>
#include <QtTest>

#include <gtest/gtest.h>

#include "session/frmMsgBox.h"

namespace tevra::test {
namespace {

std::string Captions(const frmMsgBox& box) {
  std::string captions;
  for (const QPushButton* button : box.cmdBtn) {
    captions += (captions.empty() ? "" : "|") + button->text().toStdString() +
                (button->isDefault() ? "*" : "");
  }
  return captions;
}

TEST(FrmMsgBox, ButtonsOfEveryWord) {
  struct Case {
    long word;
    const char* captions;  // "*" behind the default one
    long escaped;          // what closing by Escape means
  };
  const Case kCases[] = {
      {kOkOnly, "OK*", kOk},
      {kCritical, "OK*", kOk},
      {kOkCancel, "OK*|Anulare", kCancel},
      {kAbortRetryIgnore, "Abandon*|Reincearca|Ignora", kAbort},
      {kYesNoCancel | 512, "Da|Nu|Anulare*", kCancel},
      {kYesNo | kQuestion, "Da*|Nu", kNo},
      {kYesNo | 256, "Da|Nu*", kNo},
      {kRetryCancel | 768, "Reincearca*|Anulare", kCancel},
      {kYesNo | kHelpButton, "Da*|Nu|Ajutor", kNo},
      {kOkOnly | kHelpButton, "OK*|Ajutor", kOk},
  };
  for (const Case& c : kCases) {
    frmMsgBox box({"Intrebare", c.word, "Titlu", {}});
    EXPECT_EQ(Captions(box), c.captions);
    EXPECT_EQ(box.nButtons(), static_cast<int>(box.cmdBtn.size()));
    EXPECT_EQ(box.imgMsg->isHidden(), (c.word & kIconMask) == 0);
    box.show();
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_FALSE(box.isVisible());
    EXPECT_EQ(box.BtnPressed(), c.escaped);
  }
}

TEST(FrmMsgBox, AnswersByMouseEnterAndLetter) {
  const auto answer = [](long word, const std::function<void(frmMsgBox&)>& work) {
    frmMsgBox box({"Stergeti ?", word, "", {}});
    box.show();
    work(box);
    EXPECT_FALSE(box.isVisible());
    return box.BtnPressed();
  };
  const long word = kYesNo | kQuestion;
  EXPECT_EQ(answer(word, [](frmMsgBox& b) { QTest::mouseClick(b.cmdBtn[1], Qt::LeftButton); }),
            kNo);
  EXPECT_EQ(answer(word, [](frmMsgBox& b) { QTest::keyClick(&b, Qt::Key_Return); }), kYes);
  EXPECT_EQ(answer(word, [](frmMsgBox& b) { QTest::keyClick(&b, 'n'); }), kNo);
  EXPECT_EQ(answer(word | 256, [](frmMsgBox& b) { QTest::keyClick(&b, Qt::Key_Enter); }), kNo);
}

TEST(FrmMsgBox, OwnCaptionsPlainTextAndACopy) {
  frmMsgBox box({"<b>linia 1</b>\nlinia 2", kYesNo, "Titlu", {"Inlocuieste", "", "", ""}});
  EXPECT_EQ(Captions(box), "Inlocuieste*|Nu");
  EXPECT_EQ(box.lblMsg->text(), "<b>linia 1</b>\nlinia 2");
  EXPECT_EQ(box.lblMsg->textFormat(), Qt::PlainText);
  EXPECT_EQ(box.cmdBtn[0]->width(), box.cmdBtn[1]->width());
  EXPECT_EQ(box.cmdBtn[1]->property("Tag").toInt(), kNo);
  box.show();
  QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "Titlu\n<b>linia 1</b>\nlinia 2");
}

TEST(FrmMsgBox, ATextLongerThanTheScreenStaysOnIt) {
  for (const std::size_t length : {200, 1000, 10000}) {
    frmMsgBox box({"Utilizatorul " + std::string(length, 'a') + " nu exista !", kOkOnly, "", {}});
    box.show();
    EXPECT_LE(box.height(), box.screen()->availableSize().height()) << length;
    EXPECT_LE(box.width(), 640) << length;
    QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().size(), 1 + 13 + 12 + static_cast<int>(length));
  }
}

TEST(FrmMsgBox, HelpAsksAndLeavesTheMessageOpen) {
  struct KeyWatch : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::KeyPress) key = static_cast<QKeyEvent*>(event)->key();
      return false;
    }
    int key = 0;
  } watch;
  QWidget frame;
  frame.installEventFilter(&watch);
  frmMsgBox box({"Intrebare", kOkOnly | kHelpButton, "", {}}, &frame);
  box.show();
  QTest::mouseClick(box.cmdBtn[1], Qt::LeftButton);
  EXPECT_EQ(watch.key, Qt::Key_F1);
  EXPECT_TRUE(box.isVisible());
}

TEST(FrmMsgBox, ShowsModallyAndReturnsTheCode) {
  QTimer::singleShot(0, [] {
    auto* box = dynamic_cast<frmMsgBox*>(QApplication::activeModalWidget());
    ASSERT_TRUE(box);
    box->cmdBtn[1]->click();
  });
  EXPECT_EQ(ShowMsgBox({"Intrebare", kYesNo, "", {}}), kNo);
}

}  // namespace
}  // namespace tevra::test
