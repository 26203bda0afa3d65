// A document of pages: laid out in steps and painted page by page, equal on screen, paper and PDF.
#pragma once

#include <QPageLayout>
#include <QRectF>
#include <QString>
#include <memory>
#include <string>
#include <utility>

#include "platform/print/DocumentRows.h"
#include "platform/system/Progress.h"

class QPainter;

namespace tevra {

/// The unit on a page is the twip, a twentieth of a point. Font sizes use it too, so that a text
/// breaks at the same place on every device.
inline constexpr double kTwipsPerPoint = 20;
inline constexpr double kTwipsPerInch = 1440;

/// The interface that preview, printer and PDF use. A long document is laid out while its first
/// pages are visible: the pages that PageCount counts can be painted at once and do not change
/// later, except for the total number of pages, which is known when the layout is complete.
class PagedDocument {
 public:
  PagedDocument(QString title, const QPageLayout& layout);
  virtual ~PagedDocument() = default;
  PagedDocument(const PagedDocument&) = delete;
  PagedDocument& operator=(const PagedDocument&) = delete;

  const QString& Title() const { return title_; }

  const QPageLayout& PageLayout() const { return layout_; }
  /// Sets paper, orientation and margins, and starts the layout again.
  void SetPageLayout(const QPageLayout& layout);
  /// The paper, in twips.
  QSizeF PageSize() const;
  /// The area inside the margins, in twips from the paper's upper left corner.
  QRectF PrintArea() const;

  /// The kind of document under which the user's page is remembered; empty for the general page.
  const std::string& PaperKind() const { return paperKind_; }
  void SetPaperKind(std::string kind) { paperKind_ = std::move(kind); }

  /// The number of pages laid out so far; at least one when the layout is complete.
  virtual int PageCount() const = 0;
  virtual bool IsComplete() const = 0;
  /// Lays out about one more page, in a time too short for the user to notice; does nothing when
  /// the layout is complete. Throws what the document's data source throws, and may then be called
  /// again.
  virtual void LayOutMore() = 0;
  /// Lays out the rest. False when `progress` cancelled; the pages laid out by then remain.
  bool LayOutAll(const Progress& progress = {});

  /// Paints a page (from 0, below PageCount) in twips from the paper's upper left corner. Throws
  /// like LayOutMore.
  virtual void PaintPage(QPainter& painter, int page) = 0;

  /// True when the document can provide its rows, for a spreadsheet for example.
  virtual bool HasRows() const { return false; }
  /// A reader of the rows from the first one; nullptr when the document has none. The document must
  /// outlive it. Throws like LayOutMore.
  virtual std::unique_ptr<DocumentRows> Rows() { return nullptr; }

 protected:
  /// Called when the page layout has changed: discard the laid out pages.
  virtual void Restart() = 0;

 private:
  QString title_;
  QPageLayout layout_;
  std::string paperKind_;
};

/// Paints a page on a printer, a PDF or a picture whose origin is the paper's upper left corner, at
/// the device's resolution. On a paper smaller than the page, the page is scaled down.
void PaintOnPaper(QPainter& painter, PagedDocument& document, int page);

}  // namespace tevra
