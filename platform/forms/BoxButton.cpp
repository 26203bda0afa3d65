#include "platform/forms/BoxButton.h"

#include <QAction>
#include <QPainter>
#include <utility>

#include "platform/forms/FormsApplication.h"

namespace tevra {

namespace {

// Three dots, as on buttons that open another screen.
QIcon DotsIcon(const QPalette& palette) {
  constexpr int kSide = 16;
  constexpr int kDensity = 2;
  QPixmap picture(kSide * kDensity, kSide * kDensity);
  picture.setDevicePixelRatio(kDensity);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette.color(QPalette::Text));
  for (const qreal x : {3.5, 8.0, 12.5}) painter.drawEllipse(QPointF(x, 10), 1.3, 1.3);
  return QIcon(picture);
}

}  // namespace

QAction* AddBoxButton(QLineEdit& box, const QString& tip) {
  QAction* action = box.addAction(DotsIcon(box.palette()), QLineEdit::TrailingPosition);
  action->setToolTip(tip);
  return action;
}

void OnBoxButton(QLineEdit& box, const QString& tip, std::function<void()> pressed) {
  QAction* action = AddBoxButton(box, tip);
  action->setShortcut(Qt::Key_F4);
  action->setShortcutContext(Qt::WidgetShortcut);
  QObject::connect(action, &QAction::triggered, &box, [&box, pressed = std::move(pressed)] {
    AfterEvent(&box, [&box, pressed] {
      box.setFocus();
      pressed();
    });
  });
}

}  // namespace tevra
