// A document of pages: laid out step by step, painted page by page, the same on screen, paper and
// PDF.
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

/// The unit of everything on a page: the twentieth part of a point. Fonts take their pixel size in
/// it, so that a text breaks at the same place on every device.
inline constexpr double kTwipsPerPoint = 20;
inline constexpr double kTwipsPerInch = 1440;

/// What preview, printer and PDF know of a document. A long one is laid out while its first pages
/// are already on show: pages that PageCount counts can be painted at once and stay as they are but
/// for the number of all pages, which is known when the layout is complete.
class PagedDocument {
 public:
  PagedDocument(QString title, const QPageLayout& layout);
  virtual ~PagedDocument() = default;
  PagedDocument(const PagedDocument&) = delete;
  PagedDocument& operator=(const PagedDocument&) = delete;

  const QString& Title() const { return title_; }

  const QPageLayout& PageLayout() const { return layout_; }
  /// Paper, orientation and margins; what was laid out is void and the layout begins anew.
  void SetPageLayout(const QPageLayout& layout);
  /// The paper, in twips.
  QSizeF PageSize() const;
  /// What the margins leave of it, in twips from its upper left corner.
  QRectF PrintArea() const;

  /// The kind of document under which the user's page is remembered; empty for the general page.
  const std::string& PaperKind() const { return paperKind_; }
  void SetPaperKind(std::string kind) { paperKind_ = std::move(kind); }

  /// The pages laid out so far; at least one when the layout is complete.
  virtual int PageCount() const = 0;
  virtual bool IsComplete() const = 0;
  /// Lays out a little more, a page or so: short enough for a user not to notice, and nothing when
  /// the layout is complete. Throws what the document's source of data throws, and may then be
  /// called again.
  virtual void LayOutMore() = 0;
  /// Lays out the rest. False when `progress` gave it up; what is laid out by then stays.
  bool LayOutAll(const Progress& progress = {});

  /// Paints a page (from 0, below PageCount) in twips, the paper's upper left corner at 0,0. Throws
  /// as LayOutMore does.
  virtual void PaintPage(QPainter& painter, int page) = 0;

  /// True when the document's rows can be had, for a spreadsheet and the like.
  virtual bool HasRows() const { return false; }
  /// The rows from the first on; none when the document has none. They are read while the document
  /// lives. Throws as LayOutMore does.
  virtual std::unique_ptr<DocumentRows> Rows() { return nullptr; }

 protected:
  /// The page layout changed: forget what was laid out.
  virtual void Restart() = 0;

 private:
  QString title_;
  QPageLayout layout_;
  std::string paperKind_;
};

/// Paints a page on a printer, a PDF or a picture that begins at the paper's upper left corner, by
/// the device's own resolution. A paper smaller than the page gets the page made smaller.
void PaintOnPaper(QPainter& painter, PagedDocument& document, int page);

}  // namespace tevra
