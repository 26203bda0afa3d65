// The visible columns of a grid, their order and widths, as one text for the settings.
#pragma once

#include <string>
#include <vector>

class QHeaderView;

namespace tevra {

/// "NRCRT=60 COD=90 LOC=0": from left to right, widths in pixels, 0 for a hidden column.
/// `fields`: the columns' fields, in the grid's numbering.
std::string ArrangementOf(const QHeaderView& header, const std::vector<std::string>& fields);

/// Arranges the header by the text. A column that is missing in the text comes after the others,
/// unchanged; unreadable parts are skipped, and a text that would hide all columns has no
/// effect.
void Arrange(QHeaderView& header, const std::vector<std::string>& fields, const std::string& text);

}  // namespace tevra
