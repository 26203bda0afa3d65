// The pages of a document below each other, as many as the window shows.
#pragma once

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>

#include "platform/print/PagedDocument.h"
#include "platform/print/TextSearch.h"

namespace tevra {

/// Paints only the pages on show and keeps their pictures. Zoom 1 is the paper's true size by the
/// screen's own measure. Pages are counted from 0.
class PageView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  enum class Fit { kNone, kWidth, kPage };

  PageView(const char* name, PagedDocument& document, QWidget* parent);

  double Zoom() const { return zoom_; }
  Fit GetFit() const { return fit_; }
  void SetZoom(double zoom);
  /// Follows the window's size from now on.
  void SetFit(Fit fit);

  int CurrentPage() const { return current_; }
  /// Brings the upper edge of a page to that of the window, as far as there are pages below it.
  void GoToPage(int page);

  /// What is found in the pages is marked in them; the search lives as long as the view.
  void SetSearch(const TextSearch& search) { search_ = &search; }
  /// Brings a place on show, into the middle of the window where it is not yet.
  void ShowPlace(const FoundPlace& place);

  /// More pages are there.
  void PagesAdded();
  /// The pages look otherwise: their pictures are painted anew, and with another paper their places
  /// found anew.
  void PagesChanged();

 signals:
  void CurrentPageChanged(int page);
  /// Ctrl and the wheel: +1 wants the next larger zoom, -1 the next smaller.
  void ZoomWanted(int step);
  /// A page could not be painted; told once.
  void PaintingFailed(const QString& reason);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  QSize PagePixels() const;
  double PixelsPerTwip() const;
  int TopOf(int page) const;
  int PageAt(int y) const;
  QPoint Corner(int page) const;
  void FitZoom();
  void ApplyZoom(double zoom);
  int FlowHeight() const;
  void UpdateBars();
  void SetCurrent(int page);
  void PaintSheet(QPainter& painter, int page);
  QPixmap Picture(int page);
  void PaintMarks(QPainter& painter, int page) const;
  void TellFailure(const QString& reason);

  PagedDocument& document_;
  double zoom_ = 1;
  Fit fit_ = Fit::kNone;
  int current_ = 0;
  int placed_ = 0;       // the pages that the scroll bars know of
  int turned_ = 0;       // of the wheel with Ctrl, since the last step
  bool going_ = false;   // the program scrolls, to a page
  bool failed_ = false;  // a failure was told
  QCache<int, QPixmap> pictures_;
  const TextSearch* search_ = nullptr;
};

}  // namespace tevra
