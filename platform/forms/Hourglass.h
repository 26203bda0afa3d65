// The mouse pointer during work.
#pragma once

#include <QApplication>

namespace tevra {

/// Shows the hourglass while it lives.
class Hourglass {
 public:
  explicit Hourglass(bool shown = true) : shown_(shown) {
    if (shown_) QApplication::setOverrideCursor(Qt::WaitCursor);
  }
  ~Hourglass() {
    if (shown_) QApplication::restoreOverrideCursor();
  }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  bool shown_;
};

}  // namespace tevra
