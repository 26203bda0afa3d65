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
}

}  // namespace tevra
