// What a user types into the box with the focus.
#pragma once

#include <QApplication>
#include <QComboBox>
#include <QTest>

#include <gtest/gtest.h>

namespace tevra::test {

inline void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  QCoreApplication::processEvents();
}

// Offscreen nothing closes the list that a combo drops down while one types.
inline void Type(const char* text) {
  QWidget* box = QApplication::focusWidget();
  if (auto* combo = qobject_cast<QComboBox*>(box); combo && combo->isEditable()) {
    combo->setCompleter(nullptr);
  }
  QTest::keyClicks(box, text);
  QCoreApplication::processEvents();
}

// A choice with the arrows, then to the next box.
inline void Choose(const char* text) {
  auto* choice = qobject_cast<QComboBox*>(QApplication::focusWidget());
  ASSERT_TRUE(choice);
  const int wanted = choice->findText(text);
  ASSERT_GE(wanted, 0) << text;
  Key(Qt::Key_Home);
  while (choice->currentIndex() < wanted) Key(Qt::Key_Down);
  Key(Qt::Key_Tab);
}

}  // namespace tevra::test
