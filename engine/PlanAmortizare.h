// The depreciation plan of an asset in the work table I_PLANAMO.
#pragma once

#include <string>

#include "platform/data/Connection.h"

namespace tevra {

/// Why an asset has no plan: it has left, or it is not depreciated. Nothing when it may have one.
/// The values are those of the fields.
const char* PlanRefusal(const Value& iesire, const Value& tipAm);

/// Replaces the content of I_PLANAMO by the plan of an asset, in one transaction, and returns the
/// number of its years. Throws Failure and keeps the previous plan: 3021 for an unknown asset,
/// otherwise like DepreciationPlan.
int MakePlan(Connection& connection, const std::string& nrcrt);

/// The same for the open company. A failure is shown ("Eroare la salvare !").
void PlanAmortizare(const std::string& nrcrt);

}  // namespace tevra
