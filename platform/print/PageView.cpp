#include "platform/print/PageView.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <exception>

#include "platform/print/PagePicture.h"

namespace tevra {
namespace {

constexpr int kAround = 14;   // pixels between a page and the window's edge
constexpr int kBetween = 14;  // pixels between two pages
constexpr int kShadow = 4;
constexpr int kCacheKilobytes = 192 * 1024;  // two pages at the largest zoom and density
constexpr int kNotch = 120;                  // Qt's unit for one step of the wheel
constexpr double kLeastZoom = 0.1;
constexpr double kMostZoom = 4;
constexpr QColor kDesk(0x8C, 0x90, 0x96);
constexpr QColor kEdge(0x6A, 0x6E, 0x74);
constexpr QColor kMark(0xFF, 0xEE, 0x70);
constexpr QColor kCurrentMark(0xFF, 0xA8, 0x38);

}  // namespace

PageView::PageView(const char* name, PagedDocument& document, QWidget* parent)
    : QAbstractScrollArea(parent), document_(document), pictures_(kCacheKilobytes) {
  setObjectName(name);
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  horizontalScrollBar()->setFocusPolicy(Qt::NoFocus);
  verticalScrollBar()->setFocusPolicy(Qt::NoFocus);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

// ---- Page positions -----------------------------------------------------------------------------

double PageView::PixelsPerTwip() const {
  return logicalDpiX() / kTwipsPerInch * zoom_;
}

QSize PageView::PagePixels() const {
  return (document_.PageSize() * PixelsPerTwip()).toSize().expandedTo({1, 1});
}

int PageView::TopOf(int page) const {
  return kAround + page * (PagePixels().height() + kBetween);
}

// The page at a height of the whole view; between two pages, the upper one.
int PageView::PageAt(int y) const {
  const int page = (y - kAround) / (PagePixels().height() + kBetween);
  return std::clamp(page, 0, std::max(0, document_.PageCount() - 1));
}

// In the viewport; a page narrower than the window is centred.
QPoint PageView::Corner(int page) const {
  const int spare = viewport()->width() - PagePixels().width();
  const int left = std::max(kAround, spare / 2) - horizontalScrollBar()->value();
  return {left, TopOf(page) - verticalScrollBar()->value()};
}

int PageView::FlowHeight() const {
  return TopOf(placed_) - kBetween + kAround;
}

void PageView::UpdateBars() {
  const QSize page = PagePixels();
  placed_ = std::max(1, document_.PageCount());
  const QSize all(page.width() + 2 * kAround, FlowHeight());
  const QSize view = viewport()->size();
  QScrollBar* down = verticalScrollBar();
  down->setPageStep(view.height());
  down->setSingleStep(std::max(20, page.height() / 20));
  down->setRange(0, std::max(0, all.height() - view.height()));
  QScrollBar* across = horizontalScrollBar();
  across->setPageStep(view.width());
  across->setSingleStep(std::max(20, page.width() / 20));
  across->setRange(0, std::max(0, all.width() - view.width()));
}

// ---- Zoom ---------------------------------------------------------------------------------------

void PageView::SetZoom(double zoom) {
  fit_ = Fit::kNone;
  ApplyZoom(zoom);
}

void PageView::SetFit(Fit fit) {
  fit_ = fit;
  FitZoom();
}

void PageView::FitZoom() {
  if (fit_ == Fit::kNone) return;
  const QSizeF natural = document_.PageSize() * (logicalDpiX() / kTwipsPerInch);
  // The width beside the scroll bar, which nearly every document needs.
  const int bar = verticalScrollBar()->isVisible() ? 0 : verticalScrollBar()->sizeHint().width();
  const double across = (viewport()->width() - bar - 2 * kAround) / natural.width();
  const double down = (viewport()->height() - 2 * kAround) / natural.height();
  ApplyZoom(fit_ == Fit::kWidth ? across : std::min(across, down));
}

// The middle of the window keeps its place.
void PageView::ApplyZoom(double zoom) {
  zoom = std::clamp(zoom, kLeastZoom, kMostZoom);
  viewport()->update();
  if (zoom == zoom_) return UpdateBars();
  const int page = current_;
  const double height = PagePixels().height();
  const double into = (verticalScrollBar()->value() - TopOf(page)) / height;
  const double across = (horizontalScrollBar()->value() + viewport()->width() / 2.0) /
                        (PagePixels().width() + 2 * kAround);
  zoom_ = zoom;
  pictures_.clear();
  going_ = true;
  UpdateBars();
  // A page whose top is visible keeps its distance from the window's edge.
  const double distance = into < 0 ? into * height : into * PagePixels().height();
  verticalScrollBar()->setValue(TopOf(page) + static_cast<int>(std::lround(distance)));
  horizontalScrollBar()->setValue(static_cast<int>(
      std::lround(across * (PagePixels().width() + 2 * kAround) - viewport()->width() / 2.0)));
  going_ = false;
}

// ---- Moving -------------------------------------------------------------------------------------

void PageView::GoToPage(int page) {
  page = std::clamp(page, 0, std::max(0, document_.PageCount() - 1));
  going_ = true;
  verticalScrollBar()->setValue(TopOf(page) - kAround);
  going_ = false;
  SetCurrent(page);
}

void PageView::ShowPlace(const FoundPlace& place) {
  QRectF marks;
  for (const QRectF& mark : place.marks) marks = marks.united(mark);
  const double scale = PixelsPerTwip();
  const auto bring = [](QScrollBar& bar, int from, int to, int room) {
    constexpr int kSeen = 24;  // pixels shown around it
    if (from - kSeen >= 0 && to + kSeen <= room) return;
    bar.setValue(bar.value() + (from + to - room) / 2);
  };
  going_ = true;
  const QRect area = QRectF(marks.topLeft() * scale, marks.size() * scale)
                         .toAlignedRect()
                         .translated(Corner(place.page));
  bring(*verticalScrollBar(), area.top(), area.bottom(), viewport()->height());
  bring(*horizontalScrollBar(), area.left(), area.right(), viewport()->width());
  going_ = false;
  SetCurrent(place.page);
  viewport()->update();
}

void PageView::SetCurrent(int page) {
  if (page == current_) return;
  current_ = page;
  emit CurrentPageChanged(page);
}

// When the user scrolls, the current page is the one at a third of the window's height.
void PageView::scrollContentsBy(int /*dx*/, int dy) {
  viewport()->update();
  if (going_ || dy == 0) return;
  const QScrollBar& down = *verticalScrollBar();
  const int third = down.value() + viewport()->height() / 3;
  SetCurrent(down.value() == down.maximum() && down.maximum() > 0
                 ? PageAt(down.value() + viewport()->height() - kAround - 1)
                 : PageAt(third));
}

// Pages below the window need no repainting.
void PageView::PagesAdded() {
  const bool endOnShow = verticalScrollBar()->value() + viewport()->height() >= FlowHeight();
  if (placed_ == document_.PageCount()) return;
  going_ = true;
  UpdateBars();
  going_ = false;
  if (endOnShow) viewport()->update();
}

void PageView::PagesChanged() {
  pictures_.clear();
  failed_ = false;
  going_ = true;
  FitZoom();
  UpdateBars();
  going_ = false;
  viewport()->update();
  if (current_ >= document_.PageCount()) GoToPage(document_.PageCount() - 1);
}

void PageView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  going_ = true;
  FitZoom();
  UpdateBars();
  going_ = false;
}

void PageView::wheelEvent(QWheelEvent* event) {
  if (!(event->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
  // A touch pad sends less than one wheel step at a time, so the amounts are added up.
  turned_ += event->angleDelta().y();
  for (; std::abs(turned_) >= kNotch; turned_ -= turned_ > 0 ? kNotch : -kNotch) {
    emit ZoomWanted(turned_ > 0 ? 1 : -1);
  }
  event->accept();
}

// Arrows and PageUp/PageDown scroll here; the window handles the other keys.
void PageView::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers() & Qt::ControlModifier) return event->ignore();
  QAbstractScrollArea::keyPressEvent(event);
}

// ---- Painting -----------------------------------------------------------------------------------

void PageView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), kDesk);
  if (document_.PageCount() == 0) return;
  const int above = verticalScrollBar()->value();
  const int last = PageAt(above + event->rect().bottom());
  for (int page = PageAt(above + event->rect().top()); page <= last; ++page) {
    PaintSheet(painter, page);
  }
}

