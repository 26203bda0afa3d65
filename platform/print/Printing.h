// Prints documents.
#pragma once

#include <QPrinter>
#include <QStringList>
#include <functional>
#include <memory>

#include "platform/print/PagedDocument.h"

namespace tevra {

/// The printers of the machine.
struct Printers {
  std::function<QStringList()> names;
  std::function<QString()> usual;  ///< the default printer; empty when there is none
  std::function<std::unique_ptr<QPrinter>(const QString& name)> open;
};

/// Replaces the printers and returns the previous ones; by default they are the system's.
Printers SetPrinters(Printers printers);
const Printers& CurrentPrinters();

struct PrintJob {
  QString printer;
  int copies = 1;
  int from = 1;  ///< the first page to print, from 1
  int to = 0;    ///< the last; 0: to the end
};

/// Prints pages of a document at the printer's resolution, one collated copy after the other. False
/// when `progress` cancelled. Throws Failure 57 when the printer refuses, and what the document's
/// layout and painting throw; the job is then cancelled as far as the printer allows.
bool PrintDocument(PagedDocument& document, const PrintJob& job, const Progress& progress = {});

}  // namespace tevra
