#include "session/frmSplash.h"

#include <QApplication>
#include <QPainter>
#include <QScreen>

#include "platform/forms/Pictures.h"
#include "session/Version.h"

namespace tevra {

namespace {
constexpr int kWidth = 440;
constexpr int kHeight = 240;
}  // namespace

frmSplash::frmSplash()
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      picture_(PictureIcon("\\BMP\\Splash.png")) {
  setObjectName("frmSplash");
  setWindowTitle(kApplicationTitle);
  setFixedSize(kWidth, kHeight);
  move(QApplication::primaryScreen()->availableGeometry().center() - rect().center());
}

void frmSplash::ShowAtOnce() {
  show();
  repaint();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmSplash::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor("#1f4e79"));
  picture_.paint(&painter, rect());
  QFont name = font();
  name.setPixelSize(44);
  name.setBold(true);
  painter.setFont(name);
  painter.setPen(Qt::white);
  painter.drawText(QRect(32, 66, 230, 56), Qt::AlignLeft | Qt::AlignVCenter, "Tevra");
  QFont small = font();
  small.setPixelSize(14);
  painter.setFont(small);
  painter.setPen(QColor("#dbe7f3"));
  painter.drawText(QRect(34, 126, 230, 44), Qt::AlignLeft | Qt::AlignTop,
                   "Evidenta imobilizarilor\nsi a obiectelor de inventar");
  painter.drawText(
      rect().adjusted(0, 0, -16, -12), Qt::AlignRight | Qt::AlignBottom,
      QString("Versiune %1.%2.%3").arg(kVersionMajor).arg(kVersionMinor).arg(kRevision));
}

}  // namespace tevra
