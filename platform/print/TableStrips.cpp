#include "platform/print/TableStrips.h"

#include <algorithm>
#include <numeric>

namespace tevra {
namespace {

constexpr double kMostWidening = 1.25;

std::vector<double> Scaled(std::vector<double> widths, double scale) {
  for (double& width : widths) width *= scale;
  return widths;
}

// Every strip but the first begins with the first column too.
void BreakIntoStrips(TableStrips& table, double pageWidth) {
  std::vector<double>& widths = table.widths;
  widths[0] = std::min(widths[0], pageWidth / 2);
  double used = 0;
  for (std::size_t column = 0; column < widths.size(); ++column) {
    if (column > 0) widths[column] = std::min(widths[column], pageWidth - widths[0]);
    if (table.strips.empty() || used + widths[column] > pageWidth) {
      table.strips.emplace_back();
      used = 0;
      if (column > 0) {
        table.strips.back().push_back(0);
        used = widths[0];
      }
    }
    table.strips.back().push_back(static_cast<int>(column));
    used += widths[column];
  }
}

}  // namespace

TableStrips DivideColumns(std::vector<double> widths, double pageWidth) {
  for (double& width : widths) width = std::clamp(width, 1.0, std::max(1.0, pageWidth));
  const double total = std::accumulate(widths.begin(), widths.end(), 0.0);
  TableStrips table;
  if (total > pageWidth && pageWidth < total * kLeastTableScale) {
    table.widths = std::move(widths);
    BreakIntoStrips(table, pageWidth);
    return table;
  }
  if (total > pageWidth) table.scale = pageWidth / total;
  const bool fills = total > pageWidth || total * kMostWidening >= pageWidth;
  table.widths = fills ? Scaled(std::move(widths), pageWidth / total) : std::move(widths);
  table.strips.emplace_back(table.widths.size());
  std::iota(table.strips[0].begin(), table.strips[0].end(), 0);
  return table;
}

}  // namespace tevra
