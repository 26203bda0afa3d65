// Texts fitted into the cells of a table on paper.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QStringList>
#include <array>

class QPainter;

namespace tevra {

/// The font of the paper at a size in points: its pixel size is in twips, its letters are as wide
/// on every device.
QFont PaperFont(double points, bool bold = false);

/// A text as a cell shows it.
struct FittedText {
  QStringList lines;
  double shrink = 1;  ///< of the font
};

/// Fits texts of one font, widths in twips. A text breaks between words, a long word where the line
/// ends; what the last line cannot hold ends in "...". A number is never cut nor broken: it is made
/// smaller until it fits.
class CellText {
 public:
  explicit CellText(const QFont& font);

  double LineHeight() const { return metrics_.height(); }
  double Width(const QString& text) const;

  /// True when the text surely needs no second line; quick, since a list asks it for every cell.
  bool FitsOneLine(const QString& text, double width) const;
  FittedText Fit(const QString& text, double width, int mostLines, bool isNumber) const;
  QString Elided(const QString& text, double width) const;

  /// Paints a fitted text in the font; `alignment` as Qt has it, both ways.
  void Paint(QPainter& painter, const FittedText& text, const QRectF& cell,
             Qt::Alignment alignment) const;

 private:
  bool SurelyFits(const QString& text, double width) const;

  QFont font_;
  QFontMetricsF metrics_;
  std::array<double, 128> letters_;  // widths of the plain ones
};

}  // namespace tevra
