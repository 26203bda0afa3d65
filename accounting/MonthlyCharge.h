// The depreciation of one month, as the assets' rates of the last run give it.
#pragma once

#include <string>

#include "platform/data/Value.h"

namespace tevra {

/// The charge of an asset over the columns of I_IMO, in the statements' dialect; Null when one of
/// its values is.
inline constexpr const char* kMonthlyCharge =
    "IIF(BLOCATA=-1,VAL_BLOCATA * COTAL_LUNARA,(VAL_CUMP - VALCHELEI) * cotal_lunara)";

/// The charge as it is posted: rounded to bani, asset by asset. Null stays Null.
Value PostedCharge(const Value& charge);

/// The same within a statement.
std::string PostedChargeExpression();

}  // namespace tevra
