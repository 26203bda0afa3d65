#include "platform/forms/ButtonRow.h"

#include <algorithm>

namespace tevra {

namespace {
constexpr int kGap = 6;  // pixels
}  // namespace

ButtonRow::ButtonRow(QWidget* parent) : QLayout(parent) {
  setContentsMargins(0, 0, 0, 0);
}

ButtonRow::~ButtonRow() {
  for (const QLayoutItem* item : items_) delete item;
}

void ButtonRow::addItem(QLayoutItem* item) {
  items_.push_back(item);
}

QLayoutItem* ButtonRow::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)] : nullptr;
}

QLayoutItem* ButtonRow::takeAt(int index) {
  QLayoutItem* item = itemAt(index);
  if (item) items_.erase(items_.begin() + index);
  return item;
}

QSize ButtonRow::Each() const {
  QSize size;
  for (const QLayoutItem* item : items_) {
    size = size.expandedTo(item->sizeHint()).expandedTo(item->minimumSize());
  }
  return size;
}

int ButtonRow::InARow(int width) const {
  const int each = std::max(Each().width() + kGap, 1);
  return std::clamp((width + kGap) / each, 1, std::max(count(), 1));
}

QSize ButtonRow::sizeHint() const {
  return {count() * (Each().width() + kGap) - kGap, Each().height()};
}

QSize ButtonRow::minimumSize() const {
  return Each();
}

int ButtonRow::heightForWidth(int width) const {
  const int rows = (count() + InARow(width) - 1) / InARow(width);
  return rows * (Each().height() + kGap) - kGap;
}

// Rows as even as possible: seven buttons in two rows are four and three.
void ButtonRow::setGeometry(const QRect& area) {
  QLayout::setGeometry(area);
  if (items_.empty()) return;
  const QSize each = Each();
  const int most = InARow(area.width());
  const int rows = (count() + most - 1) / most;
  const int inARow = (count() + rows - 1) / rows;
  for (int i = 0; i < count(); ++i) {
    const int row = i / inARow;
    const int before = std::min(inARow, count() - row * inARow) - i % inARow;
    items_[static_cast<std::size_t>(i)]->setGeometry(
        QRect(QPoint(area.right() + 1 - before * (each.width() + kGap) + kGap,
                     area.top() + row * (each.height() + kGap)),
              each));
  }
}

}  // namespace tevra
