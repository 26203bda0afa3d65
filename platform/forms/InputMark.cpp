#include "platform/forms/InputMark.h"

#include <QLineEdit>
#include <QToolTip>

namespace tevra {

namespace {
constexpr QColor kTint(0xFF, 0xD9, 0xD6);
constexpr int kShownFor = 6000;  // ms
}  // namespace

InputMark::InputMark(QWidget* box, QLineEdit* line) : QObject(box), box_(box), line_(line) {}

void InputMark::Show(const QString& why) {
  if (why_.isEmpty()) tipBefore_ = box_->toolTip();
  why_ = why;
  QPalette tinted = line_->palette();
  tinted.setColor(QPalette::Base, kTint);
  tinted.setColor(QPalette::Text, Qt::black);
  line_->setPalette(tinted);
  box_->setToolTip(why);
  if (box_->isVisible()) {
    QToolTip::showText(box_->mapToGlobal(QPoint(0, box_->height())), why, box_, {}, kShownFor);
  }
}

void InputMark::Clear() {
  if (why_.isEmpty() || !line_) return;
  why_.clear();
  line_->setPalette(QPalette());
  box_->setToolTip(tipBefore_);
  QToolTip::hideText();
}

}  // namespace tevra
