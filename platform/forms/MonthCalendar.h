// A calendar of one month in which the days of the neighbour months select nothing.
#pragma once

#include <QCalendarWidget>

class QTableView;

namespace tevra {

/// A click or an arrow key that leads out of the month on show turns to that month and leaves the
/// selected day as it is: a day of another month is never selected by accident. An arrow key in a
/// month without the selected day selects the month's first or last day.
class MonthCalendar : public QCalendarWidget {
 public:
  explicit MonthCalendar(const char* name, QWidget* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// -1 and 1 when the place in the grid shows a day of the month before or after, else 0.
  int NeighbourAt(const QPoint& place) const;
  void TurnBy(int months);
  bool Press(int key);
  bool IsShown(const QDate& day) const;

  QTableView* days_;
  bool swallowing_ = false;  // until the button that was pressed on a neighbour's day is released
};

}  // namespace tevra
