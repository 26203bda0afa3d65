// The result of an end of the month, for people and for other programs.
#pragma once

#include <ostream>

#include "app/batch/monthend/CompanyMonth.h"

namespace tevra::batch {

/// The line above all companies; then each company as soon as it is done; then the line below.
void WriteMonthEndTitle(const MonthEndResult& run, std::size_t companies, std::ostream& out);
void WriteCompanyMonth(const CompanyMonth& company, bool dryRun, std::ostream& out);
void WriteMonthEndSum(const MonthEndResult& run, std::ostream& out);

/// The whole run as a JSON document. Its keys are described in the guide and stay.
void WriteMonthEndJson(const MonthEndResult& run, std::ostream& out);

}  // namespace tevra::batch
