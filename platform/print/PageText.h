// What a page says, read from what it paints.
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

  /// Where the letters from `start` on stand, in twips from the paper's upper left corner; a
  /// rectangle a line.
  std::vector<QRectF> PlaceOf(qsizetype start, qsizetype length) const;

  /// A piece painted at once: in the painter's own measure, which `transform` brings to the page.
  struct Piece {
    qsizetype start;
    QString text;
    QRectF place;
    QFont font;
    QTransform transform;
  };
  /// Takes the piece painted next if it goes on with this text: on its line, or on the line below.
  bool Append(Piece piece);

 private:
  bool GoesOnBeside(const Piece& piece) const;
  bool GoesOnBelow(const Piece& piece) const;

  QString text_;
  std::vector<Piece> pieces_;
};

/// The texts of a page (from 0) in the order in which it paints them; nothing is painted anywhere.
/// Throws as PaintPage does.
std::vector<PaintedText> TextOfPage(PagedDocument& document, int page);

}  // namespace tevra
