// A small button inside a box, for what helps to fill it.
#pragma once

#include <QLineEdit>
#include <functional>

namespace tevra {

/// Shows three dots at the right end of a box, with a tip. Returns the action of a click on them.
QAction* AddBoxButton(QLineEdit& box, const QString& tip);

/// The same; a click on the dots, or F4 in the box, moves the focus to the box and calls `pressed`.
/// As for every click, the box that had the focus has been left before.
void OnBoxButton(QLineEdit& box, const QString& tip, std::function<void()> pressed);

}  // namespace tevra
