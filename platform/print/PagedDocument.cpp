#include "platform/print/PagedDocument.h"

#include <QPainter>
#include <algorithm>
#include <utility>

namespace tevra {

PagedDocument::PagedDocument(QString title, const QPageLayout& layout)
    : title_(std::move(title)), layout_(layout) {}

void PagedDocument::SetPageLayout(const QPageLayout& layout) {
  layout_ = layout;
  Restart();
}

QSizeF PagedDocument::PageSize() const {
  return layout_.fullRect(QPageLayout::Point).size() * kTwipsPerPoint;
}

QRectF PagedDocument::PrintArea() const {
  // Margins in points would be rounded.
  constexpr double kMillimetresPerInch = 25.4;
  const QMarginsF margins =
      layout_.margins(QPageLayout::Millimeter) * (kTwipsPerInch / kMillimetresPerInch);
  return QRectF(QPointF(0, 0), PageSize()).marginsRemoved(margins);
}

bool PagedDocument::LayOutAll(const Progress& progress) {
  while (!IsComplete()) {
    LayOutMore();
    if (progress && !progress(PageCount(), 0)) return false;
  }
  return true;
}

void PaintOnPaper(QPainter& painter, PagedDocument& document, int page) {
  constexpr double kNoMatter = 0.99;  // papers of one name differ by rounding
  const QPaintDevice& device = *painter.device();
  const QSizeF size = document.PageSize();
  const double byResolution = device.logicalDpiX() / kTwipsPerInch;
  const double bySize = std::min(device.width() / size.width(), device.height() / size.height());
  const double scale = bySize < byResolution * kNoMatter ? bySize : byResolution;
  painter.save();
  painter.scale(scale, scale);
  document.PaintPage(painter, page);
  painter.restore();
}

}  // namespace tevra
