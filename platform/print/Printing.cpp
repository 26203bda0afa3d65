#include "platform/print/Printing.h"

#include <QPainter>
#include <QPrinterInfo>
#include <algorithm>
#include <utility>

#include "platform/text/Failure.h"

namespace tevra {
namespace {

Printers SystemPrinters() {
  return {[] { return QPrinterInfo::availablePrinterNames(); },
          [] { return QPrinterInfo::defaultPrinterName(); },
          [](const QString& name) {
            return std::make_unique<QPrinter>(QPrinterInfo::printerInfo(name),
                                              QPrinter::HighResolution);
          }};
}

Printers& Chosen() {
  static Printers printers = SystemPrinters();
  return printers;
}

[[noreturn]] void ThrowRefused(const QString& printer) {
  throw Failure(kDeviceError, "Imprimanta nu a primit lucrarea: " + printer.toStdString());
}

void SetUp(QPrinter& printer, const PagedDocument& document, const PrintJob& job) {
  printer.setDocName(document.Title());
  printer.setCreator("Tevra");
  printer.setFullPage(true);  // the document has its own margins
  QPageLayout layout = document.PageLayout();
  layout.setMode(QPageLayout::FullPageMode);
  printer.setPageLayout(layout);
  if (printer.supportsMultipleCopies()) {
    printer.setCopyCount(job.copies);
    printer.setCollateCopies(true);
  }
}

}  // namespace

Printers SetPrinters(Printers printers) {
  return std::exchange(Chosen(), printers.names ? std::move(printers) : SystemPrinters());
}

const Printers& CurrentPrinters() {
  return Chosen();
}

bool PrintDocument(PagedDocument& document, const PrintJob& job, const Progress& progress) {
  if (!document.LayOutAll(progress)) return false;
  const std::unique_ptr<QPrinter> printer = Chosen().open(job.printer);
  SetUp(*printer, document, job);
  const int first = std::max(1, job.from);
  const int last = job.to > 0 ? std::min(job.to, document.PageCount()) : document.PageCount();
  const int copies = printer->supportsMultipleCopies() ? 1 : std::max(1, job.copies);
  const int sheets = copies * (last - first + 1);
  QPainter painter;
  if (!printer->isValid() || !painter.begin(printer.get())) ThrowRefused(job.printer);
  try {
    for (int sheet = 0; sheet < sheets; ++sheet) {
      if (sheet > 0 && !printer->newPage()) ThrowRefused(job.printer);
      PaintOnPaper(painter, document, first - 1 + sheet % (last - first + 1));
      if (!progress || progress(sheet + 1, sheets)) continue;
      printer->abort();
      return false;
    }
  } catch (...) {
    printer->abort();
    throw;
  }
  if (!painter.end()) ThrowRefused(job.printer);
  return true;
}

}  // namespace tevra
