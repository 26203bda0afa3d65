#include "platform/print/Pdf.h"

#include <QFile>
#include <QPainter>
#include <QPdfWriter>

#include "platform/system/Paths.h"
#include "platform/text/FailureText.h"

namespace tevra {
namespace {

// The file could be opened, so a failed write means that the disk is full.
void CheckWritten(const QFile& file, const std::filesystem::path& path) {
  if (file.error() != QFileDevice::NoError) throw FileFailure(kDiskFull, path.string());
}

void WritePages(PagedDocument& document, QFile& file, const std::filesystem::path& path,
                const Progress& progress) {
  QPdfWriter writer(&file);
  writer.setTitle(document.Title());
  writer.setCreator("Tevra");
  writer.setResolution(static_cast<int>(kTwipsPerInch));
  QPageLayout layout = document.PageLayout();
  layout.setMode(QPageLayout::FullPageMode);
  writer.setPageLayout(layout);
  QPainter painter;
  if (!painter.begin(&writer)) throw FileFailure(kPermissionDenied, path.string());
  const int pages = document.PageCount();
  for (int page = 0; page < pages; ++page) {
    if (page > 0 && !writer.newPage()) throw FileFailure(kPermissionDenied, path.string());
    PaintOnPaper(painter, document, page);
    CheckWritten(file, path);
    Report(progress, page + 1, pages);
  }
  painter.end();
}

}  // namespace

bool SavePdf(PagedDocument& document, const std::filesystem::path& path, const Progress& progress) {
  if (!document.LayOutAll(progress)) return false;
  try {
    paths::ReplaceFile(path, [&](const std::filesystem::path& temporary) {
      QFile file(QString::fromStdString(temporary.string()));
      if (!file.open(QIODevice::WriteOnly)) throw FileFailure(kPermissionDenied, path.string());
      WritePages(document, file, path, progress);
      file.close();
      CheckWritten(file, path);
    });
  } catch (const GivenUp&) {
    return false;
  }
  return true;
}

}  // namespace tevra