void PageView::PaintSheet(QPainter& painter, int page) {
  const QRect sheet(Corner(page), PagePixels());
  for (int i = kShadow; i > 0; --i) {
    painter.fillRect(sheet.translated(i, i), QColor(0, 0, 0, 22));
  }
  painter.drawPixmap(sheet.topLeft(), Picture(page));
  PaintMarks(painter, page);
  painter.setPen(kEdge);
  painter.drawRect(sheet.adjusted(-1, -1, 0, 0));
}

// No exception may leave a paint event. The rest of the page stays white.
QPixmap PageView::Picture(int page) {
  if (const QPixmap* known = pictures_.object(page)) return *known;
  QPixmap picture;
  try {
    PaintPicture(picture, document_, page, PagePixels(), devicePixelRatioF());
  } catch (const std::exception& error) {
    TellFailure(QString::fromUtf8(error.what()));
  }
  const auto kilobytes = picture.width() * picture.height() / 256;
  pictures_.insert(page, new QPixmap(picture), kilobytes);
  return picture;
}

void PageView::TellFailure(const QString& reason) {
  if (failed_) return;
  failed_ = true;
  QMetaObject::invokeMethod(
      this, [this, reason] { emit PaintingFailed(reason); }, Qt::QueuedConnection);
}

// Multiplied like a text marker, so that the letters stay dark.
void PageView::PaintMarks(QPainter& painter, int page) const {
  if (!search_) return;
  painter.save();
  painter.setCompositionMode(QPainter::CompositionMode_Multiply);
  const double scale = PixelsPerTwip();
  const QPointF corner = Corner(page);
  for (const FoundPlace& place : search_->PlacesOn(page)) {
    const bool current = &place == search_->CurrentPlace();
    for (const QRectF& mark : place.marks) {
      const QRectF area(corner + mark.topLeft() * scale, mark.size() * scale);
      painter.fillRect(area.adjusted(-1, 0, 1, 0), current ? kCurrentMark : kMark);
    }
  }
  painter.restore();
}

}  // namespace tevra
