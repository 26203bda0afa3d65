#include "platform/grid/GroupArea.h"

#include <QPainter>

namespace tevra {

namespace {
constexpr int kMargin = 6;
constexpr int kArrow = 7;
}  // namespace

GroupArea::GroupArea(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void GroupArea::SetText(const QString& text) {
  text_ = text;
  setAccessibleName(text);
  setToolTip(text);
  update();
}

void GroupArea::SetSorted(const std::vector<QString>& captions, bool descending) {
  sorted_ = captions;
  descending_ = descending;
  update();
}

void GroupArea::SetHovered(bool hovered) {
  if (hovered_ == hovered) return;
  hovered_ = hovered;
  update();
}

QSize GroupArea::sizeHint() const {
  return {200, fontMetrics().height() + 2 * kMargin + 4};
}

void GroupArea::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette()
                               .color(hovered_ ? QPalette::Highlight : QPalette::Mid)
                               .lighter(hovered_ ? 165 : 130));
  const QRect inside = rect().adjusted(kMargin, 0, -kMargin, 0);
  if (sorted_.empty()) {
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text_, Qt::ElideRight, inside.width()));
    return;
  }
  int x = inside.left();
  for (const QString& caption : sorted_) {
    const int width = fontMetrics().horizontalAdvance(caption) + kArrow + 4 * kMargin;
    const QRectF chip(x + 0.5, 4.5, width, height() - 9);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().color(QPalette::Button));
    painter.drawRoundedRect(chip, 3, 3);
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(chip.adjusted(kMargin, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, caption);
    const qreal right = chip.right() - kMargin;
    const qreal top = chip.center().y() - (descending_ ? 2 : -2);
    const qreal tip = descending_ ? top + 5 : top - 5;
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::ButtonText));
    painter.drawPolygon(
        QPolygonF({{right - kArrow, top}, {right, top}, {right - kArrow / 2.0, tip}}));
    x += width + kMargin;
  }
}

}  // namespace tevra
