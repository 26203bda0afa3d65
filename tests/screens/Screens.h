// The open windows and what their user presses.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <vector>

#include <gtest/gtest.h>

namespace tevra::test {

/// The windows of a kind that are on show.
template <class Screen>
std::vector<Screen*> OpenScreens() {
  std::vector<Screen*> screens;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* screen = dynamic_cast<Screen*>(widget);
    if (screen && screen->isVisible()) screens.push_back(screen);
  }
  return screens;
}

/// Deletes all windows of a kind, whether they are on show or not. One may go with another.
template <class Screen>
void DeleteScreens() {
  std::vector<QPointer<QWidget>> windows;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (dynamic_cast<Screen*>(window)) windows.emplace_back(window);
  }
  for (const QPointer<QWidget>& window : windows) delete window;
}

/// Shows a screen and waits until it has the keyboard.
template <class Screen>
Screen& Activate(Screen& screen) {
  screen.show();
  screen.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
  return screen;
}

inline void Press(QWidget* control, Qt::Key key) {
  control->setFocus();
  QTest::keyClick(control, key);
  QCoreApplication::processEvents();
}
inline void Press(QAbstractButton* button) {
  Press(button, Qt::Key_Space);
}

/// Replaces the text of a box.
inline void Retype(QLineEdit* box, const char* text) {
  box->setFocus();
  box->selectAll();
  *text ? QTest::keyClicks(box, QString::fromUtf8(text)) : QTest::keyClick(box, Qt::Key_Delete);
}

}  // namespace tevra::test
