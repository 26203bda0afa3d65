// The currency of a report as a user may write it.
#pragma once

#include <optional>
#include <string>

#include "platform/data/Connection.h"

namespace tevra {

/// The currency's code in the spelling of the company's list, "LEI" too. `written`: the code or the
/// list's text "EUR-Euro", in any case, blanks around it do not count. Nothing for a currency that
/// the company does not have. Throws Failure.
std::optional<std::string> FindReportCurrency(Connection& connection, const std::string& written);

}  // namespace tevra
