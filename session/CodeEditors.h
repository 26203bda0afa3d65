// The editors of the tables whose codes combos offer.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/Value.h"
#include "platform/forms/Adodc.h"
#include "platform/forms/DataCombo.h"

namespace tevra {

/// The fields of a row.
using CodeRow = std::vector<std::pair<std::string, Value>>;
using CodeAdded = std::function<void(const CodeRow& row)>;

/// Opens the editor of a table, which calls `added` for each row that the user adds there.
using CodeEditor = std::function<void(const CodeAdded& added)>;

/// Sets the editor of a table, by the table's name without case.
void SetCodeEditor(const std::string& table, CodeEditor editor);

/// Gives a combo over a table with an editor a button and the key F4, which open the editor. A row
/// that is added there is chosen in the combo, when the combo's list has it.
void OfferCodeEditor(DataCombo& combo, Adodc& source);

}  // namespace tevra
