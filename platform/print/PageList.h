// The pages of a document as small pictures, one below the other.
#pragma once

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>
#include <QTimer>

#include "platform/print/PagedDocument.h"

namespace tevra {

/// Paints only the visible pages, one in each idle step, because a document may have a thousand.
/// Pages are counted from 0.
class PageList : public QAbstractScrollArea {
  Q_OBJECT

 public:
  PageList(const char* name, PagedDocument& document, QWidget* parent);

  /// Marks a page and scrolls to it.
  void SetCurrent(int page);
  /// To be called when pages were added.
  void PagesAdded();
  /// To be called when the pages have changed.
  void PagesChanged();

  /// The first and the last visible page.
  int FirstShown() const;
  int LastShown() const;

 signals:
  /// The user chose a page.
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
