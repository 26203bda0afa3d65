#include "platform/print/PagePicture.h"

#include <QImage>
#include <QPainter>

namespace tevra {

void PaintPicture(QPixmap& picture, PagedDocument& document, int page, const QSize& size,
                  qreal density) {
  QImage image((QSizeF(size) * density).toSize(), QImage::Format_RGB32);
  image.setDevicePixelRatio(density);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::TextAntialiasing);
  const double scale = size.width() / document.PageSize().width();
  painter.scale(scale, scale);
  const auto keep = [&] {
    painter.end();
    picture = QPixmap::fromImage(image);
  };
  try {
    document.PaintPage(painter, page);
  } catch (...) {
    keep();
    throw;
  }
  keep();
}

}  // namespace tevra
