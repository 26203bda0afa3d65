// The financial years and the period of entry of a company, and the checks between them.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "platform/text/DateTime.h"

namespace tevra {

/// The dates in the order of their boxes: DATAIN, DATASN, DATAIN1, DATASN1, DATAIC, DATASC. A
/// missing date is not compared.
using FinancialYears = std::array<std::optional<DateTime>, 6>;

/// The message with which a save is refused; nothing when the dates are consistent.
std::optional<std::string> ValidateYears(const FinancialYears& dates);

/// The message on leaving the date box `box` (0 to 5); nothing when its date fits the others.
std::optional<std::string> CheckLeftDate(const FinancialYears& dates, int box);

}  // namespace tevra
