// Which columns a grid shows, in which order and how wide, as one text that the settings keep.
#pragma once

#include <string>
#include <vector>

class QHeaderView;

namespace tevra {

/// "NRCRT=60 COD=90 LOC=0": from left to right, widths in pixels, 0 for a hidden column.
/// `fields`: of the columns, in the grid's own numbering.
std::string ArrangementOf(const QHeaderView& header, const std::vector<std::string>& fields);

/// Arranges the header by the text. A column that the text does not name stands behind the others,
/// as it was; what cannot be read is passed over, and a text that would hide every column does
/// nothing.
void Arrange(QHeaderView& header, const std::vector<std::string>& fields, const std::string& text);

}  // namespace tevra
