// The mouse pointer during work.
#pragma once

#include <QApplication>

namespace tevra {

/// Shows the hourglass while it lives, or the arrow with it (Qt::BusyCursor).
class Hourglass {
 public:
  explicit Hourglass(bool shown = true, Qt::CursorShape shape = Qt::WaitCursor) : shown_(shown) {
    if (shown_) QApplication::setOverrideCursor(shape);
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
