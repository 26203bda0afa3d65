#include "platform/print/CellText.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "platform/print/PagedDocument.h"

namespace tevra {
namespace {

constexpr int kLongestText = 2000;  // more than fits into two lines of any cell
constexpr int kWrappedHeld = 512;   // more than a page has
constexpr double kSlack = 0.5;      // twips, against rounding errors

// A row of a list has one or two lines, so line breaks in the text become blanks.
QString Plain(const QString& text) {
  QString plain = text.left(kLongestText);
  for (QChar& character : plain) {
    if (character < ' ' || character == QChar::LineSeparator ||
        character == QChar::ParagraphSeparator) {
      character = ' ';
    }
  }
  return plain.trimmed();
}

// The characters of numbers and dates. They form no ligatures, so their widths add up.
bool IsOfNumbers(QChar character) {
  const char16_t code = character.unicode();
  return (code >= '0' && code <= '9') || code == '.' || code == ',' || code == '-';
}

}  // namespace

QFont PaperFont(double points, bool bold) {
  QFont font;
  font.setFamilies({"Liberation Sans", "Arial", "DejaVu Sans"});
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(static_cast<int>(std::lround(points * kTwipsPerPoint)));
  font.setBold(bold);
  // Hinting would give the letters other widths on a screen.
  font.setHintingPreference(QFont::PreferNoHinting);
  // With kerning, digits ("11") would not be exactly below those of the row above.
  font.setKerning(false);
  return font;
}

CellText::CellText(const QFont& font) : font_(font), metrics_(font) {
  for (std::size_t i = 0; i < letters_.size(); ++i) {
    letters_[i] = i < ' ' ? 0 : metrics_.horizontalAdvance(QChar(static_cast<char16_t>(i)));
  }
}

double CellText::Width(const QString& text) const {
  double sum = 0;
  for (const QChar character : text) {
    if (!IsOfNumbers(character)) return metrics_.horizontalAdvance(text);
    sum += letters_[character.unicode()];
  }
  return sum;
}

std::optional<double> CellText::SumOfLetters(const QString& text) const {
  double sum = 0;
  for (const QChar character : text) {
    const char16_t code = character.unicode();
    if (code < ' ' || code >= letters_.size()) return std::nullopt;
    sum += letters_[code];
  }
  return sum;
}

bool CellText::SurelyFits(const QString& text, double width) const {
  constexpr double kApart = 1.02;  // shaping may move letters a little apart
  if (text.isEmpty()) return true;
  if (text.front() == ' ' || text.back() == ' ') return false;
  const auto sum = SumOfLetters(text);
  return sum && *sum * kApart <= width;
}

bool CellText::SurelyTooWide(const QString& text, double width) const {
  constexpr double kJoined = 0.8;  // ligatures may be narrower than their letters
  const auto sum = SumOfLetters(text);
  return sum && *sum * kJoined > width + kSlack;
}

bool CellText::FitsOneLine(const QString& text, double width) const {
  if (text.size() > kLongestText) return false;
  return SurelyFits(text, width) || Width(Plain(text)) <= width + kSlack;
}

FittedText CellText::Fit(const QString& text, double width, int mostLines, bool isNumber) const {
  if (SurelyFits(text, width)) return {{text}, 1};
  const QString plain = Plain(text);
  if (isNumber || !SurelyTooWide(plain, width)) {
    const double wanted = Width(plain);
    if (wanted <= width + kSlack) return {{plain}, 1};
    if (isNumber) return {{plain}, std::max(width, 1.0) / wanted};
  }
  const auto known = wrapped_.constFind(plain);
  if (known != wrapped_.cend() && known->width == width && known->mostLines == mostLines) {
    return known->fitted;
  }
  if (wrapped_.size() >= kWrappedHeld) wrapped_.clear();
  const Wrapped wrapped{width, mostLines, Wrap(plain, width, mostLines)};
  return wrapped_.insert(plain, wrapped)->fitted;
}

FittedText CellText::Wrap(const QString& plain, double width, int mostLines) const {
  QTextLayout layout(plain, font_);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  layout.beginLayout();
  FittedText fitted;
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width + kSlack);
    const int start = line.textStart();
    if (fitted.lines.size() + 1 == mostLines) {
      fitted.lines << Elided(plain.mid(start), width);
      break;
    }
    fitted.lines << plain.mid(start, line.textLength()).trimmed();
  }
  layout.endLayout();
  return fitted;
}

QString CellText::Elided(const QString& text, double width) const {
  QString plain = Plain(text);
  if (Width(plain) <= width + kSlack) return plain;
  const QString dots("...");
  int fits = 0;
  int tooMany = static_cast<int>(plain.size());
  while (tooMany - fits > 1) {
    const int middle = (fits + tooMany) / 2;
    (Width(plain.left(middle).trimmed() + dots) <= width ? fits : tooMany) = middle;
  }
  if (fits > 0 && plain[fits - 1].isHighSurrogate()) --fits;
  return plain.left(fits).trimmed() + dots;
}

void CellText::Paint(QPainter& painter, const FittedText& text, const QRectF& cell,
                     Qt::Alignment alignment) const {
  QFont font = font_;
  if (text.shrink < 1) {
    font.setPixelSize(std::max(1, static_cast<int>(std::floor(font.pixelSize() * text.shrink))));
  }
  const QFontMetricsF shrunken = text.shrink < 1 ? QFontMetricsF(font) : metrics_;
  const QFontMetricsF& metrics = text.shrink < 1 ? shrunken : metrics_;
  const double height = metrics.height() * static_cast<double>(text.lines.size());
  double top = cell.top();
  if (alignment & Qt::AlignVCenter) top += (cell.height() - height) / 2;
  if (alignment & Qt::AlignBottom) top += cell.height() - height;
  painter.setFont(font);
  for (const QString& line : text.lines) {
    double left = cell.left();
    if (alignment & (Qt::AlignRight | Qt::AlignHCenter)) {
      const double width = text.shrink < 1 ? shrunken.horizontalAdvance(line) : Width(line);
      const double spare = cell.width() - width;
      left += alignment & Qt::AlignRight ? spare : spare / 2;
    }
    painter.drawText(QPointF(left, top + metrics.ascent()), line);
    top += metrics.height();
  }
}

}  // namespace tevra
