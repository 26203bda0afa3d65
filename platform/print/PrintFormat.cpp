#include "platform/print/PrintFormat.h"

#include <QStringList>

namespace tevra {
namespace {

constexpr int kMostParts = 3;
constexpr QChar kMark('\\');

void NextPart(QStringList& parts) {
  if (parts.size() < kMostParts) {
    parts << QString();
  } else {
    parts.last() += ' ';
  }
}

void AppendMarked(QChar letter, int page, int pages, QStringList& parts) {
  if (letter == 't') {
    NextPart(parts);
  } else if (letter == 'p') {
    parts.last() += QString::number(page);
  } else if (letter == 'P') {
    parts.last() += pages > 0 ? QString::number(pages) : QString("...");
  } else if (letter == kMark) {
    parts.last() += kMark;
  } else {
    parts.last() += kMark;
    parts.last() += letter;
  }
}

}  // namespace

PageLine ReadPrintFormat(const QString& format, int page, int pages, bool centred) {
  QStringList parts(QString{});
  for (int i = 0; i < format.size(); ++i) {
    if (format[i] == '\t') {
      NextPart(parts);
    } else if (format[i] == kMark && i + 1 < format.size()) {
      AppendMarked(format[++i], page, pages, parts);
    } else {
      parts.last() += format[i];
    }
  }
  for (QString& part : parts) part = part.trimmed();
  if (parts.size() == 1) return centred ? PageLine{{}, parts[0], {}} : PageLine{parts[0], {}, {}};
  if (parts.size() == 2) return {parts[0], {}, parts[1]};
  return {parts[0], parts[1], parts[2]};
}

QString QuotePrintFormat(const QString& text) {
  return QString(text).replace('\\', "\\\\").replace('\t', ' ');
}

}  // namespace tevra
