#include "register/PlanChart.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

#include "platform/text/Numbers.h"

namespace tevra {

namespace {

constexpr const char* kDepreciation = "Amortizarea anuala";
constexpr const char* kRemaining = "Valoare ramasa de amortizat";

const QColor kBar(0xB8, 0xC7, 0xDC);
const QColor kBarEdge(0x6E, 0x86, 0xA6);
const QColor kLine(0x14, 0x3C, 0x6B);
const QColor kGrid(0xD4, 0xD4, 0xD4);
const QColor kInk(0x20, 0x20, 0x20);

// 1, 2 or 5 times a power of ten: the smallest such step that gives at most `most` marks.
double NiceStep(double span, int most) {
  const double rough = span / most;
  const double power = std::pow(10.0, std::floor(std::log10(rough)));
  for (const double step : {1.0, 2.0, 5.0}) {
    if (rough <= step * power) return step * power;
  }
  return 10.0 * power;
}

QString AxisText(double value) {
  return QString::fromStdString(Format(value, "#,##0.##")).remove(QRegularExpression(",$"));
}

class Chart {
 public:
  Chart(QPainter& painter, const QRectF& area, const std::vector<PlanPoint>& points,
        const QFont& font)
      : painter_(painter), points_(points), metrics_(font), unit_(metrics_.height() / 14) {
    FindRange();
    double widest = 0;
    for (double mark = low_; mark <= high_ + step_ / 2; mark += step_) {
      widest = std::max(widest, metrics_.horizontalAdvance(AxisText(mark)));
    }
    plot_ = area.adjusted(widest + 10 * unit_, 2.2 * metrics_.height(), -6 * unit_,
                          -1.5 * metrics_.height());
  }

  void Paint(const QString& currency) {
    PaintLegend(currency);
    PaintMarks();
    PaintBars();
    PaintLine();
    PaintYears();
  }

 private:
  // Zero is always on the axis, so that bars keep their proportions.
  void FindRange() {
    constexpr int kMostMarks = 6;
    double least = 0;
    double greatest = 0;
    for (const PlanPoint& point : points_) {
      least = std::min({least, point.depreciation, point.remaining});
      greatest = std::max({greatest, point.depreciation, point.remaining});
    }
    if (greatest - least <= 0 || !std::isfinite(greatest - least)) greatest = least + 1;
    step_ = NiceStep(greatest - least, kMostMarks);
    low_ = std::floor(least / step_) * step_;
    high_ = std::ceil(greatest / step_) * step_;
  }

  double X(std::size_t point) const {
    return plot_.left() +
           plot_.width() * (static_cast<double>(point) + 0.5) / static_cast<double>(points_.size());
  }
  double Y(double value) const {
    const double share = std::clamp((value - low_) / (high_ - low_), 0.0, 1.0);
    return plot_.bottom() - plot_.height() * share;
  }
  double Room() const { return plot_.width() / static_cast<double>(points_.size()); }

  void PaintLegend(const QString& currency) {
    const double y = plot_.top() - 1.5 * metrics_.height();
    const double box = metrics_.height() * 0.7;
    double x = plot_.left();
    painter_.setPen(QPen(kBarEdge, unit_));
    painter_.setBrush(kBar);
    painter_.drawRect(QRectF(x, y - box / 2, box * 1.4, box));
    x = Label(x + box * 2, y, kDepreciation);
    painter_.setPen(QPen(kLine, 2 * unit_));
    painter_.drawLine(QPointF(x, y), QPointF(x + box * 2, y));
    Dot(QPointF(x + box, y));
    Label(x + box * 2.6, y, kRemaining);
    painter_.setPen(kInk);
    painter_.drawText(
        QRectF(plot_.left(), y - metrics_.height(), plot_.width(), 2 * metrics_.height()),
        Qt::AlignRight | Qt::AlignVCenter, currency);
  }

  double Label(double x, double y, const char* text) {
    const double width = metrics_.horizontalAdvance(text);
    painter_.setPen(kInk);
    painter_.drawText(QRectF(x, y - metrics_.height(), width + unit_, 2 * metrics_.height()),
                      Qt::AlignLeft | Qt::AlignVCenter, text);
    return x + width + 2 * metrics_.height();
  }

  void PaintMarks() {
    for (double mark = low_; mark <= high_ + step_ / 2; mark += step_) {
      const double y = Y(mark);
      const bool zero = std::abs(mark) < step_ / 2;
      painter_.setPen(QPen(zero ? kInk : kGrid, unit_));
      painter_.drawLine(QPointF(plot_.left(), y), QPointF(plot_.right(), y));
      painter_.setPen(kInk);
      painter_.drawText(QRectF(plot_.left() - 1000 * unit_, y - metrics_.height(), 994 * unit_,
                               2 * metrics_.height()),
                        Qt::AlignRight | Qt::AlignVCenter, AxisText(zero ? 0 : mark));
    }
  }

  void PaintBars() {
    const double width = std::min(Room() * 0.6, 40 * unit_);
    painter_.setPen(QPen(kBarEdge, unit_));
    painter_.setBrush(kBar);
    for (std::size_t i = 0; i < points_.size(); ++i) {
      const double y = Y(points_[i].depreciation);
      painter_.drawRect(
          QRectF(QPointF(X(i) - width / 2, y), QPointF(X(i) + width / 2, Y(0))).normalized());
    }
  }

  void PaintLine() {
    QPolygonF line;
    for (std::size_t i = 0; i < points_.size(); ++i) line << QPointF(X(i), Y(points_[i].remaining));
    painter_.setPen(QPen(kLine, 2 * unit_));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawPolyline(line);
    if (Room() < 8 * unit_) return;
    for (const QPointF& point : line) Dot(point);
  }

  void Dot(const QPointF& at) {
    painter_.setPen(QPen(kLine, unit_));
    painter_.setBrush(Qt::white);
    painter_.drawEllipse(at, 3 * unit_, 3 * unit_);
  }

  // As many years as find room.
  void PaintYears() {
    const double width = metrics_.horizontalAdvance("2000") + 6 * unit_;
    const auto every = static_cast<std::size_t>(std::max(1.0, std::ceil(width / Room())));
    painter_.setPen(kInk);
    for (std::size_t i = 0; i < points_.size(); i += every) {
      painter_.drawText(
          QRectF(X(i) - width, plot_.bottom() + 3 * unit_, 2 * width, metrics_.height() * 1.2),
          Qt::AlignHCenter | Qt::AlignTop, QString::number(points_[i].year));
    }
  }

  QPainter& painter_;
  const std::vector<PlanPoint>& points_;
  QFontMetricsF metrics_;
  double unit_;  // a hair line
  QRectF plot_;
  double low_ = 0;
  double high_ = 1;
  double step_ = 1;
};

}  // namespace

void PaintPlanChart(QPainter& painter, const QRectF& area, const std::vector<PlanPoint>& points,
                    const QString& currency, const QFont& font) {
  if (points.empty()) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(font);
  Chart(painter, area, points, font).Paint(currency);
  painter.restore();
}

PlanChart::PlanChart(const char* name, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  setAccessibleName("Graficul planului de amortizare");
}

void PlanChart::SetPoints(std::vector<PlanPoint> points, const QString& currency) {
  points_ = std::move(points);
  currency_ = currency;
  update();
}

void PlanChart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  PaintPlanChart(painter, QRectF(rect()).adjusted(4, 4, -4, -4), points_, currency_, font());
}

}  // namespace tevra
