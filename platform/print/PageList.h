// The pages of a document as small pictures below each other.
#pragma once

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>
#include <QTimer>

#include "platform/print/PagedDocument.h"

namespace tevra {

/// Paints the pages on show only, one at a time while nothing else is to be done: a document has a
/// thousand of them as well as ten. Pages are counted from 0.
class PageList : public QAbstractScrollArea {
  Q_OBJECT

 public:
  PageList(const char* name, PagedDocument& document, QWidget* parent);

  /// Marks a page and brings it on show.
  void SetCurrent(int page);
  /// More pages are there.
  void PagesAdded();
  /// The pages look otherwise.
  void PagesChanged();

  /// The first page on show and the last.
  int FirstShown() const;
  int LastShown() const;

 signals:
  /// The user wants to see a page.
  void PageChosen(int page);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  QSize PictureSize() const;
  int RowHeight() const;
  int PageAt(int y) const;
  QRect RowOf(int page) const;
  void UpdateBar();
  void PaintRow(QPainter& painter, int page);
  void PaintWhenIdle();
  int NextToPaint() const;

  PagedDocument& document_;
  int current_ = 0;
  int known_ = -1;  // the pages that the scroll bar knows of
  QCache<int, QPixmap> pictures_;
  QTimer idle_;
};

}  // namespace tevra
