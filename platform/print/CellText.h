// Fits texts into the cells of a printed table.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QStringList>
#include <array>
#include <optional>

class QPainter;

namespace tevra {

/// The font of printed pages at a size in points. Its pixel size is in twips, so that letters have
/// the same width on every device.
QFont PaperFont(double points, bool bold = false);

/// A text as it is printed in a cell.
struct FittedText {
  QStringList lines;
  double shrink = 1;  ///< of the font
};

/// Fits texts of one font; widths are in twips. A text breaks between words, a long word at the end
/// of the line; a text too long for the last line ends in "...". A number is never cut or broken
/// but printed smaller until it fits.
class CellText {
 public:
  explicit CellText(const QFont& font);

  double LineHeight() const { return metrics_.height(); }
  double Width(const QString& text) const;

  /// True when the text certainly fits on one line. It is fast, because a list calls it for each
  /// cell.
  bool FitsOneLine(const QString& text, double width) const;
  FittedText Fit(const QString& text, double width, int mostLines, bool isNumber) const;
  QString Elided(const QString& text, double width) const;

  /// Paints a fitted text; `alignment` is Qt's, horizontal and vertical.
  void Paint(QPainter& painter, const FittedText& text, const QRectF& cell,
             Qt::Alignment alignment) const;

 private:
  /// The widths of the letters added up, which needs no shaping and decides about most cells;
  /// nothing for a text with other letters than ASCII.
  std::optional<double> SumOfLetters(const QString& text) const;
  bool SurelyTooWide(const QString& text, double width) const;
  bool SurelyFits(const QString& text, double width) const;
  FittedText Wrap(const QString& plain, double width, int mostLines) const;

  // A page fits a text for its height and again when it is painted.
  struct Wrapped {
    double width = 0;
    int mostLines = 0;
    FittedText fitted;
  };
  mutable QHash<QString, Wrapped> wrapped_;

  QFont font_;
  QFontMetricsF metrics_;
  std::array<double, 128> letters_;  // widths of the ASCII letters
};

}  // namespace tevra
