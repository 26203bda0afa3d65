// The depreciation of one fixed asset at a date: a pure function of its stored parameters and that
// date. Nothing is accumulated from month to month, so a run for any date replaces the previous
// run.
#pragma once

#include <cstdint>
#include <optional>

#include "engine/Method.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// The fields of an asset's row that the rules read and never write. The members have the fields'
/// names; an empty one is Null. Values are in lei, those ending in _VAL in the asset's currency.
struct AssetParameters {
  char TIP_AM = '\0';           ///< see MethodCode
  std::optional<bool> BLOCATA;  ///< Null is not False, so the rules take it as blocked
  bool IESIRE = false;          ///< false for Null
  std::optional<DateTime> DATA_IESIRE;
  std::optional<DateTime> DATA_ACH;
  std::optional<DateTime> DATA_IN_AM;
  std::optional<DateTime> DATA_AMORT;
  std::optional<DateTime> DATA_SF;
  std::optional<DateTime> DATA_BLOCARE;
  std::optional<double> VAL_CUMP;
  std::optional<double> VAL_CUMP_VAL;
  std::optional<double> VAL_BLOCATA;
  std::optional<double> VAL_BLOCATA_VAL;
  std::optional<double> COTA_ANUALA;  ///< annual rate, a fraction of 1
  std::optional<double> COEF;         ///< share of the first year or phase, a fraction of 1
};

/// The fields that a calculation may write. The caller passes their stored values; fields that the
/// rules do not write keep them, so one UPDATE of all fields is right in every case.
struct CalculatedFields {
  std::optional<DateTime> DATA_CALCUL;
  std::optional<std::int32_t> DALUNI;  ///< months
  std::optional<double> COTAL_LUNARA;  ///< monthly rate, a fraction of 1
  std::optional<double> VAL_AMOR_CUMULATA;
  std::optional<double> VAL_AMOR_CUMULATA_VAL;
  std::optional<double> VAL_RAMASA;
  std::optional<double> VAL_RAMASA_VAL;
  std::optional<double> VALCHELEI;  ///< lei taken directly to expenses; also read, by "L"
  std::optional<double> VALCHEVAL;

  bool operator==(const CalculatedFields&) const = default;
};

/// The state of an asset at a date.
enum class Presence {
  kActive,       ///< has not left
  kExitPending,  ///< has left, but later than the date
  kGone,         ///< left on the date or before
};

/// Determined by IESIRE and DATA_IESIRE. Throws Failure 94 when an asset that has left has no date
/// of exit.
Presence PresenceAt(const AssetParameters& asset, const DateTime& dataCalcul);

/// Calculates `fields` for `dataCalcul` like the monthly run. For an asset that has left, the
/// cumulated and remaining values and the rate become 0. A TIP_AM other than L, A, N, M, F changes
/// nothing.
///
/// A Null value in currency gives Null in the currency results that depend on it. Throws Failure 94
/// "Invalid use of Null: FIELD" when a date or a value in lei that is needed at this date is Null,
/// and Failure 6 "Overflow: FIELD" for a result that its field cannot store; `fields` is then
/// unchanged.
void CalculateForMonth(const AssetParameters& asset, const DateTime& dataCalcul,
                       CalculatedFields& fields);

/// Calculates `fields` for `dataCalcul` as a disposal needs them: as if the asset had not left, and
/// without VALCHELEI and VALCHEVAL. Throws like CalculateForMonth, and Failure 6 also for a number
/// of months beyond 16 bits.
void CalculateSingle(const AssetParameters& asset, const DateTime& dataCalcul,
                     CalculatedFields& fields);

}  // namespace tevra
