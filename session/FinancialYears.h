// The financial years and the period of entry of a company, and when they fit together.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "platform/text/DateTime.h"

namespace tevra {

/// The dates in the order of their boxes: DATAIN, DATASN, DATAIN1, DATASN1, DATAIC, DATASC. One
/// that is missing fits any other.
using FinancialYears = std::array<std::optional<DateTime>, 6>;

/// What a save must refuse, in the user's words; nothing when the dates fit together.
std::optional<std::string> ValidateYears(const FinancialYears& dates);

/// What is told on leaving the date box `box` (0 to 5); nothing when its date fits the others.
std::optional<std::string> CheckLeftDate(const FinancialYears& dates, int box);

}  // namespace tevra
