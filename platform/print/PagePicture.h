// A page as a picture on the screen.
#pragma once

#include <QPixmap>

#include "platform/print/PagedDocument.h"

namespace tevra {

/// Paints a page (from 0) on white. `size`: the page's, in the screen's own pixels; `density`: the
/// dots in each. `page` may throw: what it painted by then stands in `picture`.
void PaintPicture(QPixmap& picture, PagedDocument& document, int page, const QSize& size,
                  qreal density);

}  // namespace tevra
