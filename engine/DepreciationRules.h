// The depreciation of one fixed asset at a date: a closed function of its stored parameters and
// that date. Nothing is accumulated from month to month, so a run for any date overwrites the one
// before.
#pragma once

#include <cstdint>
#include <optional>

#include "engine/Method.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// What the rules read of an asset's row and never write. The members bear the fields' names; an
/// empty one is Null. Values are in lei, those ending in _VAL in the asset's currency.
struct AssetParameters {
  char TIP_AM = '\0';           ///< see MethodCode
  std::optional<bool> BLOCATA;  ///< Null is not False, so the rules take it as blocked
  bool IESIRE = false;          ///< Null is not True: give false
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

/// The fields that a calculation may write. They go in with their stored values, and those that the
/// rules do not write come out as they were: one UPDATE of them all suits every case.
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

/// How an asset stands towards the register at a date.
enum class Presence {
  kActive,       ///< has not left
  kExitPending,  ///< has left, but later than the date
  kGone,         ///< left on the date or before
};

/// By IESIRE and DATA_IESIRE. Throws Failure 94 when an asset that has left has no date of exit.
Presence PresenceAt(const AssetParameters& asset, const DateTime& dataCalcul);

/// Brings `fields` to `dataCalcul` as the monthly run does: an asset that is gone gets zeros in its
/// cumulated and remaining values and its rate; a TIP_AM other than L, A, N, M, F changes nothing.
///
/// A Null value in currency leaves Null in the currency results that come of it. Throws Failure 94
/// "Invalid use of Null: FIELD" when a date or a value in lei that is needed at this date is Null,
/// and Failure 6 "Overflow: FIELD" for a result that its field cannot hold; `fields` is then
/// unchanged.
void CalculateForMonth(const AssetParameters& asset, const DateTime& dataCalcul,
                       CalculatedFields& fields);

/// Brings `fields` to `dataCalcul` as a disposal needs it: as if the asset had not left, without
/// any regard for VALCHELEI and VALCHEVAL. Throws as CalculateForMonth, and Failure 6 too for a
/// count of months beyond 16 bits.
void CalculateSingle(const AssetParameters& asset, const DateTime& dataCalcul,
                     CalculatedFields& fields);

}  // namespace tevra
