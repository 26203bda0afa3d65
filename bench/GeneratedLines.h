// Accounting lines of a generated company.
#pragma once

#include "bench/GeneratedCompany.h"

namespace tevra::bench {

/// Adds notes of two lines each, spread over all days of 2006 in the order of their numbers, on 40
/// accounts of charges and 20 of depreciation, with the suppliers of the company as third parties.
void AddLines(const GeneratedCompany& company, int lines);

}  // namespace tevra::bench
