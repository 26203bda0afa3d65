// The steps that merge the work tables of an import into the company.
#pragma once

#include <string>

#include "exchange/ImportFile.h"

namespace tevra {

/// Each works within the caller's transaction, adds to `changes` and throws Failure.
void PrelCentreCost(Connection& company, ImportChanges& changes);
void PrelJurnale(Connection& company, ImportChanges& changes);

/// New accounts come without their cost centre and sums, which belong to the branch.
void PrelPlanCont(Connection& company, ImportChanges& changes);

/// A third party of the same name is the same one, and its code here counts. New ones get the next
/// codes. [Terti - Asocieri CS] gets a pair for each that has another code here. Throws Failure 6
/// for a code above 32,767.
void PrelTerti(Connection& company, const std::string& code, ImportChanges& changes);

/// Gives the notes numbers behind those of the company, the lines the third parties of the company,
/// and replaces an earlier import of the period.
void PrelLinii(Connection& company, const ExchangeHeader& header, ImportChanges& changes);

}  // namespace tevra
