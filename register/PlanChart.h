// The chart of an asset's depreciation plan: the depreciation of each year and the remaining value.
#pragma once

#include <QFont>
#include <QRectF>
#include <QString>
#include <QWidget>
#include <vector>

class QPainter;

namespace tevra {

struct PlanPoint {
  int year;
  double depreciation;  ///< of the year
  double remaining;     ///< at its end
};

/// Paints the chart into the area: a bar for the depreciation of each year and a line for the
/// remaining value. It is readable in black and white. `currency`: shown at the axis; `font`: the
/// font size in the painter's unit, to which everything else is proportional.
void PaintPlanChart(QPainter& painter, const QRectF& area, const std::vector<PlanPoint>& points,
                    const QString& currency, const QFont& font);

/// The chart on the screen.
class PlanChart : public QWidget {
 public:
  PlanChart(const char* name, QWidget* parent);

  void SetPoints(std::vector<PlanPoint> points, const QString& currency);
  const std::vector<PlanPoint>& Points() const { return points_; }
  const QString& Currency() const { return currency_; }

  QSize sizeHint() const override { return {600, 220}; }
  QSize minimumSizeHint() const override { return {300, 140}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<PlanPoint> points_;
  QString currency_;
};

}  // namespace tevra
