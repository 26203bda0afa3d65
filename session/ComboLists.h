// The lists of the screens' plain combos: a statement for each combo's name.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tevra {

/// The statement of a combo's list; nothing for an unknown name.
std::optional<std::string> ComboStatement(const std::string& comboName);

/// The first field of every row of the combo's list; the single entry "0-Nu exista inregistrari !"
/// when there is no row. Throws Failure; 5 for a name that has no statement.
std::vector<std::string> ComboEntries(const std::string& comboName);

}  // namespace tevra
