// Documents on printers.
#pragma once

#include <QPrinter>
#include <QStringList>
#include <functional>
#include <memory>

#include "platform/print/PagedDocument.h"

namespace tevra {

/// The printers of the machine, as far as printing asks for them.
struct Printers {
  std::function<QStringList()> names;
  std::function<QString()> usual;  ///< the one to begin with; may be none
  std::function<std::unique_ptr<QPrinter>(const QString& name)> open;
};

/// Sets the printers that there are; returns those before. Unless set they are the system's own.
Printers SetPrinters(Printers printers);
const Printers& CurrentPrinters();

struct PrintJob {
  QString printer;
  int copies = 1;
  int from = 1;  ///< the first page to print, from 1
  int to = 0;    ///< the last; 0: to the end
};

/// Prints pages of a document at the printer's own resolution, copies one behind the other, each in
/// the order of its pages. False when `progress` gave it up. Throws Failure 57 when the printer
/// refuses, and what the document's layout and painting throw; the job is then taken back as far as
/// the printer lets it.
bool PrintDocument(PagedDocument& document, const PrintJob& job, const Progress& progress = {});

}  // namespace tevra
