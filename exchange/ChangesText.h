// The sentences in which an import says what it changes.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "exchange/ImportFile.h"

namespace tevra {

/// New rows and third parties with another code here: kind, code in the file, name, code here.
using ChangeRow = std::array<std::string, 4>;
std::vector<ChangeRow> ChangeRows(const ImportChanges& changes);

/// The captions of these columns.
inline constexpr std::array kChangeCaptions{"Fel", "Cod in fisier", "Denumire", "Cod aici"};

/// "12 linii noi, 10 linii inlocuite; debit 1.234,50, credit 1.234,50".
std::string LinesText(const ImportChanges& changes);

/// What is allowed but looks wrong: sums that differ, lines outside the period, third parties that
/// cannot be matched.
std::vector<std::string> ImportWarnings(const ImportChanges& changes);

}  // namespace tevra
