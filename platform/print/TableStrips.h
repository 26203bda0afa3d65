// How the columns of a table come onto pages that may be narrower.
#pragma once

#include <vector>

namespace tevra {

struct TableStrips {
  double scale = 1;                      ///< of the table's fonts and heights
  std::vector<double> widths;            ///< of each column, scaled
  std::vector<std::vector<int>> strips;  ///< the columns of each strip; at least one strip
};

/// The least scale at which a table is still read with ease.
inline constexpr double kLeastTableScale = 0.7;

/// Divides columns of these widths over pages of a width (one unit for all). Columns that nearly
/// fill the page are widened to fill it. Too wide together, all are made smaller down to
/// kLeastTableScale if that lets them fit; else they go into strips, each beginning with the first
/// column. No column is wider than the page, and of a strip's page the first leaves half.
TableStrips DivideColumns(std::vector<double> widths, double pageWidth);

}  // namespace tevra
