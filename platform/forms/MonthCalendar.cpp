#include "platform/forms/MonthCalendar.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyledItemDelegate>
#include <QTableView>

namespace tevra {

namespace {

constexpr int kDaysInWeek = 7;

// The day on which an arrow key arrives; none for other keys.
QDate Target(int key, const QDate& from) {
  switch (key) {
    case Qt::Key_Left:
      return from.addDays(-1);
    case Qt::Key_Right:
      return from.addDays(1);
    case Qt::Key_Up:
      return from.addDays(-kDaysInWeek);
    case Qt::Key_Down:
      return from.addDays(kDaysInWeek);
    default:
      return {};
  }
}

bool IsMouse(QEvent::Type type) {
  return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
         type == QEvent::MouseMove || type == QEvent::MouseButtonRelease;
}

// When the month changes, QCalendarWidget moves its current cell to the same day of that month and
// frames it, as if that day were selected. Only the selected day keeps its frame.
class DayDelegate : public QStyledItemDelegate {
 public:
  explicit DayDelegate(QTableView* days)
      : QStyledItemDelegate(days), days_(days), painter_(days->itemDelegate()) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem unframed = option;
    if (!days_->selectionModel()->isSelected(index)) {
      unframed.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    }
    painter_->paint(painter, unframed, index);
  }

 private:
  QTableView* days_;
  QAbstractItemDelegate* painter_;
};

}  // namespace

// QCalendarWidget has no signal before a day is selected, so the events of its grid are watched.
MonthCalendar::MonthCalendar(const char* name, QWidget* parent)
    : QCalendarWidget(parent), days_(findChild<QTableView*>()) {
  setObjectName(name);
  days_->setItemDelegate(new DayDelegate(days_));
  days_->installEventFilter(this);
  days_->viewport()->installEventFilter(this);
}

// The grid has six weeks below its header. Large numbers at the top belong to the month before,
// small ones at the bottom to the month after.
int MonthCalendar::NeighbourAt(const QPoint& place) const {
  constexpr int kTop = 2;
  constexpr int kMiddle = 14;
  const QModelIndex cell = days_->indexAt(place);
  bool isDay = false;
  const int day = cell.data().toInt(&isDay);
  if (!isDay) return 0;
  if (cell.row() <= kTop && day > kMiddle) return -1;
  return cell.row() > kTop && day < kMiddle ? 1 : 0;
}

void MonthCalendar::TurnBy(int months) {
  const QDate shown = QDate(yearShown(), monthShown(), 1).addMonths(months);
  setCurrentPage(shown.year(), shown.month());
}

bool MonthCalendar::IsShown(const QDate& day) const {
  return day.year() == yearShown() && day.month() == monthShown();
}

bool MonthCalendar::Press(int key) {
  const QDate target = Target(key, selectedDate());
  if (!target.isValid()) return false;
  if (!IsShown(selectedDate())) {
    const QDate first(yearShown(), monthShown(), 1);
    setSelectedDate(target > selectedDate() ? first : first.addMonths(1).addDays(-1));
  } else if (IsShown(target)) {
    setSelectedDate(target);
  } else {
    setCurrentPage(target.year(), target.month());
  }
  return true;
}

bool MonthCalendar::eventFilter(QObject* watched, QEvent* event) {
  if (watched == days_ && event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const auto modifiers = key->modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::NoModifier && Press(key->key())) return true;
  }
  if (watched == days_->viewport() && IsMouse(event->type())) {
    const int neighbour = NeighbourAt(static_cast<QMouseEvent*>(event)->position().toPoint());
    if (event->type() == QEvent::MouseButtonPress) swallowing_ = neighbour != 0;
    if (swallowing_ && event->type() == QEvent::MouseButtonPress) TurnBy(neighbour);
    if (swallowing_ || neighbour != 0) return true;
  }
  return QCalendarWidget::eventFilter(watched, event);
}

}  // namespace tevra
