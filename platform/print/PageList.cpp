#include "platform/print/PageList.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <exception>

#include "platform/print/PagePicture.h"

namespace tevra {
namespace {

constexpr int kAround = 10;             // pixels around a picture
constexpr QSize kLargest(104, 132);     // a picture
constexpr int kCacheKilobytes = 16384;  // a few hundred pictures
constexpr QColor kPaper(0xFF, 0xFF, 0xFF);
constexpr QColor kEdge(0x9A, 0x9E, 0xA4);

}  // namespace

PageList::PageList(const char* name, PagedDocument& document, QWidget* parent)
    : QAbstractScrollArea(parent), document_(document), pictures_(kCacheKilobytes) {
  setObjectName(name);
  setAccessibleName("Lista paginilor");
  setToolTip("Paginile documentului; apasati una ca sa o vedeti");
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  verticalScrollBar()->setFocusPolicy(Qt::NoFocus);
  setFixedWidth(kLargest.width() + 4 * kAround + verticalScrollBar()->sizeHint().width());
  idle_.setInterval(0);
  connect(&idle_, &QTimer::timeout, this, [this] { PaintWhenIdle(); });
}

// ---- Page positions -----------------------------------------------------------------------------

QSize PageList::PictureSize() const {
  return document_.PageSize().scaled(kLargest, Qt::KeepAspectRatio).toSize().expandedTo({1, 1});
}

// The picture, and the number under it.
int PageList::RowHeight() const {
  return PictureSize().height() + fontMetrics().height() + 2 * kAround;
}

int PageList::PageAt(int y) const {
  const int page = (verticalScrollBar()->value() + y) / RowHeight();
  return std::clamp(page, 0, std::max(0, document_.PageCount() - 1));
}

int PageList::FirstShown() const {
  return PageAt(0);
}

int PageList::LastShown() const {
  return PageAt(viewport()->height() - 1);
}

QRect PageList::RowOf(int page) const {
  const int height = RowHeight();
  return {0, page * height - verticalScrollBar()->value(), viewport()->width(), height};
}

void PageList::UpdateBar() {
  known_ = document_.PageCount();
  QScrollBar* down = verticalScrollBar();
  down->setPageStep(viewport()->height());
  down->setSingleStep(RowHeight() / 3);
  down->setRange(0, std::max(0, known_ * RowHeight() - viewport()->height()));
}

void PageList::SetCurrent(int page) {
  if (page == current_) return;
  current_ = page;
  const QRect row = RowOf(page);
  QScrollBar* down = verticalScrollBar();
  const int below = row.bottom() + 1 - viewport()->height();
  if (row.top() < 0) {
    down->setValue(down->value() + row.top());
  } else if (below > 0) {
    down->setValue(down->value() + below);
  }
  viewport()->update();
}

void PageList::PagesAdded() {
  if (known_ == document_.PageCount()) return;
  const bool endOnShow = RowOf(known_).top() < viewport()->height();
  UpdateBar();
  if (endOnShow) viewport()->update();
}

void PageList::PagesChanged() {
  pictures_.clear();
  UpdateBar();
  viewport()->update();
}

void PageList::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  UpdateBar();
}

void PageList::scrollContentsBy(int /*dx*/, int /*dy*/) {
  viewport()->update();
}

// ---- The user -----------------------------------------------------------------------------------

void PageList::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  const int page = PageAt(event->pos().y());
  if (RowOf(page).contains(event->pos())) emit PageChosen(page);
}

// The window handles the keys for the first and the last page.
void PageList::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers() & Qt::ControlModifier) return event->ignore();
  const int shown = std::max(1, viewport()->height() / RowHeight());
  const auto go = [&](int pages) {
    emit PageChosen(std::clamp(current_ + pages, 0, std::max(0, document_.PageCount() - 1)));
  };
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Left:
      return go(-1);
    case Qt::Key_Down:
    case Qt::Key_Right:
      return go(1);
    case Qt::Key_PageUp:
      return go(-shown);
    case Qt::Key_PageDown:
      return go(shown);
    default:
      return event->ignore();
  }
}

// ---- Painting -----------------------------------------------------------------------------------

void PageList::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), palette().color(QPalette::Window));
  if (document_.PageCount() == 0) return;
  const int last = PageAt(event->rect().bottom());
  for (int page = PageAt(event->rect().top()); page <= last; ++page) PaintRow(painter, page);
  if (NextToPaint() >= 0) idle_.start();
}

// A page without its picture yet is drawn as a white sheet.
void PageList::PaintRow(QPainter& painter, int page) {
  const QRect row = RowOf(page);
  const QSize size = PictureSize();
  const QRect sheet({(row.width() - size.width()) / 2, row.top() + kAround}, size);
  const bool marked = page == current_;
  if (marked) {
    painter.fillRect(row.adjusted(3, 3, -3, -1), palette().color(QPalette::Highlight));
  }
  painter.fillRect(sheet, kPaper);
  if (const QPixmap* picture = pictures_.object(page)) painter.drawPixmap(sheet, *picture);
  painter.setPen(kEdge);
  painter.drawRect(sheet.adjusted(-1, -1, 0, 0));
  painter.setPen(palette().color(marked ? QPalette::HighlightedText : QPalette::WindowText));
  const QRect number(0, sheet.bottom() + 1, row.width(), row.bottom() - sheet.bottom());
  painter.drawText(number, Qt::AlignCenter, QString::number(page + 1));
}

int PageList::NextToPaint() const {
  if (document_.PageCount() == 0) return -1;
  const int last = LastShown();
  for (int page = FirstShown(); page <= last; ++page) {
    if (!pictures_.contains(page)) return page;
  }
  return -1;
}

// The page view reports a failure; here the page stays as far as it was painted.
void PageList::PaintWhenIdle() {
  const int page = isVisible() ? NextToPaint() : -1;
  if (page < 0) return idle_.stop();
  QPixmap picture;
  try {
    PaintPicture(picture, document_, page, PictureSize(), devicePixelRatioF());
  } catch (const std::exception&) {
  }
  const int kilobytes = std::max(1, picture.width() * picture.height() / 256);
  pictures_.insert(page, new QPixmap(std::move(picture)), kilobytes);
  viewport()->update(RowOf(page));
}

}  // namespace tevra
