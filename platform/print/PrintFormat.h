// Page headers and footers in the print format: "\t" starts the next part, "\p" is the page number,
// "\P" the number of pages, "\\" a backslash.
#pragma once

#include <QString>

namespace tevra {

/// The texts at the left, in the middle and at the right of a line.
struct PageLine {
  QString left;
  QString centre;
  QString right;
};

/// `page`: from 1. `pages`: 0 while it is unknown, shown as "...". A single part is in the middle
/// when `centred`, else at the left; two parts are left and right; three are left, centre and
/// right. A tab character counts as "\t"; after the third part it becomes a blank. Parts are
/// trimmed.
PageLine ReadPrintFormat(const QString& format, int page, int pages, bool centred);

/// Escapes a text so that it is printed unchanged, backslashes included.
QString QuotePrintFormat(const QString& text);

}  // namespace tevra
