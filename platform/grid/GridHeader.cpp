#include "platform/grid/GridHeader.h"

#include <QAbstractItemView>
#include <QMouseEvent>
#include <QPainter>

namespace tevra {

namespace {
constexpr int kUp = 6;  // pixels above the header from which a drag leaves it
constexpr int kMostLines = 3;
constexpr int kSelectorWidth = 20;
}  // namespace

GridHeader::GridHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setSectionsMovable(true);
  setSectionsClickable(true);
  setHighlightSections(false);
  setMinimumSectionSize(24);
  setStretchLastSection(true);
}

QSize GridHeader::sizeHint() const {
  QSize size = QHeaderView::sizeHint();
  int height = fontMetrics().height();
  for (int i = 0; model() && i < count(); ++i) {
    if (isSectionHidden(i)) continue;
    const QString caption = model()->headerData(i, Qt::Horizontal).toString();
    const QRect room(0, 0, std::max(sectionSize(i) - 12, 20), 1000);
    height = std::max(height, fontMetrics().boundingRect(room, Qt::TextWordWrap, caption).height());
  }
  size.setHeight(std::min(height, kMostLines * fontMetrics().lineSpacing()) + 8);
  return size;
}

void GridHeader::mousePressEvent(QMouseEvent* event) {
  const bool left = event->button() == Qt::LeftButton && cursor().shape() != Qt::SplitHCursor;
  pressed_ = left ? logicalIndexAt(event->position().toPoint()) : -1;
  pressedAt_ = event->position().toPoint();
  QHeaderView::mousePressEvent(event);
}

// Outside the header the column does not move.
void GridHeader::mouseMoveEvent(QMouseEvent* event) {
  if (pressed_ >= 0 && event->buttons() & Qt::LeftButton) {
    emit DraggedAbove(pressed_, event->globalPosition().toPoint());
    if (event->position().y() < -kUp) return;
  }
  QHeaderView::mouseMoveEvent(event);
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event) {
  const int dragged = std::exchange(pressed_, -1);
  const bool above = dragged >= 0 && event->position().y() < -kUp;
  if (above) {
    // Ends the header's own drag at its starting point.
    QMouseEvent back(QEvent::MouseMove, pressedAt_, mapToGlobal(pressedAt_), Qt::NoButton,
                     Qt::LeftButton, event->modifiers());
    QHeaderView::mouseMoveEvent(&back);
    QMouseEvent release(QEvent::MouseButtonRelease, pressedAt_, mapToGlobal(pressedAt_),
                        Qt::LeftButton, Qt::NoButton, event->modifiers());
    QHeaderView::mouseReleaseEvent(&release);
  } else {
    QHeaderView::mouseReleaseEvent(event);
  }
  if (dragged >= 0) emit DroppedAbove(dragged, event->globalPosition().toPoint());
}

RecordSelectors::RecordSelectors(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {
  setSectionsClickable(true);
  setHighlightSections(false);
  setSectionResizeMode(QHeaderView::Fixed);
  setFixedWidth(kSelectorWidth);
}

void RecordSelectors::mousePressEvent(QMouseEvent* event) {
  const int row = logicalIndexAt(event->position().toPoint());
  if (row >= 0 && event->button() == Qt::LeftButton) emit RowPressed(row, event->modifiers());
}

void RecordSelectors::mouseMoveEvent(QMouseEvent* event) {
  const int row = logicalIndexAt(event->position().toPoint());
  if (row >= 0 && event->buttons() & Qt::LeftButton) emit RowPressed(row, Qt::ShiftModifier);
}

void RecordSelectors::paintSection(QPainter* painter, const QRect& rect, int row) const {
  const auto* view = qobject_cast<const QAbstractItemView*>(parent());
  const QAbstractItemModel* rows = model();
  const bool marked =
      view && rows->columnCount() > 0 && view->selectionModel()->isSelected(rows->index(row, 0));
  painter->fillRect(rect, palette().color(marked ? QPalette::Highlight : QPalette::Button));
  painter->setPen(palette().color(QPalette::Mid));
  painter->drawLine(rect.bottomLeft(), rect.bottomRight());
  painter->drawLine(rect.topRight(), rect.bottomRight());
  if (!view || view->currentIndex().row() != row) return;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(palette().color(marked ? QPalette::HighlightedText : QPalette::ButtonText));
  const QPointF middle = QRectF(rect).center();
  painter->drawPolygon(
      QPolygonF({middle + QPointF(-3, -5), middle + QPointF(-3, 5), middle + QPointF(4, 0)}));
  painter->restore();
}

}  // namespace tevra
