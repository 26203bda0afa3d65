// Fills the combos of the screens from the company.
#pragma once

#include <QComboBox>
#include <string>

#include "platform/forms/Adodc.h"
#include "platform/forms/DataCombo.h"

namespace tevra {

/// Sets the data source's connection and statement, and the combo's source, the column to list and
/// the column with an entry's value. A failure is shown.
void LoadDataCombo(Adodc& source, DataCombo& combo, const std::string& sql,
                   const std::string& listField, const std::string& boundColumn,
                   const Values& params = {});

/// Shows the entry of a code. `statement`: returns its text, which is shown for a code that the
/// list lacks. A code that is in no table any more leaves the combo empty. Throws Failure.
void ShowCode(DataCombo& combo, const std::string& statement, const std::string& code);

/// Fills a plain combo by its own name. An unknown name shows a message and fills nothing; a
/// failure is shown.
void LoadComboBox(QComboBox& combo);

/// The code of an entry: the part before the first separator, or the whole text.
std::string CodeOf(const std::string& entry, char separator = '-');

}  // namespace tevra
