#include "platform/grid/GridFooter.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>

namespace tevra {

GridFooter::GridFooter(QTableView* view) : QWidget(view->parentWidget()), view_(view) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  QHeaderView* header = view->horizontalHeader();
  connect(header, &QHeaderView::sectionResized, this, [this] { update(); });
  connect(header, &QHeaderView::sectionMoved, this, [this] { update(); });
  connect(header, &QHeaderView::geometriesChanged, this, [this] { update(); });
  connect(view->horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { update(); });
}

void GridFooter::SetText(int column, const QString& text) {
  texts_[column] = text;
  update();
}

QString GridFooter::Text(int column) const {
  const auto found = texts_.find(column);
  return found == texts_.end() ? QString() : found->second;
}

QSize GridFooter::sizeHint() const {
  return {100, fontMetrics().height() + 8};
}

void GridFooter::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Button));
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawLine(rect().topLeft(), rect().topRight());
  const QHeaderView* header = view_->horizontalHeader();
  const int left = view_->viewport()->mapTo(view_->parentWidget(), QPoint(0, 0)).x() - x();
  painter.setClipRect(QRect(left, 0, view_->viewport()->width(), height()));
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  for (int column = 0; column < header->count(); ++column) {
    if (header->isSectionHidden(column)) continue;
    const QRect cell(left + header->sectionViewportPosition(column), 0, header->sectionSize(column),
                     height());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(cell.topRight(), cell.bottomRight());
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(cell.adjusted(3, 1, -4, 0), Qt::AlignRight | Qt::AlignVCenter, Text(column));
  }
}

}  // namespace tevra
