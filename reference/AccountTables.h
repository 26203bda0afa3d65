// The descriptions of the tables about accounts.
#pragma once

#include "reference/ReferenceTable.h"

namespace tevra {

ReferenceTable AccountLinks();  ///< asset accounts with their depreciation and expense accounts
ReferenceTable Accounts();      ///< the chart of accounts
ReferenceTable Journals();
ReferenceTable VatRates();

}  // namespace tevra
