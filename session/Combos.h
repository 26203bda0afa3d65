// Filling the combos of the screens from the company.
#pragma once

#include <QComboBox>
#include <string>

#include "platform/forms/Adodc.h"
#include "platform/forms/DataCombo.h"

namespace tevra {

/// Gives the data source the company's connection and the statement, and the combo that source, the
/// column to list and the one that an entry stands for. A failure is shown.
void LoadDataCombo(Adodc& source, DataCombo& combo, const std::string& sql,
                   const std::string& listField, const std::string& boundColumn,
                   const Values& params = {});

/// Fills a plain combo by its own name. A name that has no list is told and fills nothing; a
/// failure is shown.
void LoadComboBox(QComboBox& combo);

/// The code of an entry: what stands before the first separator, or the whole text.
std::string CodeOf(const std::string& entry, char separator = '-');

}  // namespace tevra
