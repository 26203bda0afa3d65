// The depreciation of one asset projected over the calendar years of its life: a closed function of
// the asset's parameters. The years carry rounded values from one to the next, so a plan need not
// agree to the leu with the months that are calculated.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/text/DateTime.h"

namespace tevra {

/// What a plan needs of an asset; the members bear the fields' names, an empty one is Null. Values
/// are in lei, those ending in VAL in the asset's currency.
struct PlanParameters {
  char TIP_AM = '\0';  ///< see MethodCode
  bool BLOCATA = false;
  std::optional<DateTime> DATA_IN_AM;
  std::optional<DateTime> DATA_SF;
  std::optional<DateTime> DATA_BLOCARE;
  std::optional<double> VAL_CUMP;
  std::optional<double> VAL_CUMP_VAL;
  std::optional<double> VALCHELEI;
  std::optional<double> VALCHEVAL;
  std::optional<double> VAL_BLOCATA;
  std::optional<double> VAL_BLOCATA_VAL;
  std::optional<double> COTA_ANUALA;  ///< annual rate, a fraction of 1
  std::optional<double> COEF;         ///< of the first phase, a fraction of 1
  std::optional<double> AD2;          ///< "N", "M": the year of the switch, counted from 0
  std::optional<double> DRFANI;       ///< years; the last year's number, counted from 0
  std::optional<double> DRBANI;       ///< the same for a blocked asset
};

/// The amounts of a year, all rounded to whole units.
struct PlanAmounts {
  double toDepreciate = 0;  ///< at the start of the year
  double depreciation = 0;  ///< of the year
  double cumulated = 0;     ///< at its end
  double remaining = 0;     ///< at its end

  bool operator==(const PlanAmounts&) const = default;
};

struct PlanYear {
  std::int16_t year = 0;
  PlanAmounts lei;
  std::optional<PlanAmounts> currency;  ///< nothing where the asset has no value in currency
};

/// The plan, a year for each calendar year until the value is depreciated; the last one takes all
/// that roundings left. A last year that is no whole number is the one of DATA_SF.
///
/// Throws Failure 94 "Invalid use of Null: FIELD" where a date, a rate, a duration or a value is
/// Null that every plan needs, and Failure 6 for years or amounts that their fields cannot hold.
[[nodiscard]] std::vector<PlanYear> DepreciationPlan(const PlanParameters& asset);

}  // namespace tevra
