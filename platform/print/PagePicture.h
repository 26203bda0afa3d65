// A page as a picture on the screen.
#pragma once

#include <QPixmap>

#include "platform/print/PagedDocument.h"

namespace tevra {

/// Paints a page (from 0) on white. `size`: of the page in logical pixels; `density`: device pixels
/// in each. When painting throws, `picture` has what was painted by then.
void PaintPicture(QPixmap& picture, PagedDocument& document, int page, const QSize& size,
                  qreal density);

}  // namespace tevra
