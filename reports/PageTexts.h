// What the pages of every report show beside the texts of its own design.
#pragma once

#include <optional>

#include "platform/print/BandedLayout.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// The name and code of the company that is open; the code alone where the name is empty.
std::string CompanyOnPaper();

/// Adds to every page a line with the company and the day to which the assets were calculated, and
/// to its footer the day of printing; in the language of the paper.
void AddPageTexts(ReportLayout& design, const std::optional<DateTime>& calculated, bool english);

}  // namespace tevra
