// The depreciation plan of an asset as a picture: what each year takes, and what remains after it.
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

/// Paints the chart into the area: a bar a year for its depreciation, a line for what remains. It
/// reads in black and white. `currency`: stands at the axis; `font`: its size in the painter's
/// unit, from which everything else is measured.
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
