// The pages of a document, one below the other, in a scrollable view.
#pragma once

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>

#include "platform/print/PagedDocument.h"
#include "platform/print/TextSearch.h"

namespace tevra {

/// Paints only the visible pages and keeps their pictures. Zoom 1 is the paper's true size,
/// calculated from the screen's resolution. Pages are counted from 0.
class PageView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  enum class Fit { kNone, kWidth, kPage };

  PageView(const char* name, PagedDocument& document, QWidget* parent);

  double Zoom() const { return zoom_; }
  Fit GetFit() const { return fit_; }
  void SetZoom(double zoom);
  /// From now on the zoom follows the window's size.
  void SetFit(Fit fit);

  int CurrentPage() const { return current_; }
  /// Scrolls the upper edge of a page to that of the window, as far as the pages below allow.
  void GoToPage(int page);

  /// The places found by the search are marked. The search must live as long as the view.
  void SetSearch(const TextSearch& search) { search_ = &search; }
  /// Scrolls to a place; one that is not visible comes to the middle of the window.
  void ShowPlace(const FoundPlace& place);

  /// To be called when pages were added.
  void PagesAdded();
  /// To be called when the pages have changed: paints their pictures again, and calculates their
  /// places again when the paper has another size.
  void PagesChanged();

 signals:
  void CurrentPageChanged(int page);
  /// Ctrl and the wheel: +1 asks for the next larger zoom, -1 for the next smaller one.
  void ZoomWanted(int step);
  /// A page could not be painted; emitted once.
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
  int placed_ = 0;       // the pages included in the scroll bars' range
  int turned_ = 0;       // turn of the wheel with Ctrl since the last step
  bool going_ = false;   // the program itself is scrolling
  bool failed_ = false;  // a failure was reported
  QCache<int, QPixmap> pictures_;
  const TextSearch* search_ = nullptr;
};

}  // namespace tevra
