// The depreciation of one asset projected over the calendar years of its life: a pure function of
// the asset's parameters. Each year starts from the rounded values of the one before, so a plan may
// differ by a few lei from the calculated months.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/text/DateTime.h"

namespace tevra {

/// The parameters of a plan. The members have the fields' names; an empty member is Null. Values
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
  std::optional<PlanAmounts> currency;  ///< empty when the asset has no value in currency
};

/// The plan: one element for each calendar year until the value is depreciated. The last year takes
/// everything that rounding left. When the last year's number is not a whole number, the year of
/// DATA_SF is the last one.
///
/// Throws Failure 94 "Invalid use of Null: FIELD" when a date, a rate, a duration or a value that
/// every plan needs is Null, and Failure 6 for years or amounts that their fields cannot store.
[[nodiscard]] std::vector<PlanYear> DepreciationPlan(const PlanParameters& asset);

}  // namespace tevra
