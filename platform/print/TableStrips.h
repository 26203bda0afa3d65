// Distributes the columns of a table over pages that may be narrower than the table.
#pragma once

#include <vector>

namespace tevra {

struct TableStrips {
  double scale = 1;                      ///< of the table's fonts and heights
  std::vector<double> widths;            ///< of each column, scaled
  std::vector<std::vector<int>> strips;  ///< the columns of each strip; at least one strip
};

/// The smallest scale at which a table is easy to read.
inline constexpr double kLeastTableScale = 0.7;

/// Distributes columns over pages; all widths have the same unit. Columns that nearly fill the page
/// are widened to fill it. Columns too wide for it are scaled down to kLeastTableScale at most; if
/// that is not enough they are divided into strips, each of which begins with the first column. No
/// column is wider than the page, and the first column takes at most half of a strip's page.
TableStrips DivideColumns(std::vector<double> widths, double pageWidth);

}  // namespace tevra
