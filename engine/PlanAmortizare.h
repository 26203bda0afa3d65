// The depreciation plan of an asset as the work table I_PLANAMO holds it.
#pragma once

#include <string>

#include "platform/data/Connection.h"

namespace tevra {

/// Why an asset has no plan: it has left, or it is not depreciated. Nothing when it may have one.
/// The values are those of the fields.
const char* PlanRefusal(const Value& iesire, const Value& tipAm);

/// Puts the plan of an asset into I_PLANAMO, in the place of the one before, and returns the number
/// of its years. One transaction. Throws Failure with the plan before still there: 3021 for an
/// asset that is not there, and as DepreciationPlan.
int MakePlan(Connection& connection, const std::string& nrcrt);

/// The same for the open company. A failure is shown ("Eroare la salvare !").
void PlanAmortizare(const std::string& nrcrt);

}  // namespace tevra
