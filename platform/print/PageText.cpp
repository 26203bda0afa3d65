#include "platform/print/PageText.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace tevra {
namespace {

constexpr double kTouching = 0.1;  // of a line's height; pieces no further apart are joined

// Keeps the painted texts and ignores everything else.
class TextEngine : public QPaintEngine {
 public:
  TextEngine() : QPaintEngine(AllFeatures) {}

  std::vector<PaintedText> texts;

  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  Type type() const override { return User; }
  void updateState(const QPaintEngineState& now) override {
    if (now.state() & DirtyTransform) transform_ = now.transform();
  }
  void drawTextItem(const QPointF& at, const QTextItem& item) override {
    const QRectF place(at.x(), at.y() - item.ascent(), item.width(),
                       item.ascent() + item.descent());
    PaintedText::Piece piece{0, item.text(), place, item.font(), transform_};
    if (!texts.empty() && texts.back().Append(piece)) return;
    texts.emplace_back().Append(std::move(piece));
  }

  void drawPath(const QPainterPath&) override {}
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
  void drawPolygon(const QPoint*, int, PolygonDrawMode) override {}
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawTiledPixmap(const QRectF&, const QPixmap&, const QPointF&) override {}
  void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {}

 private:
  QTransform transform_;
};

// A paint device whose pixels are twips.
class TextPaper : public QPaintDevice {
 public:
  explicit TextPaper(const QSizeF& twips) : size_(twips.toSize()) {}

  QPaintEngine* paintEngine() const override { return &engine_; }
  std::vector<PaintedText> TakeTexts() { return std::move(engine_.texts); }

 protected:
  int metric(PaintDeviceMetric wanted) const override {
    constexpr double kMillimetresPerTwip = 25.4 / kTwipsPerInch;
    switch (wanted) {
      case PdmWidth:
        return size_.width();
      case PdmHeight:
        return size_.height();
      case PdmWidthMM:
        return static_cast<int>(size_.width() * kMillimetresPerTwip);
      case PdmHeightMM:
        return static_cast<int>(size_.height() * kMillimetresPerTwip);
      case PdmDpiX:
      case PdmDpiY:
      case PdmPhysicalDpiX:
      case PdmPhysicalDpiY:
        return static_cast<int>(kTwipsPerInch);
      case PdmDevicePixelRatio:
        return 1;
      case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
      case PdmDepth:
        return 24;
      default:
        return QPaintDevice::metric(wanted);
    }
  }

 private:
  QSize size_;
  mutable TextEngine engine_;
};

}  // namespace

bool PaintedText::GoesOnBeside(const Piece& piece) const {
  const QRectF& before = pieces_.back().place;
  const double near = kTouching * before.height();
  return std::abs(piece.place.bottom() - before.bottom()) < near &&
         std::abs(piece.place.left() - before.right()) < near;
}

bool PaintedText::GoesOnBelow(const Piece& piece) const {
  const QRectF& before = pieces_.back().place;
  const bool sameColumn = std::any_of(pieces_.begin(), pieces_.end(), [&](const Piece& each) {
    return piece.place.left() < each.place.right() && each.place.left() < piece.place.right();
  });
  return sameColumn && piece.font == pieces_.back().font &&
         std::abs(piece.place.top() - before.bottom()) < kTouching * before.height();
}

bool PaintedText::Append(Piece piece) {
  if (!pieces_.empty()) {
    if (piece.transform != pieces_.back().transform) return false;
    const bool below = GoesOnBelow(piece);
    if (!below && !GoesOnBeside(piece)) return false;
    if (below && !text_.endsWith(' ')) text_ += ' ';
  }
  piece.start = text_.size();
  text_ += piece.text;
  pieces_.push_back(std::move(piece));
  return true;
}

std::vector<QRectF> PaintedText::PlaceOf(qsizetype start, qsizetype length) const {
  std::vector<QRectF> places;
  const QRectF* line = nullptr;  // the previous piece, if it is on the same line
  for (const Piece& piece : pieces_) {
    const qsizetype from = std::max(start, piece.start) - piece.start;
    const qsizetype to = std::min(start + length, piece.start + piece.text.size()) - piece.start;
    if (from >= to) continue;
    const QFontMetricsF metrics(piece.font);
    const double letters = metrics.horizontalAdvance(piece.text);
    const double scale = letters > 0 ? piece.place.width() / letters : 0;
    QRectF place = piece.place;
    place.setLeft(piece.place.left() + scale * metrics.horizontalAdvance(piece.text.left(from)));
    place.setRight(piece.place.left() + scale * metrics.horizontalAdvance(piece.text.left(to)));
    place = piece.transform.mapRect(place);
    if (line && piece.place.top() < line->center().y()) {
      places.back() = places.back().united(place);
    } else {
      places.push_back(place);
    }
    line = &piece.place;
  }
  return places;
}

std::vector<PaintedText> TextOfPage(PagedDocument& document, int page) {
  TextPaper paper(document.PageSize());
  QPainter painter(&paper);
  document.PaintPage(painter, page);
  painter.end();
  return paper.TakeTexts();
}

}  // namespace tevra
