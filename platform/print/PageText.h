// The texts of a page, collected by painting it.
#pragma once

#include <QFont>
#include <QRectF>
#include <QString>
#include <QTransform>
#include <vector>

#include "platform/print/PagedDocument.h"

namespace tevra {

/// A text on a page. The lines of one cell, painted one after the other, are one text with blanks
/// between them.
class PaintedText {
 public:
  const QString& Text() const { return text_; }

  /// The place of the letters from `start` on, in twips from the paper's upper left corner; one
  /// rectangle for each line.
  std::vector<QRectF> PlaceOf(qsizetype start, qsizetype length) const;

  /// A text painted in one call, in the painter's coordinates; `transform` converts them to the
  /// page.
  struct Piece {
    qsizetype start;
    QString text;
    QRectF place;
    QFont font;
    QTransform transform;
  };
  /// Adds the next painted piece if it continues this text, on its line or on the line below.
  bool Append(Piece piece);

 private:
  bool GoesOnBeside(const Piece& piece) const;
  bool GoesOnBelow(const Piece& piece) const;

  QString text_;
  std::vector<Piece> pieces_;
};

/// The texts of a page (from 0) in the order in which the page paints them. Nothing is displayed.
/// Throws like PaintPage.
std::vector<PaintedText> TextOfPage(PagedDocument& document, int page);

}  // namespace tevra
