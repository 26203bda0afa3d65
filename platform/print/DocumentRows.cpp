#include "platform/print/DocumentRows.h"

namespace tevra {

ExportTable TableOf(DocumentRows& rows, const QString& title) {
  return {title, rows.Columns(), rows.Count(), [&rows](Values& row) { return rows.Next(row); }};
}

}  // namespace tevra
