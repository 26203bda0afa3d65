#include "platform/grid/GridPrint.h"

#include <memory>

#include "platform/print/TableDocument.h"
#include "platform/print/frmPageSetup.h"
#include "platform/print/frmPreview.h"

namespace tevra {

namespace {

constexpr double kPointsPerPixel = 0.75;

std::unique_ptr<TableDocument> Document(const GridContent& content, const GridPrintInfo& info,
                                        const QString& title) {
  TableContent table;
  table.title = title;
  table.header = info.header;
  table.headerBold = info.headerBold;
  table.above = info.above;
  table.footer = info.footer;
  for (const GridContent::Column& column : content.Columns()) {
    table.columns.push_back(
        {column.shown.caption, column.width * kPointsPerPixel, column.alignment, column.footer});
  }
  table.rows = static_cast<int>(content.RowCount());
  table.text = [content](int row, int column) {
    return content.TextAt(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
  };
  table.appendixHeight = info.appendixHeight;
  table.appendix = info.appendix;
  auto document =
      std::make_unique<TableDocument>(std::move(table), RememberedPageLayout(info.paperKind));
  document->SetPaperKind(info.paperKind);
  return document;
}

}  // namespace

void PreviewGrid(const GridContent& content, const GridPrintInfo& info, const QString& title) {
  ShowPreview(Document(content, info, title));
}

void PreviewGridAfterSetup(const GridContent& content, const GridPrintInfo& info,
                           const QString& title) {
  QPageLayout layout = RememberedPageLayout(info.paperKind);
  if (!AskPageSetup(layout, info.paperKind)) return;
  PreviewGrid(content, info, title);
}

}  // namespace tevra
