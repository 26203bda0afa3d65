// The texts at the head and foot of a page, in the print format: "\t" begins the next part, "\p" is
// the page number, "\P" the number of pages, "\\" a backslash.
#pragma once

#include <QString>

namespace tevra {

/// What stands at the left, in the middle and at the right of a line.
struct PageLine {
  QString left;
  QString centre;
  QString right;
};

/// `page`: from 1. `pages`: 0 while nobody knows, which reads "...". One part stands in the middle
/// when `centred`, else at the left; two stand left and right; three left, centre and right. A tab
/// character is taken as "\t", and further ones as blanks. Blanks around a part are left out.
PageLine ReadPrintFormat(const QString& format, int page, int pages, bool centred);

/// The format of a text that means itself, backslashes and all.
QString QuotePrintFormat(const QString& text);

}  // namespace tevra
